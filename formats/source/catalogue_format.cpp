#include "formats/source/catalogue_format.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "core/style_markers.h"
#include "formats/rate_line.h"
#include "formats/source/field_lines.h"
#include "formats/source/source_format.h"
#include "formats/timecode.h"
#include "text/text_search.h"

namespace cuewright {

Text CatalogueFormat::Time(Ms ms) const {
  if (definition_.timecodeTemplate == u"ms") return Decimal(ms.Count());
  if (definition_.timecodeTemplate == u"ff") return Decimal(MsToFrames(ms, times_));
  return FormatTimecode(definition_, identifier_, ms, times_);
}

std::string CatalogueFormat::TimeField(Ms ms, std::string_view) const { return ToUtf8(Time(ms)); }

std::string CatalogueFormat::NumberField(int number, std::string_view old) const {
  std::string digits = std::to_string(number);
  if (digits.size() < old.size() && old.starts_with('0')) digits.insert(0, old.size() - digits.size(), '0');
  return digits;
}

Text CatalogueFormat::TextField(TextView text, TextView separator, TextView lineEnd) const {
  Text field(text);
  for (const TextView marker : kStyleMarkers) {
    if (FindLoose(field, marker) == TextView::npos) continue;
    field = ReplaceAll(field, marker, {});
    if (definition_.tagFlags == 0) continue;
    const TextView letter = marker.substr(1, 1);
    field.insert(0, ReplaceAll(definition_.tagOpen, u"b", letter));
    field += ReplaceAll(definition_.tagClose, u"b", letter);
  }
  const bool lines = definition_.lineBreak == u"[enter]";
  return TextToField(std::move(field), separator,
                     lines                              ? lineEnd
                     : definition_.lineBreak == u"none" ? TextView(u" ")
                                                        : definition_.lineBreak);
}

Text CatalogueFormat::Record(const NewRecord& record, TextView separator) const {
  if (identifier_ == kPlainText) return record.caption.text + Text(record.lineEnd);
  Text out = ReplaceAll(definition_.recordText, kLineEnd, u"\r");
  out = ReplaceAll(out, u"\r", record.lineEnd);
  if (!definition_.subCountPicture.empty()) {
    Text number;
    AppendNumber(identifier_ == kUleadWorkshop ? record.number - 1 : record.number, definition_.subCountPicture.size(),
                 number);
    out = ReplaceAll(out, u"qxmSubCount", number);
  }
  out = ReplaceAll(out, u"qxmStart", Time(record.caption.start));
  out = ReplaceAll(out, u"qxmEnd", Time(record.caption.end));
  return ReplaceAll(out, u"qxmCaption", TextField(record.caption.text, separator, record.lineEnd));
}

void CatalogueFormat::FindFields(const Caption& caption, std::string_view bytes, const Codec& codec, TextView separator,
                                 SourceRecord& record) const {
  const std::string_view whole = record.whole.In(bytes);
  if (identifier_ == kPlainText) {
    record.text = Stretch::Of(record.whole.at, whole.find_last_not_of("\r\n") + 1);
    return;
  }
  std::size_t behind = 0;
  const auto find = [&](std::string_view wanted) {
    const std::size_t at = wanted.empty() ? std::string_view::npos : whole.find(wanted, behind);
    if (at == std::string_view::npos) return Stretch{};
    behind = at + wanted.size();
    return Stretch::Of(record.whole.at + at, wanted.size());
  };
  const auto findTime = [&](Ms ms) {
    std::string time;
    CarryOn errors;
    errors([&] { time = TimeField(ms, {}); });
    return find(time);
  };
  record.start = findTime(caption.start);
  if (record.start.Empty()) return;
  record.number = FindNumber(whole.substr(0, record.start.at - record.whole.at), record.whole.at);
  const std::size_t behindStart = behind;
  record.end = findTime(caption.end);
  if (record.end.Empty()) return;
  if (!definition_.captionAfterEnd) behind = behindStart;
  const TextView lineEnd = whole.find("\r\n") != std::string_view::npos ? kLineEnd : TextView(u"\n");
  record.text = find(codec.Encoded(TextField(caption.text, separator, lineEnd)));
}

/// Finds the counter in front of the start time, behind the text that the record has in front of the counter.
Stretch CatalogueFormat::FindNumber(std::string_view beforeStart, std::size_t place) const {
  if (definition_.subCountPicture.empty()) return {};
  const std::size_t mark = definition_.recordText.find(u"qxmSubCount");
  if (mark == Text::npos) return {};
  const std::string lead = ToUtf8(TextView(definition_.recordText).substr(0, mark));
  if (!beforeStart.starts_with(lead)) return {};
  const std::string_view rest = beforeStart.substr(lead.size());
  const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
  return Stretch::Of(place + lead.size(), digits);
}

bool CatalogueFormat::IsOfTheForm(TextView line) const {
  const TextView wanted = TrimBlanks(line);
  if (identifier_ == kMicroDvd && times_.exact && RateOfLine(wanted)) return true;
  for (const Text* part : {&definition_.recordText, &definition_.headerText, &definition_.footerText}) {
    for (const Text& own : Split(*part, u"\r")) {
      if (TrimBlanks(ReplaceAll(own, u"\n", {})) == wanted) return true;
    }
  }
  return false;
}

std::size_t CatalogueFormat::LinesBeforeStart() const {
  const TextView record = definition_.recordText;
  const TextView before = record.substr(0, std::min(record.find(u"qxmStart"), record.size()));
  return std::ranges::count(before, u'\r');
}

}  // namespace cuewright
