#include "tests/formats/plain_rules.h"

#include <algorithm>
#include <map>
#include <optional>
#include <regex>

namespace cuewright::testing {
namespace {

using Lines = std::vector<std::string>;

constexpr std::int64_t kNoEnd = -1;

/// Made once each, since to make one takes far longer than to use it.
const std::regex& Regex(const std::string& pattern) {
  static std::map<std::string, std::regex> made;
  const auto found = made.find(pattern);
  return found != made.end() ? found->second : made.emplace(pattern, std::regex(pattern)).first->second;
}

std::optional<std::smatch> Match(const std::string& line, const std::string& pattern) {
  std::smatch match;
  if (!std::regex_match(line, match, Regex(pattern))) return {};
  return match;
}

std::string Replaced(const std::string& text, const char* pattern, const char* with) {
  return std::regex_replace(text, Regex(pattern), with);
}

Lines LinesOf(const std::string& file) {
  Lines lines{""};
  for (const char c : Replaced(file, "\r\r\n|\r\n|\r", "\n")) {
    if (c == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

std::string Trimmed(const std::string& line) { return Replaced(line, "^[ \t]+|[ \t]+$", ""); }
bool IsBlankLine(const std::string& line) { return Trimmed(line).empty(); }

std::string Joined(const Lines& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) text += (i > 0 ? "|" : "") + lines[i];
  return text;
}

/// "00:01:02,5", with two parts or three, as ms.
std::int64_t MsOf(const std::string& clock) {
  std::int64_t seconds = 0;
  for (std::size_t at = 0; at < clock.size(); at = clock.find_first_of(":.,", at) + 1) {
    if (at > 0 && clock[at - 1] != ':') return seconds * 1000 + std::stoi((clock.substr(at) + "00").substr(0, 3));
    seconds = seconds * 60 + std::stoi(clock.substr(at));
    if (clock.find_first_of(":.,", at) == std::string::npos) break;
  }
  return seconds * 1000;
}

/// Tags around all of the text, or around each of its lines, are a marker in front of it.
std::string WithMarker(const std::string& text) {
  const auto tags = Match(text, "(<[biu]>)(.*)(</[biu]>)");
  if (!tags || tags->str(3) != "</" + tags->str(1).substr(1)) return text;
  const std::string open = tags->str(1);
  const std::string close = tags->str(3);
  const std::string inner = tags->str(2);
  if (inner.find(open) == std::string::npos && inner.find(close) == std::string::npos) return open + inner;
  std::string lines;
  for (const std::string& line : LinesOf(Replaced(text, "\\|", "\n"))) {
    if (!line.starts_with(open) || !line.ends_with(close)) return text;
    const std::string bare = line.substr(3, line.size() - 7);
    if (bare.find(open) != std::string::npos || bare.find(close) != std::string::npos) return text;
    lines += (lines.empty() ? open : "|") + bare;
  }
  return lines;
}

std::int64_t LengthInMs(const std::string& text) {
  const auto length =
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
  return length * (length <= 5 ? 250 : length <= 15 ? 120 : 50);
}

/// Ends the captions that have no end. Those without a text are no captions: they end what is seen at their time.
PlainCaptions WithEnds(const PlainCaptions& read) {
  PlainCaptions captions;
  for (PlainCaption caption : read) {
    if (IsBlankLine(caption.text)) continue;
    const PlainCaption* next = nullptr;
    for (const PlainCaption& other : read) {
      if (other.start > caption.start && (next == nullptr || other.start < next->start)) next = &other;
    }
    if (caption.end == kNoEnd) {
      caption.end = caption.start + LengthInMs(caption.text);
      if (next != nullptr && (IsBlankLine(next->text) || next->start < caption.end)) caption.end = next->start;
    }
    captions.push_back(caption);
  }
  return captions;
}

/// A record that begins at a line.
struct Block {
  std::size_t from = 0;
  std::size_t textFrom = 0;
  std::optional<PlainCaption> caption;  // none: its times can't be read
  bool numbered = false;
};

/// Where a line of SubRip's times stands, with what is around it.
Block SubRipBlock(const Lines& lines, std::size_t at, const std::smatch& times) {
  Block block{at, at + 1, PlainCaption{MsOf(times[1]), MsOf(times[2]), {}}};
  if (times.str(1).empty() || times.str(2).empty()) block.caption.reset();
  block.numbered = at > 0 && Match(lines[at - 1], "[ \t]*\\d{1,9}[ \t]*");
  if (block.numbered) block.from = at - 1;
  return block;
}

Lines Part(const Lines& lines, std::size_t from, std::size_t to) {
  return {lines.begin() + static_cast<std::ptrdiff_t>(from), lines.begin() + static_cast<std::ptrdiff_t>(to)};
}

/// The lines from one to another without the blank ones around them.
Lines TextLines(const Lines& lines, std::size_t from, std::size_t to) {
  while (from < to && IsBlankLine(lines[from])) ++from;
  while (to > from && IsBlankLine(lines[to - 1])) --to;
  return Part(lines, from, to);
}

/// Formats with a line of times and the text below: all up to the next such line but blank lines at its end.
PlainCaptions Pairs(const Lines& lines, const char* times) {
  PlainCaptions captions;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const auto pair = Match(lines[at], times);
    if (!pair) continue;
    std::size_t end = at + 1;
    while (end < lines.size() && !Match(lines[end], times)) ++end;
    while (end > at + 1 && IsBlankLine(lines[end - 1])) --end;
    captions.push_back({MsOf(pair->str(1)), MsOf(pair->str(2)), Joined(Part(lines, at + 1, end))});
  }
  return captions;
}

/// The rate that a text is, as frames in 1001 seconds; 0 when it is none.
std::int64_t RateOf(const std::string& text) {
  if (text == "23.976" || text == "23,976") return 24000;
  if (text == "29.97" || text == "29,97") return 30000;
  if (!Match(text, "\\d\\d(\\.0+)?")) return 0;
  return std::stoi(text) * 1001;
}

}  // namespace

PlainCaptions PlainSubRip(const std::string& file) {
  // A line is of times when one side of its arrow is a time; with the other one broken the record is lost.
  constexpr const char* kTimes =
      "[ \t]*(?:(\\d{1,3}:\\d\\d?:\\d\\d?[,.]\\d+)|.*)[ \t]*-->[ \t]*(?:(\\d{1,3}:\\d\\d?:\\d\\d?[,.]\\d+)(?: .*)?|.*)";
  const Lines lines = LinesOf(file);
  std::vector<Block> blocks;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const auto times = Match(lines[at], kTimes);
    if (times && times->str(1).size() + times->str(2).size() > 0) blocks.push_back(SubRipBlock(lines, at, *times));
  }
  PlainCaptions captions;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (!blocks[i].caption) continue;
    const bool last = i + 1 == blocks.size();
    Lines text = TextLines(lines, blocks[i].textFrom, last ? lines.size() : blocks[i + 1].from);
    // Where records have no numbers, a number is a text.
    if (!last && text.empty() && !blocks[i].numbered && blocks[i + 1].numbered) {
      text = {lines[blocks[i + 1].from]};
      blocks[i + 1].numbered = false;
    }
    std::transform(text.begin(), text.end(), text.begin(), Trimmed);
    captions.push_back({blocks[i].caption->start, blocks[i].caption->end, WithMarker(Joined(text))});
  }
  return captions;
}

