#include "forms/retakes.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"

namespace cuewright {
namespace {

/// What is heard before the caption that is taken again.
constexpr Ms kLeadMs = 2000;

/// How far a retake goes back.
struct Step {
  int captions = 0;
  int seconds = 0;
};
constexpr std::array kSteps = {Step{1, 0}, Step{2, 0}, Step{3, 0}, Step{0, 5}, Step{0, 10}};

}  // namespace

Retakes::Retakes(Workbench bench, Player& player, TimingCapture& capture, Preview& preview, Notices& notices)
    : bench_(bench), player_(player), capture_(capture), preview_(preview), notices_(notices) {
  MainWindow& w = bench_.window;
  w.mnuRetake.Clicked.Connect([this] { Retake(); });
  w.mnuTakeBefore.Clicked.Connect([this] { TakeBefore(); });
  for (std::size_t i = 0; i < w.mnuRetakeStep.size(); ++i) {
    w.mnuRetakeStep[i].Clicked.Connect([this, i] {
      bench_.options.retakeStep = Checked8(i);
      ShowItems();
    });
  }
  bench_.list.Spliced.Connect([this](const Splice& splice) { OnSplice(splice); });
}

void Retakes::ShowItems() {
  MainWindow& w = bench_.window;
  const bool workbench = bench_.options.manner.FilmIsAWorkbench();
  const bool both = bench_.document.HasDocument() && bench_.document.HasVideo();
  for (MenuItem* item : {&w.mnuRetake, &w.mnuTakeBefore, &w.mnuRetakeSteps}) item->SetVisible(workbench);
  w.mnuRetake.SetEnabled(both);
  w.mnuTakeBefore.SetEnabled(bench_.document.HasDocument());
  for (std::size_t i = 0; i < kSteps.size(); ++i) {
    const Step& step = kSteps.at(i);
    MenuItem& item = w.mnuRetakeStep.at(i);
    item.SetText(step.captions > 0 ? bench_.strings.Counted(Message::StatusCaptions, u"%1", step.captions)
                                   : bench_.strings.Counted(Message::CountedSeconds, u"%1", step.seconds));
    item.SetChecked(i == bench_.options.retakeStep);
  }
}

Row Retakes::FirstBefore(Row end) const {
  const CaptionList& list = bench_.list;
  const Step step = kSteps.at(std::min<std::size_t>(bench_.options.retakeStep, kSteps.size() - 1));
  Row first = 0;
  Ms from = 0;  // the time that is gone back to
  for (Row row = end - 1; row >= 1 && list.IsCaptionTimed(row); --row) {
    const CaptionTimes times = list.TimesAt(row);
    if (first == 0) from = times.end - step.seconds * 1000;
    if (first != 0 && (step.captions > 0 ? end - row > step.captions : times.end <= from)) break;
    first = row;
  }
  return first;
}

void Retakes::Retake() {
  CaptionList& list = bench_.list;
  if (!bench_.document.HasDocument() || !bench_.document.HasVideo() || !player_.Enabled()) return;
  capture_.AbandonCapture();
  const Row selected = list.Selected();
  // After the last caption the selection stays where it is.
  const bool atEnd = selected == list.Rows() - 1 && list.IsCaptionTimed(selected);
  const Row end = atEnd ? selected + 1 : selected;
  const Row first = FirstBefore(end);
  if (first == 0) return notices_.Tell(Message::NothingToRetake);
  if (takes_.size() < end.Index()) takes_.resize(end.Index());
  for (Row row = first; row < end; ++row) {
    std::vector<CaptionTimes>& takes = takes_[row.Index()];
    if (takes.empty() || takes.back() != list.TimesAt(row)) takes.push_back(list.TimesAt(row));
  }
  if (capture_.Mode() == CaptionMode::Preview) capture_.SelectMode(CaptionMode::PressAndHold);
  // What was captured last doesn't lie right before this row.
  capture_.ForgetPriorEnd();
  list.MoveSelection(first);
  player_.SetCurrentPosition(std::max<Ms>(list.TimesAt(first).start - kLeadMs, 0).Seconds());
  player_.Play();
}

void Retakes::TakeBefore() {
  CaptionList& list = bench_.list;
  const Row row = list.Selected();
  if (!list.InRange(row) || capture_.Capturing()) return;
  const auto index = row.Index();
  if (index >= takes_.size() || takes_[index].empty()) return notices_.Tell(Message::NoTakeBefore);
  const CaptionTimes now = list.TimesAt(row);
  std::vector<CaptionTimes>& takes = takes_[index];
  // Until the caption is held anew, its times are those of its last take.
  if (takes.back() == now) std::rotate(takes.begin(), takes.end() - 1, takes.end());
  CaptionTimes take = takes.back();
  if (take == now) return notices_.Tell(Message::NoTakeBefore);
  takes.pop_back();
  // Takes are cycled through: the one in the list goes to the end of the queue.
  if (list.IsCaptionTimed(row)) takes.insert(takes.begin(), now);
  {
    const EditScope scope(list, EditKind::SetTimes);
    list.Retime(row, {&take, 1});
    list.SetModified();
  }
  preview_.Redraw(row);
}

void Retakes::OnSplice(const Splice& splice) {
  const auto first = splice.first.Index();
  if (splice.TimesOnly() || splice.removed == splice.added || first >= takes_.size()) return;
  const auto kept = first + std::min(splice.removed, splice.added);
  if (splice.removed > splice.added) {
    const auto from = std::min(kept, takes_.size());
    const auto to = std::min(first + splice.removed, takes_.size());
    takes_.erase(takes_.begin() + from, takes_.begin() + to);
  } else if (kept < takes_.size()) {
    takes_.insert(takes_.begin() + kept, splice.added - splice.removed, std::vector<CaptionTimes>());
  }
}

}  // namespace cuewright
