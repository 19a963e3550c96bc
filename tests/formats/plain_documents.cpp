// Plain rules of formats whose files are trees.
#include <map>
#include <memory>
#include <optional>

#include "tests/formats/plain_rules.h"
#include "tests/formats/plain_text.h"

namespace cuewright::testing {
namespace {

/// An element of XML. What stands in it is given as it is in the file, and once more as elements.
struct Element {
  std::string name;
  std::map<std::string, std::string> attributes;
  std::string inner;
  bool hasText = false;
  std::vector<Element> children;
};

std::string WithoutPrefix(const std::string& name) { return Replaced(name, "^[^:]*:", ""); }

Element ElementOf(const std::string& tag) {
  Element element;
  const auto parts = Match(tag, "<([^\\s/>]+)([^]*?)/?>");
  element.name = WithoutPrefix(parts->str(1));
  const std::string list = parts->str(2);
  const std::regex& attribute = Regex("([^\\s=]+)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')");
  for (std::sregex_iterator at(list.begin(), list.end(), attribute), end; at != end; ++at) {
    element.attributes[WithoutPrefix((*at)[1])] = (*at)[2].str() + (*at)[3].str();
  }
  return element;
}

/// All elements up to the one that closes the one that is being read.
void ReadChildren(Lines& pieces, Element& parent) {
  while (!pieces.empty()) {
    const std::string piece = pieces.front();
    pieces.erase(pieces.begin());
    if (piece.starts_with("</")) return;
    std::string inside = piece;
    if (piece.front() != '<') {
      parent.hasText = parent.hasText || !Match(piece, "\\s*");
    } else if (!piece.starts_with("<!") && !piece.starts_with("<?")) {
      const std::string before = Joined(pieces);
      Element child = ElementOf(piece);
      if (!piece.ends_with("/>")) {
        ReadChildren(pieces, child);
        inside += child.inner + "</" + Match(piece, "<([^\\s/>]+)[^]*")->str(1) + ">";
      }
      parent.children.push_back(child);
    }
    parent.inner += inside;
  }
}

/// What around an element counts for it.
struct Around {
  std::int64_t begin = 0;
  std::int64_t end = kNoEnd;
  bool timed = false;
  bool preserved = false;
};

struct Rates {
  std::int64_t frames = 30;
  std::int64_t ticks = 1;
};

std::int64_t Rounded(std::int64_t upper, std::int64_t lower) { return (upper * 2 + lower) / (lower * 2); }

/// A time of TTML in ms.
std::optional<std::int64_t> TimeOf(const std::string& time, const Rates& rates) {
  if (const auto clock = Match(time, "(\\d+:\\d\\d:\\d\\d(?:\\.\\d+)?)")) return MsOf(clock->str(1));
  if (const auto clock = Match(time, "(\\d+:\\d\\d:\\d\\d):(\\d+)")) {
    return MsOf(clock->str(1)) + Rounded(std::stoll(clock->str(2)) * 1000, rates.frames);
  }
  const auto count = Match(time, "(\\d+)(?:\\.(\\d+))?(h|m|s|ms|f|t)");
  if (!count) return {};
  const std::string unit = count->str(3);
  const std::int64_t thousandths = std::stoll(count->str(1) + (count->str(2) + "000").substr(0, 3));
  if (unit == "h") return thousandths * 3600;
  if (unit == "m") return thousandths * 60;
  if (unit == "s") return thousandths;
  if (unit == "ms") return Rounded(thousandths, 1000);
  return Rounded(thousandths, unit == "f" ? rates.frames : rates.ticks);
}

/// What is seen of a paragraph, its tags but for those of line breaks.
std::string Shown(const std::string& inner, bool preserved) {
  std::string text = Replaced(inner, "<([^\\s/>]+:)?br\\s*/>", "|");
  if (preserved) {
    text = Replaced(text, "\\r\\n|\\r|\\n", "|");
  } else {
    text = Replaced(text, "\\s+", " ");
    // Of several blanks around a tag in the text the first is seen.
    while (Regex(" ((?:<[^>]*>)+) ").mark_count() > 0 && std::regex_search(text, Regex(" ((?:<[^>]*>)+) "))) {
      text = Replaced(text, " ((?:<[^>]*>)+) ", " $1");
    }
    text = Replaced(text, "(^|\\|)((?:<[^>]*>)*) ", "$1$2");
    text = Replaced(text, " ((?:<[^>]*>)*)(\\||$)", "$1$2");
  }
  // A span around all of it that has one style and nothing else is a marker.
  const auto span =
      Match(text, "<(?:[^\\s/>]+:)?span (?:[^\\s=]+:)?(\\w+)=[\"'](\\w+)[\"']>((?:(?!span)[^])*)</[^>]*>");
  const std::map<std::string, std::string> markers = {
      {"fontStyle italic", "<i>"}, {"fontWeight bold", "<b>"}, {"textDecoration underline", "<u>"}};
  const auto marker = span ? markers.find(span->str(1) + " " + span->str(2)) : markers.end();
  if (marker != markers.end()) text = marker->second + span->str(3);
  return Replaced(text, "&amp;", "&");
}

void ReadElement(const Element& element, Around around, const Rates& rates, PlainCaptions& captions) {
  const auto time = [&](const char* name) -> std::optional<std::int64_t> {
    const auto found = element.attributes.find(name);
    return found == element.attributes.end() ? std::nullopt : TimeOf(found->second, rates);
  };
  const auto begin = time("begin");
  const auto end = time("end");
  const auto duration = time("dur");
  const std::int64_t from = around.begin;
  if (begin) around.begin = from + *begin;
  if (duration) around.end = around.begin + *duration;
  if (end) around.end = from + *end;
  const bool own = begin || end || duration;
  around.timed = around.timed || own;
  if (const auto space = element.attributes.find("space"); space != element.attributes.end()) {
    around.preserved = space->second == "preserve";
  }
  const bool text = element.name == "p" || element.name == "span";
  bool spans = text && !own && !element.hasText;
  bool any = false;
  for (const Element& child : element.children) {
    const bool timed = child.name == "span" && (child.attributes.contains("begin") || child.attributes.contains("dur"));
    spans = spans && (timed || child.name == "br");
    any = any || timed;
  }
  if (!text || (spans && any)) {
    for (const Element& child : element.children) {
      const bool followed =
          text ? child.name == "span" : child.name == "div" || child.name == "body" || child.name == "p";
      if (followed) ReadElement(child, around, rates, captions);
    }
    return;
  }
  const std::string shown = Shown(element.inner, around.preserved);
  if (around.timed && (own || !shown.empty())) captions.push_back({around.begin, around.end, shown});
}

}  // namespace

PlainCaptions PlainTtml(const std::string& file) {
  Lines pieces;
  const std::regex& piece = Regex("<!--[^]*?-->|<(?:\"[^\"]*\"|'[^']*'|[^>\"'])*>|[^<]+");
  for (std::sregex_iterator at(file.begin(), file.end(), piece), end; at != end; ++at) pieces.push_back((*at)[0]);
  Element document;
  ReadChildren(pieces, document);
  const Element& root = document.children.at(0);
  Rates rates;
  const auto number = [&](const char* name, std::int64_t otherwise) {
    const auto found = root.attributes.find(name);
    return found == root.attributes.end() ? otherwise : std::stoll(found->second);
  };
  rates.frames = number("frameRate", 30);
  rates.ticks = number("tickRate", root.attributes.contains("frameRate") ? rates.frames : 1);
  PlainCaptions captions;
  ReadElement(root, {}, rates, captions);
  // A paragraph with a start alone lasts up to the one behind it.
  for (std::size_t i = 0; i < captions.size(); ++i) {
    if (captions[i].end != kNoEnd) continue;
    PlainCaptions pair{captions[i]};
    if (i + 1 < captions.size()) pair.push_back({captions[i + 1].start, 0, "x"});
    captions[i].end = captions[i].text.empty() ? captions[i].start : WithEnds(pair).at(0).end;
  }
  return captions;
}

namespace {

/// A value of JSON: scalars are text, strings marked as such.
struct Value {
  std::string scalar;
  bool isString = false;
  bool isObject = false;
  std::string key;             ///< where it is a member of an object
  std::vector<Value> members;  ///< of an object or a list

