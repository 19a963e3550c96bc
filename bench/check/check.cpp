// What the check, a search by pattern, line breaks and cleaning cost over 32,000 captions, and what the check costs
// after an edit of one. Medians of several runs, in processor time; of searches the time that one waits, since all
// processors search.
// usage: bench_check RESOURCES

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "check/fixes.h"
#include "check/house_rules.h"
#include "check/live_findings.h"
#include "core/runtime_error.h"
#include "formats/document_marks.h"
#include "platform/posix_files.h"
#include "tools/cleaning.h"
#include "tools/replace_text.h"

namespace {

using namespace cuewright;

/// How many captions, and how often each work is done.
struct Extent {
  int captions = 32000;
  int runs = 9;
};
constexpr Extent kMoment{2000, 1};

/// Captions of usual lengths; of every ten one has italics, one is shown too briefly and one has a line too long.
std::vector<Caption> MakeCaptions(int count) {
  std::vector<Caption> captions;
  captions.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const Ms start = 1000 + i * 3000;
    Caption caption{start, start + 2600, u"Nobody leaves this house|until the storm has passed, " + Decimal(i)};
    if (i % 10 == 1) caption.text = u"<i>Good evening,</i> Inspector.";
    if (i % 10 == 4) caption.end = start + 500;
    if (i % 10 == 7) caption.text = u"This is a line with far more characters than any house lets through";
    captions.push_back(std::move(caption));
  }
  return captions;
}

/// Processor time of this process, which other programs of a busy machine don't lengthen.
double ProcessorMs() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The time that passes, for what several threads do at a time.
double PassingMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The median in ms by a clock of what `work` takes.
template <class Work>
double MedianOf(int runs, double (*clock)(), Work work) {
  std::vector<double> times;
  for (int run = 0; run < runs; ++run) {
    const double began = clock();
    work();
    times.push_back(clock() - began);
  }
  const auto middle = times.begin() + runs / 2;
  std::ranges::nth_element(times, middle);
  return *middle;
}

void Tell(const char* what, double ms, double limit) {
  std::printf("%-44s %9.3f ms", what, ms);
  if (limit > 0) std::printf("   limit %g ms%s", limit, ms > limit ? "  MISSED" : "");
  std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
  const bool moment = argc == 3 && std::string_view(argv[2]) == "--moment";
  if (argc != 2 && !moment) {
    std::fprintf(stderr, "usage: bench_check RESOURCES [--moment]\n");
    return 2;
  }
  const Extent extent = moment ? kMoment : Extent();
  const auto median = [&](auto work) { return MedianOf(extent.runs, ProcessorMs, work); };
  const auto waited = [&](auto work) { return MedianOf(extent.runs, PassingMs, work); };
  const PosixFiles files;
  std::string problem;
  const auto rules = HouseRulesShelf(files, FromUtf8(argv[1]) + u"/").Read(u"streaming-en", problem);
  const auto cleaning = CleaningShelf(files, FromUtf8(argv[1]) + u"/").Read(u"en", problem);
  if (!rules || !cleaning) {
    std::fprintf(stderr, "%s\n", problem.c_str());
    return 1;
  }
  const FormatState state;
  const DocumentMarks marks(state);
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  list.SetMarks(marks);
  list.Replace(1, 1, MakeCaptions(extent.captions));

  std::size_t found = 0;
  Tell("check of all", median([&] { found = Checker(*rules, {}).CheckAll(list).size(); }), 50);
  std::printf("  findings: %zu\n", found);

  LiveFindings live(list);
  live.SetRules(*rules, {});
  static_cast<void>(live.All());
  Row row = 100;
  Tell("check after a change of one", median([&] {
         row += 1000;
         list.SetCaptionEnd(row, list.GetCaptionEnd(row) + 10);
         for (Row near = row - 1; near <= row + 1; ++near) found = live.Of(near).size();
       }),
       1);
  Tell("check after an insertion", median([&] {
         list.AddCaption(1, 2, u"a", 500);
         for (Row near = 499; near <= 501; ++near) found = live.Of(near).size();
       }),
       1);

  const auto rows = AllRows(list);
  const auto replace = [&](const ReplaceOrder& order) {
    TextReplacer replacer(order, options.lineSeparator, &marks);
    found = ProposeReplacements(list, rows, replacer).size();
  };
  Tell("a word in all", waited([&] { replace({u"storm", u"wind"}); }), 100);
  Tell("a pattern with groups in all", waited([&] { replace({u"(\\w+) house", u"$1 cellar", true}); }), 100);
  Tell("a pattern in nine of ten", waited([&] { replace({u"(\\w+)[ ,]+(\\w+)$", u"$2 $1", true}); }), 100);
  std::printf("  changes: %zu\n", found);
  Tell("a pattern many times in each", waited([&] { replace({u"\\b(\\w)(\\w*)", u"$2$1", true}); }), 100);
  Tell("a plain text for a pattern", waited([&] { replace({u"\\s+", u"_", true}); }), 100);
  Tell("a whole word", waited([&] {
         ReplaceOrder order{u"the", u"a"};
         order.wholeWord = true;
         replace(order);
       }),
       100);
  Tell("a pattern found nowhere", waited([&] { replace({u"[xyz]{4}\\d", u"", true}); }), 100);

  Tell("line breaks of all", median([&] {
         LineBreaker breaker(*rules);
         found = ProposeBreaks(list, rows, breaker).size();
       }),
       0);
  CleaningChoice all;
  all.fill(true);
  Tell("cleaning of all, all kinds", median([&] { found = Cleaner(*cleaning, all).Propose(list, rows).size(); }), 0);
  Tell("fixes of all", median([&] { found = Fixer(*rules, {}).ProposeAll(list).size(); }), 0);
  return 0;
}
