#include "formats/source/lyrics_format.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "formats/source/clock_field.h"
#include "formats/source/open_ended.h"
#include "text/digits.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kOffset = "[offset:";

/// "mm:ss:xx" as older programs write a time, with a dot in front of the hundredths; nothing for any other time.
std::optional<std::string> WithDot(std::string_view time) {
  if (std::ranges::count(time, ':') != 2 || time.find_first_of(".,") != std::string_view::npos) return {};
  std::string usual(time);
  usual[usual.rfind(':')] = '.';
  return usual;
}

/// "[mm:ss.xx]" at a place of a line.
std::optional<ClockField> StampAt(std::string_view line, std::size_t at) {
  if (at >= line.size() || line[at] != '[') return {};
  const auto time = ReadClock(line.substr(at + 1));
  if (!time || line.substr(at + 1 + time->size, 1) != "]") return {};
  const auto usual = WithDot(line.substr(at + 1, time->size));
  return usual ? ReadClock(*usual) : time;
}

/// "[ti:A song]" and the like.
bool IsHeader(std::string_view line) {
  return line.size() > 2 && line[0] == '[' && !IsDigit(line[1]) && line.find(':') != std::string_view::npos &&
         line.find(']') != std::string_view::npos;
}

/// The times of lines with several, in their order.
std::vector<Ms> RepeatsOf(std::string_view bytes) {
  std::vector<Ms> repeats;
  SourceLines lines(bytes);
  SourceLine line;
  while (lines.Next(line)) {
    const std::size_t before = repeats.size();
    std::size_t at = 0;
    while (const auto stamp = StampAt(line.text, at)) {
      repeats.push_back(stamp->ms);
      at += stamp->size + 2;
    }
    if (repeats.size() == before + 1) repeats.pop_back();
  }
  std::sort(repeats.begin(), repeats.end());
  return repeats;
}

}  // namespace

bool LyricsFormat::TakeHeader(std::string_view line) {
  if (!IsHeader(line)) return false;
  if (!line.starts_with(kOffset)) return true;
  std::string_view value = line.substr(kOffset.size());
  while (value.starts_with(' ')) value.remove_prefix(1);
  const bool later = value.starts_with('-');
  if (later || value.starts_with('+')) value.remove_prefix(1);
  const auto number = ReadNumber(value);
  if (number && number->number < 1 << 30) offset_ = later ? -number->number : number->number;
  return true;
}

void LyricsFormat::Read(const SourceText& text, TextView, SourceSink& sink) {
  OpenEnded captions(settings_, sink);
  const std::vector<Ms> repeats = RepeatsOf(text.bytes);
  // Such times aren't in order: a time without words may end another caption than the one in front of it.
  auto repeat = repeats.begin();
  SourceLines lines(text.bytes);
  SourceLine line;
  while (lines.Next(line)) {
    auto stamp = StampAt(line.text, 0);
    if (!stamp) {
      const bool blank = line.text.find_first_not_of(" \t") == std::string_view::npos;
      if (!blank && !TakeHeader(line.text)) sink.NotUnderstood(line.at);
      continue;
    }
    std::size_t textAt = 0;
    while (const auto next = StampAt(line.text, textAt)) textAt += next->size + 2;
    const Stretch field = Stretch::Between(line.at + textAt, line.End());
    const Text words = text.Decoded(field);
    for (std::size_t at = 0; at < textAt; at += stamp->size + 2) {
      stamp = StampAt(line.text, at);
      const std::size_t behind = at + stamp->size + 2;
      const bool last = behind == textAt;
      const std::size_t end = last ? line.next : line.at + behind;
      const Stretch time = Stretch::Of(line.at + at + 1, stamp->size);
      const Ms ms = std::max<Ms>(stamp->ms - offset_, 0);
      if (IsBlank(words) && last && at == 0 && (repeat == repeats.end() || *repeat >= stamp->ms)) {
        (void)captions.End(ms, time, end);
      } else if (IsBlank(words)) {
        captions.Clear(ms);
      } else {
        repeat = std::upper_bound(repeats.begin(), repeats.end(), stamp->ms);
        // Words with several times belong to no single record: a changed caption gets a line of its own.
        captions.Begin(ms, words,
                       {Stretch::Between(line.at + at, end), {}, time, {}, last && at == 0 ? field : Stretch{}});
      }
    }
  }
  writesEnds_ = captions.AnyEnds();
  captions.Flush();
}

std::string LyricsFormat::TimeField(Ms ms, std::string_view old) const {
  const auto usual = WithDot(old);
  std::string time = ClockLike(ms + offset_, usual ? *usual : old, NoHours::RunOnInMinutes);
  if (usual) std::ranges::replace(time, '.', ':');
  return time;
}

Text LyricsFormat::TextField(TextView text, TextView separator, TextView) const {
  return ReplaceAll(text, separator, u" ");
}

Text LyricsFormat::Record(const NewRecord& record, TextView separator) const {
  const auto stamp = StampAt(record.neighbour, 0);
  const std::string form(stamp ? record.neighbour.substr(1, stamp->size) : "00:00.00");
  const auto line = [&](Ms ms, TextView words) {
    return u"[" + FromUtf8(TimeField(ms, form)) + u"]" + Text(words) + Text(record.lineEnd);
  };
  Text result = line(record.caption.start, TextField(record.caption.text, separator, record.lineEnd));
  if (writesEnds_) result += line(record.caption.end, {});
  return result;
}

}  // namespace cuewright
