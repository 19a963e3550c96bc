#include "formats/generic_parser.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Longest time field that is read, in characters.
constexpr std::size_t kLongestField = 12;

/// The characters from one place up to another; run-time error 5 when there is no such stretch.
TextView Between(TextView text, std::size_t from, std::size_t to) {
  if (from == 0 || to < from) ThrowInvalidCall();
  return from > text.size() ? TextView() : text.substr(from - 1, to - from);
}

void MaskFrames(Text& text) {
  for (std::size_t hit = text.find(u"ff"); hit != Text::npos; hit = text.find(u"ff", hit + 2))
    text.replace(hit, 2, u"00");
}

}  // namespace

void Column::Set(std::size_t place, CarryOn& errors) {
  if (place > 255) {
    errors.Note({kErrorOverflow, u"Overflow"});
  } else {
    value_ = Checked8(place);
  }
}

GenericParser::GenericParser(const ParseContext& context, const RecordPieces& pieces)
    : context_(context),
      captions_(context.captions),
      reader_(context.definition, context.times),
      startLead_(pieces.StartLead),
      startTrail_(pieces.StartTrail),
      endLead_(pieces.EndLead),
      endTrail_(pieces.EndTrail),
      captionLead_(pieces.CaptionLead),
      captionTrail_(pieces.CaptionTrail),
      startMask_(pieces.StartLead + context.definition.timecodeMask),
      endMask_(pieces.EndLead + context.definition.timecodeMask),
      endLineLength_(ReplaceAll(pieces.EndLead, kLineEnd, {}).size() + context.definition.timecodeMask.size()),
      keepsLines_(context.definition.lineBreak == u"[enter]"),
      wholeSeconds_(!context.times.rate && context.definition.timecodeTemplate.find(u'z') == Text::npos) {}

