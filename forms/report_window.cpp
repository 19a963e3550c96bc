#include "forms/report_window.h"

namespace cuewright {

ReportWindow::ReportWindow(const RuleReport& report, const DocumentState& document, const LangStrings& strings,
                           const Languages& languages, Desktop& desktop, OpenForms& openForms)
    : ToolForm("frmReport", openForms),
      report_(report),
      document_(document),
      strings_(strings),
      languages_(languages),
      desktop_(desktop) {
  optStandard.Clicked.Connect([this] { ShowStandardReport(); });
  optDetailed.Clicked.Connect([this] { ShowDetailedReport(); });
  cmdOK.Clicked.Connect([this] { Close(); });
  lblDefine.Clicked.Connect([this] {
    Close();
    SettingsAsked();
  });
}

void ReportWindow::Load() {
  optStandard.SetValue(true);
  optDetailed.SetValue(false);
  ApplyLanguage(languages_.IsRightToLeft());
}

void ReportWindow::Unload() {
  txtReport.SetText({});
  lblTotal.SetText({});
}

void ReportWindow::ApplyLanguage(bool rightToLeft) {
  SetTitle(strings_[Message::ReportTitle]);
  SetRightToLeft(rightToLeft);
  for (Control* control : std::initializer_list<Control*>{&lblTop, &txtReport, &lblTotal, &optStandard, &optDetailed,
                                                          &lblDefine, &cmdOK}) {
    control->SetRightToLeft(rightToLeft);
  }
  optStandard.SetText(strings_[Message::StandardReport]);
  optDetailed.SetText(strings_[Message::DetailedReport]);
  lblDefine.SetText(strings_[Message::DefineRules]);
  cmdOK.SetText(strings_[Message::Ok]);
  lblTop.SetText(ReportHeading(report_, strings_, document_.HasDocument()));
  if (!txtReport.GetText().empty()) ShowReport(optDetailed.Value() ? ReportForm::Detailed : ReportForm::Standard);
}

void ReportWindow::OnActivated() {
  if (txtReport.GetText().empty()) ShowStandardReport();
}

void ReportWindow::ShowStandardReport() {
  optDetailed.SetValue(false);
  optStandard.SetValue(true);
  ShowReport(ReportForm::Standard);
}

void ReportWindow::ShowDetailedReport() {
  optStandard.SetValue(false);
  optDetailed.SetValue(true);
  ShowReport(ReportForm::Detailed);
}

void ReportWindow::ShowReport(ReportForm form) {
  desktop_.SetBusy(true);
  lblTotal.SetText(strings_[Message::PleaseWait] + u"..");
  txtReport.SetText(ReportTotals(report_));
  RepaintRequested();
  txtReport.SetText(ReportText(report_, form));
  lblTotal.SetText(ReportTotal(report_, strings_));
  desktop_.SetBusy(false);
}

}  // namespace cuewright