  const Value* Of(const Lines& names) const {
    const Value* found = nullptr;
    for (const Value& value : members) {
      for (const std::string& name : names) {
        if (isObject && value.key == name) found = &value;
      }
    }
    return found;
  }
};

Value TakeValue(Lines& tokens) {
  Value value;
  const std::string first = tokens.front();
  tokens.erase(tokens.begin());
  value.isString = first.starts_with('"');
  value.scalar = value.isString ? first.substr(1, first.size() - 2) : first;
  if (first != "{" && first != "[") return value;
  value.isObject = first == "{";
  while (tokens.front() != "}" && tokens.front() != "]") {
    if (tokens.front() == ",") tokens.erase(tokens.begin());
    std::string key;
    if (value.isObject) {
      key = TakeValue(tokens).scalar;
      tokens.erase(tokens.begin());
    }
    value.members.push_back(TakeValue(tokens));
    value.members.back().key = key;
  }
  tokens.erase(tokens.begin());
  return value;
}

/// A segment: its times as they stand there, its text as JSON has it.
struct Segment {
  std::string start;
  std::string end;
  bool lasts = false;
  bool inMs = false;
  std::string text;
};

std::optional<Segment> SegmentOf(const Value& object) {
  Segment segment;
  const Value* text = object.Of({"text", "transcript", "body"});
  const Value* start = object.Of({"start", "startTime", "start_time", "begin", "tStartMs"});
  const Value* end = object.Of({"end", "endTime", "end_time"});
  const Value* duration = object.Of({"duration", "dur", "dDurationMs"});
  if (const Value* list = object.Of({"timestamp"}); list != nullptr && list->members.size() == 2) {
    start = &list->members[0];
    end = &list->members[1];
  }
  if (const Value* offsets = object.Of({"offsets"})) {
    start = offsets->Of({"from"});
    end = offsets->Of({"to"});
    segment.inMs = true;
  }
  if (const Value* pieces = object.Of({"segs"})) {
    segment.inMs = true;
    for (const Value& piece : pieces->members) segment.text += piece.Of({"utf8"})->scalar;
  } else if (text != nullptr && text->isString) {
    segment.text = text->scalar;
  } else {
    return {};
  }
  if (start == nullptr || (end == nullptr && duration == nullptr)) return {};
  segment.start = start->scalar;
  segment.end = end != nullptr ? end->scalar : duration->scalar;
  segment.lasts = end == nullptr;
  return segment;
}

/// The segments of a value and of all in it; those of a list of words are none, nor is what holds segments.
void FindSegments(const Value& value, std::vector<Segment>& found) {
  const std::size_t before = found.size();
  for (const Value& member : value.members) {
    const bool words = member.key == "words" || member.key == "tokens";
    if (!words) FindSegments(member, found);
  }
  const auto segment = value.isObject && found.size() == before ? SegmentOf(value) : std::nullopt;
  if (segment) found.push_back(*segment);
}

std::int64_t TimeInMs(const std::string& time, bool inMs) {
  if (inMs) return std::stoll(time);
  if (time.find(':') != std::string::npos) return MsOf(time);
  return MsOf("0:" + time);
}

}  // namespace

PlainCaptions PlainTranscript(const std::string& file) {
  Lines tokens;
  const std::regex& token = Regex("\"(?:\\\\[^]|[^\"\\\\])*\"|[{}\\[\\],:]|[^\\s{}\\[\\],:\"]+");
  for (std::sregex_iterator at(file.begin(), file.end(), token), end; at != end; ++at) tokens.push_back((*at)[0]);
  std::vector<Segment> segments;
  while (!tokens.empty()) FindSegments(TakeValue(tokens), segments);
  // Whole numbers that would be captions of minutes count ms.
  bool whole = true;
  std::int64_t length = 0;
  for (const Segment& segment : segments) {
    whole = whole && Match(segment.start + segment.end, "\\d+");
    if (whole) length += std::stoll(segment.end) - (segment.lasts ? 0 : std::stoll(segment.start));
  }
  const bool inMs = whole && length > 100 * static_cast<std::int64_t>(segments.size());
  PlainCaptions captions;
  for (const Segment& segment : segments) {
    const std::int64_t start = TimeInMs(segment.start, inMs || segment.inMs);
    const std::int64_t end = TimeInMs(segment.end, inMs || segment.inMs) + (segment.lasts ? start : 0);
    std::string text = Replaced(segment.text, "^ +| +$", "");
    text = Replaced(Replaced(Replaced(text, "\\\\n", "|"), "\\\\u00e9", "\xC3\xA9"), "\\\\([\"\\\\/])", "$1");
    captions.push_back({start, end, text});
  }
  return captions;
}

}  // namespace cuewright::testing
