#include "formats/rate_line.h"

namespace cuewright {

FrameRate RateOfLine(TextView line) {
  line = TrimBlanks(line);
  if (!line.starts_with(kRateLine) && !line.starts_with(u"{0}{0}")) return {};
  const FrameRate rate = FrameRate::FromText(line.substr(kRateLine.size()));
  return rate.IsUsual() ? rate : FrameRate();
}

FrameRate RateInFirstLine(TextFile& file) {
  LineBuffer line;
  const FrameRate rate = file.NextText(line) ? RateOfLine(line.View()) : FrameRate();
  file.Rewind();
  return rate;
}

Text LineOfRate(const FrameRate& rate) {
  return rate == FrameRate(kUsualRate) ? Text() : Text(kRateLine) + rate.AsText();
}

}  // namespace cuewright
