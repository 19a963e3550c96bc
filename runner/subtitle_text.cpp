#include "runner/subtitle_text.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "text/text.h"
#include "text/text_file.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr std::pair<int, int> kCharsets[] = {
    {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
    {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250},
};
constexpr std::string_view kStyle = "Style:";
constexpr std::string_view kHead = "[Script Info]";
constexpr double kMostCharset = 255;

int CodePageOfCharset(int charset) {
  for (const auto& [number, codePage] : kCharsets) {
    if (number == charset) return codePage;
  }
  return 0;
}

bool IsHead(std::string_view line) {
  return std::equal(line.begin(), line.end(), kHead.begin(), kHead.end(),
                    [](char a, char b) { return LowerAscii(a) == LowerAscii(b); });
}

}  // namespace

std::optional<std::string> WithPlainHead(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return std::nullopt;
  text.remove_prefix(start);
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  std::string_view line = text.substr(0, end);
  line = line.substr(0, line.find_last_not_of(" \t") + 1);
  if (!IsHead(line)) return std::nullopt;
  return std::string(kHead) + std::string(text.substr(end));
}

int CodePageOfStyles(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t end = bytes.find_first_of("\r\n");
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (!line.starts_with(kStyle)) continue;
    const std::string_view charset = line.substr(line.rfind(',') + 1);
    const double number = LeadingNumber(FromUtf8(charset));
    return number >= 0 && number <= kMostCharset ? CodePageOfCharset(RoundToInt32(std::floor(number))) : 0;
  }
  return 0;
}

std::string SubtitleInUtf8(const std::string& bytes, int systemCodePage) {
  const int codePage = CodePageOfStyles(bytes);
  const Encodings encodings(codePage != 0 ? codePage : systemCodePage);
  TextFile file = TextFile::Auto(bytes, encodings);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 4);
  std::string_view line;
  while (file.NextLine(line)) text += ToUtf8(file.Decoded(line)) + "\n";
  return text;
}

}  // namespace cuewright
