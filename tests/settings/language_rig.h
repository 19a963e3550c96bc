#pragma once

#include <map>

#include "platform/posix_files.h"
#include "settings/languages.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"

namespace cuewright::testing {

/// A system whose locales the test writes down.
class FakeLocale final : public Locale {
 public:
  Text GetLocaleText(std::int32_t locale, std::int32_t item) const override {
    if (failure) throw *failure;
    const auto at = texts.find({locale, item});
    return at == texts.end() ? Text() : at->second;
  }
  bool IsValidLocale(std::int32_t locale) const override {
    if (failure) throw *failure;
    return names.contains(locale);
  }
  Text LanguageName(std::int32_t locale) const override { return names.at(locale); }
  std::optional<int> WindowCodePage() const override { return windowCodePage; }
  std::optional<Text> Recode(TextView text, int toCodePage, int fromCodePage) const override {
    if (toCodePage == 0) return std::nullopt;
    return Text(text) + u"|" + Decimal(toCodePage) + u">" + Decimal(fromCodePage);
  }

  std::map<std::pair<std::int32_t, std::int32_t>, Text> texts;
  std::map<std::int32_t, Text> names;
  std::optional<RuntimeError> failure;
  std::optional<int> windowCodePage;
};

/// The languages with a program's folder and a folder for files of their own.
struct LanguageRig {
  LanguageRig() {
    folders.AppFolder = folder / "";
    folders.TempFolder = temp / "";
    std::filesystem::create_directory(folder.Path() / "languages");
  }

  /// Puts a language's file into the program's folder.
  void Block(const std::string& name, const std::string& content) const {
    folder.Write("languages/" + name + ".txt", content);
  }
  /// The start with this language in the settings.
  void StartIn(TextView language) {
    options.language = language;
    languages.BuildLanguageTable();
    languages.LoadStored();
  }
  /// The start without settings, for a user of this language and code page.
  void FirstStart(TextView language, TextView codePage) {
    locale.texts[{kUserLocale, kEnglishLanguageName}] = language;
    locale.texts[{kUserLocale, kAnsiCodePage}] = codePage;
    languages.BuildLanguageTable();
    languages.LoadStored();
  }

  TempFolder folder;
  TempFolder temp;
  PosixFiles files;
  FakeMessages boxes;
  FakeEventQueue events;
  FakeLocale locale;
  AppOptions options;
  LangStrings strings;
  MessageCatalogue catalogue;
  Folders folders;
  Languages languages{{options, strings, catalogue, folders, files, boxes, events, locale}};
};

/// The numbers of all messages but some, each with a text, as the file of a language.
inline std::string BlockWithout(const std::vector<int>& missing) {
  std::string content;
  for (int id = 0; id < static_cast<int>(kMessageCount); ++id) {
    if (std::find(missing.begin(), missing.end(), id) != missing.end()) continue;
    content += std::to_string(id) + "\ttext " + std::to_string(id) + "\n";
  }
  return content;
}

}  // namespace cuewright::testing
