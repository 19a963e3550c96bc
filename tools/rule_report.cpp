#include "tools/rule_report.h"

#include <cstdlib>
#include <utility>

namespace cuewright {
namespace {

/// A smaller overlap is nothing that a viewer could notice.
constexpr std::int32_t kLeastLoggedCollision = 50;

/// What tells of a change that was made, and what tells of the same change when it would be made.
constexpr std::pair<std::size_t, std::size_t> kWouldBe[] = {
    {187, 1016}, {225, 1017}, {224, 1018}, {231, 1019}, {232, 1020}, {234, 1021}, {235, 1022}, {237, 1023},
    {238, 1024}, {242, 1025}, {243, 1026}, {244, 1027}, {245, 1028}, {267, 1029}, {268, 1030}};

/// The first and the last message that a report is made of.
constexpr std::size_t kFirstWord = 186;
constexpr std::size_t kLastWord = 268;

}  // namespace

std::size_t WouldBe(std::size_t message) {
  for (const auto& [done, would] : kWouldBe) {
    if (done == message) return would;
  }
  return message;
}

const Text& RuleReport::Word(std::size_t message) const {
  const std::size_t id = onlyLooked_ ? WouldBe(message) : message;
  const auto at = words_.find(id);
  // A log of nothing has no language.
  return at == words_.end() || entries_.empty() ? strings_[id] : at->second;
}

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
  onlyLooked_ = false;
  words_.clear();
  for (std::size_t id = kFirstWord; id <= kLastWord; ++id) words_[id] = strings_[id];
  for (const auto& [done, would] : kWouldBe) words_[would] = strings_[would];
}

Text RuleReport::Detailed(std::size_t at) const {
  const Entry& entry = entries_[at];
  Text text = Fill(Word(228), Decimal(static_cast<int>(entry.kind))) + u" [" + Decimal(entry.row) + u"]";
  text.append(kLineEnd).append(Word(229)).append(u"\"").append(entry.text).append(u"\"").append(kLineEnd);
  return text.append(Describe(entry).detailed);
}

Text RuleReport::OneLine(std::size_t at) const { return Describe(entries_[at]).oneLine; }

RuleReport::Texts RuleReport::Describe(const Entry& entry) const {
  const Text row = Decimal(entry.row);
  const Text ms = Decimal(entry.value);
  const auto lines = [&](std::size_t finding, const Text& action) { return Word(finding) + Text(kLineEnd) + action; };
  switch (entry.kind) {
    case RuleKind::TooManyLines:
      return {lines(233, Word(234)), Fill(Word(235), row)};
    case RuleKind::Collision:
      if (!entry.applied) return {lines(236, Word(239)), Fill(Word(240), row)};
      return {lines(236, Fill(Word(237), ms)), Fill(Word(238), row, ms)};
    case RuleKind::DurationOutsideRange:
      return DescribeDuration(entry);
    case RuleKind::NegativeDuration:
      return {lines(266, Fill(Word(267), ms)), Fill(Word(268), row, ms)};
    case RuleKind::Credit:
      return {lines(230, Word(231)), Fill(Word(232), row)};
  }
  return {};
}

RuleReport::Texts RuleReport::DescribeDuration(const Entry& entry) const {
  const Text finding = Word(241) + Text(kLineEnd);
  if (!entry.applied) return {finding + Word(239), {}};
  const Text row = Decimal(entry.row);
  const Text ms = Decimal(entry.value);
  if (entry.value >= 1) return {finding + Fill(Word(242), ms), Fill(Word(243), row, ms)};
  // The sentence tells how much went; the one-line text bears the value with its sign.
  const Text reduction = Decimal(std::llabs(static_cast<long long>(entry.value)));
  return {finding + Fill(Word(244), reduction), Fill(Word(245), row, ms)};
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
