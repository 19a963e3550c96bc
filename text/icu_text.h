#pragma once

#include <unicode/unistr.h>

#include <cassert>
#include <cstdint>
#include <utility>

#include "text/text.h"

namespace cuewright {

/// The length of a text as ICU counts it. The texts of this program stay far below its limit.
inline std::int32_t LengthForIcu(TextView text) {
  assert(std::in_range<std::int32_t>(text.size()));
  return static_cast<std::int32_t>(text.size());
}

/// A text as ICU takes it, without a copy: valid as long as the text stays as it is.
inline icu::UnicodeString Aliased(TextView text) { return icu::UnicodeString(false, text.data(), LengthForIcu(text)); }

/// What ICU gives, as a text.
inline Text TextOf(const icu::UnicodeString& given) { return Text(given.getBuffer(), given.length()); }

}  // namespace cuewright
