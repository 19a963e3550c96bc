#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "formats/source/markup.h"
#include "text/codec.h"

namespace cuewright {

/// What the head of an EBU subtitle file says of its texts.
struct EbuTexts {
  std::shared_ptr<const Codec> codec;  ///< of the Cyrillic, Arabic, Greek or Hebrew part of ISO 8859; null: Latin
  bool teletext = false;               ///< texts have codes of teletext: colours, which take a place each, and boxes
};

/// The codec of a character table by its number in the head; null for Latin and for those that there are not.
std::shared_ptr<const Codec> CodecOfEbuTable(int table);

/// The text of a caption from the text fields of its blocks, put together and without what is unused.
StyledText ReadEbuText(std::string_view field, const EbuTexts& texts, TextView separator);

/// The opposite, in the way of the field that it replaces: its line ends, its codes around each line. Runs have their
/// line separators in them. A letter that the table lacks becomes "?"; `held` is false then.
std::string WriteEbuText(const std::vector<StyledRun>& runs, std::string_view old, const EbuTexts& texts,
                         TextView separator, bool& held);

}  // namespace cuewright
