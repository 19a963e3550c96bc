#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "capture/main_window.h"
#include "capture/timing_capture.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "forms/open_forms.h"
#include "forms/ports.h"
#include "forms/report_window.h"
#include "tools/rule_report.h"
#include "tools/rules_engine.h"

namespace cuewright {

/// Runs the correction rules in the main window: on load, and by the menu.
class RulesCommands final : private RulesHost {
 public:
  RulesCommands(MainWindow& window, CaptionList& list, TimingCapture& capture, RuleReport& report,
                ReportWindow& reportWindow, const LangStrings& strings, OpenForms& openForms, Ports ports);

  /// Runs the rules over the whole list. With `quiet` a pass that found nothing says nothing.
  void ApplyRules(bool quiet);
  /// What the rules do with a document that has just been loaded: they only look, or they change it where the user lets
  /// them, and always in the classic manner.
  void OnLoad();

  Signal<int> Found;    ///< the rules looked, and have so many findings
  Signal<int> Changed;  ///< the rules ran, and changed or removed so many captions

  std::function<void()> refreshFileLabels;  ///< set by the owner of the windows

 private:
  void ShowReportAnew();
  void Look();
  void NoteChange(const Splice& splice);

  void CloseToolWindows() override;
  void SetBusy(bool on) override;
  void Yield() override;
  void ShowProgress(TextView text) override;
  void RefreshFileLabels() override;
  void LeavePreviewMode() override;
  bool PausePlayer() override;
  void ResumePlayer() override;
  void ShowReport() override;

  MainWindow& window_;
  CaptionList& list_;
  TimingCapture& capture_;
  ReportWindow& reportWindow_;
  OpenForms& openForms_;
  Ports ports_;
  RuleReport& report_;
  const LangStrings& strings_;
  RulesEngine engine_;
  /// While the rules run: of each row, whether it was changed; the number of those that were removed.
  std::optional<std::vector<bool>> changed_;
  int removed_ = 0;
};

}  // namespace cuewright
