#include "formats/doubtful_file.h"

namespace cuewright {
namespace {

constexpr int kLinesShown = 8;
constexpr std::size_t kBytesShown = 100;

}  // namespace

bool IsDoubtful(const SourceMap& map) {
  if (map.Rules().BlockBytes() != 0) return false;
  const std::size_t unknown = map.LinesNotUnderstood().size();
  if (unknown == 0) return false;
  std::size_t count = 0;
  SourceLines lines(map.Bytes());
  SourceLine line;
  while (lines.Next(line)) count += line.text.find_first_not_of(" \t") == std::string_view::npos ? 0 : 1;
  return unknown * 2 > count;
}

Text FirstLines(const TextFile& file) {
  Text shown;
  SourceLines lines(file.Bytes());
  SourceLine line;
  for (int i = 0; i < kLinesShown && lines.Next(line); ++i) {
    if (i > 0) shown += kLineEnd;
    shown += file.Decoded(line.text.substr(0, kBytesShown));
  }
  return shown;
}

}  // namespace cuewright
