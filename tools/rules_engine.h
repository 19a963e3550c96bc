#pragma once

#include <cstdint>
#include <vector>

#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "core/runtime_error.h"
#include "text/text.h"
#include "tools/rule_report.h"

namespace cuewright {

/// What a pass of the rules needs of the window that it runs in.
class RulesHost {
 public:
  virtual ~RulesHost() = default;

  /// Closes the windows for finding, replacing and the report, those that are open.
  virtual void CloseToolWindows() = 0;
  virtual void SetBusy(bool on) = 0;

  /// Lets the user interface process its events.
  virtual void Yield() = 0;

  /// Shows a text in place of the file's name.
  virtual void ShowProgress(TextView text) = 0;
  virtual void RefreshFileLabels() = 0;

  /// Leaves the preview mode for press and hold; other modes stay.
  virtual void LeavePreviewMode() = 0;

  /// Pauses a player that is playing; true when it was.
  virtual bool PausePlayer() = 0;
  virtual void ResumePlayer() = 0;

  /// Shows the report's window, without waiting for it.
  virtual void ShowReport() = 0;
};

/// The rules that keep a subtitle fit to read, for one row and for the whole list.
class RulesEngine {
 public:
  RulesEngine(CaptionList& list, RuleReport& report, const LangStrings& strings, Messages& messages, RulesHost& host);

  /// Runs every rule that is switched on over all captions and shows what was found. With `quiet` a pass that
  /// found nothing says nothing. A step that fails is left where it failed; the pass goes on and tells at its end.
  void ApplyRules(bool quiet);

  /// Moves a start (`startHint` in ms; 0 takes the row's own and stores it there) that lies before the end of
  /// the row above to that end, when the rule is on, and logs it either way.
  void CheckCollision(Row row, std::int32_t& startHint);

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
  void ShowProgress(Row row);
  void ShowResult(bool quiet);

  CaptionList& list_;
  RuleReport& report_;
  const LangStrings& strings_;
  Messages& messages_;
  RulesHost& host_;
  const AppOptions& options_;
  LooseNeedles credits_;  ///< what marks a line to remove; filled by each pass that removes any
  CarryOn step_;
};

}  // namespace cuewright
