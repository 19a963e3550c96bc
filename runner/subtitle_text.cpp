#include "runner/subtitle_text.h"

#include <utility>

#include "core/numbers.h"
#include "core/text.h"
#include "formats/text_file.h"

namespace cuewright {
namespace {

constexpr std::pair<int, int> kCharsets[] = {
    {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
    {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250},
};
constexpr std::string_view kStyle = "Style:";

int CodePageOfCharset(int charset) {
  for (const auto& [number, codePage] : kCharsets) {
    if (number == charset) return codePage;
  }
  return 0;
}

}  // namespace

int CodePageOfStyles(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t end = bytes.find_first_of("\r\n");
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (!line.starts_with(kStyle)) continue;
    const std::string_view charset = line.substr(line.rfind(',') + 1);
    return CodePageOfCharset(static_cast<int>(LeadingNumber(FromUtf8(charset))));
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
