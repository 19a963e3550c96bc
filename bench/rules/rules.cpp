// What the rules and the editing tools cost over a whole list, as ratios to one plain copy of all its captions made in
// the same run, at several lengths: a cost that is linear keeps its ratio.

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "core/edit_history.h"
#include "core/journal.h"
#include "settings/messages.h"
#include "tools/delay.h"
#include "tools/find_replace.h"
#include "tools/report_text.h"
#include "tools/rules_engine.h"

namespace {

using namespace cuewright;

constexpr int kRuns = 15;

/// Captions of a film's usual lengths; of every ten in a row one collides with its neighbour, one is near to it, one
/// has three lines, one is shown too long, one for no time, and one bears a link.
std::vector<Caption> MakeCaptions(int count) {
  std::vector<Caption> captions;
  captions.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const Ms start = 1000 + i * 3000;
    Caption caption{start, start + 2000, u"Nobody leaves this house|until the storm has passed, " + Decimal(i)};
    switch (i % 10) {
      case 1:
        caption.start -= 1200;
        break;
      case 2:
        caption.start -= 850;
        break;
      case 4:
        caption.text = u"Good evening,|Inspector. Nobody|leaves this house.";
        break;
      case 5:
        caption.text = u"Why?";
        caption.end = start + 2900;
        break;
      case 7:
        caption.end = start;
        break;
      case 8:
        caption.text = u"Subtitles from www.example.org";
        break;
      default:
        break;
    }
    captions.push_back(std::move(caption));
  }
  return captions;
}

/// A document with the rules, the history, and what a journal collects.
struct Desk {
  explicit Desk(std::vector<Caption> captions) {
    LoadEnglish(MessageCatalogue(), strings);
    list.Replace(1, list.Count(), std::move(captions));
    list.SetRow(1, false);
    history.Begin(DocumentBaseline::File);
    list.Spliced.Connect([this](const Splice& splice) { batch.Add(list, splice); });
  }

  AppOptions options;
  bool modified = false;
  LangStrings strings;
  CaptionList list{options, modified};
  EditHistory history{list, modified};
  JournalBatch batch;
  RuleReport report{strings};
  RulesEngine engine{list, report};
};

/// Processor time of this thread, which other programs on the machine disturb less than a clock.
double Microseconds(const std::function<void()>& work) {
  const auto now = [] {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
  };
  const double begin = now();
  work();
  return now() - begin;
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

/// One line of the table: how long a step takes, and the plain copy beside which it was measured.
struct Step {
  std::string name;
  std::function<void(Desk&)> prepare;
  std::function<void(Desk&)> work;
};

std::vector<Step> Steps() {
  const auto nothing = [](Desk&) {};
  const auto rules = [](Desk& desk) {
    if (desk.engine.ApplyRules()) std::abort();
  };
  const auto delay = [](Desk& desk) { ShiftCaptions(desk.list, 700); };
  const auto undo = [](Desk& desk) { desk.history.Undo(); };
  const auto search = [](Desk& desk) { FindInCaptions(desk.list, {u"nothing like it"}, false, {}, false); };
  const auto replace = [](Desk& desk) { FindInCaptions(desk.list, {u"Storm"}, true, u"rain", true); };
  const auto reset = [](Desk& desk) { ClearAllTiming(desk.list); };
  const auto report = [](ReportForm form) {
    return [form](Desk& desk) {
      if (ReportText(desk.report, form).empty()) std::abort();
    };
  };
  return {{"the pass, every rule on a tenth", nothing, rules},
          {"undo of the pass", rules, undo},
          {"standard report of the pass", rules, report(ReportForm::Standard)},
          {"detailed report of the pass", rules, report(ReportForm::Detailed)},
          {"delay", nothing, delay},
          {"undo of the delay", delay, undo},
          {"reset of all timing", nothing, reset},
          {"search that finds nothing", nothing, search},
          {"replace all, in four of five", nothing, replace},
          {"undo of replace all", replace, undo}};
}

/// The median ratio of a step to a copy of the captions made just before it.
double Ratio(const Step& step, const std::vector<Caption>& captions, double& copyUs) {
  std::vector<double> ratios;
  std::vector<double> copies;
  for (int run = 0; run < kRuns; ++run) {
    Desk desk(captions);
    step.prepare(desk);
    desk.batch.Clear();
    std::vector<Caption> copy;
    const double plain = Microseconds([&] { copy = captions; });
    copies.push_back(plain);
    ratios.push_back(Microseconds([&] { step.work(desk); }) / plain);
  }
  copyUs = Median(copies);
  return Median(ratios);
}

/// The detailed report of so many entries, in microseconds an entry.
double ReportCost(int entries) {
  Desk desk(MakeCaptions(10));
  for (int i = 0; i < entries; ++i) {
    desk.report.AddRuleEntry(i + 1, u"Nobody leaves this house|until the storm has passed", RuleKind::Credit, 0, false);
  }
  std::vector<double> times;
  for (int run = 0; run < kRuns; ++run) {
    times.push_back(Microseconds([&] {
      if (ReportText(desk.report, ReportForm::Detailed).empty()) std::abort();
    }));
  }
  return Median(times) / entries;
}

}  // namespace

/// `bench_rules [NAME]`: only the steps whose names begin so. `bench_rules --moment`: whether all of it runs.
int main(int argc, char** argv) {
  const bool moment = argc > 1 && std::string(argv[1]) == "--moment";
  const std::string wanted = argc > 1 && !moment ? argv[1] : "";
  const std::vector<int> sizes = moment ? std::vector<int>{100} : std::vector<int>{2000, 8000, 32000};
  std::printf("Plain copies of all captions that a step takes as long as (median of %d runs)\n\n%-36s", kRuns,
              "captions");
  for (const int size : sizes) std::printf("%10d", size);
  std::printf("\n");
  std::vector<double> copies(sizes.size());
  for (const Step& step : Steps()) {
    if (!step.name.starts_with(wanted)) continue;
    std::printf("%-36s", step.name.c_str());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      std::printf("%10.2f", Ratio(step, MakeCaptions(sizes[i]), copies[i]));
      std::fflush(stdout);
    }
    std::printf("\n");
  }
  if (!wanted.empty() || moment) return 0;
  std::printf("%-36s", "one copy, in microseconds");
  for (const double copy : copies) std::printf("%10.0f", copy);
  std::printf("\n\nDetailed report, microseconds an entry\n%-36s", "entries");
  for (const int entries : {1000, 10000, 30000}) std::printf("%10d", entries);
  std::printf("\n%-36s", "");
  for (const int entries : {1000, 10000, 30000}) std::printf("%10.3f", ReportCost(entries));
  std::printf("\n");
}
