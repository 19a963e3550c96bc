#include "formats/source/ttml_walk.h"

#include <algorithm>
#include <utility>

#include "formats/source/open_ended.h"

namespace cuewright {
namespace {

/// Elements within elements that are followed.
constexpr int kDeepest = 100;

std::string_view LocalName(std::string_view name) { return TtmlLayout::LocalName(name); }

Ms Later(Ms time, Ms by) { return Ms::Within(time.Wide() + by.Wide(), 0, Ms::Latest()); }

bool HasTimes(const pugi::xml_node& node) {
  return !node.attribute("begin").empty() || !node.attribute("end").empty() || !node.attribute("dur").empty();
}

/// All text of a paragraph stands in spans that have times.
bool StandsInTimedSpans(const pugi::xml_node& paragraph) {
  bool any = false;
  for (const pugi::xml_node& child : paragraph.children()) {
    const std::string_view name = LocalName(child.name());
    const bool span = child.type() == pugi::node_element && name == "span" && HasTimes(child);
    if (!span && name != "br" && name != "metadata") return false;
    any = any || span;
  }
  return any;
}

}  // namespace

void TtmlWalk::All(const pugi::xml_node& root) {
  Children(root, InsideOf(root, {}), 0);
  CloseOpen({});
}

TtmlWalk::Around TtmlWalk::InsideOf(const pugi::xml_node& node, const Around& around) const {
  Around inside = around;
  layout_.Read(node, inside.beside);
  const auto begin = clock_.TimeOf(node.attribute("begin").value());
  const auto end = clock_.TimeOf(node.attribute("end").value());
  const auto duration = clock_.TimeOf(node.attribute("dur").value());
  if (begin) inside.offset = Later(around.offset, *begin);
  if (end) {
    inside.end = Later(around.offset, *end);
  } else if (duration) {
    inside.end = Later(inside.offset, *duration);
  }
  inside.timed = around.timed || begin || inside.end;
  inside.sequence = std::string_view(node.attribute("timeContainer").value()) == "seq";
  const std::string_view space = node.attribute("xml:space").value();
  if (!space.empty()) inside.space = space == "preserve" ? XmlSpace::Preserve : XmlSpace::Default;
  return inside;
}

void TtmlWalk::Children(const pugi::xml_node& node, const Around& around, int depth) {
  Around from = around;
  // A part of a sequence begins where the one before it ends.
  if (around.sequence) from.end.reset();
  for (const pugi::xml_node& child : node.children()) {
    if (stopped_) return;
    if (child.type() != pugi::node_element || depth > kDeepest) continue;
    const std::string_view name = LocalName(child.name());
    const bool holds = name == "body" || name == "div" || name == "tt";
    if (!holds && name != "p" && name != "span") continue;
    const Around inside = InsideOf(child, from);
    const Ms before = std::exchange(latest_, inside.offset);
    if (holds) {
      Children(child, inside, depth + 1);
    } else {
      Take(child, from, inside, depth);
    }
    if (around.sequence) {
      said_.sequences = true;
      from.offset = inside.end.value_or(latest_);
      latest_ = from.offset;
    }
    latest_ = std::max(latest_, before);
  }
}

void TtmlWalk::Take(const pugi::xml_node& node, const Around& around, const Around& inside, int depth) {
  const auto nameAt = static_cast<std::size_t>(node.offset_debug());
  const TtmlPlaces places = TtmlPlacesOf(text_.bytes, nameAt, node.name());
  if (!places.HasTimes() && StandsInTimedSpans(node)) return Children(node, inside, depth + 1);
  Text caption = ParagraphToText(text_.Decoded(places.inner), inside.space, separator_);
  const auto bad = [&](Stretch field) { return !field.Empty() && !clock_.TimeOf(field.In(text_.bytes)); };
  const bool known = !bad(places.begin) && !bad(places.end) && !bad(places.duration) && inside.timed;
  // Paragraphs without times and text are usual as spacers.
  if (!known || (!places.HasTimes() && caption.empty())) {
    if (!caption.empty()) sink_.NotUnderstood(nameAt);
    return;
  }
  SourceRecord record{WithItsLine(text_.bytes, nameAt - 1, places.behind), {}, places.begin, {}, {}};
  // An end that is reckoned from a duration changes with the whole record.
  if (!places.end.Empty()) record.end = places.end;
  if (places.inner.at != places.behind) record.text = places.inner;
  if (inside.beside.Any()) said_.beside.emplace(record.whole.at, inside.beside);
  const Ms offset = said_.offsets.empty() ? Ms(0) : said_.offsets.back().offset;
  if (around.offset != offset) said_.offsets.push_back({record.whole.at, around.offset});
  HandOn(inside.offset, inside.end, std::move(caption), record);
}

void TtmlWalk::HandOn(Ms start, std::optional<Ms> end, Text text, const SourceRecord& record) {
  CloseOpen(start);
  if (!end) {
    open_ = {start, std::move(text), record};
    return;
  }
  latest_ = std::max(latest_, *end);
  stopped_ = stopped_ || !sink_.Add(start, *end, std::move(text), record);
}

void TtmlWalk::CloseOpen(std::optional<Ms> next) {
  if (!open_ || stopped_) return;
  Open caption = *std::exchange(open_, {});
  Ms end = LatestEnd(caption.start, caption.text, settings_.durationPerCharacter);
  if (next && *next > caption.start) end = std::min(end, *next);
  stopped_ = !sink_.Add(caption.start, end, std::move(caption.text), caption.record);
}

}  // namespace cuewright
