#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "core/numbers.h"
#include "formats/fast/digits.h"
#include "formats/fast/line_runs.h"
#include "formats/fast/text_run.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

/// Longest time field that is read, in characters.
constexpr std::size_t kLongestField = 12;
/// The parser counts columns up to 255, and the CR at the end of a line takes one of them.
constexpr std::size_t kLongestRecordLine = 254;

/// Compares beginnings of a few bytes, for which a call of the library would take longer than the comparison.
bool BeginsWith(std::string_view text, std::string_view beginning) {
  if (text.size() < beginning.size()) return false;
  for (std::size_t i = 0; i < beginning.size(); ++i) {
    if (text[i] != beginning[i]) return false;
  }
  return true;
}

/// How a line looks that begins with both times.
struct LineForm {
  std::string startLead, endLead, endTrail, captionLead, mask;
  bool counts = false;  ///< times are whole numbers of any length

  /// Length of the time at the beginning of the bytes; 0 when there is none.
  std::size_t FieldLength(std::string_view bytes) const {
    if (counts) {
      const std::size_t digits = DigitsAtBeginning(bytes);
      return digits <= kLongestCount ? digits : 0;
    }
    if (bytes.size() < mask.size()) return 0;
    for (std::size_t i = 0; i < mask.size(); ++i) {
      if (mask[i] == '0' ? !IsDigit(bytes[i]) : bytes[i] != mask[i]) return 0;
    }
    return mask.size();
  }
};

bool IsAsciiOfOneLine(TextView piece) {
  return std::ranges::all_of(piece, [](char16_t c) { return c < 0x80 && c != u'\r' && c != u'\n'; });
}

/// The form of a record's lines, for records where each search of the parser would hit at the very place where it
/// begins.
std::optional<LineForm> FormOf(const RecordPieces& cut, const ParseContext& context) {
  const FormatDefinition& definition = context.definition;
  const Text& mask = definition.timecodeMask;
  const bool literal = context.timecodeLiteral;
  const bool fieldsBegin = literal ? mask.size() == definition.timecodeTemplate.size() : mask == u"0";
  const bool piecesMeet = cut.CaptionTrail == u"\r" && cut.StartTrail == cut.EndLead && !cut.EndLead.empty() &&
                          !cut.EndTrail.empty() && (cut.CaptionLead.empty() || cut.CaptionLead == cut.EndTrail);
  if (!definition.captionAfterEnd || !fieldsBegin || !piecesMeet || mask.size() > kLongestField) return {};
  // Digits and "ff" in a piece could be taken for a time's.
  for (const Text* piece : {&cut.StartLead, &cut.EndLead, &cut.EndTrail}) {
    if (HoldsDigitOrFrames(*piece)) return {};
  }
  for (const Text* piece : {&cut.StartLead, &cut.EndLead, &cut.CaptionLead, &mask}) {
    if (!IsAsciiOfOneLine(*piece)) return {};
  }
  if (!IsAsciiOfOneLine(cut.EndTrail) && cut.EndTrail != u"\r") return {};
  return LineForm{ToUtf8(cut.StartLead),   ToUtf8(cut.EndLead), ToUtf8(cut.EndTrail),
                  ToUtf8(cut.CaptionLead), ToUtf8(mask),        !literal};
}

/// Lines that begin with both times, and the lines of text below them.
class RecordRun final : public LineRun {
 public:
  RecordRun(const ParseContext& context, LineForm form, GenericParser& parser)
      : context_(context),
        captions_(context.captions),
        form_(std::move(form)),
        parser_(parser),
        reader_(context.definition, context.times),
        run_(context.captions) {
    const std::size_t mark = form_.mask.find_first_of(":;.,");
    if (mark != std::string::npos && form_.mask.find('0') != std::string::npos) markOfTimes_ = form_.mask[mark];
  }

  void ReadOn(TextFile& file) override {
    if (file.AsciiIsPlain()) run_.ReadOn(file, [&] { return TakeLine(file); });
  }

 private:
  struct Times {
    Ms start = 0;
    Ms end = 0;
    std::size_t text = 0;  ///< where it begins
  };

