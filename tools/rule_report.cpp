#include "tools/rule_report.h"

#include <cstdlib>
#include <utility>

namespace cuewright {
namespace {

/// A smaller overlap is nothing that a viewer could notice.
constexpr Ms kLeastLoggedCollision = 50;

/// What tells of a change that was made, and what tells of the same change when it would be made.
constexpr std::pair<Message, Message> kWouldBe[] = {
    {Message::ErrorsFound, Message::ErrorsWouldChange},
    {Message::LinesSplit, Message::LinesWouldSplit},
    {Message::LinesRemoved, Message::LinesWouldGo},
    {Message::LineDeleted, Message::WouldDeleteLine},
    {Message::CreditShort, Message::CreditWouldShort},
    {Message::CaptionSplit, Message::WouldSplit},
    {Message::MoreThanTwoLinesShort, Message::MoreThanTwoLinesWouldShort},
    {Message::AppearTimeIncreased, Message::WouldIncreaseAppearTime},
    {Message::CollisionShort, Message::CollisionWouldShort},
    {Message::DurationIncreased, Message::WouldIncreaseDuration},
    {Message::DurationIncreasedShort, Message::DurationWouldIncreaseShort},
    {Message::DurationReduced, Message::WouldReduceDuration},
    {Message::DurationReducedShort, Message::DurationWouldReduceShort},
    {Message::DurationSet, Message::WouldSetDuration},
    {Message::NegativeDurationShort, Message::NegativeDurationWouldShort}};

/// The first and the last message that a report is made of.
constexpr Message kFirstWord = Message::NoErrorsIdentified;
constexpr Message kLastWord = Message::NegativeDurationShort;

}  // namespace

Message WouldBe(Message message) {
  for (const auto& [done, would] : kWouldBe) {
    if (done == message) return would;
  }
  return message;
}

const Text& RuleReport::Word(Message message) const {
  const Message shown = onlyLooked_ ? WouldBe(message) : message;
  const auto at = words_.find(shown);
  // An empty log needs no language.
  return at == words_.end() || entries_.empty() ? strings_[shown] : at->second;
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
  for (auto id = static_cast<std::size_t>(kFirstWord); id <= static_cast<std::size_t>(kLastWord); ++id) {
    words_[NumberedMessage(id)] = strings_[NumberedMessage(id)];
  }
  for (const auto& [done, would] : kWouldBe) words_[would] = strings_[would];
}

Text RuleReport::Detailed(std::size_t at) const {
  const Entry& entry = entries_[at];
  Text text = Fill(Word(Message::ErrorInCaption), Decimal(static_cast<int>(entry.kind))) + u" [" +
              Decimal(entry.row.Number()) + u"]";
  text.append(kLineEnd)
      .append(Word(Message::DetailText))
      .append(u"\"")
      .append(entry.text)
      .append(u"\"")
      .append(kLineEnd);
  return text.append(Describe(entry).detailed);
}

Text RuleReport::OneLine(std::size_t at) const { return Describe(entries_[at]).oneLine; }

RuleReport::Texts RuleReport::Describe(const Entry& entry) const {
  const Text row = Decimal(entry.row.Number());
  const Text ms = Decimal(entry.value);
  const auto lines = [&](Message finding, const Text& action) { return Word(finding) + Text(kLineEnd) + action; };
  switch (entry.kind) {
    case RuleKind::TooManyLines:
      return {lines(Message::MoreThanTwoLines, Word(Message::CaptionSplit)),
              Fill(Word(Message::MoreThanTwoLinesShort), row)};
    case RuleKind::Collision:
      if (!entry.applied)
        return {lines(Message::CollidesWithPrevious, Word(Message::NoActionTaken)),
                Fill(Word(Message::CollisionIgnoredShort), row)};
      return {lines(Message::CollidesWithPrevious, Fill(Word(Message::AppearTimeIncreased), ms)),
              Fill(Word(Message::CollisionShort), row, ms)};
    case RuleKind::DurationOutsideRange:
      return DescribeDuration(entry);
    case RuleKind::NegativeDuration:
      return {lines(Message::NegativeDuration, Fill(Word(Message::DurationSet), ms)),
              Fill(Word(Message::NegativeDurationShort), row, ms)};
    case RuleKind::Credit:
      return {lines(Message::CreditFound, Word(Message::LineDeleted)), Fill(Word(Message::CreditShort), row)};
  }
  return {};
}

RuleReport::Texts RuleReport::DescribeDuration(const Entry& entry) const {
  const Text finding = Word(Message::DurationOutsideRange) + Text(kLineEnd);
  if (!entry.applied) return {finding + Word(Message::NoActionTaken), {}};
  const Text row = Decimal(entry.row.Number());
  const Text ms = Decimal(entry.value);
  if (entry.value >= 1)
    return {finding + Fill(Word(Message::DurationIncreased), ms), Fill(Word(Message::DurationIncreasedShort), row, ms)};
  // The sentence tells how much went; the one-line text bears the value with its sign.
  const Text reduction = Decimal(std::abs(std::int64_t{entry.value}));
  return {finding + Fill(Word(Message::DurationReduced), reduction),
          Fill(Word(Message::DurationReducedShort), row, ms)};
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
