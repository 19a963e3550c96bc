#include "check/live_findings.h"

#include <algorithm>
#include <utility>

namespace cuewright {

LiveFindings::LiveFindings(CaptionList& list) : list_(list), checker_(std::make_unique<Checker>(rules_, rate_)) {
  Forget();
  list_.Spliced.Connect([this](const Splice& splice) { OnSplice(splice); });
}

void LiveFindings::SetRules(HouseRules rules, const FrameRate& rate, std::vector<Ms> shots) {
  rules_ = std::move(rules);
  rate_ = rate;
  checker_ = std::make_unique<Checker>(rules_, rate_, std::move(shots));
  Forget();
  Changed(1, list_.Count());
}

void LiveFindings::Forget() { rows_.assign(list_.Count(), std::nullopt); }

void LiveFindings::OnSplice(const Splice& splice) {
  const auto first = rows_.begin() + (splice.first - 1).Number();
  if (splice.removed == splice.added) {
    std::fill(first, first + splice.added, std::nullopt);
  } else {
    rows_.erase(first, first + splice.removed);
    rows_.insert(rows_.begin() + (splice.first - 1).Number(), splice.added, std::nullopt);
  }
  // Findings of a caption depend on the one before it; the one behind it only bounds what is proposed.
  const Row from = std::max<Row>(splice.first - 1, 1);
  const Row to = std::min(splice.first + splice.added, list_.Rows() - 1);
  for (Row row = from; row <= to; ++row) rows_[row.Index()].reset();
  Changed(from, to - from + 1);
}

const std::vector<Finding>& LiveFindings::Of(Row row) {
  // While the list announces a change, others may ask for findings before this has heard of it.
  if (!list_.InRange(row) || row.Index() >= rows_.size()) return nothing_;
  std::optional<std::vector<Finding>>& findings = rows_[row.Index()];
  if (!findings) checker_->CheckRow(list_, row, findings.emplace());
  // Rows may have been added or removed above it since it was checked.
  for (Finding& finding : *findings) finding.row = row;
  return *findings;
}

std::vector<Finding> LiveFindings::All() {
  std::vector<Finding> all;
  for (Row row = 1; row < list_.Rows(); ++row) {
    const std::vector<Finding>& findings = Of(row);
    all.insert(all.end(), findings.begin(), findings.end());
  }
  return all;
}

Row LiveFindings::Next(Row row) {
  const int count = list_.Count();
  for (int step = 1; step <= count; ++step) {
    const Row at = (row.Number() + step - 1) % count + 1;
    if (!Of(at).empty()) return at;
  }
  return 0;
}

}  // namespace cuewright
