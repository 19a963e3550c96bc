#include "forms/rules_commands.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

#include "core/numbers.h"

namespace cuewright {
namespace {

/// Counts, while it lives, the captions that change or go.
class ChangeCount {
 public:
  explicit ChangeCount(CaptionList& list) : changed_(list.Count(), false) {
    spliced_ = list.Spliced.ConnectScoped([this](const Splice& splice) { Note(splice); });
  }

  int Captions() const { return Checked32(std::count(changed_.begin(), changed_.end(), true) + removed_); }

 private:
  void Note(const Splice& splice) {
    const auto first = changed_.begin() + (splice.first - 1).Number();
    if (splice.removed == splice.added) {
      std::fill(first, first + splice.removed, true);
      return;
    }
    removed_ += splice.removed;
    changed_.erase(first, first + splice.removed);
    changed_.insert(changed_.begin() + (splice.first - 1).Number(), splice.added, false);
  }

  std::vector<bool> changed_;  ///< of each caption
  int removed_ = 0;
  Connection spliced_;
};

}  // namespace

RulesCommands::RulesCommands(Workbench bench, RuleReport& report, ReportWindow& reportWindow, DocumentSession& session,
                             Ports ports)
    : bench_(bench),
      report_(report),
      reportWindow_(reportWindow),
      session_(session),
      ports_(ports),
      engine_(bench.list, report) {
  bench_.window.mnuRules.Clicked.Connect([this] { ApplyRules(Telling::Always); });
  bench_.window.mnuReport.Clicked.Connect([this] { ShowReportAnew(); });
  bench_.window.cmdShowFindings.Clicked.Connect([this] { ShowReportAnew(); });
  bench_.window.cmdApplyFindings.Clicked.Connect([this] { ApplyRules(Telling::Findings); });
  bench_.window.cmdUndoRules.Clicked.Connect([this] { bench_.window.mnuUndo.Click(); });
}

void RulesCommands::ApplyRules(Telling telling) {
  const ChangeCount changes(bench_.list);
  const std::optional<RuntimeError> failure = Pass();
  if (report_.RuleEntryCount() > 0) {
    reportWindow_.Show();
  } else if (telling == Telling::Always) {
    ports_.messages.Show({bench_.strings[Message::AllLinesComply], BoxIcon::Information, BoxButtons::Ok,
                          bench_.strings[Message::ApplyCurrentRules]});
  }
  if (failure) ports_.messages.Show({Text(kRulesFailed), BoxIcon::Warning});
  if (bench_.options.manner.RulesAskOnLoad()) Changed(changes.Captions());
}

std::optional<RuntimeError> RulesCommands::Pass() {
  session_.CloseTools();
  SetBusy(true);
  session_.LeavePreview();
  const bool playing = ports_.player.PlayState() == kPlayerPlaying;
  if (playing) ports_.player.Pause();
  std::optional<RuntimeError> failure = engine_.ApplyRules([this](Row row) { ShowProgress(row); });
  session_.RefreshFileLabels();
  SetBusy(false);
  if (playing) ports_.player.Play();
  return failure;
}

void RulesCommands::ShowProgress(Row row) {
  ports_.events.YieldToPainting();
  bench_.window.lblTextFile.SetText(bench_.strings[Message::CheckingFromCaption] + u" " + Decimal(row.Number()) +
                                    u", " + ToLower(bench_.strings[Message::PleaseWait]));
}

void RulesCommands::SetBusy(bool on) {
  // As in every long operation nothing is drawn of the list meanwhile.
  bench_.list.SetEnabled(!on);
  ports_.desktop.SetBusy(on);
  // The pane and the time boxes hold what the row was before the pass; what is typed there would bring it back.
  if (!on) bench_.list.SetRow(bench_.list.Selected(), false);
}

void RulesCommands::OnLoad() {
  if (bench_.options.manner.RulesAskOnLoad() && !bench_.options.changeOnLoad) {
    Look();
  } else {
    ApplyRules(Telling::Findings);
  }
}

void RulesCommands::Look() {
  bool modified = false;
  CaptionList copy(bench_.options, modified);
  std::vector<Caption> rows;
  rows.reserve(bench_.list.Count());
  for (Row row = 1; row < bench_.list.Rows(); ++row) rows.push_back(bench_.list.At(row));
  copy.Replace(1, 1, std::move(rows));
  // A rule that fails does so again when it is applied, and is told then.
  std::ignore = RulesEngine(copy, report_).ApplyRules();
  report_.SetOnlyLooked();
  if (report_.RuleEntryCount() > 0) Found(report_.RuleEntryCount());
}

void RulesCommands::ShowReportAnew() {
  session_.CloseTools();
  reportWindow_.Show();
}

}  // namespace cuewright
