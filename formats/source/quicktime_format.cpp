#include "formats/source/quicktime_format.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/numbers.h"
#include "formats/source/clock_field.h"
#include "formats/source/open_ended.h"
#include "formats/source/whole_styles.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kScale = "{timeScale:";

/// The bytes between the brackets of "[hh:mm:ss.xx]" at the beginning of a line; empty without such a time.
std::string_view StampOf(std::string_view line) {
  if (!line.starts_with('[')) return {};
  const auto time = ReadClock(line.substr(1));
  if (!time || line.substr(1 + time->size, 1) != "]") return {};
  return line.substr(1, time->size);
}

/// The whole seconds of a time and the number behind its dot.
struct Parts {
  std::int32_t seconds = 0;
  std::int32_t units = 0;
  std::size_t digits = 0;
  std::string_view whole;
};

Parts PartsOf(std::string_view stamp) {
  Parts parts;
  const std::size_t dot = std::min(stamp.find_first_of(".,"), stamp.size());
  parts.whole = stamp.substr(0, dot);
  parts.seconds = ReadClock(parts.whole).value_or(ClockField{}).ms.Count() / 1000;
  const auto units = ReadNumber(dot < stamp.size() ? stamp.substr(dot + 1) : std::string_view());
  if (units) {
    parts.units = units->number;
    parts.digits = units->size;
  }
  return parts;
}

Ms MsOf(std::string_view stamp, std::int32_t scale) {
  if (scale == 0) return ReadClock(stamp).value_or(ClockField{}).ms;
  const Parts parts = PartsOf(stamp);
  const std::int64_t ms = parts.seconds * std::int64_t{1000} + Nearest(parts.units * std::int64_t{1000}, scale);
  return Ms::Within(ms, 0, Ms::Latest());
}

}  // namespace

void QuickTimeFormat::TakeHeader(std::string_view line) {
  const std::size_t at = line.find(kScale);
  if (at == std::string_view::npos) return;
  const auto number = ReadNumber(line.substr(at + kScale.size()));
  if (number && number->number > 0 && number->number <= 1000000) scale_ = number->number;
}

void QuickTimeFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  OpenEnded captions(settings_, sink);
  SourceLines lines(text.bytes);
  SourceLine line;
  while (lines.Next(line)) {
    const std::string_view stamp = StampOf(line.text);
    if (stamp.empty()) {
      TakeHeader(line.text);
      const bool known = line.text.find_first_not_of(" \t") == std::string_view::npos || line.text.starts_with('{');
      if (!known) sink.NotUnderstood(line.at);
      continue;
    }
    // A text begins behind the time or on the line below.
    const std::size_t behind = stamp.size() + 2;
    const bool sameLine = line.text.size() > behind;
    std::size_t begin = sameLine ? line.at + behind : line.next;
    std::size_t end = sameLine ? line.End() : begin;
    const std::size_t at = line.at;
    SourceLine next;
    while (lines.Next(next)) {
      if (!StampOf(next.text).empty()) {
        lines.GoTo(next.at);
        break;
      }
      if (next.text.find_first_not_of(" \t") != std::string_view::npos) end = next.End();
    }
    SourceRecord record{
        Stretch::Between(at, lines.Place()), {}, Stretch::Of(at + 1, stamp.size()), {}, Stretch::Between(begin, end)};
    Text caption = text.Decoded(record.text);
    JoinLines(caption, separator);
    const Ms ms = MsOf(stamp, scale_);
    if (IsBlank(caption)) {
      (void)captions.End(ms, record.start, record.whole.End());
    } else {
      captions.Begin(ms, std::move(caption), record);
    }
  }
  writesEnds_ = captions.AnyEnds();
  captions.Flush();
}

std::string QuickTimeFormat::TimeField(Ms ms, std::string_view old) const {
  const Parts form = PartsOf(old);
  if (scale_ == 0 || form.digits == 0) return ClockLike(ms, old);
  const std::int64_t units = Nearest(std::max<Ms>(ms, 0).Wide() * scale_, 1000);
  const std::string whole = ClockLike(Checked32(units / scale_ * 1000).Value(), form.whole);
  std::string rest = std::to_string(units % scale_);
  if (rest.size() < form.digits) rest.insert(0, form.digits - rest.size(), '0');
  return whole + old[form.whole.size()] + rest;
}

Text QuickTimeFormat::TextField(TextView text, TextView separator, TextView lineEnd) const {
  return ReplaceAll(text, separator, lineEnd);
}

Text QuickTimeFormat::Record(const NewRecord& record, TextView separator) const {
  const std::string_view stamp = StampOf(record.neighbour);
  const std::string form(stamp.empty() ? std::string_view("00:00:00.00") : stamp);
  const auto time = [&](Ms ms) { return u"[" + FromUtf8(TimeField(ms, form)) + u"]" + Text(record.lineEnd); };
  Text result = time(record.caption.start) + TextField(record.caption.text, separator, record.lineEnd);
  result += record.lineEnd;
  if (writesEnds_) result += time(record.caption.end);
  return result;
}

}  // namespace cuewright
