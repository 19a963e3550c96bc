#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "formats/line_parsers.h"
#include "formats/record_pieces.h"
#include "formats/text_pieces.h"
#include "formats/text_run.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

/// Longest time field that is read, in characters.
constexpr std::size_t kLongestField = 12;
/// Longest plain count that fits 32 bits whatever its digits are.
constexpr std::size_t kLongestCount = 9;
/// Counts of frames below this are thousandths of whole seconds in 32 bits.
constexpr std::int32_t kFewFrames = 2000000;
/// The last column of a line is that of its CR.
constexpr std::size_t kLongestPlainLine = 254;

/// A place in a line, counted from 1 and held in 8 bits; 0 means none.
class Column {
 public:
  operator std::size_t() const { return value_; }  // NOLINT(google-explicit-constructor)

  /// Takes a place; one past 255 is a run-time error, and the old value stays.
  void Set(std::size_t place, CarryOn& errors) {
    if (place > 255) {
      errors.Note({kErrorOverflow, u"Overflow"});
    } else {
      value_ = static_cast<std::uint8_t>(place);
    }
  }

 private:
  std::uint8_t value_ = 0;
};

/// The literal texts of the record, ready to be looked for.
struct Pieces {
  explicit Pieces(const RecordPieces& cut, const Text& mask)
      : startLead(cut.StartLead),
        startTrail(cut.StartTrail),
        endLead(cut.EndLead),
        endTrail(cut.EndTrail),
        captionLead(cut.CaptionLead),
        captionTrail(cut.CaptionTrail),
        startMask(cut.StartLead + mask),
        endMask(cut.EndLead + mask),
        endLeadLength(ReplaceAll(cut.EndLead, kLineEnd, {}).size()),
        startWantsDigit(startMask.Value().find(u'0') != Text::npos),
        endWantsDigit(endMask.Value().find(u'0') != Text::npos),
        startTrailEndsLine(cut.StartTrail.ends_with(u'\r')),
        captionTrailEndsLine(cut.CaptionTrail.ends_with(u'\r')) {}

  Needle startLead, startTrail, endLead, endTrail, captionLead, captionTrail;
  Needle startMask;  ///< the lead with the mask of a time behind it
  Needle endMask;
  std::size_t endLeadLength;  ///< without line ends
  bool startWantsDigit;       ///< only lines with a digit can hold the mask
  bool endWantsDigit;
  bool startTrailEndsLine;
  bool captionTrailEndsLine;
};

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// The form of a line with both times at its beginning, for records in which every search ends at the place where it
/// begins. Such lines are taken apart without searching.
struct PlainForm {
  PlainForm(const RecordPieces& cut, const ParseContext& context)
      : startLead(cut.StartLead), endLead(cut.EndLead), endTrail(cut.EndTrail), mask(context.definition.timecodeMask) {
    const auto literal = [](TextView piece) {
      return !HoldsDigitOrFrames(piece) && piece.find(u'\n') == TextView::npos;
    };
    const bool fields =
        context.timecodeLiteral ? mask.size() == context.definition.timecodeTemplate.size() : mask == u"0";
    usable = context.definition.captionAfterEnd && !context.wide && fields && cut.CaptionTrail == u"\r" &&
             cut.StartTrail == cut.EndLead && !endLead.empty() && !endTrail.empty() &&
             (cut.CaptionLead.empty() || cut.CaptionLead == endTrail) && literal(startLead) && literal(endLead) &&
             literal(endTrail) && mask.size() <= kLongestField;
    counts = !context.timecodeLiteral;
    captionLead = cut.CaptionLead;
    const auto inLine = [](TextView piece) {
      return std::all_of(piece.begin(), piece.end(), [](char16_t c) { return c < 0x80 && c != u'\r'; });
    };
    inBytes = usable && inLine(startLead) && inLine(endLead) && inLine(captionLead) && inLine(mask) &&
              (inLine(endTrail) || endTrail == u"\r") && (counts || context.fps == 0);
    bytes = {ToUtf8(startLead), ToUtf8(endLead), ToUtf8(endTrail), ToUtf8(captionLead), ToUtf8(mask)};
  }

  /// Length of the time at the beginning of the text; 0 when there is none.
  std::size_t FieldLength(TextView text) const {
    std::size_t length = 0;
    if (counts) {
      while (length < text.size() && IsDigit(text[length])) ++length;
      return length <= kLongestField ? length : 0;
    }
    if (text.size() < mask.size()) return 0;
    for (; length < mask.size(); ++length) {
      if (mask[length] == u'0' ? !IsDigit(text[length]) : text[length] != mask[length]) return 0;
    }
    return length;
  }

