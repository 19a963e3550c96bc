// The floor of the whole-process comparison: parses one fixed format and writes another, with string views into the
// file's bytes. It recognises nothing, checks nothing and converts no encoding.
//
// formats_floor FROM TO INPUT OUTPUT, with srt, ssa, vtt, smi, xml and sub (25 frames per second) for FROM and TO.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int kFps = 25;

struct Cue {
  long start;
  long end;
  std::string_view text;
  std::string_view lineBreak;  ///< what stands between the lines of `text`
};

std::string ReadAll(const char* path) {
  std::FILE* file = std::fopen(path, "rb");
  if (file == nullptr) std::exit(1);
  std::fseek(file, 0, SEEK_END);
  std::string bytes(static_cast<std::size_t>(std::ftell(file)), '\0');
  std::rewind(file);
  if (std::fread(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::exit(1);
  std::fclose(file);
  return bytes;
}

/// The next line without its line end; `rest` moves on behind it.
std::string_view NextLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

long Number(std::string_view digits) {
  long value = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') break;
    value = value * 10 + (c - '0');
  }
  return value;
}

/// ms of "h:mm:ss" and a fraction of any number of digits.
long Clock(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string_view rest = text.substr(colon + 1);
  const std::string_view fraction = rest.substr(6);
  const long unit = fraction.size() == 3 ? 1 : 10;
  return Number(text.substr(0, colon)) * 3600000 + Number(rest) * 60000 + Number(rest.substr(3)) * 1000 +
         Number(fraction) * unit;
}

/// SubRip and WebVTT: a line with an arrow, then the text up to an empty line.
void ReadArrows(std::string_view rest, std::vector<Cue>& cues) {
  while (!rest.empty()) {
    const std::string_view line = NextLine(rest);
    const std::size_t arrow = line.find(" --> ");
    if (arrow == std::string_view::npos) continue;
    std::size_t end = rest.find("\r\n\r\n");
    if (end == std::string_view::npos) end = rest.size();
    cues.push_back({Clock(line.substr(0, arrow)), Clock(line.substr(arrow + 5)), rest.substr(0, end), "\r\n"});
    rest.remove_prefix(end);
  }
}

void ReadEvents(std::string_view rest, std::vector<Cue>& cues) {
  while (!rest.empty()) {
    std::string_view line = NextLine(rest);
    if (!line.starts_with("Dialogue: ")) continue;
    std::string_view times[3];
    for (std::string_view& time : times) {
      const std::size_t comma = line.find(',');
      time = line.substr(0, comma);
      line.remove_prefix(comma + 1);
    }
    for (int i = 0; i < 6; ++i) line.remove_prefix(line.find(',') + 1);
    cues.push_back({Clock(times[1]), Clock(times[2]), line, "\\N"});
  }
}

void ReadSami(std::string_view rest, std::vector<Cue>& cues) {
  constexpr std::string_view kSync = "<SYNC START=";
  bool open = false;
  while (!rest.empty()) {
    const std::string_view line = NextLine(rest);
    const std::size_t sync = line.find(kSync);
    if (sync != std::string_view::npos) {
      const long time = Number(line.substr(sync + kSync.size()));
      if (open) {
        cues.back().end = time;
      } else {
        cues.push_back({time, time, {}, "<br>"});
      }
      open = !open;
    } else if (open && line.find("<P") == std::string_view::npos) {
      cues.back().text = line.substr(line.find_first_not_of(' '));
    }
  }
}

void ReadFrames(std::string_view rest, std::vector<Cue>& cues) {
  while (!rest.empty()) {
    const std::string_view line = NextLine(rest);
    if (!line.starts_with('{')) continue;
    const std::size_t middle = line.find("}{");
    const std::size_t end = line.find('}', middle + 2);
    cues.push_back({Number(line.substr(1)) * 1000 / kFps, Number(line.substr(middle + 2)) * 1000 / kFps,
                    line.substr(end + 1), "|"});
  }
}

/// Timed text: a line a paragraph.
void ReadParagraphs(std::string_view rest, std::vector<Cue>& cues) {
  constexpr std::string_view kBegin = "<p begin=\"";
  constexpr std::string_view kEnd = "\" end=\"";
  while (!rest.empty()) {
    std::string_view line = NextLine(rest);
    if (!line.starts_with(kBegin)) continue;
    const std::size_t middle = line.find(kEnd);
    const std::size_t behind = line.find("\">");
    const std::string_view end = line.substr(middle + kEnd.size(), behind - middle - kEnd.size());
    const std::string_view text = line.substr(behind + 2, line.rfind("</p>") - behind - 2);
    cues.push_back({Clock(line.substr(kBegin.size(), middle - kBegin.size())), Clock(end), text, "<br/>"});
  }
}

void AppendText(std::string& out, const Cue& cue, std::string_view lineBreak) {
  std::string_view text = cue.text;
  for (std::size_t at; (at = text.find(cue.lineBreak)) != std::string_view::npos;) {
    out += text.substr(0, at);
    out += lineBreak;
    text.remove_prefix(at + cue.lineBreak.size());
  }
  out += text;
}

void AppendPadded(std::string& out, long value, long highest) {
  for (long unit = highest; unit > 0; unit /= 10) out += static_cast<char>('0' + value / unit % 10);
}

void AppendClock(std::string& out, long ms, char sign, long fractionUnit) {
  AppendPadded(out, ms / 3600000, fractionUnit == 1 ? 10 : 1);
  out += ':';
  AppendPadded(out, ms / 60000 % 60, 10);
  out += ':';
  AppendPadded(out, ms / 1000 % 60, 10);
  out += sign;
  AppendPadded(out, ms % 1000 / fractionUnit, 100 / fractionUnit);
}

void WriteSubRip(std::string& out, const std::vector<Cue>& cues) {
  long number = 0;
  for (const Cue& cue : cues) {
    out += std::to_string(++number);
    out += "\r\n";
    AppendClock(out, cue.start, ',', 1);
    out += " --> ";
    AppendClock(out, cue.end, ',', 1);
    out += "\r\n";
    AppendText(out, cue, "\r\n");
    out += "\r\n\r\n";
  }
}

void WriteEvents(std::string& out, const std::vector<Cue>& cues) {
  out += "[Script Info]\r\nScriptType: v4.00\r\n\r\n[V4 Styles]\r\n\r\n[Events]\r\n";
  for (const Cue& cue : cues) {
    out += "Dialogue: Marked=0,";
    AppendClock(out, cue.start, '.', 10);
    out += ',';
    AppendClock(out, cue.end, '.', 10);
    out += ",Default,NTP,0000,0000,0000,!Effect,";
    AppendText(out, cue, "\\N");
    out += "\r\n";
  }
}

void WriteFrames(std::string& out, const std::vector<Cue>& cues) {
  for (const Cue& cue : cues) {
    out += '{';
    out += std::to_string(cue.start * kFps / 1000);
    out += "}{";
    out += std::to_string(cue.end * kFps / 1000);
    out += '}';
    AppendText(out, cue, "|");
    out += "\r\n";
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  const std::string_view from = argv[1];
  const std::string_view to = argv[2];
  const std::string bytes = ReadAll(argv[3]);

  std::vector<Cue> cues;
  if (from == "srt" || from == "vtt") ReadArrows(bytes, cues);
  if (from == "ssa") ReadEvents(bytes, cues);
  if (from == "smi") ReadSami(bytes, cues);
  if (from == "xml") ReadParagraphs(bytes, cues);
  if (from == "sub") ReadFrames(bytes, cues);

  std::string out;
  if (to == "srt") WriteSubRip(out, cues);
  if (to == "ssa") WriteEvents(out, cues);
  if (to == "sub") WriteFrames(out, cues);

  std::FILE* file = std::fopen(argv[4], "wb");
  if (file == nullptr) return 1;
  const bool whole = std::fwrite(out.data(), 1, out.size(), file) == out.size();
  return std::fclose(file) == 0 && whole ? 0 : 1;
}
