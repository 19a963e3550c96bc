#include "forms/fit_marks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/counting.h"
#include "core/numbers.h"

namespace cuewright {

namespace {

constexpr Ms kShortest = 150;  ///< ms that a caption is left at least

}  // namespace

Text SignedMs(Ms ms) { return (ms < 0 ? u"-" : u"+") + Decimal(Abs(ms).Count()); }

FitMarks::FitMarks(Workbench bench, Notices& notices) : bench_(bench), notices_(notices) {
  bench_.grid.SetMoves(this);
  bench_.list.Spliced.Connect([this](const Splice& splice) { Follow(splice); });
  bench_.window.mnuTakeFitBack.Clicked.Connect([this] { TakeBack(); });
  bench_.window.mnuNextDoubtful.Clicked.Connect([this] { NextDoubtful(); });
}

void FitMarks::ShowItems() {
  for (MenuItem* item : {&bench_.window.mnuTakeFitBack, &bench_.window.mnuNextDoubtful}) {
    item->SetVisible(bench_.options.manner.FitsToTheVoice());
  }
}

const FitMark* FitMarks::Find(Row row) const {
  const auto at = marks_.find(row);
  return at == marks_.end() ? nullptr : &at->second;
}

bool FitMarks::InForce(Row row, const FitMark& mark) const {
  return !mark.waits && bench_.list.TimesAt(row) == mark.fitted && mark.fitted != mark.held;
}

RowMoves::Kind FitMarks::KindOf(Row row) const {
  const FitMark* mark = Find(row);
  if (mark == nullptr || !InForce(row, *mark)) return Kind::None;
  return mark->Confidence() < kDoubtfulFit && !mark->byConstant ? Kind::Doubtful : Kind::Sure;
}

Text FitMarks::Words(Row row) const {
  const FitMark* mark = Find(row);
  if (mark == nullptr || !InForce(row, *mark)) return {};
  const LangStrings& strings = bench_.strings;
  Text far = Fill(strings[mark->byConstant ? Message::FitByConstant : Message::FitMovedBy],
                  SignedMs(mark->fitted.start - mark->held.start), SignedMs(mark->fitted.end - mark->held.end));
  if (mark->byConstant) return far;
  const Text hundredths = Decimal(std::lround(mark->Confidence() * 100));
  if (mark->fromSound) {
    return Fill(strings[IsDoubtful(row) ? Message::LineFromSoundDoubtful : Message::LineFromSoundSure], hundredths);
  }
  return Fill(strings[IsDoubtful(row) ? Message::FitDoubtful : Message::FitSure], far, hundredths);
}

void FitMarks::Hold(Row row) {
  FitMark mark;
  mark.number = ++holds_;
  mark.byHand = true;
  mark.held = bench_.list.TimesAt(row);
  mark.fitted = mark.held;
  marks_[row] = mark;
}

Row FitMarks::RowOf(std::uint64_t number) const {
  const auto at = std::ranges::find_if(marks_, [&](const auto& each) { return each.second.number == number; });
  return at == marks_.end() ? 0 : at->first;
}

CaptionTimes FitMarks::HeldTimes(Row row) const {
  const FitMark* mark = Find(row);
  return mark != nullptr && InForce(row, *mark) ? mark->held : bench_.list.TimesAt(row);
}

CaptionTimes FitMarks::BesideNeighbours(Row row, const CaptionTimes& wanted, Ms leastGap) const {
  const CaptionList& list = bench_.list;
  const CaptionTimes before = list.TimesAt(row);
  CaptionTimes times = wanted;
  if (list.IsCaptionTimed(row - 1)) {
    const Ms end = list.GetCaptionEnd(row - 1);
    if (end <= before.start) times.start = std::max(times.start, std::min(end + leastGap, before.start));
  }
  if (list.IsCaptionTimed(row + 1)) {
    const Ms start = list.GetCaptionStart(row + 1);
    if (start >= before.end) times.end = std::min(times.end, std::max(start - leastGap, before.end));
  }
  return times.end - times.start < kShortest ? before : times;
}

int FitMarks::Move(const std::vector<FitMove>& moves, Ms leastGap) {
  CaptionList& list = bench_.list;
  std::vector<Row> moved;
  const EditScope scope(list, EditKind::Fit);
  for (const FitMove& move : moves) {
    // A caption whose times were changed since the search began keeps those.
    if (!list.InRange(move.row) || list.TimesAt(move.row) != move.before) continue;
    FitMark& kept = marks_[move.row];
    const bool byHand = kept.byHand && kept.held == move.mark.held;
    kept = move.mark;
    kept.byHand = byHand;
    kept.waits = false;
    kept.fitted = BesideNeighbours(move.row, move.mark.fitted, leastGap);
    if (kept.number == 0) kept.number = ++holds_;
    if (kept.fitted == move.before) continue;
    std::array<CaptionTimes, 1> times = {kept.fitted};
    list.Retime(move.row, times);
    moved.push_back(move.row);
  }
  if (moved.empty()) return 0;
  list.SetModified();
  if (std::ranges::find(moved, list.Selected()) != moved.end()) list.SetRow(list.Selected(), false);
  return CountOf(moved);
}

void FitMarks::TakeLines(const std::vector<AlignedLine>& lines) {
  CaptionList& list = bench_.list;
  std::vector<CaptionTimes> times;
  marks_.clear();
  for (const AlignedLine& line : lines) {
    const Row row = Row::OfIndex(times.size());
    times.push_back({line.start, line.end});
    FitMark& mark = marks_[row];
    mark.number = ++holds_;
    mark.held = list.TimesAt(row);
    mark.fitted = times.back();
    mark.waits = false;
    mark.fromSound = true;
    // A mark counts as doubtful by its confidence alone, so that is brought to the right side of the limit.
    mark.startConfidence =
        line.doubtful ? std::min(line.confidence, kDoubtfulFit - 0.01) : std::max(line.confidence, kDoubtfulFit);
    mark.endConfidence = mark.startConfidence;
  }
  const EditScope scope(list, EditKind::FromSound);
  list.Retime(1, times);
  list.SetModified();
  list.SetRow(list.Selected(), false);
}

void FitMarks::Clear() { marks_.clear(); }

void FitMarks::Follow(const Splice& splice) {
  if (splice.removed == splice.added || marks_.empty()) return;
  const Row kept = splice.first + std::min(splice.removed, splice.added);
  const Row behind = splice.first + splice.removed;
  std::map<Row, FitMark> moved;
  for (auto& [row, mark] : marks_) {
    if (row >= kept && row < behind) continue;
    moved.emplace(row < behind ? row : row + splice.added - splice.removed, mark);
  }
  marks_ = std::move(moved);
}

void FitMarks::TakeBack() {
  CaptionList& list = bench_.list;
  bool any = false;
  const EditScope scope(list, EditKind::FitBack);
  for (const Row row : list.SelectedRows().Rows()) {
    const FitMark* mark = Find(row);
    if (mark == nullptr || !InForce(row, *mark)) continue;
    std::array<CaptionTimes, 1> times = {mark->held};
    list.Retime(row, times);
    any = true;
  }
  if (!any) return Tell(Message::NothingTakenBack);
  list.SetModified();
  list.SetRow(list.Selected(), false);
}

void FitMarks::NextDoubtful() {
  const Row selected = bench_.list.Selected();
  const auto doubtful = [this](const auto& each) { return IsDoubtful(each.first); };
  auto at = std::find_if(marks_.upper_bound(selected), marks_.end(), doubtful);
  if (at == marks_.end()) at = std::ranges::find_if(marks_, doubtful);
  if (at == marks_.end()) return Tell(Message::NoDoubtfulFit);
  bench_.list.SetRow(at->first, true);
  DoubtfulShown(at->first);
}

void FitMarks::Tell(Message message) { notices_.Tell(message); }

}  // namespace cuewright
