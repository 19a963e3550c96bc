// Any bytes as a file of house rules, of line breaks and of cleaning data; with rules that are read a caption is
// checked, mended, broken anew and cleaned.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "check/fixes.h"
#include "check/house_rules.h"
#include "core/app_options.h"
#include "fuzz/engine.h"
#include "tools/cleaning_data.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

/// Captions with a fault of each kind.
std::vector<Caption> FaultyCaptions() {
  return {{0, 0, u"never timed"},
          {1000, 1200, u"Nobody leaves this house|until the storm has passed of|the night"},
          {1100, 900000, u"- Yes.|\u2013 No."},
          {900000, 900000, u"\u6771\u4eac\u306b\u3044\u308b"},
          {2000000000, 2147483647, Text(300, u'x')}};
}

void UseRules(const HouseRules& rules) {
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  list.Replace(1, 1, FaultyCaptions());
  // A house may ask for so many frames that a time has no room for them; then the check says so.
  CarryOn errors;
  errors([&] {
    Checker checker(rules, {}, {1000, 5000});
    const std::vector<Finding> findings = checker.CheckAll(list);
    for (const Finding& finding : findings) {
      Demand(list.InRange(finding.row), "a finding is of a caption");
      Demand(!RuleName(finding.rule).empty(), "a rule has a name");
    }
    Fixer fixer(rules, {});
    CarryOut(list, EditKind::Fix, fixer.ProposeAll(list));
    Demand(checker.CheckAll(list).size() <= findings.size(), "a fix adds no finding");
  });
  LineBreaker breaker(rules);
  for (const Caption& caption : FaultyCaptions()) {
    const Text seen = ReplaceAll(caption.text, u"|", u"\n");
    const Text broken = breaker.Broken(seen);
    Demand(ReplaceAll(ReplaceAll(broken, u"\n", {}), u" ", {}) == ReplaceAll(ReplaceAll(seen, u"\n", {}), u" ", {}),
           "a break changes no letter");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Text text = FromUtf8({reinterpret_cast<const char*>(data), size});
  std::string problem;
  const auto rules = ReadHouseRules(text, problem);
  Demand(rules.has_value() == problem.empty(), "a refusal has its reason");
  const BreakRules breaks = ReadBreakRules(text);
  if (rules) {
    HouseRules withBreaks = *rules;
    withBreaks.breaks = breaks;
    UseRules(withBreaks);
  }
  CleaningData cleaning;
  std::string fault;
  const bool read = AddCleaningData(text, cleaning, fault);
  Demand(read == fault.empty(), "a refusal of cleaning data has its reason");
  return 0;
}
