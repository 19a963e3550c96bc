#include "forms/wave_commands.h"

#include <algorithm>
#include <initializer_list>

#include "core/caption_time.h"
#include "tools/insert_caption.h"

namespace cuewright {
namespace {

constexpr double kZoom = 1.5;
constexpr int kHigherBy = 5;  // the scale becomes four fifths of itself

}  // namespace

WaveCommands::WaveCommands(Workbench bench, WaveBoard& board, FilmShots& shots, Preview& preview, Notices& notices,
                           Messages& messages)
    : bench_(bench), board_(board), shots_(shots), preview_(preview), notices_(notices), messages_(messages) {
  Wire();
}

void WaveCommands::Wire() {
  MainWindow& w = bench_.window;
  w.mnuWaveIn.Clicked.Connect([this] { board_.Zoom(kZoom); });
  w.mnuWaveOut.Clicked.Connect([this] { board_.Zoom(1 / kZoom); });
  w.mnuWaveHigher.Clicked.Connect([this] { MakeHigher(true); });
  w.mnuWaveLower.Clicked.Connect([this] { MakeHigher(false); });
  w.mnuWaveToCaption.Clicked.Connect([this] { board_.ShowCaption(); });
  for (std::size_t i = 0; i < w.mnuWaveLook.size(); ++i) {
    w.mnuWaveLook[i].Clicked.Connect([this, i] {
      board_.SetLook(static_cast<BoardLook>(i));
      ShowChecks();
    });
  }
  w.mnuWaveCentred.Clicked.Connect([this] {
    board_.SetCentred(!bench_.options.waveCentred);
    ShowChecks();
  });
  w.mnuWaveSnaps.Clicked.Connect([this] {
    bench_.options.waveSnaps = !bench_.options.waveSnaps;
    ShowChecks();
  });
  w.mnuShotHere.Clicked.Connect([this] { TellShot(shots_.ToggleAtFilm()); });
  w.mnuShotAtCursor.Clicked.Connect([this] { MarkShot(); });
  w.mnuInsertStretch.Clicked.Connect([this] { InsertStretch(); });
  board_.CaptionWanted.Connect([this] { InsertStretch(); });
  w.mnuStartSnapBack.Clicked.Connect([this] { SnapEdge(CaptionEdge::Start, true); });
  w.mnuStartSnapOn.Clicked.Connect([this] { SnapEdge(CaptionEdge::Start, false); });
  w.mnuEndSnapBack.Clicked.Connect([this] { SnapEdge(CaptionEdge::End, true); });
  w.mnuEndSnapOn.Clicked.Connect([this] { SnapEdge(CaptionEdge::End, false); });
}

void WaveCommands::ShowItems() {
  MainWindow& w = bench_.window;
  const bool workbench = bench_.options.manner.WaveIsAWorkbench();
  for (MenuItem* item : {&w.mnuBoard, &w.mnuInsertStretch, &w.mnuPlayStretch, &w.mnuStartSnapBack, &w.mnuStartSnapOn,
                         &w.mnuEndSnapBack, &w.mnuEndSnapOn}) {
    item->SetVisible(workbench);
  }
  const bool document = bench_.document.HasDocument();
  for (MenuItem* item :
       {&w.mnuInsertStretch, &w.mnuStartSnapBack, &w.mnuStartSnapOn, &w.mnuEndSnapBack, &w.mnuEndSnapOn}) {
    item->SetEnabled(document);
  }
  for (MenuItem* item : {&w.mnuShotHere, &w.mnuShotAtCursor}) item->SetEnabled(bench_.document.HasVideo());
  ShowChecks();
}

void WaveCommands::MarkShot() {
  const auto cursor = board_.Cursor();
  if (!cursor) return Tell(Message::NoStretch);
  TellShot(shots_.Toggle(*cursor));
}

void WaveCommands::TellShot(const std::optional<FilmShots::Marked>& marked) {
  if (!marked) return;
  const bool set = marked->change == ShotMarks::Change::Set;
  notices_.Tell(set ? Message::ShotSet : Message::ShotTaken, MsToTimeText(marked->ms));
}

void WaveCommands::ShowChecks() {
  MainWindow& w = bench_.window;
  for (std::size_t i = 0; i < w.mnuWaveLook.size(); ++i) w.mnuWaveLook[i].SetChecked(i == bench_.options.waveLook);
  w.mnuWaveCentred.SetChecked(bench_.options.waveCentred);
  w.mnuWaveSnaps.SetChecked(bench_.options.waveSnaps);
}

void WaveCommands::MakeHigher(bool higher) {
  // The slider's value is the sample that fills the height, below 0.
  Slider& slider = bench_.window.sldWavScale;
  const int value = slider.Value();
  slider.Move(higher ? value - value / kHigherBy : value + value / (kHigherBy - 1));
}

void WaveCommands::InsertStretch() {
  if (!bench_.document.HasDocument()) return;
  const auto stretch = board_.Stretch();
  if (!stretch) return Tell(Message::NoStretch);
  Row row = 0;
  {
    const EditScope scope(bench_.list, EditKind::Insert);
    row = InsertStretchAt(bench_.list, *stretch);
    board_.ClearStretch();
    bench_.list.SetRow(row, true);
  }
  preview_.Redraw(row);
  bench_.window.FocusText();
}

void WaveCommands::SnapEdge(CaptionEdge edge, bool back) {
  CaptionList& list = bench_.list;
  const Row row = list.Selected();
  if (!list.InRange(row) || !list.IsCaptionTimed(row)) return;
  CaptionTimes times = list.TimesAt(row);
  Ms& ms = edge == CaptionEdge::Start ? times.start : times.end;
  const auto point = board_.NextPoint(edge, ms, back);
  if (!point) return Tell(Message::NothingToSnapTo);
  ms = std::max<Ms>(*point, 1);
  // A caption that would end before it begins stays.
  if (times.end <= times.start) return Tell(Message::NothingToSnapTo);
  const EditScope scope(list, EditKind::SetTimes);
  list.Retime(row, {&times, 1});
  list.SetModified();
}

void WaveCommands::Tell(Message message) {
  if (notices_.Seen()) return notices_.Tell(message);
  messages_.Show({bench_.strings[message], BoxIcon::Information});
}

}  // namespace cuewright
