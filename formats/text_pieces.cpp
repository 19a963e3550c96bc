#include "formats/text_pieces.h"

#include "core/runtime_error.h"

namespace cuewright {

TextView Middle(TextView text, std::ptrdiff_t place) {
  if (place < 1) ThrowInvalidCall();
  const std::size_t at = place - 1;
  return at < text.size() ? text.substr(at) : TextView();
}

TextView Middle(TextView text, std::ptrdiff_t place, std::ptrdiff_t count) {
  return Beginning(Middle(text, place), count);
}

TextView Beginning(TextView text, std::ptrdiff_t count) {
  if (count < 0) ThrowInvalidCall();
  return text.substr(0, count);
}

}  // namespace cuewright
