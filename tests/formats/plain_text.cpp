#include "tests/formats/plain_text.h"

#include <algorithm>
#include <map>

namespace cuewright::testing {
namespace {

std::int64_t LengthInMs(const std::string& text) {
  const auto length =
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
  return length * (length <= 5 ? 250 : length <= 15 ? 120 : 50);
}

}  // namespace

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

std::int64_t MsOf(const std::string& clock) {
  std::int64_t seconds = 0;
  for (std::size_t at = 0; at < clock.size(); at = clock.find_first_of(":.,", at) + 1) {
    if (at > 0 && clock[at - 1] != ':') return seconds * 1000 + std::stoi((clock.substr(at) + "00").substr(0, 3));
    seconds = seconds * 60 + std::stoi(clock.substr(at));
    if (clock.find_first_of(":.,", at) == std::string::npos) break;
  }
  return seconds * 1000;
}

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

}  // namespace cuewright::testing