PlainCaptions PlainWebVtt(const std::string& file) {
  constexpr const char* kTime = "((?:\\d{2,}:)?[0-5]\\d:[0-5]\\d\\.\\d{3})";
  const std::string timing = "[ \t]*" + std::string(kTime) + "[ \t]*-->[ \t]*" + kTime + "(?!\\d).*";
  const Lines lines = LinesOf(file);
  const auto isArrow = [&](std::size_t at) { return lines[at].find("-->") != std::string::npos; };
  PlainCaptions captions;
  for (std::size_t at = 1; at < lines.size(); ++at) {
    if (!isArrow(at)) continue;
    const auto times = Match(lines[at], timing);
    if (!times) continue;
    // Times stand in the first line of a block or in its second; an arrow ends the block in front of it.
    std::size_t begin = at;
    while (begin > 1 && !lines[begin - 1].empty() && !isArrow(begin - 1)) --begin;
    std::size_t end = at + 1;
    while (end < lines.size() && !lines[end].empty() && !isArrow(end)) ++end;
    std::string text = Joined(Part(lines, at + 1, end));
    text = Replaced(Replaced(text, "&lt;", "<"), "&amp;", "&");
    captions.push_back({MsOf(times->str(1)), MsOf(times->str(2)), WithMarker(text)});
  }
  return captions;
}

