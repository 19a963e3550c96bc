#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// How a part of a caption looks.
struct RunStyle {
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;
  std::optional<std::uint32_t> colour;  ///< 0xRRGGBB

  bool operator==(const RunStyle&) const = default;
};

/// A part of a caption that looks the same from its beginning to its end.
struct StyledRun {
  Text text;
  RunStyle style;

  bool operator==(const StyledRun&) const = default;
};

/// Where captions stand unless they say otherwise: the keys of a number pad show the nine places.
inline constexpr int kUsualPlace = 2;

}  // namespace cuewright
