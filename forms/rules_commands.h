#pragma once

#include <optional>

#include "capture/workbench.h"
#include "forms/document_session.h"
#include "forms/ports.h"
#include "forms/report_window.h"
#include "tools/rule_report.h"
#include "tools/rules_engine.h"

namespace cuewright {

/// Runs the correction rules in the main window: on load, and by the menu.
class RulesCommands {
 public:
  RulesCommands(Workbench bench, RuleReport& report, ReportWindow& reportWindow, DocumentSession& session, Ports ports);

  enum class Telling { Always, Findings };
  /// Runs the rules over the whole list and shows what they found. A pass that found nothing says so unless only
  /// findings are to be told.
  void ApplyRules(Telling telling);
  /// What the rules do with a document that has just been loaded: they only look, or they change it where the user lets
  /// them, and always in the classic manner.
  void OnLoad();

  Signal<RulesCommands, int> Found;    ///< the rules looked, and have so many findings
  Signal<RulesCommands, int> Changed;  ///< the rules ran, and changed or removed so many captions

 private:
  void Look();
  void ShowReportAnew();
  std::optional<RuntimeError> Pass();
  void ShowProgress(Row row);
  void SetBusy(bool on);

  Workbench bench_;
  RuleReport& report_;
  ReportWindow& reportWindow_;
  DocumentSession& session_;
  Ports ports_;
  RulesEngine engine_;
};

}  // namespace cuewright
