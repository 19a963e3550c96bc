#include "tests/formats/plain_rules.h"

#include <algorithm>
#include <optional>

#include "tests/formats/plain_text.h"

namespace cuewright::testing {
namespace {

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
    const auto record = Match(line, "((?:\\[\\d+:\\d\\d(?:[.:]\\d{2,3})?\\])+)(.*)");
    if (!record) continue;
    // Several times before a text each show it.
    std::string stamps = record->str(1);
    for (std::size_t at = 0; at < stamps.size(); at = stamps.find(']', at) + 1) {
      std::string stamp = stamps.substr(at + 1, stamps.find(']', at) - at - 1);
      stamp = Replaced(stamp, "^(\\d+:\\d+):", "$1.");
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

PlainCaptions PlainQuickTime(const std::string& file) {
  std::int64_t scale = 0;
  PlainCaptions captions;
  const Lines lines = LinesOf(file);
  for (std::size_t at = 0; at < lines.size(); ++at) {
    if (const auto header = Match(lines[at], ".*\\{timeScale:(\\d+).*")) scale = std::stoll(header->str(1));
    constexpr const char* kStamp = "\\[(\\d+:\\d\\d:\\d\\d)(?:\\.(\\d+))?\\](.*)";
    const auto stamp = Match(lines[at], kStamp);
    if (!stamp) continue;
    // Behind the dot are units of the scale; without a scale they are decimals.
    const std::string units = stamp->str(2);
    std::int64_t ms = MsOf(stamp->str(1));
    if (scale == 0) ms = MsOf(stamp->str(1) + "." + units);
    if (scale != 0 && !units.empty()) ms += (std::stoll(units) * 2000 + scale) / (scale * 2);
    Lines text;
    if (!stamp->str(3).empty()) text.push_back(stamp->str(3));
    while (at + 1 < lines.size() && !Match(lines[at + 1], kStamp)) text.push_back(lines[++at]);
    while (!text.empty() && IsBlankLine(text.back())) text.pop_back();
    captions.push_back({ms, kNoEnd, Joined(text)});
  }
  return WithEnds(captions);
}

}  // namespace cuewright::testing
