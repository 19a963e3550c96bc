#pragma once

#include <optional>

#include "audio/wave_board.h"
#include "audio/wave_details.h"
#include "capture/preview.h"
#include "capture/workbench.h"
#include "forms/film_shots.h"
#include "forms/notices.h"

namespace cuewright {

/// The commands of the wave that one works in: how it is shown, a caption of a stretch of it, and edges that go to
/// where a voice begins or ends. The classic manner has none of them.
class WaveCommands {
 public:
  WaveCommands(Workbench bench, WaveBoard& board, FilmShots& shots, Preview& preview, Notices& notices,
               Messages& messages);

  /// The menus show what the manner in force has.
  void ShowItems();

 private:
  void Wire();
  void ShowChecks();
  void MakeHigher(bool higher);
  void InsertStretch();
  void SnapEdge(CaptionEdge edge, bool back);
  void MarkShot();
  void TellShot(const std::optional<FilmShots::Marked>& marked);
  void Tell(Message message);

  Workbench bench_;
  WaveBoard& board_;
  FilmShots& shots_;
  Preview& preview_;
  Notices& notices_;
  Messages& messages_;
};

}  // namespace cuewright
