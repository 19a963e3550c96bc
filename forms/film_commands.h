#pragma once

#include <cstdint>

#include "audio/wave_board.h"
#include "capture/stretch_player.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/frame_rate.h"
#include "core/ports/player.h"

namespace cuewright {

/// The menu Film: playing around the selected caption, small steps, and times of the caption from the film's position.
class FilmCommands {
 public:
  FilmCommands(Workbench bench, Player& player, TimingCapture& capture, const WaveBoard& board);

  /// Plays the first second of a caption again and again, with a little before it.
  void LoopStart(Row row);
  /// The items follow what is open.
  void ShowItems();

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
  void PlayAround(Edge edge, std::int32_t from, std::int32_t to);
  void PlayCaption();
  /// Plays from the end of the caption before to the start of this one.
  void PlayGap();
  void PlayStretch();
  void Repeat();
  void Seek(std::int32_t ms);
  void StepFrames(int frames);
  /// So many of the usual speeds faster than now.
  void ChangeSpeed(int steps);
  void ShowSpeed();

  /// Where the film is, or was when the key went that is being handled.
  std::int32_t Here() const;
  /// So many frames from a time, at the beginning of a frame; 40 ms each where the film's rate isn't known.
  std::int32_t FramesFrom(std::int32_t ms, int frames) const;
  void PutEdge(Edge edge, std::int32_t ms, Rest rest);
  void NudgeFrame(Edge edge, int frames);
  void NudgeMs(Edge edge, std::int32_t by);
  void MoveRest(Row from, std::int32_t by);
  void NextInPane();

  Workbench bench_;
  Player& player_;
  TimingCapture& capture_;
  const WaveBoard& board_;
  StretchPlayer stretch_;
};

}  // namespace cuewright
