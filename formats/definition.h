#pragma once

#include <cstdint>
#include <unordered_map>

#include "core/ports/settings_reader.h"
#include "formats/catalogue.h"
#include "formats/file_progress.h"
#include "formats/format_state.h"
#include "text/text.h"

namespace cuewright {

/// How a format writes times. The masks of "ms" and "ff" are "0"; for these two the other three texts are not set and
/// keep what the format before had.
struct TimecodeForm {
  Text timecodeTemplate;  ///< lower case
  Text timecodeMask;      ///< every digit as "0"
  Text timecodeCompact;   ///< the template with one letter a group
  Text hourPicture;       ///< "00" or "0"
  Text fractionPicture;   ///< "000", "00" or "0"
};

/// The record of the format in force; after a load that failed, as far as that load came.
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

/// Loads formats into the one definition. Each load gives what reading both files anew would give; only what can't
/// change in a run is kept between loads.
class FormatLoader {
 public:
  FormatLoader(const FormatCatalogue& catalogue, FormatState& state, const SettingsReader& settings,
               const FormatTalk& talk)
      : catalogue_(catalogue), state_(state), settings_(settings), talk_(talk) {}

  /// Puts the format in force; true when it was loaded whole. A format that is incomplete is told by
  /// `Message::FormatIncorrect`, at most once in a run. Run-time error 6 when its tag flags don't fit 8 bits.
  bool LoadFormatDefinition(TextView formatId);

  /// The same, and makes it the current format, which the status label tells.
  bool SelectFormat(TextView formatId);

  /// Takes over the format's timecode alone; no definition is in force then.
  void LoadTimecode(TextView formatId);

  /// The record; import changes it for the time that a file is read.
  FormatDefinition& Definition() { return definition_; }
  const FormatDefinition& Definition() const { return definition_; }

 private:
  struct Parsed;

  const TimecodeForm& FormOf(TextView formatId);
  const Parsed& ParsedOf(TextView formatId);
  bool Fail(TextView formatId);

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
  FormatTalk talk_;
  FormatDefinition definition_;
  std::unordered_map<Text, TimecodeForm> forms_;
  std::unordered_map<Text, Parsed> parsed_;
  bool failureShown_ = false;
};

/// The formats there are, the one in force, and what puts another in force.
struct FormatSet {
  const FormatCatalogue& catalogue;
  FormatState& state;
  FormatLoader& loader;

  const Text& CurrentIdentifier() const { return catalogue.Identifier(state.CurrentFormatIndex); }
};

}  // namespace cuewright
