#include "forms/film_commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "capture/film_position.h"
#include "core/best_duration.h"

namespace cuewright {
namespace {

/// How long what is played before or behind an edge lasts.
constexpr Ms kAroundMs = 500;
constexpr Ms kStepMs = 100;
constexpr Ms kSecondMs = 1000;
/// What is heard before a start that is listened to.
constexpr Ms kLeadMs = 200;
/// A frame of 25 a second.
constexpr Ms kUsualFrameMs = 40;
constexpr Ms kCutOffMs = 2;
/// The earliest time at which a caption can start.
constexpr Ms kFirstStart = 1;

/// How many times as fast as usual a film can be played, in order.
constexpr std::array<double, 11> kSpeeds = {0.25, 0.33, 0.5, 0.67, 0.75, 1, 1.25, 1.5, 2, 3, 4};

/// A speed with two decimals at most and no zeros behind the last one that counts.
Text SpeedText(double speed) {
  const long hundredths = std::lround(speed * 100);
  Text text = Decimal(hundredths / 100);
  if (hundredths % 100 == 0) return text;
  text += u'.' + Text(hundredths % 100 < 10 ? u"0" : u"") + Decimal(hundredths % 100);
  if (text.ends_with(u'0')) text.pop_back();
  return text;
}

}  // namespace

FilmCommands::FilmCommands(Workbench bench, Player& player, TimingCapture& capture, const WaveBoard& board,
                           const FilmShots& shots)
    : bench_(bench),
      player_(player),
      capture_(capture),
      board_(board),
      shots_(shots),
      stretch_(player, bench.window.tmrStretch) {
  WirePlaying();
  WireSteps();
  WireSpeed();
  WireTimes();
  bench_.window.mnuNextInPane.Clicked.Connect([this] { NextInPane(); });
}

void FilmCommands::WirePlaying() {
  MainWindow& w = bench_.window;
  w.mnuPlayOrPause.Clicked.Connect([this] { PlayOrPause(); });
  w.mnuPlayCaption.Clicked.Connect([this] { PlayCaption(); });
  w.mnuPlayGap.Clicked.Connect([this] { PlayGap(); });
  w.mnuPlayStretch.Clicked.Connect([this] { PlayStretch(); });
  w.mnuRepeatCaption.Clicked.Connect([this] { Repeat(); });
  w.mnuPlayBeforeStart.Clicked.Connect([this] { PlayAround(Edge::Start, -kAroundMs, 0); });
  w.mnuPlayAfterStart.Clicked.Connect([this] { PlayAround(Edge::Start, 0, kAroundMs); });
  w.mnuPlayBeforeEnd.Clicked.Connect([this] { PlayAround(Edge::End, -kAroundMs, 0); });
  w.mnuPlayAfterEnd.Clicked.Connect([this] { PlayAround(Edge::End, 0, kAroundMs); });
}

void FilmCommands::WireSteps() {
  MainWindow& w = bench_.window;
  w.mnuFrameBack.Clicked.Connect([this] { StepFrames(-1); });
  w.mnuFrameForward.Clicked.Connect([this] { StepFrames(1); });
  w.mnuStepBack.Clicked.Connect([this] { Seek(Ms::OfSeconds(player_.CurrentPosition()) - kStepMs); });
  w.mnuStepForward.Clicked.Connect([this] { Seek(Ms::OfSeconds(player_.CurrentPosition()) + kStepMs); });
  w.mnuSecondBack.Clicked.Connect([this] { Seek(Ms::OfSeconds(player_.CurrentPosition()) - kSecondMs); });
  w.mnuSecondForward.Clicked.Connect([this] { Seek(Ms::OfSeconds(player_.CurrentPosition()) + kSecondMs); });
}

void FilmCommands::WireSpeed() {
  MainWindow& w = bench_.window;
  w.mnuSlower.Clicked.Connect([this] { ChangeSpeed(-1); });
  w.mnuFaster.Clicked.Connect([this] { ChangeSpeed(1); });
  w.mnuUsualSpeed.Clicked.Connect([this] { player_.SetSpeed(1); });
  // The speed may be changed in the film's own controls.
  player_.ControlsChange.Connect([this] { ShowSpeed(); });
}

void FilmCommands::ShowSpeed() {
  MainWindow& w = bench_.window;
  const double speed = player_.Speed();
  w.mnuSpeed.SetText(Fill(bench_.strings[Message::FilmSpeed], SpeedText(speed)));
  w.mnuSlower.SetEnabled(speed > kSpeeds.front());
  w.mnuFaster.SetEnabled(speed < kSpeeds.back());
  w.mnuUsualSpeed.SetChecked(speed == 1);
}

void FilmCommands::ChangeSpeed(int steps) {
  const auto next = steps > 0 ? std::ranges::upper_bound(kSpeeds, player_.Speed())
                              : std::ranges::lower_bound(kSpeeds, player_.Speed()) - 1;
  if (next >= kSpeeds.begin() && next < kSpeeds.end()) player_.SetSpeed(*next);
}

void FilmCommands::WireTimes() {
  MainWindow& w = bench_.window;
  const auto here = [this](MenuItem& item, Edge edge, Rest rest) {
    item.Clicked.Connect([this, edge, rest] {
      if (HasFilm()) PutEdge(edge, Here(), rest);
    });
  };
  here(w.mnuStartHere, Edge::Start, Rest::Stays);
  here(w.mnuEndHere, Edge::End, Rest::Stays);
  here(w.mnuPushFromHere, Edge::Start, Rest::Moves);
  w.mnuStartEarlier.Clicked.Connect([this] { NudgeFrame(Edge::Start, -1); });
  w.mnuStartLater.Clicked.Connect([this] { NudgeFrame(Edge::Start, 1); });
  w.mnuEndEarlier.Clicked.Connect([this] { NudgeFrame(Edge::End, -1); });
  w.mnuEndLater.Clicked.Connect([this] { NudgeFrame(Edge::End, 1); });
  w.mnuStartMuchEarlier.Clicked.Connect([this] { NudgeMs(Edge::Start, -kStepMs); });
  w.mnuStartMuchLater.Clicked.Connect([this] { NudgeMs(Edge::Start, kStepMs); });
  w.mnuEndMuchEarlier.Clicked.Connect([this] { NudgeMs(Edge::End, -kStepMs); });
  w.mnuEndMuchLater.Clicked.Connect([this] { NudgeMs(Edge::End, kStepMs); });
}

void FilmCommands::ShowItems() {
  MainWindow& w = bench_.window;
  const bool film = bench_.document.HasVideo();
  const bool document = bench_.document.HasDocument();
  w.mnuFilm.SetVisible(bench_.options.manner.HasEditingKeys());
  ShowSpeed();
  for (MenuItem* item : {&w.mnuPlayOrPause, &w.mnuFrameBack, &w.mnuFrameForward, &w.mnuStepBack, &w.mnuStepForward,
                         &w.mnuSecondBack, &w.mnuSecondForward}) {
    item->SetEnabled(film);
  }
  for (MenuItem* item :
       {&w.mnuPlayCaption, &w.mnuRepeatCaption, &w.mnuPlayBeforeStart, &w.mnuPlayAfterStart, &w.mnuPlayBeforeEnd,
        &w.mnuPlayAfterEnd, &w.mnuPlayGap, &w.mnuPlayStretch, &w.mnuStartHere, &w.mnuEndHere, &w.mnuPushFromHere}) {
    item->SetEnabled(film && document);
  }
  for (MenuItem* item : {&w.mnuStartEarlier, &w.mnuStartLater, &w.mnuEndEarlier, &w.mnuEndLater, &w.mnuStartMuchEarlier,
                         &w.mnuStartMuchLater, &w.mnuEndMuchEarlier, &w.mnuEndMuchLater, &w.mnuNextInPane}) {
    item->SetEnabled(document);
  }
}

void FilmCommands::PlayOrPause() {
  if (!HasFilm()) return;
  stretch_.Leave();
  if (player_.PlayState() == kPlayerPlaying) {
    player_.Pause();
  } else {
    player_.Play();
  }
}

void FilmCommands::PlayAround(Edge edge, Ms from, Ms to) {
  const Row row = bench_.list.Selected();
  if (!HasFilm() || !HasCaption() || !bench_.list.IsCaptionTimed(row)) return;
  const CaptionTimes times = bench_.list.TimesAt(row);
  const Ms at = edge == Edge::Start ? times.start : times.end;
  stretch_.Play(at + from, at + to);
}

void FilmCommands::PlayCaption() {
  const Row row = bench_.list.Selected();
  if (!HasFilm() || !HasCaption() || !bench_.list.IsCaptionTimed(row)) return;
  stretch_.Play(bench_.list.TimesAt(row).start, bench_.list.TimesAt(row).end);
}

void FilmCommands::PlayGap() {
  const CaptionList& list = bench_.list;
  const Row row = list.Selected();
  if (!HasFilm() || !HasCaption() || !list.IsCaptionTimed(row)) return;
  // Before the first caption the gap begins with the film.
  stretch_.Play(list.GetCaptionEnd(row - 1), list.TimesAt(row).start);
}

void FilmCommands::PlayStretch() {
  if (!HasFilm() || !board_.Stretch()) return;
  stretch_.Play(board_.Stretch()->start, board_.Stretch()->end);
}

void FilmCommands::Repeat() {
  stretch_.SetRepeats(!stretch_.Repeats());
  bench_.window.mnuRepeatCaption.SetChecked(stretch_.Repeats());
  if (stretch_.Repeats()) PlayCaption();
}

void FilmCommands::LoopStart(Row row) {
  if (!HasFilm() || !bench_.list.InRange(row)) return;
  const Ms start = bench_.list.GetCaptionStart(row);
  stretch_.Loop(start - kLeadMs, start + kSecondMs);
}

void FilmCommands::Seek(Ms ms) {
  if (!HasFilm()) return;
  const double last = player_.Duration();
  const double seconds = std::max<Ms>(ms, 0).Seconds();
  player_.SetCurrentPosition(last > 0 ? std::min(seconds, last) : seconds);
}

void FilmCommands::StepFrames(int frames) {
  if (!HasFilm()) return;
  if (player_.PlayState() == kPlayerPlaying) player_.Pause();
  const Ms ms = std::max<Ms>(FramesFrom(Ms::OfSeconds(player_.CurrentPosition()), frames), 0);
  Seek(ms);
  const FrameRate rate = player_.FramesPerSecond();
  if (const auto picture = shots_.PictureAt(ms)) {
    Stepped(*picture, ms);
  } else if (rate.IsUsual()) {
    Stepped(rate.FramesOfMs(ms), ms);
  }
}

Ms FilmCommands::Here() const { return FilmPosition(bench_.window, player_); }

Ms FilmCommands::FramesFrom(Ms ms, int frames) const {
  // Times of captions are often cut off to a ms before their picture.
  if (const auto picture = shots_.PictureAt(std::max<Ms>(ms, 0) + kCutOffMs)) {
    if (const auto begins = shots_.PictureBegins(std::max(*picture + frames, 0))) return *begins;
  }
  const FrameRate rate = player_.FramesPerSecond();
  if (!rate.IsUsual()) return ms + frames * kUsualFrameMs;
  return rate.MsOfFrames(rate.FramesOfMs(std::max<Ms>(ms, 0)) + frames);
}

void FilmCommands::PutEdge(Edge edge, Ms ms, Rest rest) {
  if (!MayChangeTimes()) return;
  CaptionList& list = bench_.list;
  const Row row = list.Selected();
  const CaptionTimes before = list.TimesAt(row);
  // A start of 0 would mean that the caption has no times.
  ms = std::max(ms, kFirstStart);
  const EditScope scope(list, EditKind::SetTimes);
  if (edge == Edge::End) {
    // A caption that would end before it begins stays.
    if (ms > before.start) list.SetCaptionEnd(row, ms);
  } else if (rest == Rest::Moves && list.IsCaptionTimed(row)) {
    MoveRest(row, ms - before.start);
  } else {
    list.SetCaptionStart(row, ms, false);
    if (before.end > ms) return;
    // One that had no length yet gets what suits its text.
    if (before.end > before.start) {
      list.SetCaptionEnd(row, ms + before.end - before.start);
    } else {
      list.SetCaptionEnd(row, ms);
      (void)SetBestDuration(list, row);
    }
  }
}

void FilmCommands::MoveRest(Row from, Ms by) {
  CaptionList& list = bench_.list;
  std::vector<CaptionTimes> times;
  for (Row row = from; row < list.Rows(); ++row) {
    CaptionTimes moved = list.TimesAt(row);
    if (list.IsCaptionTimed(row)) moved = {std::max(moved.start + by, kFirstStart), std::max<Ms>(moved.end + by, 0)};
    times.push_back(moved);
  }
  list.Retime(from, times);
  list.SetModified();
}

void FilmCommands::NudgeFrame(Edge edge, int frames) {
  if (!HasCaption()) return;
  const CaptionTimes times = bench_.list.TimesAt(bench_.list.Selected());
  PutEdge(edge, FramesFrom(edge == Edge::Start ? times.start : times.end, frames), Rest::Stays);
}

void FilmCommands::NudgeMs(Edge edge, Ms by) {
  if (!HasCaption()) return;
  const CaptionTimes times = bench_.list.TimesAt(bench_.list.Selected());
  PutEdge(edge, (edge == Edge::Start ? times.start : times.end) + by, Rest::Stays);
}

void FilmCommands::NextInPane() {
  if (HasCaption()) bench_.list.MoveSelection(std::min(bench_.list.Selected() + 1, bench_.list.Rows() - 1));
}

}  // namespace cuewright