  /// The same in a line's bytes.
  std::size_t FieldLength(std::string_view text) const {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::size_t length = 0;
    if (counts) {
      while (length < text.size() && isDigit(text[length])) ++length;
      return length <= kLongestCount ? length : 0;
    }
    const std::string_view form = bytes.mask;
    if (text.size() < form.size()) return 0;
    for (; length < form.size(); ++length) {
      if (form[length] == '0' ? !isDigit(text[length]) : text[length] != form[length]) return 0;
    }
    return length;
  }

  bool usable = false;
  bool inBytes = false;  ///< the literal texts are ASCII, as `bytes` has them
  struct {
    std::string startLead, endLead, endTrail, captionLead, mask;
  } bytes;
  Text startLead, endLead, endTrail, captionLead;
  Text mask;
  bool counts = false;  ///< times are plain counts of any length
};

char16_t MarkOfMask(TextView mask) {
  const std::size_t hit = mask.find_first_of(u":;.,");
  return hit == TextView::npos ? u'\0' : mask[hit];
}

class GenericParser final : public LineParser {
 public:
  GenericParser(const ParseContext& context, const RecordPieces& cut)
      : context_(context),
        captions_(context.captions),
        errors_(context.errors),
        pieces_(cut, context.definition.timecodeMask),
        plain_(cut, context),
        wholeRate_(context.fps > 0 ? RoundToInt32(static_cast<double>(context.fps)) : 0),
        run_(context.captions),
        reader_(context.definition),
        markOfMask_(MarkOfMask(context.definition.timecodeMask)),
        maskLength_(context.definition.timecodeMask.size()),
        templateLength_(context.definition.timecodeTemplate.size()),
        keepsLines_(context.definition.lineBreak == u"[enter]"),
        wholeSeconds_(context.fps == 0 && context.definition.timecodeTemplate.find(u'z') == Text::npos) {}

  void Parse(ImportLine& line) override {
    if (line.Empty()) {
      if (captions_.TimesSet() && !IsBlank(captions_.captionText)) captions_.FlushImportedCaption();
      return;
    }
    if (IsMereText(line.View())) return ParseMereText(line.View());
    if (plain_.usable && ParsePlainLine(line.View())) return;
    TakeLine(line.View());
    if (!captions_.captionText.empty() && captions_.TimesSet()) {
      if (context_.definition.singleLineRecord || (StartsRecord() && pieces_.startTrail.In(masked_))) {
        captions_.FlushImportedCaption();
      }
    }
    from_ = to_ = Column();
    if (context_.definition.captionAfterEnd) {
      ParseStartEndText();
    } else {
      ParseStartTextEnd();
    }
  }

  void ParseRun(TextFile& file) override {
    if (!plain_.inBytes || !file.AsciiIsPlain() || captions_.captionText.size() > kLongestOpenText) return;
    run_.Begin();
    while (captions_.ImportedCount() % kYieldEvery != 0 && !captions_.Full() && !run_.Full() && TakeBytes(file)) {
    }
    run_.End();
  }

 private:
  /// What `Parse` does with the file's next line, as long as it is an empty one, one of the plain form or mere text;
  /// false, with nothing done, for any other.
  bool TakeBytes(TextFile& file) {
    const std::string_view rest = file.Rest();
    if (rest.empty() || rest.front() == ' ') return false;
    if (rest.front() == file.LineEnd()) {
      if (captions_.TimesSet() && !IsBlank(run_.View())) run_.Flush();
      file.SkipLine(0);
      return true;
    }
    if (!context_.dropped.empty() && BeginsWith(rest, context_.dropped)) return false;
    return TakePlainBytes(file, rest) || TakeMereBytes(file, rest);
  }

  /// The times at the beginning of a line of the plain form, and where its text begins.
  struct PlainTimes {
    std::int32_t start = 0;
    std::int32_t end = 0;
    std::size_t text = 0;
  };

