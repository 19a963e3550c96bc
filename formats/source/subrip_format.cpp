#include "formats/source/subrip_format.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "formats/source/clock_field.h"
#include "formats/source/field_lines.h"
#include "formats/source/whole_styles.h"

namespace cuewright {
namespace {

constexpr std::string_view kArrow = "-->";

bool IsBlankByte(char c) { return c == ' ' || c == '\t'; }

bool IsBlankLine(std::string_view line) { return std::ranges::all_of(line, IsBlankByte); }

/// The line is a number alone.
Stretch NumberIn(const SourceLine& line) {
  std::size_t from = 0;
  std::size_t to = line.text.size();
  while (from < to && IsBlankByte(line.text[from])) ++from;
  while (to > from && IsBlankByte(line.text[to - 1])) --to;
  const std::string_view number = line.text.substr(from, to - from);
  if (number.empty() || number.size() > 9 ||
      !std::ranges::all_of(number, [](char c) { return c >= '0' && c <= '9'; })) {
    return {};
  }
  return MakeStretch(line.at + from, number.size());
}

/// The times of a line with the arrow.
struct Timing {
  Ms start = 0;
  Ms end = 0;
  Stretch startField;
  Stretch endField;
};

/// What a line with the arrow is.
enum class ArrowLine { None, Timing, Broken };

ArrowLine ReadTiming(const SourceLine& line, Timing& timing) {
  const std::size_t arrow = line.text.find(kArrow);
  if (arrow == std::string_view::npos) return ArrowLine::None;
  std::size_t at = 0;
  while (at < arrow && IsBlankByte(line.text[at])) ++at;
  const std::optional<ClockField> start = ReadFullClock(line.text.substr(at));
  std::size_t behind = at + (start ? start->size : 0);
  timing.startField = MakeStretch(line.at + at, start ? start->size : 0);
  while (behind < arrow && IsBlankByte(line.text[behind])) ++behind;
  at = arrow + kArrow.size();
  while (at < line.text.size() && IsBlankByte(line.text[at])) ++at;
  const std::optional<ClockField> end = ReadFullClock(line.text.substr(at));
  if (!start || !end || behind != arrow) {
    // A line that speaks of an arrow is text; one that begins or goes on as a time does was meant as one.
    return start || end ? ArrowLine::Broken : ArrowLine::None;
  }
  timing.endField = MakeStretch(line.at + at, end->size);
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
    if (record_.text.Empty()) record_.text = MakeStretch(line.at, line.text.size());
    record_.text.size = static_cast<std::uint32_t>(line.End()) - record_.text.at;
  }

  void Open(const SourceLine& line, const Timing& timing) {
    open_ = true;
    broken_ = false;
    times_ = {timing.start, timing.end};
    record_ = {};
    record_.number = lastNumber_ ? NumberIn(*lastNumber_) : Stretch{};
    record_.whole.at = static_cast<std::uint32_t>(lastNumber_ ? lastNumber_->at : line.at);
    record_.start = timing.startField;
    record_.end = timing.endField;
    behindTimes_ = line.next;
  }

  /// Hands on the record that ends at a place.
  bool Close(std::size_t end) {
    if (!open_) return true;
    open_ = false;
    if (record_.text.Empty()) record_.text = MakeStretch(behindTimes_, 0);
    record_.whole.size = static_cast<std::uint32_t>(end) - record_.whole.at;
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

void SubRipFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  SubRipReading(text, separator, sink).Read();
}

std::string SubRipFormat::TimeField(Ms ms, std::string_view old) const {
  // A short fraction is lengthened rather than the time rounded: any number of digits may stand there.
  const std::size_t sign = old.find_first_of(",.");
  const std::string whole = ClockLike(ms, std::string(old.substr(0, sign)) + ",000");
  const std::size_t digits = sign == std::string_view::npos ? 0 : old.size() - sign - 1;
  if (digits >= 3) return ClockLike(ms, old);
  const std::string exact = sign == std::string_view::npos ? whole : ClockLike(ms, old);
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
