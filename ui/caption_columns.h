#pragma once

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>
#include <array>
#include <vector>

#include "capture/caption_grid.h"
#include "core/signal.h"
#include "ui/caption_delegate.h"
#include "ui/caption_model.h"

namespace cuewright {

/// The columns of the list: shows those that the list's state asks for, and tells what the user does to them by the
/// heading. A narrow list does without some, so that the text can be read.
class CaptionColumns {
 public:
  static constexpr int kClassic = 4;

  CaptionColumns(QTableView& table, const CaptionGrid& grid, const CaptionModel& model,
                 const CaptionDelegate& delegate);

  /// Arranges the columns anew; nothing of that is told.
  void Show();
  /// While the result lives, what happens to the heading isn't the user's doing.
  [[nodiscard]] QScopedValueRollback<bool> Hold() { return QScopedValueRollback<bool>(showing_, true); }
  /// The table's width has changed.
  void Fit();

  /// The user drew the classic columns to these widths, or asked for the program's own (no widths).
  Signal<CaptionColumns, const std::array<int, kClassic>*> Chosen;
  /// The user has arranged the columns so.
  Signal<CaptionColumns, const ColumnOrder&> Arranged;

 private:
  bool IsWorkbench() const { return grid_.Active() && grid_.IsWorkbench(); }
  int WidthOf(const ColumnOrder::Place& column) const;
  /// The columns that a narrow list has no room for.
  std::vector<ListColumn> Crowded() const;
  void ShowWorkbench();
  void ShowClassic();
  void TakeWidth(int section, int width);
  void TakeOrder(int from, int to);
  void GiveWidthBack(int section);

  QTableView& table_;
  QHeaderView& header_;
  const CaptionGrid& grid_;
  const CaptionModel& model_;
  const CaptionDelegate& delegate_;
  bool showing_ = false;  ///< the heading follows the list's state, not the other way
};

}  // namespace cuewright