PlainCaptions PlainMicroDvd(const std::string& file) {
  std::int64_t rate = 25 * 1001;
  PlainCaptions captions;
  bool first = true;
  for (const std::string& line : LinesOf(file)) {
    const auto record = Match(line, "\\{(\\d+)\\}\\{(\\d*)\\}(.*)");
    if (!record) continue;
    const bool mayBeRate = first && std::stoll(record->str(1)) <= 1;
    first = false;
    if (mayBeRate && RateOf(record->str(3)) != 0) {
      rate = RateOf(record->str(3));
      continue;
    }
    const auto msOf = [&](const std::string& frame) {
      return frame.empty() ? kNoEnd : (std::stoll(frame) * 1001 * 1000 + rate / 2) / rate;
    };
    // "y" styles a line and "Y" all of them.
    std::string text = record->str(3);
    const char* whole = text.find('|') == std::string::npos ? "\\{y:([biu])\\}(.*)" : "\\{Y:([biu])\\}(.*)";
    if (const auto styled = Match(text, whole)) text = "<" + styled->str(1) + ">" + styled->str(2);
    captions.push_back({msOf(record->str(1)), msOf(record->str(2)), text});
  }
  return WithEnds(captions);
}

PlainCaptions PlainMpl2(const std::string& file) {
  PlainCaptions captions;
  for (const std::string& line : LinesOf(file)) {
    const auto record = Match(line, "\\[(\\d+)\\]\\[(\\d*)\\](.*)");
    if (!record) continue;
    std::string text = record->str(3);
    const bool oneLine = text.find('|') == std::string::npos;
    if (oneLine && text.starts_with("/")) text = "<i>" + text.substr(1);
    if (oneLine && text.starts_with("\\")) text = "<b>" + text.substr(1);
    if (oneLine && text.starts_with("_")) text = "<u>" + text.substr(1);
    const std::int64_t end = record->str(2).empty() ? kNoEnd : std::stoll(record->str(2)) * 100;
    captions.push_back({std::stoll(record->str(1)) * 100, end, text});
  }
  return WithEnds(captions);
}

PlainCaptions PlainSbv(const std::string& file) {
  return Pairs(LinesOf(file), "(\\d+:\\d\\d:\\d\\d\\.\\d{3}),(\\d+:\\d\\d:\\d\\d\\.\\d{3})[ \t]*");
}

PlainCaptions PlainSubViewer2(const std::string& file) {
  // A line such as "[COLF]&HFFFFFF" ends a text and is none.
  Lines lines;
  for (const std::string& line : LinesOf(file)) lines.push_back(Match(line, "\\[[A-Z].*\\].*") ? "" : line);
  PlainCaptions captions = Pairs(lines, "(\\d+:\\d\\d:\\d\\d\\.\\d{2,3}), *(\\d+:\\d\\d:\\d\\d\\.\\d{2,3})[ \t]*");
  for (PlainCaption& caption : captions) caption.text = Replaced(caption.text, "\\[br\\]", "|");
  return captions;
}

PlainCaptions PlainLyrics(const std::string& file) {
  std::int64_t offset = 0;
  PlainCaptions captions;
  for (const std::string& line : LinesOf(file)) {
    if (const auto header = Match(line, "\\[offset: ?([+-]?\\d+)\\].*")) offset = std::stoi(header->str(1));
    const auto record = Match(line, "((?:\\[\\d+:\\d\\d(?:\\.\\d{2,3})?\\])+)(.*)");
    if (!record) continue;
    // Several times before a text each show it.
    std::string stamps = record->str(1);
    for (std::size_t at = 0; at < stamps.size(); at = stamps.find(']', at) + 1) {
      const std::string stamp = stamps.substr(at + 1, stamps.find(']', at) - at - 1);
      captions.push_back({std::max<std::int64_t>(MsOf(stamp) - offset, 0), kNoEnd, record->str(2)});
    }
  }
  return WithEnds(captions);
}

