#pragma once

#include <ostream>
#include <string>

#include "core/caption_list.h"
#include "text/text.h"

namespace cuewright {

inline void PrintTo(const Caption& caption, std::ostream* out) {
  *out << "{" << caption.start << ", " << caption.end << ", \"" << ToUtf8(caption.text) << "\"}";
}

}  // namespace cuewright