  bool ReadPlainTimes(std::string_view rest, char lineEnd, PlainTimes& times) const {
    const auto& form = plain_.bytes;
    if (!BeginsWith(rest, form.startLead)) return false;
    const std::size_t start = form.startLead.size();
    const std::string_view startField = rest.substr(start, plain_.FieldLength(rest.substr(start)));
    const std::size_t startEnd = start + startField.size();
    if (startField.empty() || !BeginsWith(rest.substr(startEnd), form.endLead)) return false;
    const std::size_t end = startEnd + form.endLead.size();
    const std::string_view endField = rest.substr(end, plain_.FieldLength(rest.substr(end)));
    if (endField.empty()) return false;
    const std::string_view behind = rest.substr(end + endField.size());
    const bool lineEnds = behind.empty() || behind.front() == lineEnd;
    const std::string_view trail = plain_.counts ? form.endTrail : form.captionLead;
    if (plain_.counts && lineEnds ? trail != "\r" : !BeginsWith(behind, trail)) return false;
    times.text = end + endField.size() + form.captionLead.size();
    if (!plain_.counts) return reader_.ParseClock(startField, times.start) && reader_.ParseClock(endField, times.end);
    times.start = Count(startField);
    times.end = Count(endField);
    return !reader_.CountsFrames() || (FramesToMs(times.start) && FramesToMs(times.end));
  }

  /// Frames of a rate that rounds to a whole one; false when it takes more than whole numbers of 32 bits.
  bool FramesToMs(std::int32_t& frames) const {
    if (wholeRate_ == 0 || frames >= kFewFrames) return false;
    frames = frames * 1000 / wholeRate_;
    return true;
  }

  /// For beginnings of a few bytes, where a call would take longer than the look.
  static bool BeginsWith(std::string_view text, std::string_view beginning) {
    if (text.size() < beginning.size()) return false;
    for (std::size_t i = 0; i < beginning.size(); ++i) {
      if (text[i] != beginning[i]) return false;
    }
    return true;
  }

  static std::int32_t Count(std::string_view digits) {
    std::int32_t count = 0;
    for (const char c : digits) count = count * 10 + (c - '0');
    return count;
  }

  /// As `ParsePlainLine`.
  bool TakePlainBytes(TextFile& file, std::string_view rest) {
    const bool open = captions_.StartSet() || captions_.EndSet();
    if (open ? run_.Empty() || !captions_.TimesSet() : !run_.Empty()) return false;
    PlainTimes times;
    if (!ReadPlainTimes(rest, file.LineEnd(), times)) return false;
    const std::string_view text = rest.substr(times.text);
    bool ascii = true;
    const std::size_t length = FindLineEnd(text, file.LineEnd(), ascii);
    // A blank at the line's end may be the last character in front of the text.
    if (times.text + length > kLongestPlainLine || rest[times.text + length - 1] == ' ') return false;
    if (open) run_.Flush();
    captions_.captionStart = times.start;
    captions_.captionEnd = times.end;
    textColumn_.Set(times.text + 1, errors_);
    if (captions_.TimesSet() && length != 0) {
      const LineScan scan = run_.Look(text, file.LineEnd(), {run_.TagMark()});
      run_.Decode(file, text, scan);
      run_.Take(scan.angled || scan.markedA);
    }
    file.SkipLine(times.text + length);
    return true;
  }

  /// A line of text as `IsMereText` has it.
  bool TakeMereBytes(TextFile& file, std::string_view rest) {
    if (!captions_.TimesSet() || !pieces_.startWantsDigit || !pieces_.endWantsDigit) return false;
    if (markOfMask_ == u'\0' || context_.definition.singleLineRecord) return false;
    const LineScan scan = run_.Look(rest, file.LineEnd(), {run_.TagMark(), static_cast<char>(markOfMask_)});
    if (scan.markedB || scan.length > kLongestLine || rest[scan.length - 1] == ' ') return false;
    run_.Decode(file, rest, scan);
    run_.Take(scan.angled || scan.markedA);
    file.SkipLine(scan.length);
    return true;
  }

  /// A further line of text that can't hold a time, in the order that takes such lines whole.
  bool IsMereText(TextView text) const {
    return context_.definition.captionAfterEnd && captions_.TimesSet() && pieces_.startWantsDigit &&
           pieces_.endWantsDigit &&
           (markOfMask_ != u'\0' ? FindCharacter(text, markOfMask_) == TextView::npos : !HoldsDigitOrFrames(text));
  }

  void ParseMereText(TextView text) {
    if (!captions_.captionText.empty() && context_.definition.singleLineRecord) {
      captions_.FlushImportedCaption();
    } else {
      captions_.AddLine(text);
    }
  }

