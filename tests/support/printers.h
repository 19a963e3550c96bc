#pragma once

#include <ostream>
#include <string>

#include "core/caption_list.h"
#include "text/text.h"

namespace cuewright {

inline std::ostream& operator<<(std::ostream& out, Ms ms) { return out << ms.Count(); }
inline std::ostream& operator<<(std::ostream& out, Row row) { return out << row.Number(); }

inline void PrintTo(const Caption& caption, std::ostream* out) {
  *out << "{" << caption.start.Count() << ", " << caption.end.Count() << ", \"" << ToUtf8(caption.text) << "\"}";
}

}  // namespace cuewright
