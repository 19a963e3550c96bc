#include "formats/source/transcript_format.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>
#include <vector>

#include "core/counting.h"
#include "formats/source/clock_field.h"
#include "formats/source/transcript_scanner.h"
#include "formats/source/transcript_writer.h"
#include "text/digits.h"
#include "text/units.h"
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

/// True for a number such as "1.24e1", which people don't write.
std::optional<Ms> WithExponent(std::string_view number) {
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size() || !(value >= 0) || value > 2000000) return {};
  return Ms::OfSeconds(value);
}

std::optional<Ms> MillisecondsIn(std::string_view number) {
  const auto ms = ReadNumber(number);
  if (!ms || ms->size != number.size()) return {};
  return ms->number;
}

std::optional<Ms> TimeIn(std::string_view field, bool milliseconds) {
  if (milliseconds) return MillisecondsIn(field);
  if (field.find(':') != std::string_view::npos) {
    const auto clock = ReadClock(field);
    return clock && clock->size == field.size() ? std::optional(clock->ms) : std::nullopt;
  }
  if (field.ends_with('s')) field.remove_suffix(1);
  return field.find_first_of("eE") == std::string_view::npos ? Thousandths(field) : WithExponent(field);
}

/// Offsets and events count milliseconds, whatever the numbers are.
bool CountsMilliseconds(const TranscriptSegment& segment) {
  return segment.shape == SegmentShape::Ranges || segment.shape == SegmentShape::Events;
}

bool CountMilliseconds(const std::vector<TranscriptSegment>& segments, std::string_view bytes) {
  std::int64_t sum = 0;
  for (const TranscriptSegment& segment : segments) {
    if (CountsMilliseconds(segment)) return true;
    const auto start = MillisecondsIn(segment.start.In(bytes));
    const auto end = MillisecondsIn(segment.end.In(bytes));
    if (!start || !end) return false;
    sum += segment.lasts ? end->Wide() : std::int64_t{Span(*start, *end)};
  }
  return sum > kLongestMean * CountOf(segments);
}

/// The unit of "\uXXXX" behind a place; empty for anything else.
std::optional<char16_t> UnitAt(TextView digits) {
  if (digits.size() < 4) return {};
  unsigned unit = 0;
  for (const char16_t c : digits.substr(0, 4)) {
    const int digit = HexDigit(c);
    if (digit < 0) return {};
    unit = unit << 4 | digit;
  }
  return LowUnit(unit);
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

/// A segment with the comma in front of it, so that the list stays one without it, or the line that it is.
Stretch WholeOf(const TranscriptSegment& segment, std::string_view bytes, std::size_t behind, bool lines) {
  std::size_t at = segment.whole.at;
  std::size_t end = segment.whole.End();
  if (lines) {
    end = std::min(bytes.find_first_not_of(" \t", end), bytes.size());
    if (bytes.substr(end, 2) == "\r\n") ++end;
    if (end < bytes.size() && (bytes[end] == '\n' || bytes[end] == '\r')) ++end;
  } else if (at > 0) {
    const std::size_t comma = bytes.find_last_not_of(" \t\r\n", at - 1);
    if (comma != std::string_view::npos && comma >= behind && bytes[comma] == ',') at = comma;
  }
  return Stretch::Between(at, end);
}

/// Where a segment and its fields stand. A field that can't be changed by itself is empty.
SourceRecord RecordOf(const TranscriptSegment& segment, std::string_view bytes, std::size_t behind, bool lines) {
  SourceRecord record;
  record.whole = WholeOf(segment, bytes, behind, lines);
  if (segment.startClock.Empty()) record.start = segment.start;
  if (segment.startClock.Empty() && !segment.lasts) record.end = segment.end;
  record.text = segment.text;
  // Blanks around the words stay.
  while (record.text.size > 0 && bytes[record.text.at] == ' ') {
    ++record.text.at;
    --record.text.size;
  }
  while (record.text.size > 0 && bytes[record.text.End() - 1] == ' ') --record.text.size;
  return record;
}

/// The text of a segment; `decoded` makes text of a stretch of its bytes.
template <class Decoded>
Text CaptionOf(const TranscriptSegment& segment, std::string_view bytes, TextView separator, Decoded decoded) {
  if (segment.text.at != 0) return Unescaped(decoded(RecordOf(segment, bytes, 0, false).text.In(bytes)), separator);
  Text words;
  for (const std::string_view piece : PiecesIn(segment.pieces.In(bytes))) {
    words += Unescaped(decoded(piece), separator);
  }
  return words;
}

}  // namespace

void TranscriptFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  const Transcript transcript = ScanTranscript(text.bytes);
  milliseconds_ = CountMilliseconds(transcript.segments, text.bytes);
  lines_ = transcript.lines;
  std::size_t behind = 0;
  for (const TranscriptSegment& segment : transcript.segments) {
    const auto start = TimeIn(segment.start.In(text.bytes), milliseconds_);
    const auto end = TimeIn(segment.end.In(text.bytes), milliseconds_);
    if (!start || !end) {
      sink.NotUnderstood(segment.whole.at);
      continue;
    }
    const SourceRecord record = RecordOf(segment, text.bytes, behind, lines_);
    behind = record.whole.End();
    const Ms until = segment.lasts ? Ms::Within(start->Wide() + end->Wide(), 0, Ms::Latest()) : *end;
    Text caption =
        CaptionOf(segment, text.bytes, separator, [&](std::string_view bytes) { return text.file.Decoded(bytes); });
    if (!sink.Add(*start, until, std::move(caption), record)) return;
  }
  if (transcript.broken) sink.NotUnderstood(transcript.brokenAt);
}

std::string TranscriptFormat::TimeField(Ms time, std::string_view old) const {
  const std::int32_t ms = std::max<Ms>(time, 0).Count();
  if (milliseconds_) return std::to_string(ms);
  if (old.find(':') != std::string_view::npos) return ClockLike(time, old);
  const bool unit = old.ends_with('s');
  if (unit) old.remove_suffix(1);
  const std::size_t dot = old.find_first_of("eE") == std::string_view::npos ? old.find('.') : std::string_view::npos;
  const std::size_t digits = dot == std::string_view::npos ? 0 : old.size() - dot - 1;
  std::string fraction = std::to_string(1000 + ms % 1000).substr(1);
  while (fraction.size() > std::max<std::size_t>(digits, 1) && fraction.ends_with('0')) fraction.pop_back();
  if (fraction.size() < digits) fraction.append(digits - fraction.size(), '0');
  const std::string whole = std::to_string(ms / 1000);
  return (digits == 0 && ms % 1000 == 0 ? whole : whole + "." + fraction) + (unit ? "s" : "");
}

Text TranscriptFormat::TextField(TextView text, TextView separator, TextView) const {
  return ReplaceAll(ReplaceAll(Escaped(text), separator, u"\n"), u"\n", u"\\n");
}

Text TranscriptFormat::Record(const NewRecord& record, TextView separator) const {
  constexpr std::string_view kUsual = "{\"start\": 0.000, \"end\": 0.000, \"text\": \"\"}";
  std::string_view object = record.neighbour.substr(std::min(record.neighbour.find('{'), record.neighbour.size()));
  Transcript own = ScanTranscript(object);
  const bool known = own.segments.size() == 1;
  if (!known) {
    object = kUsual;
    own = ScanTranscript(object);
  }
  const SegmentWriter writer(*this, object, own.segments.front(), record.caption, separator);
  if (!record.isOwn || !known) {
    const Text alike = writer.Alike();
    return lines_ ? alike + Text(record.lineEnd) : u"," + Text(record.lineEnd) + alike;
  }
  const std::string_view front = record.neighbour.substr(0, record.neighbour.size() - object.size());
  const Text comma = lines_ || front.starts_with(',') ? u"" : u",";
  const TranscriptSegment& segment = own.segments.front();
  const auto start = TimeIn(segment.start.In(object), milliseconds_);
  const auto end = TimeIn(segment.end.In(object), milliseconds_);
  SegmentFields same;
  same.start = start && *start == record.caption.start;
  same.end = end && end->Wide() ==
                        (segment.lasts ? Span(record.caption.start, record.caption.end) : record.caption.end.Wide());
  same.text = CaptionOf(segment, object, separator, FromUtf8) == record.caption.text;
  return comma + FromUtf8(front) + writer.Changed(same);
}

}  // namespace cuewright
