#pragma once

#include "core/lang_strings.h"
#include "text/text.h"
#include "tools/rule_report.h"

namespace cuewright {

/// How much a report tells of each entry: one line, or all.
enum class ReportForm { Standard, Detailed };

/// The sentence at the head of a report. `open` tells whether there is a document.
Text ReportHeading(const RuleReport& report, const LangStrings& strings, bool open);

/// The counters, each on a line of its own, and an empty line; lines end in CR LF.
Text ReportTotals(const RuleReport& report);

/// The counters and every entry in the order of logging.
Text ReportText(const RuleReport& report, ReportForm form);

/// The line that tells how many entries there are.
Text ReportTotal(const RuleReport& report, const LangStrings& strings);

}  // namespace cuewright