void GenericParser::Parse(ImportLine& line) {
  if (line.Empty()) {
    if (captions_.TimesSet() && !IsBlank(captions_.captionText)) captions_.FlushImportedCaption();
    return;
  }
  TakeLine(line.View());
  if (!captions_.captionText.empty() && captions_.TimesSet()) {
    if (context_.definition.singleLineRecord || (startsRecord_ && startTrail_.In(masked_))) {
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

void GenericParser::TakeLine(TextView text) {
  line_.assign(text).append(kLineEnd);
  masked_ = line_;
  MaskDigits(masked_);
  MaskFrames(masked_);
  startsRecord_ = startMask_.In(masked_);
  holdsEnd_ = endMask_.In(masked_);
}

/// The end of a time field that begins at `from_`.
std::size_t GenericParser::FieldEnd(const Needle& trail, TextView text) const {
  return context_.timecodeLiteral ? from_ + context_.definition.timecodeTemplate.size() : trail.Place(text, from_ + 1);
}

bool GenericParser::FieldIsShort() const { return to_ < from_ || to_ - from_ <= kLongestField; }

void GenericParser::ReadField(Ms& time) {
  context_.errors([&] { time = reader_.Parse(Between(line_, from_, to_)); });
}

void GenericParser::ParseStartEndText() {
  if (startsRecord_ && !captions_.StartSet()) {
    from_.Set(startLead_.Place(masked_) + startLead_.Size(), context_.errors);
    to_.Set(FieldEnd(startTrail_, line_), context_.errors);
    if (to_ != 0 && FieldIsShort()) ReadField(captions_.captionStart);
  }
  if (holdsEnd_ && !captions_.EndSet()) {
    from_.Set(endLead_.Place(masked_, std::max<std::size_t>(to_, 1)) + endLead_.Size(), context_.errors);
    to_.Set(FieldEnd(endTrail_, masked_), context_.errors);
    if (to_ != 0) {
      textColumn_.Set(captionLead_.Place(masked_, to_) + captionLead_.Size(), context_.errors);
      if (FieldIsShort()) ReadField(captions_.captionEnd);
    }
  } else if (captions_.TimesSet()) {
    // The line end is left out, since the flush would only remove it again.
    captions_.AddLine(TextView(line_).substr(0, line_.size() - kLineEnd.size()));
  }
  if (captions_.captionText.empty() && textColumn_ != 0 && captions_.TimesSet()) {
    Column place;
    place.Set(captionTrail_.Place(line_, textColumn_), context_.errors);
    if (place != 0) TakeText(place);
  }
}

void GenericParser::ParseStartTextEnd() {
  if (startsRecord_ && !captions_.StartSet()) {
    ReadStart();
  } else if (textColumn_ == 0 && !captions_.EndSet()) {
    textColumn_.Set(captionLead_.Place(line_) + captionLead_.Size(), context_.errors);
  }
  const bool open = captions_.StartSet() && !captions_.EndSet();
  if (captions_.captionText.empty() && textColumn_ != 0 && open) {
    Column place;
    place.Set(captionTrail_.Place(line_, textColumn_), context_.errors);
    if (place == 0 && keepsLines_) place.Set(line_.size(), context_.errors);
    if (place != 0) TakeText(place);
  } else if (keepsLines_ && open) {
    TakeFurtherLine();
  }
  if (!captions_.captionText.empty() && open && holdsEnd_) ReadEnd();
}

void GenericParser::ReadStart() {
  from_.Set(startLead_.Place(line_) + startLead_.Size(), context_.errors);
  to_.Set(FieldEnd(startTrail_, line_), context_.errors);
  if (to_ == 0) return;
  const bool endsLine = startTrail_.Value().ends_with(u'\r');
  textColumn_.Set(endsLine ? 0 : captionLead_.Place(masked_, to_) + captionLead_.Size(), context_.errors);
  if (FieldIsShort()) ReadField(captions_.captionStart);
}

/// A line of text below the one that the caption began on.
void GenericParser::TakeFurtherLine() {
  Text& text = captions_.captionText;
  Column trail;
  trail.Set(captionTrail_.Place(line_), context_.errors);
  const auto beforeTrail = [&] {
    if (trail < captionTrail_.Size()) ThrowInvalidCall();
    return TextView(line_).substr(0, trail - captionTrail_.Size());
  };
  if (!text.empty()) {
    if (!ClosesCaption()) context_.errors([&] { captions_.AddLine(beforeTrail()); });
  } else if (!startsRecord_) {
    context_.errors([&] { text = beforeTrail(); });
  }
  const Text& separator = captions_.Separator();
  if (!separator.empty() && text.ends_with(separator)) text.resize(text.size() - separator.size());
}

/// True for a line that ends the caption and is no text of it.
bool GenericParser::ClosesCaption() const {
  return line_.front() == u'}' || EqualLoose(TextView(masked_).substr(0, endLineLength_), endMask_.Value());
}

void GenericParser::ReadEnd() {
  std::size_t place = 0;
  if (captionTrail_.Value().ends_with(u'\r')) {
    place = endLead_.Place(line_);
    from_.Set(place + endLead_.Size(), context_.errors);
    to_.Set(FieldEnd(endTrail_, line_), context_.errors);
  } else {
    // The start field is skipped first.
    const std::size_t start = startLead_.Place(line_);
    place = endLead_.Place(line_, start == 0 ? 1 : start + startLead_.Size());
    from_.Set(place + endLead_.Size(), context_.errors);
    to_.Set(endTrail_.Place(line_, std::max<std::size_t>(from_, 1)), context_.errors);
  }
  if (place != 0 && to_ != 0 && FieldIsShort()) ReadField(captions_.captionEnd);
  // Where times are whole seconds, an end that equals the start may be the start field, found twice; the end must come
  // from a later line.
  if (wholeSeconds_ && captions_.captionEnd == captions_.captionStart) {
    captions_.captionEnd = CaptionCollector::kNotRead;
  }
}

/// Takes the text from its column up to the place.
void GenericParser::TakeText(std::size_t end) {
  context_.errors([&] { captions_.captionText = Between(line_, textColumn_, end); });
}

}  // namespace cuewright
