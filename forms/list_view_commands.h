#pragma once

#include "capture/film_row.h"
#include "capture/player_sample.h"
#include "capture/workbench.h"
#include "core/ports/player.h"
#include "formats/format_state.h"

namespace cuewright {

/// What the user chooses of the list's looks: its columns and how it shows times. Marks the caption that the film
/// shows.
class ListViewCommands {
 public:
  ListViewCommands(Workbench bench, const FormatState& formats, const Player& player, const PlayerSample& sample);

  /// The list and the items of the View menu follow the settings.
  void Show();
  /// The user has arranged the columns so.
  void Arrange(const ColumnOrder& columns);
  /// The film goes: no caption is marked.
  void ForgetFilm() { bench_.grid.MarkFilmRow(0); }

 private:
  void ShowItems();
  void ToggleColumn(ListColumn column);
  void ChooseTimes(TimeForm form);
  void Follow();

  Workbench bench_;
  const FormatState& formats_;
  const Player& player_;
  const PlayerSample& sample_;
  double filmRate_ = 0;  ///< of the film, as it was known last
  FilmRow filmRow_;
};

}  // namespace cuewright
