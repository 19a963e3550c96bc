#include "runner/progress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/numbers.h"
#include "text/text.h"

namespace cuewright {
namespace {

constexpr double kEnoughDone = 0.01;
constexpr std::int64_t kEnoughMs = 1000;
constexpr int kWhole = 1000;
constexpr std::string_view kFile = "file ";
constexpr std::string_view kProgress = "progress ";
constexpr std::string_view kFailure = "failure ";

bool IsControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || (unit >= 0xD800 && unit <= 0xDFFF);
}

template <class Number>
std::string_view ReadNumber(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return {};
  return text.substr(end - text.data());
}

}  // namespace

std::optional<std::int64_t> TimeLeft::Of(std::optional<double> fraction, std::int64_t elapsedMs) {
  if (!fraction || *fraction < kEnoughDone || elapsedMs < kEnoughMs) return std::nullopt;
  const double left = ToReal(elapsedMs) * (1 - *fraction) / *fraction;
  return std::llround(left / 1000);
}

std::string TimeLeftText(std::int64_t seconds) {
  seconds = std::max<std::int64_t>(seconds, 0);
  const Text behind = u":" + Padded(seconds % 60, 2);
  if (seconds < 3600) return ToUtf8(Decimal(seconds / 60) + behind);
  return ToUtf8(Decimal(seconds / 3600) + u":" + Padded(seconds / 60 % 60, 2) + behind);
}

std::string Printable(std::string_view bytes, bool keepLines) {
  Text text = FromUtf8(bytes);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] >= 0xD800 && text[i] <= 0xDBFF && i + 1 < text.size();
    if (pair) {
      ++i;
    } else if (IsControl(text[i]) && !(keepLines && text[i] == u'\n')) {
      text[i] = u'?';
    }
  }
  return ToUtf8(text);
}

std::string FormatWindowLine(const WindowLine& line) {
  if (line.kind == WindowLine::Kind::File) return std::string(kFile) + Printable(line.text, false) + "\n";
  if (line.kind == WindowLine::Kind::Failure) {
    std::string text = Printable(line.text, true);
    std::replace(text.begin(), text.end(), '\n', '\v');
    return std::string(kFailure) + text + "\n";
  }
  const int done = line.progress.fraction ? RoundToInt32(std::floor(*line.progress.fraction * kWhole)) : -1;
  return std::string(kProgress) + std::to_string(done) + " " + std::to_string(line.progress.secondsLeft.value_or(-1)) +
         "\n";
}

std::optional<WindowLine> ReadWindowLine(std::string_view line) {
  if (line.starts_with(kFile)) return WindowLine{WindowLine::Kind::File, std::string(line.substr(kFile.size())), {}};
  if (line.starts_with(kFailure)) {
    std::string text(line.substr(kFailure.size()));
    std::replace(text.begin(), text.end(), '\v', '\n');
    return WindowLine{WindowLine::Kind::Failure, std::move(text), {}};
  }
  if (!line.starts_with(kProgress)) return std::nullopt;
  int done = -1;
  std::int64_t left = -1;
  const std::string_view rest = ReadNumber(line.substr(kProgress.size()), done);
  if (!rest.starts_with(' ') || ReadNumber(rest.substr(1), left).data() == nullptr) return std::nullopt;
  WindowLine read;
  if (done >= 0) read.progress.fraction = 1.0 * std::min(done, kWhole) / kWhole;
  if (left >= 0) read.progress.secondsLeft = left;
  return read;
}

}  // namespace cuewright
