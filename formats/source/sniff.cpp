#include "formats/source/sniff.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "formats/source/clock_field.h"
#include "formats/source/ebu_format.h"
#include "formats/source/source_lines.h"
#include "formats/source/subrip_format.h"
#include "text/digits.h"
#include "text/units.h"

namespace cuewright {
namespace {

/// More lines than any decision needs.
constexpr std::size_t kMostLines = 200;

bool IsBlankByte(char c) { return c == ' ' || c == '\t'; }

/// The first lines of a file that aren't blank, without the blanks around them, in small letters.
class Head {
 public:
  explicit Head(TextView text) {
    bytes_.reserve(text.size());
    for (const char16_t c : text) bytes_ += c < 0x80 ? LowerAscii(LowByte(c)) : '?';
    SourceLines lines(bytes_);
    SourceLine line;
    while (lines_.size() < kMostLines && lines.Next(line)) {
      std::string_view trimmed = line.text;
      while (!trimmed.empty() && IsBlankByte(trimmed.front())) trimmed.remove_prefix(1);
      while (!trimmed.empty() && IsBlankByte(trimmed.back())) trimmed.remove_suffix(1);
      if (!trimmed.empty()) lines_.push_back(trimmed);
    }
  }

  std::string_view Bytes() const { return bytes_; }
  /// A line by its place among those; empty behind the last one.
  std::string_view Line(std::size_t i) const { return i < lines_.size() ? lines_[i] : std::string_view(); }
  bool Has(std::string_view line) const { return std::find(lines_.begin(), lines_.end(), line) != lines_.end(); }
  const std::vector<std::string_view>& Lines() const { return lines_; }

