#pragma once

#include <unicode/unistr.h>

#include <cstdint>

#include "text/text.h"

namespace cuewright {

/// A text as ICU takes it, without a copy: good as long as the text stays as it is.
inline icu::UnicodeString Aliased(TextView text) {
  return icu::UnicodeString(false, text.data(), static_cast<std::int32_t>(text.size()));
}

/// What ICU gives, as a text.
inline Text TextOf(const icu::UnicodeString& given) {
  return Text(given.getBuffer(), static_cast<std::size_t>(given.length()));
}

}  // namespace cuewright
