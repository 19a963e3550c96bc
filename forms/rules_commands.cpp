#include "forms/rules_commands.h"

#include <algorithm>
#include <utility>

namespace cuewright {
namespace {

/// The window of rules that only look: they work on a copy, and nothing of it is seen.
class NoWindow final : public RulesHost {
  void CloseToolWindows() override {}
  void SetBusy(bool) override {}
  void Yield() override {}
  void ShowProgress(TextView) override {}
  void RefreshFileLabels() override {}
  void LeavePreviewMode() override {}
  bool PausePlayer() override { return false; }
  void ResumePlayer() override {}
  void ShowReport() override {}
};

/// A rule that fails would do so when it is applied, and is told then.
class NoBoxes final : public Messages {
  BoxAnswer Show(const MessageBox&) override { return BoxAnswer::Ok; }
  Text Ask(const InputBox&) override { return {}; }
};

}  // namespace

RulesCommands::RulesCommands(MainWindow& window, CaptionList& list, TimingCapture& capture, RuleReport& report,
                             ReportWindow& reportWindow, const LangStrings& strings, OpenForms& openForms, Ports ports)
    : window_(window),
      list_(list),
      capture_(capture),
      reportWindow_(reportWindow),
      openForms_(openForms),
      ports_(ports),
      report_(report),
      strings_(strings),
      engine_(list, report, strings, ports_.messages, *this) {
  window_.mnuRules.Clicked.Connect([this] { ApplyRules(false); });
  window_.mnuReport.Clicked.Connect([this] { ShowReportAnew(); });
  window_.cmdShowFindings.Clicked.Connect([this] { ShowReportAnew(); });
  window_.cmdApplyFindings.Clicked.Connect([this] { ApplyRules(true); });
  window_.cmdUndoRules.Clicked.Connect([this] { window_.mnuUndo.Click(); });
  list_.Spliced.Connect([this](const Splice& splice) { NoteChange(splice); });
}

void RulesCommands::ApplyRules(bool quiet) {
  changed_.emplace(static_cast<std::size_t>(list_.Rows()), false);
  removed_ = 0;
  engine_.ApplyRules(quiet);
  const auto changed = static_cast<int>(std::count(changed_->begin(), changed_->end(), true)) + removed_;
  changed_.reset();
  if (list_.Options().manner.RulesAskOnLoad()) Changed(changed);
}

void RulesCommands::NoteChange(const Splice& splice) {
  if (!changed_) return;
  const auto first = changed_->begin() + splice.first;
  if (splice.removed == splice.added) {
    std::fill(first, first + splice.removed, true);
    return;
  }
  removed_ += splice.removed;
  changed_->erase(first, first + splice.removed);
  changed_->insert(changed_->begin() + splice.first, static_cast<std::size_t>(splice.added), false);
}

void RulesCommands::OnLoad() {
  if (list_.Options().manner.RulesAskOnLoad() && !list_.Options().changeOnLoad) {
    Look();
  } else {
    ApplyRules(true);
  }
}

void RulesCommands::Look() {
  bool modified = false;
  CaptionList copy(list_.Options(), modified);
  std::vector<Caption> rows;
  rows.reserve(static_cast<std::size_t>(list_.Rows()));
  for (Row row = 1; row < list_.Rows(); ++row) rows.push_back(list_.At(row));
  copy.Replace(1, 1, std::move(rows));
  NoWindow window;
  NoBoxes boxes;
  RulesEngine(copy, report_, strings_, boxes, window).ApplyRules(true);
  report_.SetOnlyLooked();
  if (report_.RuleEntryCount() > 0) Found(report_.RuleEntryCount());
}

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
