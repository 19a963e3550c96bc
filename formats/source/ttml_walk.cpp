#include "formats/source/ttml_walk.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "formats/source/open_ended.h"

namespace cuewright {
namespace {

/// How deep elements may stand within elements.
constexpr int kDeepest = 100;

std::string_view LocalName(std::string_view name) { return TtmlLayout::LocalName(name); }

Ms Later(Ms time, Ms by) { return Ms::Within(time.Wide() + by.Wide(), 0, Ms::Latest()); }

bool HasTimes(const pugi::xml_node& node) {
  return *node.attribute("begin").value() != 0 || *node.attribute("end").value() != 0 ||
         *node.attribute("dur").value() != 0;
}

/// True when all text of a paragraph stands in spans that have times.
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

const TtmlSaying& TtmlSaid::Of(std::uint32_t place) const {
  static const TtmlSaying kNothing;
  const auto behind = std::ranges::upper_bound(sayings, place, {}, &TtmlSaying::from);
  return behind == sayings.begin() ? kNothing : *std::prev(behind);
}

void TtmlWalk::All(const XmlElement& root, XmlTags& tags) {
  tags_ = &tags;
  layout_ = TtmlLayout(root.Node());
  const std::string_view name = root.Node().name();
  Contents(name, InsideOf(root.Node(), {}), 0);
  // Bytes behind the root's end aren't read.
  if (const auto behind = stopped_ || broken_ ? std::nullopt : tags.Next()) sink_.NotUnderstood(behind->open);
  CloseOpen({});
}

TtmlWalk::Around TtmlWalk::InsideOf(const pugi::xml_node& node, const Around& around) const {
  Around inside = around;
  layout_.Read(node, inside.look);
  inside.hasUnknownTime = false;
  const auto time = [&](const char* name) {
    const std::string_view value = node.attribute(name).value();
    const std::optional<Ms> known = value.empty() ? std::nullopt : clock_.TimeOf(value);
    inside.hasUnknownTime = inside.hasUnknownTime || (!value.empty() && !known);
    return known;
  };
  const auto begin = time("begin");
  const auto end = time("end");
  const auto duration = time("dur");
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

/// Hands the content of an element over to be read, and moves on behind it. A part of a sequence begins where the one
/// before it ends.
template <class Content>
void TtmlWalk::Visit(const pugi::xml_node& node, Around& from, Content content) {
  const Around inside = InsideOf(node, from);
  const Ms before = std::exchange(latest_, inside.offset);
  content(inside);
  if (from.sequence) {
    said_.sequences = true;
    from.offset = inside.end.value_or(latest_);
    latest_ = from.offset;
  }
  latest_ = std::max(latest_, before);
}

/// Reads the elements up to the end of the one of this name that they are in.
void TtmlWalk::Contents(std::string_view name, const Around& around, int depth) {
  Around from = around;
  if (around.sequence) from.end.reset();
  while (!stopped_ && !broken_) {
    const auto tag = tags_->Next();
    if (tag && !tag->closing) {
      Element(*tag, from, depth);
      continue;
    }
    broken_ = !tag || tag->name != name;
    // A file that ends too soon breaks off behind its last byte.
    if (broken_) sink_.NotUnderstood(tag ? tag->open : text_.bytes.size());
    return;
  }
}

void TtmlWalk::Element(const XmlTag& tag, Around& from, int depth) {
  const std::string_view name = LocalName(tag.name);
  const bool followed = depth <= kDeepest;
  if (followed && (name == "body" || name == "div" || name == "tt")) return Container(tag, from, depth);
  const TtmlPlaces places = TtmlPlacesOf(text_.bytes, tag.NameAt(), tag.name);
  tags_->GoTo(places.behind);
  if (!element_.Load(text_.bytes, Stretch::Between(tag.open, places.behind))) sink_.NotUnderstood(tag.open);
  const pugi::xml_node node = element_.Node();
  if (name == "head") layout_.ReadHead(node);
  if (!followed || (name != "p" && name != "span")) return;
  Visit(node, from, [&](const Around& inside) { Take(node, places, from, inside); });
}

void TtmlWalk::Container(const XmlTag& tag, Around& from, int depth) {
  const Stretch opening = TagAt(text_.bytes, tag.NameAt());
  tags_->GoTo(opening.End());
  if (!element_.LoadTag(text_.bytes, opening)) sink_.NotUnderstood(tag.open);
  const bool closed = opening.In(text_.bytes).ends_with("/>");
  Visit(element_.Node(), from, [&](const Around& inside) {
    if (!closed) Contents(tag.name, inside, depth + 1);
  });
}

/// Reads the spans of a paragraph as captions of their own.
void TtmlWalk::Spans(const pugi::xml_node& paragraph, const Around& around) {
  Around from = around;
  if (around.sequence) from.end.reset();
  for (const pugi::xml_node& span : paragraph.children()) {
    if (stopped_ || LocalName(span.name()) != "span") continue;
    const TtmlPlaces places = TtmlPlacesOf(text_.bytes, element_.NameAt(span), span.name());
    Visit(span, from, [&](const Around& inside) { Take(span, places, from, inside); });
  }
}

void TtmlWalk::Take(const pugi::xml_node& node, const TtmlPlaces& places, const Around& around, const Around& inside) {
  if (!places.HasTimes() && StandsInTimedSpans(node)) return Spans(node, inside);
  const std::size_t nameAt = element_.NameAt(node);
  Text caption = ParagraphToText(text_.Decoded(places.inner), inside.space, separator_);
  const bool known = inside.timed && !inside.hasUnknownTime;
  // Paragraphs without times and text are usual as spacers.
  if (!known || (!places.HasTimes() && caption.empty())) {
    if (!caption.empty()) sink_.NotUnderstood(nameAt);
    return;
  }
  SourceRecord record{WithItsLine(text_.bytes, nameAt - 1, places.behind), {}, places.begin, {}, {}};
  // An end that is reckoned from a duration changes with the whole record.
  if (!places.end.Empty()) record.end = places.end;
  if (places.inner.at != places.behind) record.text = places.inner;
  Say(record, around.offset, inside.look.Said());
  HandOn(inside.offset, inside.end, std::move(caption), record);
}

void TtmlWalk::Say(const SourceRecord& record, Ms offset, const Beside& beside) {
  const TtmlSaying& last = said_.Of(record.whole.at);
  if (last.offset == offset && last.beside == beside) return;
  said_.beside = said_.beside || beside.Any();
  said_.sayings.push_back({record.whole.at, offset, beside});
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