  /// A line of the plain form, where a record may begin; false for any other.
  bool ParsePlainLine(TextView text) {
    const bool open = captions_.StartSet() || captions_.EndSet();
    if (open && (captions_.captionText.empty() || !captions_.TimesSet())) return false;
    if (!open && !captions_.captionText.empty()) return false;
    if (text.size() > kLongestPlainLine || !text.starts_with(plain_.startLead)) return false;
    const std::size_t start = plain_.startLead.size();
    const std::size_t startEnd = start + plain_.FieldLength(text.substr(start));
    if (startEnd == start || !text.substr(startEnd).starts_with(plain_.endLead)) return false;
    const std::size_t end = startEnd + plain_.endLead.size();
    const std::size_t endEnd = end + plain_.FieldLength(text.substr(end));
    if (endEnd == end) return false;
    const TextView rest = text.substr(endEnd);
    if (plain_.counts ? !(rest.empty() ? plain_.endTrail == u"\r" : rest.starts_with(plain_.endTrail))
                      : !rest.starts_with(plain_.captionLead)) {
      return false;
    }
    if (open) captions_.FlushImportedCaption();
    errors_([&] { captions_.captionStart = reader_.Parse(text.substr(start, startEnd - start), context_.fps); });
    errors_([&] { captions_.captionEnd = reader_.Parse(text.substr(end, endEnd - end), context_.fps); });
    textColumn_.Set(endEnd + plain_.captionLead.size() + 1, errors_);
    if (captions_.TimesSet()) captions_.captionText = rest.substr(plain_.captionLead.size());
    return true;
  }

  /// The line with CR LF behind it, and the same with its digits masked.
  void TakeLine(TextView text) {
    line_ = text;
    line_ += kLineEnd;
    if (!HoldsDigitOrFrames(text)) {
      masked_ = line_;
      startsRecord_ = !pieces_.startWantsDigit && pieces_.startMask.In(masked_);
      holdsEnd_ = !pieces_.endWantsDigit && pieces_.endMask.In(masked_);
      return;
    }
    maskedRoom_ = line_;
    MaskDigits(maskedRoom_);
    for (std::size_t hit = FindCharacter(maskedRoom_, u'f'); hit != Text::npos;
         hit = FindCharacter(maskedRoom_, u'f', hit + 1)) {
      if (hit + 1 == maskedRoom_.size() || maskedRoom_[hit + 1] != u'f') continue;
      maskedRoom_[hit] = maskedRoom_[hit + 1] = u'0';
    }
    masked_ = maskedRoom_;
    startsRecord_ = pieces_.startMask.In(masked_);
    holdsEnd_ = pieces_.endMask.In(masked_);
  }

  bool StartsRecord() const { return startsRecord_; }

  /// The end of a time field that begins at `from_`.
  std::size_t FieldEnd(const Needle& trail, TextView text) const {
    return context_.timecodeLiteral ? from_ + templateLength_ : trail.Place(text, from_ + 1);
  }

  bool FieldIsShort() const { return to_ < from_ || to_ - from_ <= kLongestField; }

  void ReadField(std::int32_t& time) {
    errors_([&] {
      time = reader_.Parse(Middle(line_, static_cast<std::ptrdiff_t>(static_cast<std::size_t>(from_)),
                                  static_cast<std::ptrdiff_t>(static_cast<std::size_t>(to_)) -
                                      static_cast<std::ptrdiff_t>(static_cast<std::size_t>(from_))),
                           context_.fps);
    });
  }

  void ParseStartEndText() {
    if (StartsRecord() && !captions_.StartSet()) {
      from_.Set(pieces_.startLead.Place(masked_) + pieces_.startLead.Size(), errors_);
      to_.Set(FieldEnd(pieces_.startTrail, line_), errors_);
      if (to_ != 0 && FieldIsShort()) ReadField(captions_.captionStart);
    }
    if (holdsEnd_ && !captions_.EndSet()) {
      from_.Set(pieces_.endLead.Place(masked_, std::max<std::size_t>(to_, 1)) + pieces_.endLead.Size(), errors_);
      to_.Set(FieldEnd(pieces_.endTrail, masked_), errors_);
      if (to_ != 0) {
        textColumn_.Set(pieces_.captionLead.Place(masked_, to_) + pieces_.captionLead.Size(), errors_);
        if (FieldIsShort()) ReadField(captions_.captionEnd);
      }
    } else if (captions_.TimesSet()) {
      // Its line end would only go again with the flush.
      captions_.AddLine(TextView(line_).substr(0, line_.size() - kLineEnd.size()));
    }
    if (captions_.captionText.empty() && textColumn_ != 0 && captions_.TimesSet()) {
      Column place;
      place.Set(pieces_.captionTrail.Place(line_, textColumn_), errors_);
      if (place != 0) TakeText(place);
    }
  }

