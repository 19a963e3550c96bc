#pragma once

#include <cstdint>

#include "audio/wave_board.h"
#include "capture/stretch_player.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/frame_rate.h"
#include "core/ports/player.h"
#include "forms/film_shots.h"

namespace cuewright {

/// The menu Film: playing around the selected caption, small steps, and times of the caption from the film's position.
class FilmCommands {
 public:
  FilmCommands(Workbench bench, Player& player, TimingCapture& capture, const WaveBoard& board, const FilmShots& shots);

  /// Plays the first second of a caption again and again, with a little before it.
  void LoopStart(Row row);
  /// The items follow what is open.
  void ShowItems();

  /// The film was moved to a frame, with its number from 0 and its time in ms.
  Signal<FilmCommands, std::int64_t, Ms> Stepped;

 private:
  /// A time of the selected caption.
  enum class Edge { Start, End };
  enum class Rest { Stays, Moves };

  void WirePlaying();
  void WireSteps();
  void WireSpeed();
  void WireTimes();
  bool HasFilm() const { return bench_.document.HasVideo() && player_.Enabled(); }
  bool HasCaption() const { return bench_.document.HasDocument() && bench_.list.InRange(bench_.list.Selected()); }
  bool MayChangeTimes() const { return HasCaption() && !capture_.Capturing(); }

  void PlayOrPause();
  /// Plays from so many ms from an edge of the caption on.
  void PlayAround(Edge edge, Ms from, Ms to);
  void PlayCaption();
  /// Plays from the end of the caption before to the start of this one.
  void PlayGap();
  void PlayStretch();
  void Repeat();
  void Seek(Ms ms);
  void StepFrames(int frames);
  /// So many of the usual speeds faster than now.
  void ChangeSpeed(int steps);
  void ShowSpeed();

  /// Where the film is, or was when the key went that is being handled.
  Ms Here() const;
  /// So many frames from a time, at the beginning of a frame: by the times that the film's pictures have, or by its
  /// rate until those are known; 40 ms each where that isn't known either.
  Ms FramesFrom(Ms ms, int frames) const;
  void PutEdge(Edge edge, Ms ms, Rest rest);
  void NudgeFrame(Edge edge, int frames);
  void NudgeMs(Edge edge, Ms by);
  void MoveRest(Row from, Ms by);
  void NextInPane();

  Workbench bench_;
  Player& player_;
  TimingCapture& capture_;
  const WaveBoard& board_;
  const FilmShots& shots_;
  StretchPlayer stretch_;
};

}  // namespace cuewright
