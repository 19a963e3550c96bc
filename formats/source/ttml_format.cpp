#include "formats/source/ttml_format.h"

#include <algorithm>
#include <optional>
#include <pugixml.hpp>
#include <utility>

#include "formats/source/clock_field.h"
#include "formats/source/ttml_layout.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
/// Elements within elements that are followed.
constexpr int kDeepest = 100;

std::string_view LocalName(std::string_view name) { return TtmlLayout::LocalName(name); }

/// A tag of a file whose start, up to the name, is known: its attributes with their places.
class TagPlaces {
 public:
  TagPlaces(std::string_view bytes, std::size_t nameAt) : bytes_(bytes), at_(nameAt) {
    at_ = std::min(bytes.find_first_of(" \t\r\n/>", at_), bytes.size());
  }

  /// The next attribute's name and the place of its value; false at the end of the tag, which `End` then tells.
  [[nodiscard]] bool Next(std::string_view& name, Stretch& value) {
    at_ = std::min(bytes_.find_first_not_of(kBlanks, at_), bytes_.size());
    if (at_ >= bytes_.size() || bytes_[at_] == '/' || bytes_[at_] == '>') {
      closed_ = at_ < bytes_.size() && bytes_[at_] == '/';
      at_ = std::min(bytes_.find('>', at_), bytes_.size() - 1) + 1;
      return false;
    }
    const std::size_t equals = std::min(bytes_.find('=', at_), bytes_.size());
    const std::size_t quote = std::min(bytes_.find_first_of("\"'", equals), bytes_.size() - 1);
    const std::size_t end = std::min(bytes_.find(bytes_[quote], quote + 1), bytes_.size());
    name = bytes_.substr(at_, std::min(bytes_.find_first_of(" \t\r\n=", at_), equals) - at_);
    value = Stretch::Between(std::min(quote + 1, end), end);
    at_ = std::min(end + 1, bytes_.size());
    return true;
  }

  /// Behind the tag.
  std::size_t End() const { return at_; }
  /// "<p/>": there is nothing in the element.
  bool Closed() const { return closed_; }

 private:
  std::string_view bytes_;
  std::size_t at_;
  bool closed_ = false;
};

/// Where a paragraph and its parts stand.
struct Paragraph {
  Stretch begin;
  Stretch end;
  Stretch duration;
  Stretch inner;
  std::size_t behind = 0;
};

/// Where the closing tag of a paragraph begins. Paragraphs stand in no other; what looks like a tag in a remark or in
/// verbatim text is none.
std::size_t ClosingTag(std::string_view bytes, std::size_t at, std::string_view name) {
  for (at = bytes.find('<', at); at != std::string_view::npos; at = bytes.find('<', at + 1)) {
    const std::string_view rest = bytes.substr(at);
    if (rest.starts_with("<!--")) {
      at = bytes.find("-->", at + 4);
    } else if (rest.starts_with("<![CDATA[")) {
      at = bytes.find("]]>", at + 9);
    } else if (rest.starts_with("</") && rest.substr(2, name.size()) == name) {
      return at;
    }
    if (at == std::string_view::npos) break;
  }
  return bytes.size();
}

Paragraph PlacesOf(std::string_view bytes, std::size_t nameAt, std::string_view fullName) {
  Paragraph places;
  TagPlaces tag(bytes, nameAt);
  std::string_view name;
  Stretch value;
  while (tag.Next(name, value)) {
    if (name == "begin") places.begin = value;
    if (name == "end") places.end = value;
    if (name == "dur") places.duration = value;
  }
  places.behind = tag.End();
  places.inner = Stretch::Of(tag.End(), 0);
  if (tag.Closed()) return places;
  const std::size_t closing = ClosingTag(bytes, tag.End(), fullName);
  places.inner = Stretch::Between(tag.End(), closing);
  places.behind = std::min(bytes.find('>', closing), bytes.size() - 1) + 1;
  return places;
}