  void ParseStartTextEnd() {
    if (StartsRecord() && !captions_.StartSet()) {
      ReadStart();
    } else if (textColumn_ == 0 && !captions_.EndSet()) {
      textColumn_.Set(pieces_.captionLead.Place(line_) + pieces_.captionLead.Size(), errors_);
    }
    const bool open = captions_.StartSet() && !captions_.EndSet();
    if (captions_.captionText.empty() && textColumn_ != 0 && open) {
      Column place;
      place.Set(pieces_.captionTrail.Place(line_, textColumn_), errors_);
      if (place == 0 && keepsLines_) place.Set(line_.size(), errors_);
      if (place != 0) TakeText(place);
    } else if (keepsLines_ && open) {
      TakeFurtherLine();
    }
    if (!captions_.captionText.empty() && open && holdsEnd_) ReadEnd();
  }

  void ReadStart() {
    from_.Set(pieces_.startLead.Place(line_) + pieces_.startLead.Size(), errors_);
    to_.Set(FieldEnd(pieces_.startTrail, line_), errors_);
    if (to_ == 0) return;
    textColumn_.Set(
        pieces_.startTrailEndsLine ? 0 : pieces_.captionLead.Place(masked_, to_) + pieces_.captionLead.Size(), errors_);
    if (FieldIsShort()) ReadField(captions_.captionStart);
  }

  /// A line of text below the one that the caption began on.
  void TakeFurtherLine() {
    Text& text = captions_.captionText;
    Column trail;
    trail.Set(pieces_.captionTrail.Place(line_), errors_);
    const std::ptrdiff_t cut = static_cast<std::ptrdiff_t>(static_cast<std::size_t>(trail)) -
                               static_cast<std::ptrdiff_t>(pieces_.captionTrail.Size());
    if (!text.empty()) {
      const bool closes = line_.front() == u'}' ||
                          EqualLoose(masked_.substr(0, pieces_.endLeadLength + maskLength_), pieces_.endMask.Value());
      if (!closes) {
        errors_([&] {
          const TextView more = Beginning(line_, cut);
          captions_.AddLine(more);
        });
      }
    } else if (!StartsRecord()) {
      errors_([&] { text = Beginning(line_, cut); });
    }
    const Text& separator = captions_.Separator();
    if (!separator.empty() && text.ends_with(separator)) text.resize(text.size() - separator.size());
  }

  void ReadEnd() {
    bool found = false;
    if (pieces_.captionTrailEndsLine) {
      const std::size_t place = pieces_.endLead.Place(line_);
      from_.Set(place + pieces_.endLead.Size(), errors_);
      to_.Set(FieldEnd(pieces_.endTrail, line_), errors_);
      found = place != 0 && to_ != 0;
    } else {
      // The start field is skipped first.
      const std::size_t start = pieces_.startLead.Place(line_);
      const std::size_t place = pieces_.endLead.Place(line_, start == 0 ? 1 : start + pieces_.startLead.Size());
      from_.Set(place + pieces_.endLead.Size(), errors_);
      to_.Set(pieces_.endTrail.Place(line_, std::max<std::size_t>(from_, 1)), errors_);
      found = place != 0 && to_ != 0;
    }
    if (found && FieldIsShort()) ReadField(captions_.captionEnd);
    // In whole seconds an end that equals the start may be the start itself; a later line must give it.
    if (wholeSeconds_ && captions_.captionEnd == captions_.captionStart) {
      captions_.captionEnd = CaptionCollector::kNotRead;
    }
  }

  /// The text from its column up to the place.
  void TakeText(std::size_t place) {
    errors_([&] {
      captions_.captionText = Middle(
          line_, static_cast<std::ptrdiff_t>(static_cast<std::size_t>(textColumn_)),
          static_cast<std::ptrdiff_t>(place) - static_cast<std::ptrdiff_t>(static_cast<std::size_t>(textColumn_)));
    });
  }

  ParseContext context_;
  CaptionCollector& captions_;
  CarryOn& errors_;
  Pieces pieces_;
  PlainForm plain_;
  std::int32_t wholeRate_ = 0;  // the rate as a whole number; 0: none that frames are divided by
  TextRun run_;
  TimecodeReader reader_;
  char16_t markOfMask_;  // a character of the mask that is no digit and no letter; NUL: it has none
  std::size_t maskLength_;
  std::size_t templateLength_;
  bool keepsLines_;
  bool wholeSeconds_;

  Text line_;
  Text maskedRoom_;
  TextView masked_;
  bool startsRecord_ = false;
  bool holdsEnd_ = false;
  Column from_;
  Column to_;
  Column textColumn_;
};

}  // namespace

std::unique_ptr<LineParser> MakeGenericParser(const ParseContext& context, const RecordPieces& pieces) {
  return std::make_unique<GenericParser>(context, pieces);
}

}  // namespace cuewright
