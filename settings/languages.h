#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <vector>

#include "core/app_options.h"
#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/event_queue.h"
#include "core/ports/files.h"
#include "core/ports/locale.h"
#include "core/ports/messages.h"
#include "settings/messages.h"

namespace cuewright {

inline constexpr std::size_t kLanguageCount = 25;

/// A row of the language table; numbers stand as decimal text.
struct LanguageRow {
  Text codePage;
  Text localeId;
  Text name;         ///< "PORTUGUESE_BR", by which the settings know it
  Text displayName;  ///< in the words of the user's system
};

/// A Windows character set by number and name.
struct Charset {
  std::int16_t number = 0;
  Text name;

  bool operator==(const Charset&) const = default;
};

/// The character set of an ANSI code page; 0 and "WESTERN_EUROPEAN_LATIN" for one that isn't known.
Charset CharsetOfCodePage(int codePage);

/// What the languages work on.
struct LanguageParts {
  AppOptions& options;
  LangStrings& strings;
  MessageCatalogue& catalogue;
  const Folders& folders;
  Files& files;
  Messages& messages;
  EventQueue& events;
  const Locale& locale;
};

/// The languages of the program: the table, the one in force (by name and row in the options), and the filling of the
/// strings with its block of the catalogue. Blocks other than English are files "languages/NAME.txt" in the program's
/// folder, read when they are first wanted; one that is missing or damaged leaves English in place.
class Languages {
 public:
  explicit Languages(const LanguageParts& parts);

  /// Fills the language table and the character set of the user's locale. Failures are told in a box.
  void BuildLanguageTable();
  /// Takes the character set of the user's locale.
  void ReadUserCharset();
  /// After the settings were read: takes the language that they name, or on a first run that of the user's locale, and
  /// loads its strings.
  void LoadStored();
  /// Takes the language of the user's locale, or `fallback` where that is none of the table's.
  void DetectLanguage(TextView fallback);
  /// Makes a row of the table the language in force; its strings come with the next load.
  void Select(std::size_t row);
  /// Fills all strings and gives how much of the language is there, in percent (two missing texts still count as
  /// 100). With `makeFile` it also writes the translation file and then lets events go on for 500 ms.
  int LoadLanguageStrings(bool makeFile);

  const std::array<LanguageRow, kLanguageCount>& LanguageTable() const { return table_; }
  bool IsRightToLeft() const { return rightToLeft_; }
  /// The character set of the user's locale, not of the language.
  std::int16_t ListCharset() const { return charset_.number; }
  const Text& ListCharsetName() const { return charset_.name; }
  /// True when no language was ever stored, until the settings dialog has been shown.
  bool FirstRun() const { return firstRun_; }
  void EndFirstRun() { firstRun_ = false; }

  Charset GetCharsetOfLocale(std::int32_t locale) const;
  /// The text as a control that isn't Unicode has to be given it, so that it shows right in the language in force;
  /// unchanged where the windows are Unicode, and on any failure.
  Text ToLanguageCodePage(TextView text) const;
  /// The position of a row's display name among the items of a list; 0 when it isn't there.
  int FindLanguageInList(std::size_t row, const std::vector<Text>& items) const;
  /// The row of a display name; the row in force when there is none such.
  std::size_t RowOfDisplayName(TextView displayName) const;

  /// True when the language's code page isn't that of the user's locale.
  bool NeedsNotice() const;
  /// The texts of the notice: a heading, the language of the user's locale, the language required.
  struct NoticeTexts {
    Text lblWarning;
    Text lblCurrLang;
    Text lblReqLang;
    Charset charset;  ///< the character set of the font for these three texts
  };
  NoticeTexts Notice() const;
  /// "178 - ARABIC_CHARSET".
  Text CharsetText() const;

  /// Where the translation file of the language in force is written.
  Text TranslationFilePath() const;
  /// What is said after the translation file was written.
  const Text& TranslationFileMessage() const;
  /// What the details area says about a completeness in percent; in English in every language.
  Text CompletionHint(int percent) const;

 private:
  void ReadTableRow(int row);
  void LoadBlock(std::size_t row);
  std::int32_t LocaleOfLanguage() const;
  const Text& CatalogueString(int id) const;
  Text TranslationHeader() const;
  void WriteTranslationFile(const Text& content);

  LanguageParts p_;

  std::array<LanguageRow, kLanguageCount> table_;
  std::bitset<kLanguageCount> loaded_;
  bool rightToLeft_ = false;
  bool firstRun_ = false;
  Charset charset_;
};

}  // namespace cuewright
