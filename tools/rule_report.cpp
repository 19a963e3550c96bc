#include "tools/rule_report.h"

#include <cstdlib>

namespace cuewright {
namespace {

/// A smaller overlap is nothing that a viewer could notice.
constexpr std::int32_t kLeastLoggedCollision = 50;

}  // namespace

void RuleReport::AddRuleEntry(Row row, TextView text, RuleKind kind, std::int32_t value, bool applied) {
  if (kind == RuleKind::Collision && value < kLeastLoggedCollision) return;
  entries_.push_back({row, Text(text), kind, value, applied});
  ++Counter(kind);
  ++entryCount_;
}

void RuleReport::ResetRuleReport() {
  entries_.clear();
  entryCount_ = 0;
  linesSplit_ = collisions_ = durationsOutsideRange_ = linesRemoved_ = Checked16();
}

Text RuleReport::Detailed(std::size_t at) const {
  const Entry& entry = entries_[at];
  Text text = Fill(strings_[228], Decimal(static_cast<int>(entry.kind))) + u" [" + Decimal(entry.row) + u"]";
  text.append(kLineEnd).append(strings_[229]).append(u"\"").append(entry.text).append(u"\"").append(kLineEnd);
  return text.append(Describe(entry).detailed);
}

Text RuleReport::OneLine(std::size_t at) const { return Describe(entries_[at]).oneLine; }

RuleReport::Texts RuleReport::Describe(const Entry& entry) const {
  const Text row = Decimal(entry.row);
  const Text ms = Decimal(entry.value);
  const auto lines = [&](std::size_t finding, const Text& action) {
    return strings_[finding] + Text(kLineEnd) + action;
  };
  switch (entry.kind) {
    case RuleKind::TooManyLines:
      return {lines(233, strings_[234]), Fill(strings_[235], row)};
    case RuleKind::Collision:
      if (!entry.applied) return {lines(236, strings_[239]), Fill(strings_[240], row)};
      return {lines(236, Fill(strings_[237], ms)), Fill(strings_[238], row, ms)};
    case RuleKind::DurationOutsideRange:
      return DescribeDuration(entry);
    case RuleKind::NegativeDuration:
      return {lines(266, Fill(strings_[267], ms)), Fill(strings_[268], row, ms)};
    case RuleKind::Credit:
      return {lines(230, strings_[231]), Fill(strings_[232], row)};
  }
  return {};
}

RuleReport::Texts RuleReport::DescribeDuration(const Entry& entry) const {
  const Text finding = strings_[241] + Text(kLineEnd);
  if (!entry.applied) return {finding + strings_[239], {}};
  const Text row = Decimal(entry.row);
  const Text ms = Decimal(entry.value);
  if (entry.value >= 1) return {finding + Fill(strings_[242], ms), Fill(strings_[243], row, ms)};
  // The sentence tells how much went; the one-line text bears the value with its sign.
  const Text reduction = Decimal(std::llabs(static_cast<long long>(entry.value)));
  return {finding + Fill(strings_[244], reduction), Fill(strings_[245], row, ms)};
}

Checked16& RuleReport::Counter(RuleKind kind) {
  switch (kind) {
    case RuleKind::TooManyLines:
      return linesSplit_;
    case RuleKind::Collision:
      return collisions_;
    case RuleKind::Credit:
      return linesRemoved_;
    case RuleKind::DurationOutsideRange:
    case RuleKind::NegativeDuration:
      break;
  }
  return durationsOutsideRange_;
}

}  // namespace cuewright
