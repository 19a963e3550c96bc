// How often line breaks are found again where a writer had set them: the breaks of captions of two lines are taken out,
// and the best place of all is compared with the one that was there.
// usage: bench_breaks RESOURCES FILE...   (files of blank-separated captions, LANGUAGE.txt)

#include <cstdio>
#include <string>
#include <vector>

#include "check/house_rules.h"
#include "check/line_breaker.h"
#include "core/runtime_error.h"
#include "platform/posix_files.h"

namespace {

using namespace cuewright;

struct Tally {
  int captions = 0;
  int found = 0;
  int forbidden = 0;  ///< breaks that the language forbids
};

/// The captions of two lines in a file.
std::vector<Text> CaptionsIn(const Files& files, const Text& path) {
  std::vector<Text> captions;
  const Text content = ReplaceAll(FromUtf8(files.Read(path, 1 << 24)), u"\r\n", u"\n");
  for (const Text& caption : Split(content, u"\n\n")) {
    std::vector<Text> lines;
    for (const Text& line : Split(caption, u"\n")) {
      if (!line.empty() && line.front() != u';') lines.push_back(line);
    }
    if (lines.size() == 2) captions.push_back(lines[0] + u"\n" + lines[1]);
  }
  return captions;
}

Tally Measure(const std::vector<Text>& captions, const HouseRules& rules, bool tell) {
  LineBreaker breaker(rules);
  Tally tally;
  for (const Text& caption : captions) {
    const Text broken = breaker.BrokenInto(caption, 2);
    ++tally.captions;
    const std::vector<Text> lines = Split(broken, u"\n");
    const Text last = lines.front().substr(lines.front().rfind(u' ') + 1);
    const Text next = lines.back().substr(0, lines.back().find(u' '));
    if (rules.breaks.Forbids(last, next)) ++tally.forbidden;
    if (broken == caption) {
      ++tally.found;
    } else if (tell) {
      std::printf("  was:  %s\n  is:   %s\n", ToUtf8(ReplaceAll(caption, u"\n", u" | ")).c_str(),
                  ToUtf8(ReplaceAll(broken, u"\n", u" | ")).c_str());
    }
  }
  return tally;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: bench_breaks RESOURCES FILE...\n");
    return 2;
  }
  const PosixFiles files;
  for (int i = 2; i < argc; ++i) {
    const Text path = FromUtf8(argv[i]);
    const Text name = path.substr(path.rfind(u'/') + 1);
    std::string problem;
    const Text language = name.substr(0, 2);
    const auto rules = HouseRulesShelf(files, FromUtf8(argv[1]) + u"/").Read(u"streaming-" + language, problem);
    if (!rules) {
      std::fprintf(stderr, "%s\n", problem.c_str());
      return 1;
    }
    const Tally tally = Measure(CaptionsIn(files, path), *rules, true);
    std::printf("%s: %d of %d breaks found again (%.0f %%), %d forbidden\n", ToUtf8(language).c_str(), tally.found,
                tally.captions, 100.0 * tally.found / std::max(tally.captions, 1), tally.forbidden);
  }
  return 0;
}
