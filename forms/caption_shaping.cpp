#include "forms/caption_shaping.h"

#include <algorithm>
#include <optional>

#include "capture/film_position.h"

namespace cuewright {
namespace {

/// The caret of the pane, counted in a text with a single character for each line end.
std::size_t CaretOf(const TextBox& pane) {
  const TextView before = TextView(pane.GetText()).substr(0, pane.SelStart());
  return before.size() - std::ranges::count(before, u'\r');
}

std::optional<Row> RowIf(Row row, bool done) { return done ? std::optional(row) : std::nullopt; }

}  // namespace

CaptionShaping::CaptionShaping(Workbench bench, Preview& preview, const AudioBar& audioBar, const Player& player,
                               Notices& notices, Messages& messages)
    : bench_(bench), preview_(preview), audioBar_(audioBar), player_(player), notices_(notices), messages_(messages) {
  Wire();
}

void CaptionShaping::Wire() {
  bench_.window.mnuInsertAbove.Clicked.Connect([this] { Insert(Side::Above); });
  bench_.window.mnuInsertBelow.Clicked.Connect([this] { Insert(Side::Below); });
  bench_.window.mnuInsertAtFilm.Clicked.Connect([this] { InsertAtFilm(); });
  bench_.window.mnuSplitAtCaret.Clicked.Connect([this] { SplitAtCaret(); });
  bench_.window.mnuSplitAtFilm.Clicked.Connect([this] { SplitAtFilm(); });
  bench_.window.mnuJoinNext.Clicked.Connect([this] { Join(bench_.list.Selected(), JoinAs::Lines); });
  bench_.window.mnuJoinPrevious.Clicked.Connect([this] { Join(bench_.list.Selected() - 1, JoinAs::Lines); });
  bench_.window.mnuDialogueNext.Clicked.Connect([this] { Join(bench_.list.Selected(), JoinAs::Dialogue); });
  bench_.window.mnuDialoguePrevious.Clicked.Connect([this] { Join(bench_.list.Selected() - 1, JoinAs::Dialogue); });
  bench_.window.mnuDuplicate.Clicked.Connect([this] { Duplicate(); });
  bench_.window.mnuMeetNext.Clicked.Connect([this] { Meet(); });
  bench_.window.mnuSwapTexts.Clicked.Connect([this] { Swap(); });
}

void CaptionShaping::ShowItems() {
  MainWindow& w = bench_.window;
  const bool shown = bench_.options.manner.ShapesCaptions();
  for (MenuItem* item :
       {&w.mnuOrder, &w.mnuTimes, &w.mnuInsertAbove, &w.mnuInsertBelow, &w.mnuInsertAtFilm, &w.mnuSplit,
        &w.mnuSplitAtCaret, &w.mnuSplitAtFilm, &w.mnuJoin, &w.mnuJoinNext, &w.mnuJoinPrevious, &w.mnuDialogueNext,
        &w.mnuDialoguePrevious, &w.mnuDuplicate, &w.mnuMeetNext, &w.mnuSwapTexts, &w.mnuLine1e, &w.mnuRetime}) {
    item->SetVisible(shown);
  }
  // Here a new caption is typed in the pane; the classic one asks for its text in a box.
  w.mnuAddBelow.SetVisible(!shown);
}

template <class Work>
void CaptionShaping::Run(EditKind kind, Message trouble, Work work) {
  std::optional<Row> row;
  {
    const EditScope scope(bench_.list, kind);
    row = work();
    if (row) bench_.list.SetRow(*row, true);
  }
  if (!row) return Tell(trouble);
  preview_.Redraw(*row);
  // A new caption is typed at once.
  if (kind == EditKind::Insert) bench_.window.FocusText();
}

void CaptionShaping::Insert(Side side) {
  Run(EditKind::Insert, Message::NoRoomAtFilm,
      [&] { return std::optional(InsertBeside(bench_.list, bench_.list.Selected(), side)); });
}

void CaptionShaping::InsertAtFilm() {
  if (!bench_.document.HasVideo()) return Tell(Message::NoVideoFileLoaded);
  Run(EditKind::Insert, Message::NoRoomAtFilm, [&] { return InsertAt(bench_.list, FilmMs()); });
}

void CaptionShaping::SplitAtCaret() {
  const Row row = bench_.list.Selected();
  const std::size_t caret = CaretOf(bench_.window.txtSub);
  Run(EditKind::Split, Message::NothingToSplit,
      [&] { return RowIf(row, SplitAtPlace(bench_.list, row, caret, SoundOf(row))); });
}

void CaptionShaping::SplitAtFilm() {
  const Row row = bench_.list.Selected();
  const Ms ms = FilmMs();
  if (!bench_.document.HasVideo() || ms <= bench_.list.GetCaptionStart(row) || ms >= bench_.list.GetCaptionEnd(row)) {
    return Tell(Message::FilmOutsideCaption);
  }
  Run(EditKind::Split, Message::NothingToSplit, [&] { return RowIf(row, SplitAtTime(bench_.list, row, ms)); });
}

void CaptionShaping::Join(Row first, JoinAs as) {
  Run(EditKind::JoinNeighbor, Message::NoCaptionThere, [&] {
    return RowIf(first, JoinCaptions(bench_.list, {first, first + 1}, as));
  });
}

void CaptionShaping::Duplicate() {
  const Row row = bench_.list.Selected();
  Run(EditKind::Duplicate, Message::NoCaptionThere, [&] {
    DuplicateCaption(bench_.list, row);
    return std::optional(row + 1);
  });
}

void CaptionShaping::Meet() {
  const Row row = bench_.list.Selected();
  Run(EditKind::MeetNext, Message::MeetNeedsTimes, [&] { return RowIf(row, MeetNext(bench_.list, row)); });
}

void CaptionShaping::Swap() {
  const Row row = bench_.list.Selected();
  Run(EditKind::SwapTexts, Message::NoCaptionThere, [&] { return RowIf(row, SwapTextWithNext(bench_.list, row)); });
}

void CaptionShaping::Tell(Message message) {
  if (notices_.Seen()) return notices_.Tell(message);
  messages_.Show({bench_.strings[message], BoxIcon::Information});
}

Ms CaptionShaping::FilmMs() const { return FilmPosition(bench_.window, player_); }

Loudness CaptionShaping::SoundOf(Row row) const {
  Loudness sound;
  if (!audioBar_.Loaded()) return sound;
  const WavePeaks& peaks = audioBar_.Peaks();
  const CaptionTimes times = bench_.list.TimesAt(row);
  const std::int32_t first = std::max<Ms>(times.start, 0).Count() / Loudness::kStepMs;
  const std::int32_t last = std::min(times.end.Count() / Loudness::kStepMs, peaks.Columns());
  sound.from = first * Loudness::kStepMs;
  for (std::int32_t column = first; column < last; ++column) {
    sound.levels.push_back(peaks.At(2 * column) - peaks.At(2 * column + 1));
  }
  return sound;
}

}  // namespace cuewright