 private:
  std::string bytes_;
  std::vector<std::string_view> lines_;
};

using Found = std::optional<Text>;

Found WebVtt(const Head& head) {
  constexpr std::string_view kSignature = "webvtt";
  if (!head.Bytes().starts_with(kSignature)) return {};
  const std::string_view behind = head.Bytes().substr(kSignature.size(), 1);
  if (!behind.empty() && behind.find_first_of(" \t\r\n") != 0) return {};
  // Times without hours are a format of its own in the catalogue.
  for (const std::string_view line : head.Lines()) {
    const auto start = line.find("-->") == std::string_view::npos ? std::nullopt : ReadClock(line);
    if (start) return std::ranges::count(line.substr(0, start->size), ':') == 1 ? u"WEBVTT_RSS" : u"WEBVTT";
  }
  return u"WEBVTT";
}

Found SubStation(const Head& head) {
  const bool script = head.Line(0) == "[script info]" || head.Has("[events]");
  if (!script) return {};
  if (head.Has("[v4+ styles]") || head.Has("scripttype: v4.00+")) return u"ADVANCEDSSA";
  if (head.Has("[v4 styles]") || head.Has("scripttype: v4.00")) return u"SUBSTATIONALPHA";
  return {};
}

/// The name of the first element of a file of tags, behind what may stand in front of it; empty for other files.
std::string_view RootElement(std::string_view bytes) {
  std::size_t at = 0;
  for (;;) {
    at = bytes.find_first_not_of(" \t\r\n", at);
    if (at == std::string_view::npos || bytes[at] != '<') return {};
    const std::string_view rest = bytes.substr(at);
    const std::string_view ending = rest.starts_with("<!--") ? "-->" : rest.starts_with("<?") ? "?>" : ">";
    if (!rest.starts_with("<!") && !rest.starts_with("<?")) break;
    at = bytes.find(ending, at);
    if (at == std::string_view::npos) return {};
    at += ending.size();
  }
  const std::size_t end = bytes.find_first_of(" \t\r\n/>", at);
  if (end == std::string_view::npos) return {};
  const std::string_view name = bytes.substr(at + 1, end - at - 1);
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

Found Tags(const Head& head) {
  const std::string_view root = RootElement(head.Bytes());
  if (root == "tt") return u"TTML";
  if (root == "sami") return u"SAMI";
  return {};
}

/// Two numbers in brackets, the second of which may be missing.
bool IsPair(std::string_view line, char open, char close) {
  if (!line.starts_with(open)) return false;
  const auto first = ReadNumber(line.substr(1));
  if (!first || line.substr(1 + first->size, 2) != std::string{close, open}) return false;
  const std::string_view rest = line.substr(3 + first->size);
  const auto second = ReadNumber(rest);
  return rest.substr(second ? second->size : 0, 1) == std::string_view(&close, 1);
}

Found Pairs(const Head& head) {
  const std::string_view line = head.Line(0);
  if (IsPair(line, '{', '}') || line.starts_with("{default}{}")) return u"MICRODVD";
  // Tenths of a second; longer numbers count something else.
  constexpr std::size_t kMostDigits = 7;
  if (IsPair(line, '[', ']') && line.find(']') <= kMostDigits + 1) return u"MPL2";
  return {};
}

/// "START,END" and nothing else on the line.
Found ClockPair(std::string_view line) {
  const auto start = ReadClock(line);
  if (!start || line.substr(start->size, 1) != ",") return {};
  const auto end = ReadClock(line.substr(start->size + 1));
  if (!end || start->size + 1 + end->size != line.size()) return {};
  const std::string_view time = line.substr(0, start->size);
  const std::size_t dot = time.find('.');
  if (dot == std::string_view::npos || std::count(time.begin(), time.end(), ':') != 2) return {};
  const std::size_t digits = time.size() - dot - 1;
  if (digits == 3) return u"YOUTUBESBV";
  if (digits == 2) return u"SUBVIEWER2";
  return {};
}

Found Blocks(const Head& head) {
  if (head.Line(0) != "[information]") {
    Found found = ClockPair(head.Line(0));
    // Some programs write three digits in the other format as well, which is then known by its line ends.
    if (found == u"YOUTUBESBV" && head.Bytes().find("[br]") != std::string_view::npos) return u"SUBVIEWER2";
    return found;
  }
  for (const std::string_view line : head.Lines()) {
    if (Found found = ClockPair(line)) return found;
  }
  return {};
}

/// A number, and below it two times with an arrow between.
Found SubRip(const Head& head) {
  const std::string_view number = head.Line(0);
  if (number.empty() || !std::all_of(number.begin(), number.end(), IsDigit<char>)) return {};
  if (!IsSubRipTimes(head.Line(1))) return {};
  return u"SUBRIP";
}

bool IsLyricsHeader(std::string_view line) {
  for (const std::string_view name : {"[ti:", "[ar:", "[al:", "[by:", "[au:", "[re:", "[ve:", "[offset:", "[length:"}) {
    if (line.starts_with(name) && line.ends_with(']')) return true;
  }
  return false;
}

Found Lyrics(const Head& head) {
  bool hasHeader = false;
  for (const std::string_view line : head.Lines()) {
    if (IsLyricsHeader(line)) {
      hasHeader = true;
      continue;
    }
    const auto time = line.starts_with('[') ? ReadClock(line.substr(1)) : std::nullopt;
    if (!time || line.substr(1 + time->size, 1) != "]") return {};
    const std::string_view stamp = line.substr(1, time->size);
    const auto colons = std::ranges::count(stamp, ':');
    // A time "[mm:ss:xx]" might as well be hours, minutes and seconds.
    const bool old = colons == 2 && hasHeader && stamp.find_first_of(".,") == std::string_view::npos;
    if (colons != 1 && !old) return {};
    return u"KARAOKELRC";
  }
  return {};
}

/// What stands behind "hh:mm:ss"; empty when the line doesn't begin with such a time.
std::string_view BehindSeconds(std::string_view line) {
  for (const std::size_t size : {std::size_t{8}, std::size_t{7}}) {
    const auto time = ReadClock(line.substr(0, size));
    if (time && time->size == size && line.substr(0, size).find_first_of(".,") == std::string_view::npos) {
      return line.substr(size);
    }
  }
  return {};
}

Found TmPlayer(const Head& head) {
  const std::string_view first = BehindSeconds(head.Line(0));
  const std::string_view second = BehindSeconds(head.Line(1));
  if (first.size() > 2 && first[0] == ',' && IsDigit(first[1]) && first[2] == '=') return u"TMPLAYER";
  if (first.starts_with('=') && second.starts_with('=')) return u"TMPLAYERPLUS";
  if (first.size() < 2 || first[0] != ':' || !second.starts_with(':')) return {};
  // Two digits may be frames, unless a line has something else in their place.
  for (const std::string_view behind : {first, second}) {
    if (behind.size() > 1 && !IsDigit(behind[1])) return u"TMPLAYERCOLON";
  }
  return {};
}

Found QuickTime(const Head& head) {
  if (head.Line(0).starts_with("{qttext}")) return u"QUICKTIMETEXT";
  return {};
}

Found ClosedCaptions(const Head& head) {
  if (head.Line(0).starts_with("scenarist_scc v")) return u"SCC";
  return {};
}

Found Ebu(const Head& head) {
  if (IsEbuHead(head.Bytes())) return u"EBUSTL";
  return {};
}

/// JSON with the keys of a segment.
Found TranscriptJson(const Head& head) {
  if (!head.Line(0).starts_with('{') && !head.Line(0).starts_with('[')) return {};
  for (const std::string_view key : {"\"start\"", "\"end\"", "\"text\""}) {
    if (head.Bytes().find(key) == std::string_view::npos) return {};
  }
  return u"TRANSCRIPTJSON";
}

}  // namespace

std::optional<Text> SniffFormat(TextView text) {
  const Head head(text);
  for (const auto rule : {Ebu, WebVtt, ClosedCaptions, SubStation, Tags, QuickTime, Pairs, Blocks, SubRip, Lyrics,
                          TmPlayer, TranscriptJson}) {
    if (Found found = rule(head)) return found;
  }
  return {};
}

}  // namespace cuewright
