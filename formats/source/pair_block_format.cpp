#include "formats/source/pair_block_format.h"

#include <optional>
#include <utility>

#include "formats/source/clock_field.h"
#include "formats/source/whole_styles.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr TextView kBreak = u"[br]";

bool IsBlankLine(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

struct Times {
  ClockField start;
  ClockField end;
  std::size_t endAt = 0;
};

std::optional<Times> TimesIn(std::string_view line) {
  const auto start = ReadClock(line);
  if (!start) return {};
  std::size_t at = start->size;
  if (line.substr(at, 1) != ",") return {};
  ++at;
  while (at < line.size() && line[at] == ' ') ++at;
  const auto end = ReadClock(line.substr(at));
  if (!end || !IsBlankLine(line.substr(at + end->size))) return {};
  return Times{*start, *end, at};
}

/// "[INFORMATION]", "[COLF]&HFFFFFF,[SIZE]24" and the like, but not the break of a line.
bool IsSubViewerHeader(std::string_view line) {
  return line.size() > 2 && line[0] == '[' && line[1] >= 'A' && line[1] <= 'Z' &&
         line.find(']') != std::string_view::npos && !line.starts_with("[BR]");
}

class Reader {
 public:
  Reader(const SourceText& text, TextView separator, SourceSink& sink, bool hasHeaders)
      : text_(text), separator_(separator), sink_(sink), hasHeaders_(hasHeaders), lines_(text.bytes) {}

  void Read() {
    SourceLine line;
    while (lines_.Next(line)) {
      const auto times = TimesIn(line.text);
      if (times) {
        if (!ReadBlock(line, *times)) return;
        continue;
      }
      const bool known = IsBlankLine(line.text) || (hasHeaders_ && IsSubViewerHeader(line.text));
      if (!known) sink_.NotUnderstood(line.at);
    }
  }

 private:
  bool ReadBlock(const SourceLine& first, const Times& times) {
    SourceRecord record;
    record.start = Stretch::Of(first.at, times.start.size);
    record.end = Stretch::Of(first.at + times.endAt, times.end.size);
    std::size_t textEnd = first.next;
    SourceLine line;
    bool blankSeen = false;
    // A line behind a blank one still belongs to the text, unless it is a line of another kind.
    while (lines_.Next(line)) {
      const bool blank = IsBlankLine(line.text);
      if (!blank && (TimesIn(line.text) || (hasHeaders_ && IsSubViewerHeader(line.text)))) {
        lines_.GoTo(line.at);
        break;
      }
      blankSeen = blankSeen || blank;
      if (!blank) textEnd = line.End();
    }
    record.whole = Stretch::Between(first.at, lines_.Place());
    record.text = Stretch::Between(first.next, textEnd);
    Text caption = text_.Decoded(record.text);
    // The place where an empty text would stand; without a blank line to spare the record is written anew.
    if (record.text.Empty() && !blankSeen) record.text = {};
    JoinLines(caption, separator_);
    if (hasHeaders_) caption = ReplaceAll(caption, kBreak, separator_);
    return sink_.Add(times.start.ms, times.end.ms, std::move(caption), record);
  }

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  bool hasHeaders_;
  SourceLines lines_;
};

}  // namespace

void PairBlockFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  Reader(text, separator, sink, variant_ == Variant::SubViewer2).Read();
}

std::string PairBlockFormat::TimeField(Ms ms, std::string_view old) const { return ClockLike(ms, old); }

Text PairBlockFormat::TextField(TextView text, TextView separator, TextView lineEnd) const {
  return ReplaceAll(text, separator, variant_ == Variant::SubViewer2 ? kBreak : lineEnd);
}

Text PairBlockFormat::Record(const NewRecord& record, TextView separator) const {
  std::string form = variant_ == Variant::Sbv ? "0:00:00.000" : "00:00:00.00";
  std::string between = ",";
  SourceLines lines(record.neighbour);
  SourceLine line;
  if (lines.Next(line)) {
    if (const auto times = TimesIn(line.text)) {
      form = line.text.substr(0, times->start.size);
      between = line.text.substr(times->start.size, times->endAt - times->start.size);
    }
  }
  Text result = FromUtf8(ClockLike(record.caption.start, form) + between + ClockLike(record.caption.end, form));
  result.append(record.lineEnd).append(TextField(record.caption.text, separator, record.lineEnd));
  return result.append(record.lineEnd).append(record.lineEnd);
}

}  // namespace cuewright
