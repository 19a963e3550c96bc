#include "tools/rules_engine.h"

#include <algorithm>

#include "core/best_duration.h"
#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr std::size_t kMostCredits = 64;
constexpr int kRowsBetweenTellings = 25;
constexpr int kMarkerLength = 3;

/// The pieces between commas, at most 64: the last one keeps what is left, commas included. Blank ones mark nothing.
std::vector<Text> CreditPieces(TextView list) {
  std::vector<Text> pieces;
  std::size_t comma = list.find(u',');
  while (comma != TextView::npos && pieces.size() + 1 < kMostCredits) {
    pieces.emplace_back(list.substr(0, comma));
    list.remove_prefix(comma + 1);
    comma = list.find(u',');
  }
  pieces.emplace_back(list);
  std::erase_if(pieces, [](const Text& piece) { return IsBlank(piece); });
  return pieces;
}

bool ExceedsTwoLines(TextView text, TextView separator) {
  const std::size_t first = FindPlain(text, separator);
  // The search goes on at the next character, since two separators may overlap.
  return first != TextView::npos && FindPlain(text, separator, first + 1) != TextView::npos;
}

Checked32 DurationOf(const CaptionList& list, Row row) {
  return Checked32(list.GetCaptionEnd(row).Count()) - Checked32(list.GetCaptionStart(row).Count());
}

}  // namespace

std::optional<RuntimeError> RulesEngine::ApplyRules(const Progress& progress) {
  step_.Clear();
  report_.ResetRuleReport();
  if (options_.removeCredits != 0) credits_ = LooseNeedles(CreditPieces(options_.creditWords));
  const EditScope scope(list_, EditKind::Rules);
  // The number of rows is not read again after a deletion; the turns past the end find nothing to do.
  const Row last = list_.Rows() - 1;
  for (Row row = 1; row <= last; ++row) {
    if (progress && row.Number() % kRowsBetweenTellings == 0) step_([&] { progress(row); });
    CheckRow(row);
  }
  return step_.Last();
}

void RulesEngine::CheckRow(Row& row) {
  if (options_.autoSplit != 0) step_([&] { SplitLines(row); });
  if (list_.IsCaptionTimed(row)) CheckTiming(row);
  if (options_.removeCredits != 0) step_([&] { RemoveCredit(row); });
}

void RulesEngine::SplitLines(Row row) {
  if (!list_.InRange(row) || !ExceedsTwoLines(list_.At(row).text, options_.lineSeparator)) return;
  const Text text = list_.GetSeenText(row);
  report_.AddRuleEntry(row, text, RuleKind::TooManyLines, 0, false);
  list_.SetCaptionText(row, list_.WithSeenText(row, list_.SplitCaptionLines(text)));
}

void RulesEngine::CheckTiming(Row row) {
  if (options_.avoidCollision != 0) {
    step_([&] {
      Ms start = 0;
      CheckCollision(row, start);
    });
  }
  if (options_.autoJoin != 0) step_([&] { list_.SnapNearbyStart(row, true); });
  if (options_.limitDuration == 0) return;
  step_([&] { CheckCaptionDuration(row, true); });
  step_([&] {
    if (DurationOf(list_, row) <= 0) SetBestDuration(row, true);
  });
}

void RulesEngine::RemoveCredit(Row& row) {
  if (!list_.InRange(row) || !credits_.AnyIn(list_.At(row).text)) return;
  const Text text = list_.GetSeenText(row);
  if (!credits_.AnyIn(text)) return;
  list_.DeleteCaption(row);
  report_.AddRuleEntry(row, text, RuleKind::Credit, 0, false);
  --row;  // the caption that moved up is next
}

void RulesEngine::CheckCollision(Row row, Ms& startHint) {
  if (!list_.InRange(row) || !list_.IsCaptionTimed(row - 1)) return;
  const Ms previousEnd = list_.GetCaptionEnd(row - 1);
  if (startHint == 0) {
    if (!list_.IsCaptionTimed(row)) return;
    startHint = list_.GetCaptionStart(row);
  }
  if (previousEnd <= startHint) return;
  const bool fix = options_.avoidCollision != 0;
  if (fix) list_.SetCaptionStart(row, previousEnd, false);
  const Checked32 overlap = Checked32(previousEnd.Count()) - Checked32(startHint.Count());
  report_.AddRuleEntry(row, list_.GetSeenText(row), RuleKind::Collision, overlap, fix);
}

void RulesEngine::CheckCaptionDuration(Row row, bool fix) {
  if (!list_.InRange(row)) return;
  const Text text = list_.GetSeenText(row);
  const TextView separator = options_.lineSeparator;
  const Checked32 duration = DurationOf(list_, row);
  Checked16 length(text.size());
  if (duration <= 0) return SetBestDuration(row, true);
  // In the classic manner the markers stand in the text.
  if (!options_.manner.KeepsStylesWithin()) {
    length = length - Checked16(list_.MarkersOf(row).Count() * kMarkerLength);
  }
  if (FindPlain(text, separator) != Text::npos) length = length - Checked16(separator.size());
  if (length < 1) return;
  const std::size_t k = LengthClass(length);
  const double rate = ToReal(duration) / length.Value();
  const int best = options_.durationPerCharacter[k];
  const int tolerance = options_.durationTolerance[k];
  if (rate >= best - tolerance && rate <= best + tolerance) return;
  // The best duration has 16 bits; one that doesn't fit leaves the caption as it is.
  const Checked32 bestDuration((Checked16(best) * length).Value());
  if (fix) list_.SetCaptionEnd(row, (Checked32(list_.GetCaptionStart(row).Count()) + bestDuration).Value());
  report_.AddRuleEntry(row, text, RuleKind::DurationOutsideRange, bestDuration - duration, fix);
}

void RulesEngine::SetBestDuration(Row row, bool report) {
  const auto duration = ::cuewright::SetBestDuration(list_, row);
  if (duration && report) {
    report_.AddRuleEntry(row, list_.GetSeenText(row), RuleKind::NegativeDuration, *duration, false);
  }
}

}  // namespace cuewright
