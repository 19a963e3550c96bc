#include "formats/source/transcript_format.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "formats/source/clock_field.h"
#include "formats/source/transcript_scanner.h"
#include "text/digits.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

/// Beyond this mean length, in ms or seconds, whole numbers are ms.
constexpr std::int64_t kLongestMean = 100;

/// Thousandths of a number such as "12.4".
std::optional<Ms> Thousandths(std::string_view number) {
  const auto whole = ReadNumber(number);
  if (!whole || whole->number > 2000000) return {};
  Ms result = whole->number * 1000;
  if (number.substr(whole->size, 1) != ".") return whole->size == number.size() ? std::optional(result) : std::nullopt;
  const std::string_view digits = number.substr(whole->size + 1);
  if (!std::all_of(digits.begin(), digits.end(), IsDigit<char>)) return {};
  std::int32_t unit = 100;
  for (const char c : digits.substr(0, 3)) {
    result += (c - '0') * unit;
    unit /= 10;
  }
  return digits.size() > 3 && digits[3] >= '5' ? result + 1 : result;
}

std::optional<Ms> TimeIn(std::string_view number, bool milliseconds) {
  if (!milliseconds) return Thousandths(number);
  const auto ms = ReadNumber(number);
  if (!ms || ms->size != number.size()) return {};
  return ms->number;
}

bool CountsMilliseconds(const std::vector<TranscriptSegment>& segments, std::string_view bytes) {
  std::int64_t sum = 0;
  for (const TranscriptSegment& segment : segments) {
    const auto start = TimeIn(segment.start.In(bytes), true);
    const auto end = TimeIn(segment.end.In(bytes), true);
    if (!start || !end) return false;
    sum += Span(*start, *end);
  }
  return sum > kLongestMean * static_cast<std::int64_t>(segments.size());
}

/// The unit of "\uXXXX" behind a place; empty for anything else.
std::optional<char16_t> UnitAt(TextView digits) {
  if (digits.size() < 4) return {};
  unsigned unit = 0;
  for (const char16_t c : digits.substr(0, 4)) {
    const char16_t small = c | 0x20;
    if (!IsDigit(c) && (small < u'a' || small > u'f')) return {};
    unit = unit << 4 | static_cast<unsigned>(IsDigit(c) ? c - u'0' : small - u'a' + 10);
  }
  return static_cast<char16_t>(unit);
}

Text Unescaped(TextView raw, TextView separator) {
  Text text;
  text.reserve(raw.size());
  for (std::size_t at = 0; at < raw.size();) {
    const std::size_t mark = std::min(raw.find(u'\\', at), raw.size());
    text += raw.substr(at, mark - at);
    if (mark + 1 >= raw.size()) break;
    const char16_t letter = raw[mark + 1];
    at = mark + 2;
    if (letter == u'n') {
      text += separator;
    } else if (letter == u't') {
      text += u'\t';
    } else if (const auto unit = letter == u'u' ? UnitAt(raw.substr(at)) : std::nullopt) {
      text += *unit;
      at += 4;
    } else if (letter != u'r' && letter != u'b' && letter != u'f') {
      text += letter;
    }
  }
  return text;
}

Text Escaped(TextView text) {
  Text result;
  result.reserve(text.size());
  for (const char16_t c : text) {
    if (c == u'"' || c == u'\\') result += u'\\';
    if (c >= 0x20) result += c;
    if (c == u'\t') result += u"\\t";
  }
  return result;
}

}  // namespace

void TranscriptFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  const Transcript transcript = ScanTranscript(text.bytes);
  milliseconds_ = CountsMilliseconds(transcript.segments, text.bytes);
  std::size_t behind = 0;
  for (const TranscriptSegment& segment : transcript.segments) {
    const auto start = TimeIn(segment.start.In(text.bytes), milliseconds_);
    const auto end = TimeIn(segment.end.In(text.bytes), milliseconds_);
    if (!start || !end) {
      sink.NotUnderstood(segment.whole.at);
      continue;
    }
    // The comma in front belongs to a record, so that the list stays one without it.
    std::size_t at = segment.whole.at;
    const std::size_t comma = text.bytes.find_last_not_of(" \t\r\n", at - 1);
    if (comma != std::string_view::npos && comma >= behind && text.bytes[comma] == ',') at = comma;
    behind = segment.whole.End();
    SourceRecord record{Stretch::Between(at, behind), {}, segment.start, segment.end, segment.text};
    // Blanks around the words stay.
    while (record.text.size > 0 && text.bytes[record.text.at] == ' ') {
      ++record.text.at;
      --record.text.size;
    }
    while (record.text.size > 0 && text.bytes[record.text.End() - 1] == ' ') --record.text.size;
    Text caption = Unescaped(text.Decoded(record.text), separator);
    if (!sink.Add(*start, *end, std::move(caption), record)) return;
  }
  if (transcript.broken) sink.NotUnderstood(transcript.brokenAt);
}

std::string TranscriptFormat::TimeField(Ms time, std::string_view old) const {
  const std::int32_t ms = std::max<Ms>(time, 0).Count();
  if (milliseconds_) return std::to_string(ms);
  const std::size_t dot = old.find('.');
  const std::size_t digits = dot == std::string_view::npos ? 0 : old.size() - dot - 1;
  std::string fraction = std::to_string(1000 + ms % 1000).substr(1);
  while (fraction.size() > std::max<std::size_t>(digits, 1) && fraction.ends_with('0')) fraction.pop_back();
  if (fraction.size() < digits) fraction.append(digits - fraction.size(), '0');
  const std::string whole = std::to_string(ms / 1000);
  return digits == 0 && ms % 1000 == 0 ? whole : whole + "." + fraction;
}

Text TranscriptFormat::TextField(TextView text, TextView separator, TextView) const {
  return ReplaceAll(ReplaceAll(Escaped(text), separator, u"\n"), u"\n", u"\\n");
}

Text TranscriptFormat::Record(const NewRecord& record, TextView separator) const {
  const auto time = [&](Ms ms) { return FromUtf8(TimeField(ms, "0.000")); };
  return u"," + Text(record.lineEnd) + u"{\"start\": " + time(record.caption.start) + u", \"end\": " +
         time(record.caption.end) + u", \"text\": \"" + TextField(record.caption.text, separator, record.lineEnd) +
         u"\"}";
}

}  // namespace cuewright
