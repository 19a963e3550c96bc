#pragma once

#include <functional>

#include "core/document.h"
#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "form/controls.h"
#include "forms/tool_form.h"
#include "settings/languages.h"
#include "tools/report_text.h"
#include "tools/rule_report.h"

namespace cuewright {

/// The window `frmReport`, which shows what the correction rules found.
class ReportWindow final : public ToolForm {
 public:
  ReportWindow(const RuleReport& report, const DocumentState& document, const LangStrings& strings,
               const Languages& languages, Desktop& desktop, OpenForms& openForms);

  Picture imgDrag{*this, "imgDrag"};
  Label lblTop{*this, "lblTop"};
  TextBox txtReport{*this, "txtReport"};
  Label lblTotal{*this, "lblTotal"};
  OptionButton optStandard{*this, "optStandard"};
  OptionButton optDetailed{*this, "optDetailed"};
  Label lblDefine{*this, "lblDefine"};
  Button cmdOK{*this, "cmdOK"};

  /// Rebuilds the text and the total: a line an entry, or all that is told of each.
  void ShowStandardReport();
  void ShowDetailedReport();

  void OnActivated() override;
  void ApplyLanguage(bool rightToLeft) override;

  Signal<ReportWindow> SettingsAsked;     ///< the user wants to define the rules; the window has closed
  Signal<ReportWindow> RepaintRequested;  ///< what the controls hold is to be seen at once

 private:
  void Load() override;
  void Unload() override;
  void ShowReport(ReportForm form);

  const RuleReport& report_;
  const DocumentState& document_;
  const LangStrings& strings_;
  const Languages& languages_;
  Desktop& desktop_;
};

}  // namespace cuewright
