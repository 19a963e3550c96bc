#include "formats/source/losses.h"

namespace cuewright {

std::string_view NameOf(Loss kind) {
  constexpr std::array<std::string_view, kLossKinds> kNames = {
      "bold",           "italics", "underline", "strike-through", "colours",    "speakers", "position",
      "exact position", "fonts",   "sizes",     "karaoke times",  "ruby",       "drawings", "effects",
      "style classes",  "remarks", "times",     "line breaks",    "other marks"};
  return kNames[NumberOf(kind)];
}

}  // namespace cuewright
