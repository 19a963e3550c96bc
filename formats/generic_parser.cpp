#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "formats/line_parsers.h"
#include "formats/record_pieces.h"
#include "formats/text_search.h"

namespace cuewright {
namespace {

/// Longest time field that is read, in characters.
constexpr int kLongestField = 12;

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

class GenericParser final : public LineParser {
 public:
  GenericParser(const ParseContext& context, const RecordPieces& cut)
      : context_(context),
        captions_(context.captions),
        errors_(context.errors),
        pieces_(cut, context.definition.timecodeMask),
        reader_(context.definition),
        maskLength_(context.definition.timecodeMask.size()),
        templateLength_(context.definition.timecodeTemplate.size()),
        keepsLines_(context.definition.lineBreak == u"[enter]"),
        wholeSeconds_(context.fps == 0 && context.definition.timecodeTemplate.find(u'z') == Text::npos) {}

  void Parse(ImportLine& line) override {
    if (line.Empty()) {
      if (captions_.TimesSet() && !IsBlank(captions_.captionText)) captions_.FlushImportedCaption();
      return;
    }
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

 private:
  /// The line with CR LF behind it, and the same with its digits masked.
  void TakeLine(TextView text) {
    line_ = text;
    line_ += kLineEnd;
    if (!HoldsDigitOrF(text)) {
      masked_ = line_;
      startsRecord_ = !pieces_.startWantsDigit && pieces_.startMask.In(masked_);
      holdsEnd_ = !pieces_.endWantsDigit && pieces_.endMask.In(masked_);
      return;
    }
    maskedRoom_ = line_;
    MaskDigits(maskedRoom_);
    for (std::size_t hit = maskedRoom_.find(u"ff"); hit != Text::npos; hit = maskedRoom_.find(u"ff", hit + 2)) {
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

  bool FieldIsShort() const { return static_cast<int>(to_) - static_cast<int>(from_) <= kLongestField; }

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
      captions_.AddLine(line_);
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
          const TextView more = Left(line_, cut);
          captions_.AddLine(more);
        });
      }
    } else if (!StartsRecord()) {
      errors_([&] { text = Left(line_, cut); });
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
  TimecodeReader reader_;
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