PlainCaptions PlainTmPlayer(const std::string& file) {
  PlainCaptions captions;
  int before = 0;
  for (const std::string& line : LinesOf(file)) {
    const auto record = Match(line, "(\\d{1,2}:\\d\\d:\\d\\d)(?:[:=]|,(\\d)=)(.*)");
    const int row = record && record->str(2).size() == 1 ? std::stoi(record->str(2)) : 0;
    if (record && row > before && before > 0 && MsOf(record->str(1)) == captions.back().start) {
      if (!record->str(3).empty()) captions.back().text += "|" + record->str(3);
    } else if (record) {
      captions.push_back({MsOf(record->str(1)), kNoEnd, record->str(3)});
      before = row;
    } else {
      before = 0;
    }
  }
  return WithEnds(captions);
}

PlainCaptions PlainSubStation(const std::string& file) {
  PlainCaptions captions;
  Lines columns;
  const auto fieldsOf = [](std::string list, std::size_t most) {
    Lines fields;
    while (fields.size() + 1 < most && list.find(',') != std::string::npos) {
      fields.push_back(list.substr(0, list.find(',')));
      list.erase(0, list.find(',') + 1);
    }
    fields.push_back(list);
    return fields;
  };
  bool events = false;
  for (const std::string& line : LinesOf(file)) {
    if (Match(line, "\\[.*\\]")) events = line == "[Events]";
    if (events && line.starts_with("Format:")) columns = fieldsOf(Replaced(line.substr(7), " ", ""), 99);
    if (!events || !line.starts_with("Dialogue:")) continue;
    const Lines fields = fieldsOf(line.substr(9), columns.size());
    if (fields.size() < columns.size()) continue;
    std::string times[2];
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i] == "Start") times[0] = Trimmed(fields[i]);
      if (columns[i] == "End") times[1] = Trimmed(fields[i]);
    }
    constexpr const char* kTime = "\\d+:\\d\\d:\\d\\d\\.\\d\\d";
    if (!Match(times[0], kTime) || !Match(times[1], kTime)) continue;
    std::string text = Replaced(Replaced(fields.back(), "\\\\N", "|"), "\\\\h", "\xC2\xA0");
    if (const auto styled = Match(text, "\\{\\\\([biu])1\\}(.*)")) {
      text = "<" + styled->str(1) + ">" + styled->str(2);
    }
    captions.push_back({MsOf(times[0]), MsOf(times[1]), text});
  }
  return captions;
}

PlainCaptions PlainSami(const std::string& file) {
  const std::string oneLine = Replaced(Joined(LinesOf(file)), "\\|", " ");
  const std::regex& sync = Regex("<[Ss][Yy][Nn][Cc] +[Ss][Tt][Aa][Rr][Tt]=\"?(\\d+)\"?>");
  PlainCaptions captions;
  for (std::sregex_iterator it(oneLine.begin(), oneLine.end(), sync), none; it != none; ++it) {
    const auto next = std::next(it);
    const auto from = static_cast<std::size_t>(it->position() + it->length());
    std::string text = oneLine.substr(from, next == none ? std::string::npos : next->position() - from);
    text = Replaced(text, "<[Pp]( [^>]*)?>|</([Pp]|SYNC|BODY|SAMI)>", "");
    text = Trimmed(Replaced(Replaced(text, "&nbsp;", " "), " *<[Bb][Rr] ?/?> *", "|"));
    captions.push_back({std::stoll(it->str(1)), kNoEnd, text});
  }
  // A text lasts until the next time, however long that is.
  for (std::size_t i = 0; i < captions.size(); ++i) {
    if (i + 1 < captions.size()) captions[i].end = captions[i + 1].start;
  }
  return WithEnds(captions);
}

}  // namespace cuewright::testing
