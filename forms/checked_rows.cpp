#include "forms/checked_rows.h"

namespace cuewright {

CheckedRows::CheckedRows(HouseCheck& check, CaptionGrid& grid, const LangStrings& strings)
    : check_(check), strings_(strings) {
  grid.SetFindings(this);
  check_.findings.Changed.Connect([&grid](Row first, int count) {
    if (count > 0) grid.ShowRowsAnew(first, first + count - 1);
  });
}

bool CheckedRows::Any(Row row) const { return !check_.findings.Of(row).empty(); }

Text CheckedRows::Reasons(Row row) const {
  Text reasons;
  for (const Finding& finding : check_.findings.Of(row)) {
    if (!reasons.empty()) reasons += u"\n";
    reasons += FindingWords(finding, strings_);
  }
  return reasons;
}

}  // namespace cuewright
