#pragma once

#include <array>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "core/caption_list.h"
#include "core/counting.h"
#include "core/seen_text.h"
#include "tools/cleaning_data.h"
#include "tools/proposal.h"

namespace cuewright {

/// Which kinds are cleaned.
using CleaningChoice = std::array<bool, kCleaningKinds>;

/// Cleans texts. Marks stay at their places, unless they are what is cleaned.
class Cleaner {
 public:
  /// The data outlives this.
  Cleaner(const CleaningData& data, const CleaningChoice& choice);
  ~Cleaner();

  /// What cleaning these rows changes, in their order.
  std::vector<Proposal> Propose(const CaptionList& list, std::span<const Row> rows);

 private:
  struct Pattern;

  bool Chosen(CleaningKind kind) const { return ItemAt(choice_, kind); }
  void ApplyRules(CleaningKind kind);
  void ApplyQuotes();
  void ApplyWords(const std::unordered_map<Text, Text>& words);
  void ApplySentences(bool begins);
  void DropEmptyLines();
  std::optional<Text> Cleaned(const CaptionList& list, Row row);

  const CleaningData& data_;
  CleaningChoice choice_;
  std::vector<Pattern> patterns_;
  SeenText seen_;
};

}  // namespace cuewright
