#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/ms.h"

namespace cuewright {

/// How a TTML file counts: frames and ticks of a second, as its root element tells.
struct TtmlClock {
  std::int64_t frames = 30;  ///< per `inSeconds`
  std::int64_t inSeconds = 1;
  std::int64_t subFrames = 1;  ///< of a frame
  std::int64_t ticks = 0;      ///< of a second; 0: the file doesn't tell

  /// The time that a text tells in any of the format's forms: "00:00:12.4", "00:00:12:10", "12.4s", "310f", "124000t".
  std::optional<Ms> TimeOf(std::string_view time) const;
  /// A time in the form of another, to its nearest step.
  std::string Like(Ms ms, std::string_view form) const;

 private:
  std::int64_t TicksPerSecond() const;
};

}  // namespace cuewright
