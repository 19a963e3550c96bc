#pragma once

#include <cstdint>
#include <unordered_map>

#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "core/ports/settings_reader.h"
#include "formats/catalogue.h"
#include "formats/format_host.h"
#include "formats/format_state.h"
#include "text/text.h"

namespace cuewright {

/// How a format writes times. The masks of "ms" and "ff" are "0" and the other three texts are then left over from
/// the format before.
struct TimecodeForm {
  Text timecodeTemplate;  ///< lower case
  Text timecodeMask;      ///< every digit as "0"
  Text timecodeCompact;   ///< the template with one letter a group
  Text hourPicture;       ///< "00" or "0"
  Text fractionPicture;   ///< "000", "00" or "0"
};

/// The one record of the format in force, as far as the last load came.
struct FormatDefinition : TimecodeForm {
  Text sampleText;
  Text lineBreak;
  std::uint8_t tagFlags = 0;  ///< 1 bold, 2 italic, 4 underline
  Text tagOpen;
  Text tagClose;
  Text headerText;
  Text footerText;
  Text recordText;
  bool captionAfterEnd = false;   ///< order start, end, caption; else start, caption, end
  bool singleLineRecord = false;  ///< one line, and its line break is no real one
  Text subCountPicture;           ///< empty: the record has no counter
  bool definitionFound = false;
};

/// The mask of a timecode template: h, m, s and z as "0", "ff" as "00"; `frames` false leaves "ff" alone.
Text MaskOfTimecode(TextView timecode, bool frames);

/// Loads formats into the one record. Each load gives what reading both files anew would give; only the parts that
/// can't change in a run are kept.
class FormatLoader {
 public:
  FormatLoader(const FormatCatalogue& catalogue, FormatState& state, const SettingsReader& settings,
               const LangStrings& strings, Messages& messages, FormatHost& host);

  /// Puts the format in force; true when it was loaded whole. `timecodeOnly` stops behind the timecode's texts and
  /// gives false. `select` makes it the current format and tells so in the status label. A format that is incomplete is
  /// told by `Message::FormatIncorrect`, at most once in a run. Run-time error 6 when its tag flags don't fit 8 bits.
  bool LoadFormatDefinition(TextView formatId, bool select, bool timecodeOnly);

  /// The record; import changes it for the time that a file is read.
  FormatDefinition& Definition() { return definition_; }
  const FormatDefinition& Definition() const { return definition_; }

  const FormatCatalogue& Catalogue() const { return catalogue_; }
  FormatState& State() { return state_; }
  FormatHost& Host() { return host_; }
  const LangStrings& Strings() const { return strings_; }
  Messages& Boxes() { return messages_; }

  /// The identifier of `CurrentFormatIndex`.
  const Text& CurrentIdentifier() const { return catalogue_.Identifier(state_.CurrentFormatIndex); }

  /// The header of the current format when the program builds it; empty otherwise.
  Text BuildBuiltInHeader() const;

  /// Fills "%1" of `Message::ImportingFile` or `Message::ExportingFile` with the format's display name.
  Text StatusText(Message message, TextView formatId) const;

 private:
  struct Parsed;

  const TimecodeForm& FormOf(TextView formatId);
  const Parsed& ParsedOf(TextView formatId);
  bool Fail(TextView formatId);
  void Select(TextView formatId);

  struct Parsed {
    Text sampleText;
    Text lineBreak;
    double tags = 0;
    Text tagOpen;
    Text tagClose;
    FormatBlock block;
    bool builtInHeader = false;
    bool captionAfterEnd = false;
    bool singleLineRecord = false;
    Text subCountPicture;
  };

  const FormatCatalogue& catalogue_;
  FormatState& state_;
  const SettingsReader& settings_;
  const LangStrings& strings_;
  Messages& messages_;
  FormatHost& host_;
  FormatDefinition definition_;
  std::unordered_map<Text, TimecodeForm> forms_;
  std::unordered_map<Text, Parsed> parsed_;
  bool failureShown_ = false;
};

}  // namespace cuewright
