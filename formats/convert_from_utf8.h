#pragma once

#include "core/caption_list.h"
#include "text/encodings.h"

namespace cuewright {

/// Turns captions that were read as 8-bit text although they are UTF-8 into what they say. One splice; the modified
/// flag is left alone, and so is a caption that would end in the separator.
void ConvertCaptionsFromUtf8(CaptionList& captions, const Encodings& encodings);

}  // namespace cuewright
