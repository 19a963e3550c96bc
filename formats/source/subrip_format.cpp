#include "formats/source/subrip_format.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "formats/source/clock_field.h"
#include "formats/source/field_lines.h"
#include "formats/source/source_format.h"
#include "formats/source/whole_styles.h"
#include "text/digits.h"

namespace cuewright {
namespace {

constexpr std::string_view kArrow = "-->";
constexpr std::string_view kShortArrow = "->";
/// The mark of UTF-8, which stands in the middle of a file that was put together from several.
constexpr std::string_view kMark = "\xEF\xBB\xBF";

bool IsBlankByte(char c) { return c == ' ' || c == '\t'; }
bool IsAsciiLetter(char c) { return (c | 0x20) >= 'a' && (c | 0x20) <= 'z'; }

std::size_t SkipBlanks(std::string_view bytes, std::size_t at) {
  while (at < bytes.size() && IsBlankByte(bytes[at])) ++at;
  return at;
}

bool IsBlankLine(std::string_view line) { return std::ranges::all_of(line, IsBlankByte); }

/// The place of the number in a line that has nothing else; empty for any other line.
Stretch NumberIn(const SourceLine& line) {
  std::size_t from = 0;
  std::size_t to = line.text.size();
  if (line.text.starts_with(kMark)) from = kMark.size();
  while (from < to && IsBlankByte(line.text[from])) ++from;
  while (to > from && IsBlankByte(line.text[to - 1])) --to;
  const std::string_view number = line.text.substr(from, to - from);
  if (number.empty() || number.size() > 9 ||
      !std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; })) {
    return {};
  }
  return Stretch::Of(line.at + from, number.size());
}

/// The times of a line with the arrow.
struct Timing {
  Ms start = 0;
  Ms end = 0;
  Stretch startField;
  Stretch endField;
};

/// The kinds of lines with respect to the arrow between two times.
enum class ArrowLine { None, Timing, Broken };

/// A time with blanks beside its signs, without hours, or with a colon in front of the three digits of its fraction.
std::optional<ClockField> ReadLooseClock(std::string_view bytes) {
  constexpr std::size_t kMostDigits = 9;
  std::string usual;
  char sign = 0;
  int colons = 0;
  std::size_t digits = 0;
  std::size_t end = 0;
  for (std::size_t at = 0;;) {
    end = at;
    while (end < bytes.size() && IsDigit(bytes[end])) ++end;
    digits = end - at;
    if (digits == 0 || digits > kMostDigits) return {};
    usual += bytes.substr(at, digits);
    at = SkipBlanks(bytes, end);
    if (at == bytes.size() || (bytes[at] != ':' && bytes[at] != ',' && bytes[at] != '.')) break;
    if (sign != 0) return {};
    if (bytes[at] != ':' || colons == 2) sign = bytes[at];
    if (sign == 0) ++colons;
    usual += sign == 0 ? ':' : ',';
    at = SkipBlanks(bytes, at + 1);
  }
  if (sign == 0 || colons == 0 || (sign == ':' && digits != 3)) return {};
  const std::optional<ClockField> time = ReadFullClock(colons == 1 ? "0:" + usual : usual);
  if (!time) return {};
  return ClockField{time->ms, end};
}

/// The time with which the bytes begin; none when it goes on as no time does.
std::optional<ClockField> ReadTime(std::string_view bytes) {
  const std::optional<ClockField> time = ReadFullClock(bytes);
  if (!time) return ReadLooseClock(bytes);
  // "00:00:0x,000" is no time of 0 seconds.
  const bool whole = bytes.substr(0, time->size).find_first_of(",.") == std::string_view::npos;
  if (whole && time->size < bytes.size() && IsAsciiLetter(bytes[time->size])) return {};
  const std::size_t next = SkipBlanks(bytes, time->size);
  const bool goesOn = next < bytes.size() && (bytes[next] == ':' || bytes[next] == ',' || bytes[next] == '.');
  return goesOn ? ReadLooseClock(bytes) : time;
}

ArrowLine ReadTiming(const SourceLine& line, Timing& timing) {
  // Most lines end here.
  if (line.text.find('>') == std::string_view::npos) return ArrowLine::None;
  const std::size_t longArrow = line.text.find(kArrow);
  const std::size_t arrow = longArrow != std::string_view::npos ? longArrow : line.text.find(kShortArrow);
  if (arrow == std::string_view::npos) return ArrowLine::None;
  std::size_t at = SkipBlanks(line.text, 0);
  const std::optional<ClockField> start = ReadTime(line.text.substr(0, arrow).substr(std::min(at, arrow)));
  const std::size_t behind = SkipBlanks(line.text, at + (start ? start->size : 0));
  timing.startField = Stretch::Of(line.at + at, start ? start->size : 0);
  at = SkipBlanks(line.text, arrow + (longArrow != std::string_view::npos ? kArrow : kShortArrow).size());
  const std::optional<ClockField> end = ReadTime(line.text.substr(at));
  if (!start || !end || behind != arrow) {
    // A line that speaks of an arrow is text; one that begins or goes on as a time does was meant as one.
    return longArrow != std::string_view::npos && (start || end) ? ArrowLine::Broken : ArrowLine::None;
  }
  timing.endField = Stretch::Of(line.at + at, end->size);
  timing.start = start->ms;
  timing.end = end->ms;
  return ArrowLine::Timing;
}

