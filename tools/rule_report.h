#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/numbers.h"
#include "text/text.h"

namespace cuewright {

/// What a rule found. The number is printed in the report.
enum class RuleKind : std::uint8_t {
  TooManyLines = 1,
  Collision = 2,
  DurationOutsideRange = 3,
  NegativeDuration = 4,
  Credit = 5,
};

/// The message that says of a change that it would be made, for one that says that it was made; the message itself
/// where the same words serve both.
Message WouldBe(Message message);

/// The log of the correction rules: a detailed and a one-line text for each entry, and a counter for each sort.
class RuleReport {
 public:
  explicit RuleReport(const LangStrings& strings) : strings_(strings) {}

  /// Logs what a rule did to the caption with this text; `value` is in ms, `applied` tells whether it was
  /// corrected. A collision of less than 50 ms is left out. Run-time error 6 when a counter is full; the texts
  /// are there by then.
  void AddRuleEntry(Row row, TextView text, RuleKind kind, std::int32_t value, bool applied);

  /// Empties the log. Until the next time it keeps the words of the language in force.
  void ResetRuleReport();

  /// Tells that the rules changed nothing: the report then says what would change.
  void SetOnlyLooked() { onlyLooked_ = true; }
  bool OnlyLooked() const { return onlyLooked_; }

  /// A message in the words of the report.
  const Text& Word(Message message) const;

  std::int32_t RuleEntryCount() const { return entryCount_; }

  /// The texts of the entry at a place from 0, in the language in which the log was begun; a detailed one holds CR LF
  /// between its lines and none at its end.
  Text Detailed(std::size_t at) const;
  Text OneLine(std::size_t at) const;
  /// How many entries have texts: one more than `RuleEntryCount` for each that met a full counter.
  std::size_t Size() const { return entries_.size(); }

  std::int16_t LinesSplit() const { return linesSplit_; }
  std::int16_t Collisions() const { return collisions_; }
  std::int16_t DurationsOutsideRange() const { return durationsOutsideRange_; }
  std::int16_t LinesRemoved() const { return linesRemoved_; }

 private:
  /// Texts are made when they are read, since a pass logs more entries than anybody looks at.
  struct Entry {
    Row row = 0;
    Text text;
    RuleKind kind = RuleKind::TooManyLines;
    std::int32_t value = 0;
    bool applied = false;
  };
  struct Texts {
    Text detailed;
    Text oneLine;
  };
  Texts Describe(const Entry& entry) const;
  Texts DescribeDuration(const Entry& entry) const;
  Checked16& Counter(RuleKind kind);

  const LangStrings& strings_;
  std::map<Message, Text> words_;
  bool onlyLooked_ = false;
  std::int32_t entryCount_ = 0;
  std::vector<Entry> entries_;
  Checked16 linesSplit_;
  Checked16 collisions_;
  Checked16 durationsOutsideRange_;
  Checked16 linesRemoved_;
};

}  // namespace cuewright
