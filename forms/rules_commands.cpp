#include "forms/rules_commands.h"

namespace cuewright {

RulesCommands::RulesCommands(MainWindow& window, CaptionList& list, TimingCapture& capture, RuleReport& report,
                             ReportWindow& reportWindow, const LangStrings& strings, OpenForms& openForms, Ports ports)
    : window_(window),
      list_(list),
      capture_(capture),
      reportWindow_(reportWindow),
      openForms_(openForms),
      ports_(ports),
      engine_(list, report, strings, ports_.messages, *this) {
  window_.mnuRules.Clicked.Connect([this] { ApplyRules(false); });
  window_.mnuReport.Clicked.Connect([this] { ShowReportAnew(); });
}

void RulesCommands::ApplyRules(bool quiet) { engine_.ApplyRules(quiet); }

void RulesCommands::ShowReportAnew() {
  CloseToolWindows();
  reportWindow_.Show();
}

void RulesCommands::CloseToolWindows() {
  for (const char* name : {"frmFind", "frmReplace", "frmReport"}) openForms_.UnloadForm(name);
}

void RulesCommands::SetBusy(bool on) {
  // As in every long operation nothing is drawn of the list meanwhile.
  list_.SetEnabled(!on);
  ports_.desktop.SetBusy(on);
  // The pane and the time boxes hold what the row was before the pass; what is typed there would bring it back.
  if (!on) list_.SetRow(list_.Selected(), false);
}

void RulesCommands::Yield() { ports_.events.YieldToPainting(); }

void RulesCommands::ShowProgress(TextView text) { window_.lblTextFile.SetText(text); }

void RulesCommands::RefreshFileLabels() { refreshFileLabels(); }

void RulesCommands::LeavePreviewMode() {
  if (capture_.Mode() == CaptionMode::Preview) capture_.SelectMode(CaptionMode::PressAndHold);
}

bool RulesCommands::PausePlayer() {
  const bool playing = ports_.player.PlayState() == kPlayerPlaying;
  if (playing) ports_.player.Pause();
  return playing;
}

void RulesCommands::ResumePlayer() { ports_.player.Play(); }

void RulesCommands::ShowReport() { reportWindow_.Show(); }

}  // namespace cuewright
