#include "tools/proposal.h"

#include <numeric>
#include <utility>

#include "core/counting.h"

namespace cuewright {

int CarryOut(CaptionList& list, EditKind kind, std::span<const Proposal> proposals) {
  if (proposals.empty()) return 0;
  const Row first = proposals.front().row;
  const Row last = proposals.back().row;
  std::vector<Caption> rows;
  rows.reserve(last - first + 1);
  auto next = proposals.begin();
  for (Row row = first; row <= last; ++row) {
    if (row != next->row) {
      rows.push_back(list.At(row));
      continue;
    }
    if (next->after) rows.push_back(*next->after);
    ++next;
  }
  // There is always a last, empty row.
  if (rows.empty() && last - first + 1 == list.Rows() - 1) rows.emplace_back();
  const EditScope scope(list, kind);
  list.Replace(first, last - first + 1, std::move(rows));
  list.SetModified();
  return CountOf(proposals);
}

std::vector<Row> AllRows(const CaptionList& list) {
  std::vector<Row> rows(list.Count());
  std::iota(rows.begin(), rows.end(), 1);
  return rows;
}

}  // namespace cuewright