/// Reads a file record by record. A record ends where the next one's number or, without a number, times begin.
class SubRipReading {
 public:
  SubRipReading(const SourceText& text, TextView separator, SourceSink& sink)
      : text_(text), separator_(separator), sink_(sink), lines_(text.bytes) {}

  void Read() {
    SourceLine line;
    Timing timing;
    while (lines_.Next(line)) {
      const ArrowLine kind = ReadTiming(line, timing);
      if (kind == ArrowLine::None) {
        TakeLine(line);
        continue;
      }
      // In a file without numbers a number is the text of a caption that has no other.
      if (lastNumber_ && open_ && record_.number.Empty() && record_.text.Empty()) TakeHeldNumber();
      if (!Close(lastNumber_ ? lastNumber_->at : line.at)) return;
      if (kind == ArrowLine::Timing) {
        Open(line, timing);
      } else {
        broken_ = true;
        sink_.NotUnderstood(line.at);
      }
      lastNumber_.reset();
    }
    TakeHeldNumber();
    (void)Close(text_.bytes.size());
  }

 private:
  /// Holds a number back, since it may be the next record's; what is no number is text.
  void TakeLine(const SourceLine& line) {
    TakeHeldNumber();
    if (IsBlankLine(line.text)) return;
    if (NumberIn(line).Empty()) {
      TakeText(line);
    } else {
      lastNumber_ = line;
    }
  }

  void TakeHeldNumber() {
    if (lastNumber_) TakeText(*std::exchange(lastNumber_, {}));
  }

  void TakeText(const SourceLine& line) {
    if (broken_ || !open_) {
      sink_.NotUnderstood(line.at);
      return;
    }
    record_.text = Stretch::Between(record_.text.Empty() ? line.at : record_.text.at, line.End());
  }

  void Open(const SourceLine& line, const Timing& timing) {
    open_ = true;
    broken_ = false;
    times_ = {timing.start, timing.end};
    record_ = {};
    record_.number = lastNumber_ ? NumberIn(*lastNumber_) : Stretch{};
    record_.whole = Stretch::Of(lastNumber_ ? lastNumber_->at : line.at, 0);
    record_.start = timing.startField;
    record_.end = timing.endField;
    behindTimes_ = line.next;
  }

  /// Hands on the record that ends at a place.
  bool Close(std::size_t end) {
    if (!open_) return true;
    open_ = false;
    if (record_.text.Empty()) record_.text = Stretch::Of(behindTimes_, 0);
    record_.whole = Stretch::Between(record_.whole.at, end);
    Text text = FieldToText(text_.Decoded(record_.text), separator_);
    TagsToMarkers(text, separator_);
    return sink_.Add(times_.start, times_.end, std::move(text), record_);
  }

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  SourceLines lines_;
  std::optional<SourceLine> lastNumber_;  // the line before, when it is a number
  bool open_ = false;
  bool broken_ = false;  // behind a line of times that couldn't be read
  CaptionTimes times_;
  SourceRecord record_;
  std::size_t behindTimes_ = 0;
};

}  // namespace

bool IsSubRipTimes(std::string_view line) {
  Timing timing;
  return ReadTiming({0, line, line.size()}, timing) == ArrowLine::Timing;
}

void SubRipFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  SubRipReading(text, separator, sink).Read();
}

std::string SubRipFormat::TimeField(Ms ms, std::string_view old) const {
  const std::optional<ClockField> usual = ReadClock(old);
  if (!usual || usual->size != old.size()) return ClockLike(ms, "00:00:00,000");
  // A short fraction is lengthened rather than the time rounded: any number of digits may stand there.
  const std::size_t sign = old.find_first_of(",.");
  const std::string whole = ClockLike(ms, std::string(old.substr(0, sign)) + ",000");
  const std::size_t digits = sign == std::string_view::npos ? 0 : old.size() - sign - 1;
  if (digits >= 3) return ClockLike(ms, old);
  std::string exact = sign == std::string_view::npos ? whole : ClockLike(ms, old);
  const std::optional<ClockField> kept = ReadFullClock(exact);
  if (sign != std::string_view::npos && kept && kept->ms == ms) return exact;
  std::string field = whole;
  if (sign != std::string_view::npos) field[field.size() - 4] = old[sign];
  return field;
}

Text SubRipFormat::TextField(TextView text, TextView separator, TextView lineEnd) const {
  return TextToField(MarkersToTags(text), separator, lineEnd);
}

Text SubRipFormat::Record(const NewRecord& record, TextView separator) const {
  Text out = Decimal(record.number);
  out += record.lineEnd;
  const auto time = [](Ms ms) { return FromUtf8(ClockLike(ms, "00:00:00,000")); };
  out += time(record.caption.start) + u" --> " + time(record.caption.end);
  out += record.lineEnd;
  out += TextField(record.caption.text, separator, record.lineEnd);
  out += record.lineEnd;
  out += record.lineEnd;
  return out;
}

}  // namespace cuewright
