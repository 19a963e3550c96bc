#include "tools/report_text.h"

namespace cuewright {
namespace {

constexpr TextView kBetweenEntries = u"\r\n---\r\n";

}  // namespace

Text ReportHeading(const RuleReport& report, const LangStrings& strings, bool open) {
  if (!open) return strings[Message::NoSubtitleLoaded];
  const int found = report.LinesSplit() + report.Collisions() + report.DurationsOutsideRange() + report.LinesRemoved();
  return found > 0 ? strings[report.OnlyLooked() ? WouldBe(Message::ErrorsFound) : Message::ErrorsFound]
                   : strings[Message::NoErrorsIdentified];
}

Text ReportTotals(const RuleReport& report) {
  Text text;
  const auto line = [&](Message message, int count) {
    text.append(Fill(report.Word(message), Decimal(count))).append(kLineEnd);
  };
  line(Message::LinesSplit, report.LinesSplit());
  line(Message::CaptionCollisions, report.Collisions());
  line(Message::DurationsOutsideRange, report.DurationsOutsideRange());
  line(Message::LinesRemoved, report.LinesRemoved());
  return text.append(kLineEnd);
}

Text ReportText(const RuleReport& report, ReportForm form) {
  Text text = ReportTotals(report);
  for (std::size_t at = 0; at < report.Size(); ++at) {
    if (form == ReportForm::Detailed) {
      text.append(report.Detailed(at)).append(kBetweenEntries);
    } else {
      text.append(report.OneLine(at)).append(kLineEnd);
    }
  }
  return text;
}

Text ReportTotal(const RuleReport& report, const LangStrings& strings) {
  return Fill(strings[Message::TotalErrors], Decimal(report.RuleEntryCount()));
}

}  // namespace cuewright
