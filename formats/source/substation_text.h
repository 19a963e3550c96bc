#pragma once

#include "text/text.h"

namespace cuewright {

/// Text of an event as the list has it. Hard breaks become the separator, hard blanks themselves, and overrides that do
/// no more than to set a style for all of the text its markers. `closes` is set when there are such: whether another
/// override ended the style behind the text.
void DecodeEventText(Text& text, TextView separator, bool& closes);

/// The opposite.
Text EncodeEventText(TextView text, TextView separator, bool closes);

}  // namespace cuewright
