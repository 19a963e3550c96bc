#include "forms/clipboard_captions.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr std::string_view kHead = "cuewright captions 1 ";
constexpr std::array<std::string_view, 8> kMarkNames = {"plain", "subrip",   "webvtt", "substation",
                                                        "sami",  "microdvd", "ttml",   "mpl2"};

/// A text on one line: "\n" stands for a line end, "\\" for a backslash.
std::string Escaped(TextView text) {
  std::string line;
  for (const char c : ToUtf8(text)) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\\') {
      line += "\\\\";
    } else {
      line += c;
    }
  }
  return line;
}

Text Unescaped(std::string_view line) {
  std::string bytes;
  for (std::size_t at = 0; at < line.size(); ++at) {
    const bool escape = line[at] == '\\' && at + 1 < line.size();
    if (!escape) {
      bytes += line[at];
    } else {
      bytes += line[++at] == 'n' ? '\n' : line[at];
    }
  }
  return FromUtf8(bytes);
}

/// Takes what stands in front of a mark away; empty when the mark isn't there.
std::optional<std::string_view> TakeUpTo(std::string_view& rest, char mark) {
  const std::size_t end = rest.find(mark);
  if (end == std::string_view::npos) return {};
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(end + 1);
  return taken;
}

std::optional<Ms> TakeTime(std::string_view& rest) {
  const auto digits = TakeUpTo(rest, '\t');
  std::int32_t ms = 0;
  if (!digits) return {};
  const auto [end, error] = std::from_chars(digits->data(), digits->data() + digits->size(), ms);
  if (error != std::errc() || end != digits->data() + digits->size()) return {};
  return ms;
}

}  // namespace

std::string WriteCaptions(const ClipboardCaptions& captions) {
  std::string bytes(kHead);
  bytes += ItemAt(kMarkNames, captions.marks);
  bytes += '\n';
  for (const Caption& caption : captions.captions) {
    bytes += std::to_string(caption.start.Count()) + '\t' + std::to_string(caption.end.Count()) + '\t' +
             Escaped(caption.text) + '\n';
  }
  return bytes;
}

std::optional<ClipboardCaptions> ReadCaptions(std::string_view bytes) {
  if (!bytes.starts_with(kHead)) return {};
  bytes.remove_prefix(kHead.size());
  const auto name = TakeUpTo(bytes, '\n');
  if (!name) return {};
  const auto* const kind = std::ranges::find(kMarkNames, *name);
  if (kind == kMarkNames.end()) return {};
  ClipboardCaptions captions;
  captions.marks = static_cast<MarkKind>(kind - kMarkNames.begin());
  while (!bytes.empty()) {
    auto line = TakeUpTo(bytes, '\n');
    if (!line) return {};
    const auto start = TakeTime(*line);
    const auto end = start ? TakeTime(*line) : std::nullopt;
    if (!end) return {};
    captions.captions.push_back({*start, *end, Unescaped(*line)});
  }
  if (captions.captions.empty()) return {};
  return captions;
}

ClipboardCaptions CaptionsOfText(TextView text) {
  ClipboardCaptions captions;
  std::vector<Text> lines = Split(ReplaceAll(text, kLineEnd, u"\n"), u"\n");
  while (!lines.empty() && IsBlank(lines.back())) lines.pop_back();
  const bool paragraphs = std::ranges::any_of(lines, [](const Text& line) { return IsBlank(line); });
  bool begins = true;
  for (const Text& line : lines) {
    const TextView trimmed = TrimBlanks(line);
    if (trimmed.empty()) {
      begins = true;
    } else if (begins || !paragraphs) {
      captions.captions.push_back({0, 0, Text(trimmed)});
      begins = false;
    } else {
      captions.captions.back().text += u"\n" + Text(trimmed);
    }
  }
  return captions;
}

Text TextOfCaptions(const ClipboardCaptions& captions) {
  Text text;
  for (const Caption& caption : captions.captions) {
    if (!text.empty()) text += u"\n";
    text += VisibleText(caption.text, captions.marks, u"\n") + u"\n";
  }
  return text;
}

}  // namespace cuewright
