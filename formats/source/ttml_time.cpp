#include "formats/source/ttml_time.h"

#include <algorithm>

#include "core/numbers.h"
#include "formats/source/clock_field.h"
#include "text/digits.h"

namespace cuewright {
namespace {

/// The time count in front of a unit: its whole part and its fraction in millionths.
struct Count {
  std::int64_t whole = 0;
  std::int64_t millionths = 0;
  std::size_t digits = 0;  ///< behind the dot
  std::string_view unit;
};

std::optional<Count> CountOf(std::string_view time) {
  const auto whole = ReadNumber(time);
  if (!whole) return {};
  Count count;
  count.whole = whole->number;
  std::size_t at = whole->size;
  if (at + 1 < time.size() && time[at] == '.' && IsDigit(time[at + 1])) {
    std::int64_t unit = 100000;
    for (++at; at < time.size() && IsDigit(time[at]); ++at) {
      count.millionths += (time[at] - '0') * unit;
      unit /= 10;
      ++count.digits;
    }
  }
  count.unit = time.substr(at);
  return count;
}

std::optional<Ms> Limited(std::int64_t ms) {
  if (ms < 0 || ms > Ms::Latest().Wide()) return {};
  return Checked32(ms).Value();
}

/// "hh:mm:ss" and behind it ":ff" or ":ff.s".
struct FrameTime {
  std::string_view clock;
  std::int64_t frames = 0;
  std::int64_t subFrames = 0;
  std::size_t digits = 0;
  bool hasSubFrames = false;
};

std::optional<FrameTime> FrameTimeOf(std::string_view time) {
  const std::size_t last = time.rfind(':');
  if (last == std::string_view::npos || std::count(time.begin(), time.end(), ':') != 3) return {};
  const auto frames = ReadNumber(time.substr(last + 1));
  if (!frames) return {};
  FrameTime result{time.substr(0, last), frames->number, 0, frames->size, false};
  const std::string_view behind = time.substr(last + 1 + frames->size);
  if (behind.empty()) return result;
  const auto sub = behind[0] == '.' ? ReadNumber(behind.substr(1)) : std::nullopt;
  if (!sub || sub->size + 1 != behind.size()) return {};
  result.subFrames = sub->number;
  result.hasSubFrames = true;
  return result;
}

/// A count of thousandths as a decimal number with at least so many digits behind its dot.
std::string Decimals(std::int64_t thousandths, std::size_t digits) {
  std::string fraction = std::to_string(1000 + thousandths % 1000).substr(1);
  while (fraction.size() > digits && fraction.ends_with('0')) fraction.pop_back();
  if (fraction.size() < digits) fraction.append(digits - fraction.size(), '0');
  return std::to_string(thousandths / 1000) + (fraction.empty() ? "" : "." + fraction);
}

}  // namespace

std::int64_t TtmlClock::TicksPerSecond() const {
  return ticks > 0 ? ticks : std::max<std::int64_t>(frames * subFrames / inSeconds, 1);
}

std::optional<Ms> TtmlClock::TimeOf(std::string_view time) const {
  if (const auto framed = FrameTimeOf(time)) {
    const auto clock = ReadClock(framed->clock);
    if (!clock || clock->size != framed->clock.size()) return {};
    const std::int64_t parts = framed->frames * subFrames + framed->subFrames;
    return Limited(clock->ms.Wide() + Nearest(parts * 1000 * inSeconds, frames * subFrames));
  }
  if (const auto clock = ReadClock(time)) {
    if (clock->size != time.size()) return {};
    return clock->ms;
  }
  const auto count = CountOf(time);
  if (!count) return {};
  // Counts have few enough digits for all of these to fit.
  const std::int64_t millionths = count->whole * 1000000 + count->millionths;
  if (count->unit == "h") return Limited(Nearest(millionths * 3600, 1000));
  if (count->unit == "m") return Limited(Nearest(millionths * 60, 1000));
  if (count->unit == "s") return Limited(Nearest(millionths, 1000));
  if (count->unit == "ms") return Limited(Nearest(millionths, 1000000));
  if (count->unit == "f") return Limited(Nearest(millionths / 1000 * inSeconds, frames));
  if (count->unit == "t") return Limited(Nearest(count->whole * 1000, TicksPerSecond()));
  return {};
}

std::string TtmlClock::Like(Ms time, std::string_view form) const {
  const std::int64_t ms = std::max<Ms>(time, 0).Wide();
  if (const auto framed = FrameTimeOf(form)) {
    // Frames are counted within their second, whose first one begins with it.
    const std::int64_t perSecond = Nearest(frames, inSeconds);
    const std::int64_t all = ms / 1000 * perSecond + Nearest(ms % 1000 * frames, 1000 * inSeconds);
    const std::string clock = ClockLike(Checked32(all / perSecond * 1000).Value(), framed->clock);
    std::string number = std::to_string(all % perSecond);
    if (number.size() < framed->digits) number.insert(0, framed->digits - number.size(), '0');
    return clock + ":" + number + (framed->hasSubFrames ? ".0" : "");
  }
  const auto count = ReadClock(form) ? std::nullopt : CountOf(form);
  if (!count) return ClockLike(time, form);
  const std::string unit(count->unit);
  if (unit == "h") return Decimals(Nearest(ms, 3600), count->digits) + unit;
  if (unit == "m") return Decimals(Nearest(ms, 60), count->digits) + unit;
  if (unit == "s") return Decimals(ms, count->digits) + unit;
  if (unit == "f") return std::to_string(Nearest(ms * frames, 1000 * inSeconds)) + unit;
  if (unit == "t") return std::to_string(Nearest(ms * TicksPerSecond(), 1000)) + unit;
  return std::to_string(ms) + "ms";
}

}  // namespace cuewright
