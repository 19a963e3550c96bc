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
  bool teletext =
      false;  ///< texts have the codes of teletext: colours, each of which takes the place of a character, and boxes
};

/// The codec of a character table by its number in the head; null for Latin and for numbers without a table.
std::shared_ptr<const Codec> CodecOfEbuTable(int table);

/// The text of a caption from the text fields of its blocks, joined together and without their unused bytes.
StyledText ReadEbuText(std::string_view field, const EbuTexts& texts, TextView separator);

/// The field of a text, written as the field that it replaces: with its line ends and its codes around each line. The
/// runs contain the line separators. A letter that the table lacks becomes "?", and `held` is then set to false.
std::string WriteEbuText(const std::vector<StyledRun>& runs, std::string_view old, const EbuTexts& texts,
                         TextView separator, bool& held);

}  // namespace cuewright
