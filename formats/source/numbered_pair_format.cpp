#include "formats/source/numbered_pair_format.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "formats/source/clock_field.h"
#include "formats/source/open_ended.h"
#include "formats/source/whole_styles.h"
#include "text/digits.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr TextView kLineMark = u"|";
/// A MicroDVD line of defaults for all captions.
constexpr std::string_view kDefaults = "{DEFAULT}";

struct Pair {
  NumberField start;
  NumberField end;  ///< a size of 0: the brackets are empty
  std::size_t endAt = 0;
  std::size_t textAt = 0;
};

std::optional<Pair> PairIn(std::string_view line, char open, char close) {
  if (line.size() < 5 || line[0] != open || !IsDigit(line[1])) return {};
  Pair pair;
  const auto start = ReadNumber(line.substr(1));
  if (!start || line.substr(1 + start->size, 2) != std::string{close, open}) return {};
  pair.start = *start;
  pair.endAt = start->size + 3;
  const bool empty = pair.endAt < line.size() && line[pair.endAt] == close;
  const auto end = empty ? std::optional(NumberField{}) : ReadNumber(line.substr(pair.endAt));
  if (!end) return {};
  pair.end = *end;
  pair.textAt = pair.endAt + end->size + 1;
  if (pair.textAt > line.size() || line[pair.textAt - 1] != close) return {};
  return pair;
}

/// How long the "{y:b,i}" is with which the text begins; 0 when it asks for other styles than the list's.
std::size_t LettersSize(TextView text, WholeStyles& styles) {
  const std::size_t end = text.find_first_not_of(u"biu,", 3);
  if (end == TextView::npos || end == 3 || text[end] != u'}') return 0;
  const TextView letters = text.substr(3, end - 3);
  styles.bold = styles.bold || letters.find(u'b') != TextView::npos;
  styles.italic = styles.italic || letters.find(u'i') != TextView::npos;
  styles.underline = styles.underline || letters.find(u'u') != TextView::npos;
  return end + 1;
}

/// The signs with which a line of MPL2 begins that has these styles.
Text SignsOf(const WholeStyles& styles) {
  Text signs;
  if (styles.bold) signs += u'\\';
  if (styles.italic) signs += u'/';
  if (styles.underline) signs += u'_';
  return signs;
}

}  // namespace

NumberedPairFormat::NumberedPairFormat(const SourceSettings& settings, Variant variant)
    : settings_(settings), variant_(variant) {
  if (variant == Variant::Mpl2) settings_.rate = 10.0;
}

Ms NumberedPairFormat::MsOf(std::int32_t number) const {
  const FrameRate& rate = settings_.rate;
  const std::int64_t ms = Nearest(std::int64_t{number} * 1000 * rate.Denominator(), rate.Numerator());
  return Ms::Within(ms, 0, Ms::Latest());
}

/// The first line may name the rate in place of a text.
bool NumberedPairFormat::TakeRate(Ms start, std::string_view text) {
  if (variant_ != Variant::MicroDvd || start > 1 || !IsAscii(text)) return false;
  const FrameRate rate = FrameRate::FromText(FromUtf8(text));
  if (!rate.IsUsual()) return false;
  settings_.rate = rate;
  return true;
}

void NumberedPairFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  const char open = variant_ == Variant::MicroDvd ? '{' : '[';
  const char close = variant_ == Variant::MicroDvd ? '}' : ']';
  OpenEnded captions(settings_, sink);
  SourceLines lines(text.bytes);
  SourceLine line;
  bool first = true;
  while (lines.Next(line)) {
    const auto pair = PairIn(line.text, open, close);
    if (!pair) {
      const bool known =
          line.text.find_first_not_of(" \t") == std::string_view::npos || line.text.starts_with(kDefaults);
      if (!known) sink.NotUnderstood(line.at);
      continue;
    }
    const bool rate = std::exchange(first, false) && TakeRate(pair->start.number, line.text.substr(pair->textAt));
    if (rate) continue;
    SourceRecord record;
    record.whole = Stretch::Between(line.at, line.next);
    record.start = Stretch::Of(line.at + 1, pair->start.size);
    record.text = Stretch::Between(line.at + pair->textAt, line.End());
    Text caption = text.Decoded(record.text);
    TakeMarks(caption, separator);
    captions.Begin(MsOf(pair->start.number), std::move(caption), record);
    if (pair->end.size == 0) continue;
    captions.SetEnd(MsOf(pair->end.number), Stretch::Of(line.at + pair->endAt, pair->end.size));
  }
  captions.Flush();
}

/// Marks that style all of the text become the list's.
void NumberedPairFormat::TakeMarks(Text& text, TextView separator) const {
  const bool oneLine = text.find(kLineMark) == Text::npos;
  WholeStyles styles;
  if (variant_ == Variant::Mpl2) {
    // A sign styles one line.
    const std::size_t signs = oneLine ? std::min(text.find_first_not_of(u"/\\_"), text.size()) : 0;
    const TextView front = TextView(text).substr(0, signs);
    styles.bold = front.find(u'\\') != TextView::npos;
    styles.italic = front.find(u'/') != TextView::npos;
    styles.underline = front.find(u'_') != TextView::npos;
    // Signs in an order that this program doesn't write stay as they are.
    if (styles.Any() && front == SignsOf(styles)) {
      text.erase(0, signs);
    } else {
      styles = {};
    }
  } else {
    std::size_t taken = 0;
    const TextView code = oneLine ? u"{y:" : u"{Y:";
    while (TextView(text).substr(taken).starts_with(code)) {
      const std::size_t size = LettersSize(TextView(text).substr(taken), styles);
      if (size == 0) break;
      taken += size;
    }
    text.erase(0, taken);
  }
  if (!oneLine) text = ReplaceAll(text, kLineMark, separator);
  if (styles.Any()) text = Markers(styles) + text;
}

std::string NumberedPairFormat::TimeField(Ms ms, std::string_view) const {
  const FrameRate& rate = settings_.rate;
  return std::to_string(
      Nearest(std::max<Ms>(ms, 0).Wide() * rate.Numerator(), std::int64_t{1000} * rate.Denominator()));
}

Text NumberedPairFormat::TextField(TextView text, TextView separator, TextView) const {
  Text inner(text);
  const WholeStyles styles = TakeMarkers(inner);
  const bool oneLine = FindPlain(inner, separator) == TextView::npos;
  inner = ReplaceAll(inner, separator, kLineMark);
  if (!styles.Any()) return inner;
  if (variant_ == Variant::Mpl2) {
    const Text signs = SignsOf(styles);
    return signs + ReplaceAll(inner, kLineMark, Text(kLineMark) + signs);
  }
  Text letters;
  for (const auto& [set, letter] : {std::pair{styles.bold, u'b'}, {styles.italic, u'i'}, {styles.underline, u'u'}}) {
    if (set) letters += (letters.empty() ? u"" : u",") + Text(1, letter);
  }
  return (oneLine ? u"{y:" : u"{Y:") + letters + u"}" + inner;
}

Text NumberedPairFormat::Record(const NewRecord& record, TextView separator) const {
  const std::string start = TimeField(record.caption.start, {});
  const std::string end = TimeField(record.caption.end, {});
  const std::string pair =
      variant_ == Variant::MicroDvd ? "{" + start + "}{" + end + "}" : "[" + start + "][" + end + "]";
  return FromUtf8(pair) + TextField(record.caption.text, separator, record.lineEnd) + Text(record.lineEnd);
}

}  // namespace cuewright
