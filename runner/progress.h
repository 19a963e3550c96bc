#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cuewright {

/// How far a run is.
struct RunProgress {
  std::optional<double> fraction{};  ///< 0 to 1
  std::optional<std::int64_t> secondsLeft{};
};

/// Tells the time that is left from the speed so far.
class TimeLeft {
 public:
  /// Seconds from now to the end, for `fraction` of the work done after `elapsedMs`; empty while too little is done to
  /// tell.
  static std::optional<std::int64_t> Of(std::optional<double> fraction, std::int64_t elapsedMs);
};

/// "0:07", "12:34", "1:02:03".
std::string TimeLeftText(std::int64_t seconds);

/// The text without what could move a terminal's cursor or break a line: control characters become "?", bytes that are
/// no UTF-8 too. Line feeds stay with `keepLines`.
std::string Printable(std::string_view bytes, bool keepLines);

/// The exit status by which the window of a run says that the user cancelled it.
inline constexpr int kWindowCancelled = 10;
/// What that window writes to its output before it ends so.
inline constexpr std::string_view kCancelLine = "cancel\n";

/// What a run tells its window; each piece is a line.
struct WindowLine {
  enum class Kind { File, Progress, Failure };
  Kind kind = Kind::Progress;
  std::string text{};  ///< the file in work, or the reason of the failure
  RunProgress progress{};
};

/// The line with its end.
std::string FormatWindowLine(const WindowLine& line);
/// The opposite, for a line without its end; nothing for a line that is none of these.
std::optional<WindowLine> ReadWindowLine(std::string_view line);

}  // namespace cuewright
