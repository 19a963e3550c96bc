#include "formats/source/tmplayer_format.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/counting.h"
#include "formats/source/clock_field.h"
#include "formats/source/open_ended.h"
#include "text/digits.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

using Dialect = TmPlayerFormat::Dialect;

constexpr TextView kLineMark = u"|";

struct Stamp {
  ClockField time;
  Dialect dialect = Dialect::Colon;
  int row = 1;
  std::size_t textAt = 0;
};

std::optional<Stamp> StampIn(std::string_view line) {
  const auto time = ReadClock(line);
  if (!time || time->size < 7 || time->size >= line.size() || time->ms % 1000 != 0) return {};
  Stamp stamp;
  stamp.time = *time;
  const std::string_view behind = line.substr(time->size);
  if (behind[0] == ':' || behind[0] == '=') {
    stamp.dialect = behind[0] == ':' ? Dialect::Colon : Dialect::Equals;
    stamp.textAt = time->size + 1;
    return stamp;
  }
  return {};
}

/// "hh:mm:ss,1=text". The number behind the comma looks like a fraction, so it is cut off first.
std::optional<Stamp> RowStampIn(std::string_view line) {
  const std::size_t comma = line.substr(0, 12).find(',');
  if (comma == std::string_view::npos || line.size() < comma + 3 || line[comma + 2] != '=') return {};
  const auto time = ReadClock(line.substr(0, comma));
  if (!time || time->size != comma || time->size < 7 || !IsDigit(line[comma + 1])) return {};
  return Stamp{*time, Dialect::Rows, line[comma + 1] - '0', comma + 3};
}

class Reader {
 public:
  Reader(const SourceText& text, TextView separator, const SourceSettings& settings, SourceSink& sink)
      : text_(text), separator_(separator), sink_(sink), captions_(settings, sink), lines_(text.bytes) {}

  void Read() {
    SourceLine line;
    while (lines_.Next(line)) {
      if (const auto row = RowStampIn(line.text)) {
        TakeRows(line, *row);
      } else if (const auto stamp = StampIn(line.text)) {
        TakeLine(line, *stamp);
      } else if (line.text.find_first_not_of(" \t") != std::string_view::npos) {
        sink_.NotUnderstood(line.at);
      }
    }
    captions_.Flush();
  }

  bool AnyEnds() const { return captions_.AnyEnds(); }
  std::optional<Dialect> Found() const { return found_; }
  int Rows() const { return rows_; }

 private:
  void TakeLine(const SourceLine& line, const Stamp& stamp) {
    found_ = stamp.dialect;
    const Stretch time = Stretch::Of(line.at, stamp.time.size);
    const Stretch field = Stretch::Between(line.at + stamp.textAt, line.End());
    Take(stamp, {Stretch::Between(line.at, line.next), {}, time, {}, field},
         ReplaceAll(text_.Decoded(field), kLineMark, separator_));
  }

  /// The rows of a time make one caption. Its texts lie apart, so the record is written anew for another.
  void TakeRows(const SourceLine& first, const Stamp& stamp) {
    found_ = Dialect::Rows;
    Text caption = text_.Decoded(Stretch::Between(first.at + stamp.textAt, first.End()));
    std::size_t end = first.next;
    int rows = 1;
    SourceLine line;
    while (lines_.Next(line)) {
      const auto next = RowStampIn(line.text);
      if (!next || next->row <= stamp.row || next->time.ms != stamp.time.ms) {
        lines_.GoTo(line.at);
        break;
      }
      const Text row = text_.Decoded(Stretch::Between(line.at + next->textAt, line.End()));
      if (!row.empty()) caption += Text(separator_) + row;
      end = line.next;
      ++rows;
    }
    rows_ = std::max(rows_, rows);
    const Stretch time = rows == 1 ? Stretch::Of(first.at, stamp.time.size) : Stretch{};
    Take(stamp, {Stretch::Between(first.at, end), {}, time, {}, {}}, std::move(caption));
  }

  /// A time without text is the end of the caption in front.
  void Take(const Stamp& stamp, const SourceRecord& record, Text caption) {
    if (!IsBlank(caption)) {
      captions_.Begin(stamp.time.ms, std::move(caption), record);
    } else {
      (void)captions_.End(stamp.time.ms, record.start, record.whole.End());
    }
  }

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  OpenEnded captions_;
  SourceLines lines_;
  std::optional<Dialect> found_;
  int rows_ = 1;
};

}  // namespace

void TmPlayerFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  Reader reader(text, separator, settings_, sink);
  reader.Read();
  if (!reader.Found()) return;
  dialect_ = *reader.Found();
  rows_ = reader.Rows();
  writesEnds_ = reader.AnyEnds();
}

std::string TmPlayerFormat::TimeField(Ms ms, std::string_view old) const { return ClockLike(ms, old); }

Text TmPlayerFormat::TextField(TextView text, TextView separator, TextView) const {
  return ReplaceAll(text, separator, kLineMark);
}

Text TmPlayerFormat::Line(Ms ms, std::string_view form, int row) const {
  std::string line = ClockLike(ms, form);
  switch (dialect_) {
    case Dialect::Colon:
      line += ':';
      break;
    case Dialect::Equals:
      line += '=';
      break;
    case Dialect::Rows:
      line += "," + std::to_string(row) + "=";
      break;
  }
  return FromUtf8(line);
}

Text TmPlayerFormat::Record(const NewRecord& record, TextView separator) const {
  const auto stamp = dialect_ == Dialect::Rows ? RowStampIn(record.neighbour) : StampIn(record.neighbour);
  const std::string_view form = stamp ? record.neighbour.substr(0, stamp->time.size) : "00:00:00";
  std::vector<Text> rows{TextField(record.caption.text, separator, record.lineEnd)};
  if (dialect_ == Dialect::Rows) rows = Split(record.caption.text, separator);
  if (dialect_ == Dialect::Rows) rows.resize(std::max(CountOf(rows), rows_));
  Text result;
  int number = 0;
  for (const Text& row : rows) result += Line(record.caption.start, form, ++number) + row + Text(record.lineEnd);
  for (int i = 1; writesEnds_ && i <= number; ++i) result += Line(record.caption.end, form, i) + Text(record.lineEnd);
  return result;
}

}  // namespace cuewright
