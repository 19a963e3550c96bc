#include "forms/list_view_commands.h"

#include <algorithm>
#include <array>

#include "core/counting.h"
#include "core/numbers.h"
#include "forms/film_rate.h"

namespace cuewright {
namespace {

/// The columns that can be hidden, in the order of their items.
constexpr std::array kItems = {ListColumn::Start, ListColumn::End, ListColumn::Duration, ListColumn::Gap,
                               ListColumn::Speed};
/// As they are stored and stand in the menu.
constexpr std::array kTimeForms = {TimeForm::Clock, TimeForm::Milliseconds, TimeForm::Frames};

}  // namespace

ListViewCommands::ListViewCommands(Workbench bench, const FormatState& formats, const Player& player,
                                   const PlayerSample& sample)
    : bench_(bench), formats_(formats), player_(player), sample_(sample), filmRow_(bench.list) {
  MainWindow& w = bench_.window;
  for (std::size_t i = 0; i < kItems.size(); ++i) {
    w.mnuListColumn[i].Clicked.Connect([this, i] { ToggleColumn(kItems[i]); });
  }
  for (std::size_t i = 0; i < w.mnuListTime.size(); ++i) {
    w.mnuListTime[i].Clicked.Connect([this, i] { ChooseTimes(kTimeForms[i]); });
  }
  // Reading a file may have told its frame rate.
  bench_.list.EnabledChanged.Connect([this](bool on) {
    if (on) Show();
  });
  // The player was sampled by a listener that was connected to this tick earlier.
  w.tmrTime.Tick.Connect([this] { Follow(); });
}

void ListViewCommands::Show() {
  filmRate_ = player_.FramesPerSecond();
  bench_.grid.SetColumns(ColumnOrder(bench_.options.listColumns));
  bench_.grid.SetTimes({ItemAt(kTimeForms, std::min<int>(bench_.options.listTimes, CountOf(kTimeForms) - 1)),
                        FilmOrFileRate(player_, formats_)});
  ShowItems();
}

void ListViewCommands::ShowItems() {
  MainWindow& w = bench_.window;
  const bool workbench = bench_.grid.IsWorkbench();
  w.mnuListColumns.SetVisible(workbench);
  w.mnuListTimes.SetVisible(workbench);
  for (std::size_t i = 0; i < kItems.size(); ++i) {
    w.mnuListColumn[i].SetChecked(bench_.grid.Columns().Of(kItems[i]).shown);
  }
  for (std::size_t i = 0; i < w.mnuListTime.size(); ++i) {
    w.mnuListTime[i].SetChecked(kTimeForms[i] == bench_.grid.Times().form);
  }
}

void ListViewCommands::Arrange(const ColumnOrder& columns) {
  bench_.options.listColumns = columns.Stored();
  Show();
}

void ListViewCommands::ToggleColumn(ListColumn column) {
  ColumnOrder columns = bench_.grid.Columns();
  columns.Show(column, !columns.Of(column).shown);
  Arrange(columns);
}

void ListViewCommands::ChooseTimes(TimeForm form) {
  bench_.options.listTimes = Checked8(PlaceOf(kTimeForms, form));
  Show();
}

void ListViewCommands::Follow() {
  if (player_.FramesPerSecond() != filmRate_) Show();
  const bool both = bench_.grid.IsWorkbench() && bench_.document.HasDocument() && bench_.document.HasVideo();
  bench_.grid.MarkFilmRow(both && bench_.list.Enabled() ? filmRow_.RowAt(sample_.PlayerPosMs()) : 0);
}

}  // namespace cuewright
