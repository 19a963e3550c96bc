#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "core/caption_list.h"
#include "core/runtime_error.h"
#include "text/text.h"
#include "tools/rule_report.h"

namespace cuewright {

/// Is told when a step of a pass failed.
inline constexpr TextView kRulesFailed = u"Error while applying rules. Please check the report for details.";

/// The rules that keep a subtitle fit to read, for one row and for the whole list.
class RulesEngine {
 public:
  /// Called every 25 rows of a pass with the row that is next, so that the caller can show it and handle events.
  using Progress = std::function<void(Row)>;

  RulesEngine(CaptionList& list, RuleReport& report) : list_(list), report_(report), options_(list.Options()) {}

  /// Runs every rule that is switched on over all captions, as one step of undo, with a new report. A step that fails
  /// is broken off and the pass goes on; returns the last failure.
  [[nodiscard]] std::optional<RuntimeError> ApplyRules(const Progress& progress = {});

  /// Moves a start (`startHint` in ms; 0 takes the row's own and stores it there) that lies before the end of
  /// the row above to that end, when the rule is on, and logs it either way.
  void CheckCollision(Row row, Ms& startHint);

  /// Logs a duration that is outside the range for the caption's length, and corrects it with `fix`. One of
  /// 0 ms or less is always corrected. Run-time error 6 when the best duration doesn't fit 16 bits.
  void CheckCaptionDuration(Row row, bool fix);

  /// Gives a caption the end that suits its length, and logs that with `report`. Run-time error 6 when the best
  /// duration doesn't fit 16 bits.
  void SetBestDuration(Row row, bool report);

 private:
  void CheckRow(Row& row);
  void SplitLines(Row row);
  void CheckTiming(Row row);
  void RemoveCredit(Row& row);

  CaptionList& list_;
  RuleReport& report_;
  const AppOptions& options_;
  LooseNeedles credits_;  ///< words that mark a line to be removed; filled by each pass that removes credits
  CarryOn step_;
};

}  // namespace cuewright
