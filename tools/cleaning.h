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

/// The kinds of cleaning that are switched on.
using CleaningChoice = std::array<bool, kCleaningKinds>;

/// Cleans texts. Marks stay at their places, unless they are what is cleaned.
class Cleaner {
 public:
  /// The data must outlive this.
  Cleaner(const CleaningData& data, const CleaningChoice& choice);
  ~Cleaner();

  /// The changes that cleaning these rows would make, in the order of the rows.
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
