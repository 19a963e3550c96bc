#include "formats/source/ttml_format.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <pugixml.hpp>
#include <utility>

#include "formats/source/clock_field.h"
#include "formats/source/ttml_layout.h"
#include "formats/source/ttml_places.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

std::string_view LocalName(std::string_view name) { return TtmlLayout::LocalName(name); }

std::optional<std::int64_t> Parameter(const pugi::xml_node& root, std::string_view name) {
  for (const pugi::xml_attribute& attribute : root.attributes()) {
    if (LocalName(attribute.name()) != name) continue;
    const auto number = ReadNumber(attribute.value());
    if (number && number->number > 0 && number->number < 1000000000) return number->number;
  }
  return {};
}

TtmlClock ClockOf(const pugi::xml_node& root) {
  TtmlClock clock;
  const auto rate = Parameter(root, "frameRate");
  clock.frames = std::min<std::int64_t>(rate.value_or(30), 1000);
  clock.subFrames = std::min<std::int64_t>(Parameter(root, "subFrameRate").value_or(1), 1000);
  clock.ticks = Parameter(root, "tickRate").value_or(0);
  if (clock.ticks == 0 && !rate) clock.ticks = 1;
  for (const pugi::xml_attribute& attribute : root.attributes()) {
    if (LocalName(attribute.name()) != "frameRateMultiplier") continue;
    const std::string_view value = attribute.value();
    const auto upper = ReadNumber(value);
    const auto lower = upper ? ReadNumber(value.substr(std::min(upper->size + 1, value.size()))) : std::nullopt;
    if (!lower || upper->number < 1 || lower->number < 1 || upper->number > 100000 || lower->number > 100000) continue;
    clock.frames *= upper->number;
    clock.inSeconds = lower->number;
  }
  return clock;
}

/// The prefix, with its colon, that the root declares for styles.
std::optional<Text> StylePrefix(const pugi::xml_node& root) {
  constexpr std::string_view kDeclares = "xmlns:";
  for (const pugi::xml_attribute& attribute : root.attributes()) {
    const std::string_view name = attribute.name();
    const std::string_view value = attribute.value();
    const bool styles = value.ends_with("#styling") || value.ends_with("#style");
    if (name.starts_with(kDeclares) && styles) return FromUtf8(name.substr(kDeclares.size())) + u":";
  }
  return {};
}

}  // namespace

void TtmlFormat::Read(const SourceText& text, TextView separator, SourceSink& sink) {
  XmlTags tags(text.bytes);
  const auto first = tags.Next();
  if (!first || first->closing || LocalName(first->name) != "tt") {
    return sink.NotUnderstood(first ? first->open : text.bytes.size());
  }
  const Stretch opening = TagAt(text.bytes, first->NameAt());
  tags.GoTo(opening.End());
  XmlElement root;
  if (!root.LoadTag(text.bytes, opening)) sink.NotUnderstood(first->open);
  clock_ = ClockOf(root.Node());
  const auto prefix = StylePrefix(root.Node());
  names_.declaresStyles = prefix.has_value();
  if (prefix) names_.style = *prefix;
  names_.element = FromUtf8(first->name.substr(0, first->name.size() - LocalName(first->name).size()));
  if (opening.In(text.bytes).ends_with("/>")) return;
  TtmlWalk walk(text, separator, sink, clock_, settings_);
  walk.All(root, tags);
  said_ = walk.TakeSaid();
}

std::string TtmlFormat::TimeField(Ms ms, std::string_view old) const { return clock_.Like(ms, old); }

Text TtmlFormat::TextField(TextView text, TextView separator, TextView) const {
  return TextToParagraph(text, separator, names_);
}

Beside TtmlFormat::BesideOf(const SourceText&, const SourceRecord& record) const {
  Beside beside = said_.Of(record.whole.at).beside;
  beside.named = said_.styles;
  return beside;
}

Ms TtmlFormat::OffsetOf(const SourceRecord& record) const { return said_.Of(record.whole.at).offset; }

Text TtmlFormat::Record(const NewRecord& record, TextView separator) const {
  const std::size_t open = std::min(record.neighbour.find('<'), record.neighbour.size());
  std::string tag;
  std::string begin = "00:00:00.000";
  TtmlTag places(record.neighbour, open + 1);
  std::string_view name;
  Stretch value;
  while (open < record.neighbour.size() && places.Next(name, value)) {
    if (name == "begin") begin = value.In(record.neighbour);
    // A name belongs to one element alone.
    const bool named = !record.isOwn && (name == "xml:id" || name == "id");
    const bool timed = name == "begin" || name == "end" || name == "dur";
    if (!named && !timed) tag += " " + std::string(name) + "=\"" + std::string(value.In(record.neighbour)) + "\"";
  }
  const std::string_view neighbour = places.Name();
  const Text element = neighbour.empty() ? names_.element + u"p" : FromUtf8(neighbour);
  // What is written in the place of a record ends as that did.
  const Text behind =
      record.isOwn ? FromUtf8(record.neighbour.substr(record.neighbour.rfind('>') + 1)) : Text(record.lineEnd);
  Text result = FromUtf8(record.neighbour.substr(0, open)) + u"<" + element + u" begin=\"" +
                FromUtf8(TimeField(record.caption.start - record.offset, begin)) + u"\" end=\"" +
                FromUtf8(TimeField(record.caption.end - record.offset, begin)) + u"\"" + FromUtf8(tag) + u">";
  result += TextField(record.caption.text, separator, record.lineEnd);
  return result + u"</" + element + u">" + behind;
}

}  // namespace cuewright