  bool TakeLine(TextFile& file) {
    const std::string_view rest = file.Rest();
    if (rest.empty() || rest.front() == ' ') return false;
    if (rest.front() == file.LineEnd()) {
      if (captions_.TimesSet() && !IsBlank(run_.View())) run_.Flush();
      file.SkipLine(0);
      return true;
    }
    if (!context_.dropped.empty() && BeginsWith(rest, context_.dropped)) return false;
    return TakeTimedLine(file, rest) || TakeFurtherLine(file, rest);
  }

  /// A line that begins a record.
  bool TakeTimedLine(TextFile& file, std::string_view rest) {
    const bool open = captions_.StartSet() || captions_.EndSet();
    if (open ? run_.Empty() || !captions_.TimesSet() : !run_.Empty()) return false;
    Times times;
    if (!FindTimes(rest, file.LineEnd(), times)) return false;
    const std::string_view text = rest.substr(times.text);
    const std::size_t length = FindLineEnd(text, file.LineEnd()).length;
    // Where the text is empty, a blank at the line's end may be the last character of what stands in front of it.
    if (times.text + length > kLongestRecordLine || rest[times.text + length - 1] == ' ') return false;
    if (open) run_.Flush();
    captions_.captionStart = times.start;
    captions_.captionEnd = times.end;
    parser_.SetTextColumn(times.text + 1);
    if (length != 0) {
      run_.Look(text, {run_.TagMark()});
      run_.Decode();
      run_.Take();
    }
    file.SkipLine(times.text + length);
    return true;
  }

  bool FindTimes(std::string_view rest, char lineEnd, Times& times) const {
    if (!BeginsWith(rest, form_.startLead)) return false;
    std::string_view left = rest.substr(form_.startLead.size());
    const std::string_view start = left.substr(0, form_.FieldLength(left));
    left.remove_prefix(start.size());
    if (start.empty() || !BeginsWith(left, form_.endLead)) return false;
    left.remove_prefix(form_.endLead.size());
    const std::string_view end = left.substr(0, form_.FieldLength(left));
    if (end.empty()) return false;
    left.remove_prefix(end.size());
    const bool lineEnds = left.empty() || left.front() == lineEnd;
    const std::string& trail = form_.counts ? form_.endTrail : form_.captionLead;
    if (form_.counts && lineEnds ? trail != "\r" : !BeginsWith(left, trail)) return false;
    times.text = rest.size() - left.size() + form_.captionLead.size();
    return ReadTime(start, times.start) && ReadTime(end, times.end);
  }

  bool ReadTime(std::string_view field, Ms& time) const {
    if (!form_.counts && !context_.times.rate) return reader_.ParseClock(field, time);
    if (!form_.counts) return ReadClockOfFrames(field, time);
    std::int32_t number = 0;
    for (const char digit : field) number = number * 10 + (digit - '0');
    time = number;
    return !reader_.CountsFrames() || reader_.ParseFrames(number, time);
  }

  bool ReadClockOfFrames(std::string_view field, Ms& time) const {
    if (!reader_.KnowsRate()) return false;
    std::array<char16_t, kLongestField> units;
    std::copy(field.begin(), field.end(), units.begin());
    time = reader_.Parse({units.data(), field.size()});
    return true;
  }

  /// A further line of text, which can't hold a time since it lacks a character of each.
  bool TakeFurtherLine(TextFile& file, std::string_view rest) {
    if (!captions_.TimesSet() || markOfTimes_ == '\0' || context_.definition.singleLineRecord) return false;
    const LineScan& scan = run_.Look(rest, {run_.TagMark(), markOfTimes_});
    if (scan.markedB || scan.length > kLongestLine || rest[scan.length - 1] == ' ') return false;
    run_.Decode();
    run_.Take();
    file.SkipLine(scan.length);
    return true;
  }

  ParseContext context_;
  CaptionCollector& captions_;
  LineForm form_;
  GenericParser& parser_;
  TimecodeReader reader_;
  TextRun run_;
  char markOfTimes_ = '\0';  // a character of every time that is no digit and no letter; NUL: there is none
};

}  // namespace

std::unique_ptr<LineRun> MakeRecordRun(const ParseContext& context, const RecordPieces& pieces, GenericParser& parser) {
  std::optional<LineForm> form = FormOf(pieces, context);
  return form ? std::make_unique<RecordRun>(context, *std::move(form), parser) : nullptr;
}

}  // namespace cuewright