/// The element with the indentation in front of it and the line end behind it, where it has lines of its own.
Stretch WithItsLine(std::string_view bytes, std::size_t open, std::size_t behind) {
  std::size_t at = open;
  while (at > 0 && (bytes[at - 1] == ' ' || bytes[at - 1] == '\t')) --at;
  if (at > 0 && bytes[at - 1] != '\n' && bytes[at - 1] != '\r') at = open;
  std::size_t end = std::min(bytes.find_first_not_of(" \t", behind), bytes.size());
  if (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r') return Stretch::Between(at, behind);
  if (bytes.substr(end, 2) == "\r\n") ++end;
  return Stretch::Between(at, std::min(end + 1, bytes.size()));
}

/// What the elements around a paragraph say of it.
struct Around {
  Ms offset = 0;
  XmlSpace space = XmlSpace::Default;
  Beside beside{};
};

/// Walks through the elements of a file and hands its paragraphs on.
class Walk {
 public:
  Walk(const SourceText& text, TextView separator, SourceSink& sink, const TtmlClock& clock, const TtmlLayout& layout)
      : text_(text), separator_(separator), sink_(sink), clock_(clock), layout_(layout) {}

  void Children(const pugi::xml_node& node, const Around& around, int depth) {
    for (const pugi::xml_node& child : node.children()) {
      if (stopped_) return;
      if (child.type() != pugi::node_element || depth > kDeepest) continue;
      const std::string_view name = LocalName(child.name());
      const Around inside = InsideOf(child, around);
      if (name == "p") {
        stopped_ = !TakeParagraph(child, around, inside);
      } else if (name == "body" || name == "div" || name == "tt") {
        Children(child, inside, depth + 1);
      }
    }
  }

  Ms Offset() const { return offset_; }
  std::unordered_map<std::uint32_t, Beside> TakeBeside() { return std::move(beside_); }

 private:
  Around InsideOf(const pugi::xml_node& node, Around around) const {
    layout_.Read(node, around.beside);
    if (const auto begin = clock_.TimeOf(node.attribute("begin").value())) around.offset += *begin;
    const std::string_view space = node.attribute("xml:space").value();
    if (!space.empty()) around.space = space == "preserve" ? XmlSpace::Preserve : XmlSpace::Default;
    return around;
  }

  bool TakeParagraph(const pugi::xml_node& node, const Around& around, const Around& inside) {
    const auto nameAt = static_cast<std::size_t>(node.offset_debug());
    const Paragraph places = PlacesOf(text_.bytes, nameAt, node.name());
    const auto begin = clock_.TimeOf(places.begin.In(text_.bytes));
    const auto end = clock_.TimeOf(places.end.In(text_.bytes));
    const auto duration = clock_.TimeOf(places.duration.In(text_.bytes));
    Text caption = ParagraphToText(text_.Decoded(places.inner), inside.space, separator_);
    if (!begin || (!end && !duration)) {
      // Paragraphs without times and text are usual as spacers.
      if (!caption.empty()) sink_.NotUnderstood(nameAt);
      return true;
    }
    offset_ = around.offset;
    SourceRecord record{WithItsLine(text_.bytes, nameAt - 1, places.behind), {}, places.begin, {}, {}};
    // An end that is reckoned from a duration changes with the whole record.
    if (end) record.end = places.end;
    if (places.inner.at != places.behind) record.text = places.inner;
    if (inside.beside.Any()) beside_.emplace(record.whole.at, inside.beside);
    return sink_.Add(around.offset + *begin, around.offset + (end ? *end : *begin + *duration), std::move(caption),
                     record);
  }

  const SourceText& text_;
  TextView separator_;
  SourceSink& sink_;
  const TtmlClock& clock_;
  const TtmlLayout& layout_;
  std::unordered_map<std::uint32_t, Beside> beside_;
  Ms offset_ = 0;
  bool stopped_ = false;
};

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
  pugi::xml_document document;
  const pugi::xml_parse_result parsed =
      document.load_buffer(text.bytes.data(), text.bytes.size(), pugi::parse_minimal, pugi::encoding_utf8);
  const pugi::xml_node root = document.document_element();
  clock_ = ClockOf(root);
  const auto prefix = StylePrefix(root);
  names_.declaresStyles = prefix.has_value();
  if (prefix) names_.style = *prefix;
  const std::string_view name = root.name();
  names_.element = FromUtf8(name.substr(0, name.size() - LocalName(name).size()));
  const TtmlLayout layout(root);
  Walk walk(text, separator, sink, clock_, layout);
  if (LocalName(name) == "tt") walk.Children(root, {}, 0);
  offset_ = walk.Offset();
  beside_ = walk.TakeBeside();
  // A file that ends too soon breaks off behind its last byte.
  const auto place = static_cast<std::size_t>(std::max<std::ptrdiff_t>(parsed.offset, 0));
  if (!parsed || LocalName(name) != "tt") sink.NotUnderstood(std::min(place, text.bytes.size()));
}

std::string TtmlFormat::TimeField(Ms ms, std::string_view old) const { return clock_.Like(ms - offset_, old); }

Text TtmlFormat::TextField(TextView text, TextView separator, TextView) const {
  return TextToParagraph(text, separator, names_);
}

Beside TtmlFormat::BesideOf(const SourceText&, const SourceRecord& record) const {
  const auto hit = beside_.find(record.whole.at);
  return hit == beside_.end() ? Beside() : hit->second;
}

Text TtmlFormat::Record(const NewRecord& record, TextView separator) const {
  const std::size_t open = std::min(record.neighbour.find('<'), record.neighbour.size());
  std::string tag;
  std::string begin = "00:00:00.000";
  TagPlaces places(record.neighbour, open + 1);
  std::string_view name;
  Stretch value;
  while (open < record.neighbour.size() && places.Next(name, value)) {
    if (name == "begin") begin = value.In(record.neighbour);
    // A name belongs to one element alone.
    const bool own = name == "begin" || name == "end" || name == "dur" || name == "xml:id" || name == "id";
    if (!own) tag += " " + std::string(name) + "=\"" + std::string(value.In(record.neighbour)) + "\"";
  }
  const Text element = names_.element + u"p";
  Text result = FromUtf8(record.neighbour.substr(0, open)) + u"<" + element + u" begin=\"" +
                FromUtf8(TimeField(record.caption.start, begin)) + u"\" end=\"" +
                FromUtf8(TimeField(record.caption.end, begin)) + u"\"" + FromUtf8(tag) + u">";
  result += TextField(record.caption.text, separator, record.lineEnd);
  return result + u"</" + element + u">" + Text(record.lineEnd);
}

}  // namespace cuewright
