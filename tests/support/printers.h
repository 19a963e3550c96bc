#pragma once

#include <ostream>
#include <string>

#include "core/caption_list.h"
#include "text/text.h"

namespace cuewright {

inline void PrintTo(Ms ms, std::ostream* out) { *out << ms.Count() << " ms"; }

inline void PrintTo(const Caption& caption, std::ostream* out) {
  *out << "{" << caption.start.Count() << ", " << caption.end.Count() << ", \"" << ToUtf8(caption.text) << "\"}";
}

}  // namespace cuewright
