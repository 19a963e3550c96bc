#pragma once

#include <string>
#include <utility>
#include <vector>

#include "form/control.h"

namespace cuewright {

/// A row of a sheet.
struct SheetRow {
  std::vector<Text> cells;
  bool ticked = true;
};

/// A table of texts to look at, one row of which is selected. Its rows may have a box that is ticked or not.
class Sheet final : public Control {
 public:
  using Control::Control;

  const std::vector<Text>& Headings() const { return headings_; }
  void SetHeadings(std::vector<Text> headings) {
    headings_ = std::move(headings);
    ShowAnew();
  }
  /// Each row has a box in front of its first cell.
  bool Tickable() const { return tickable_; }
  void SetTickable(bool tickable) { Assign(tickable_, tickable); }

  const std::vector<SheetRow>& Rows() const { return rows_; }
  /// The first row is selected then, if there is one.
  void SetRows(std::vector<SheetRow> rows) {
    rows_ = std::move(rows);
    index_ = rows_.empty() ? -1 : 0;
    ++edition_;
    ShowAnew();
  }
  /// Another number each time that the rows are others.
  int Edition() const { return edition_; }

  /// The selected row; -1 for none.
  int Index() const { return index_; }
  void SetIndex(int index) {
    if (index >= -1 && index < std::ssize(rows_)) Assign(index_, index);
  }
  bool Ticked(int row) const { return rows_.at(row).ticked; }
  void SetTicked(int row, bool ticked) {
    SheetRow& changed = rows_.at(row);
    if (changed.ticked == ticked) return;
    changed.ticked = ticked;
    ShowAnew();
  }
  void TickAll(bool ticked) {
    for (SheetRow& row : rows_) row.ticked = ticked;
    ShowAnew();
  }

  // What the user does to it.

  /// Selects a row.
  void Choose(int index) {
    SetIndex(index);
    Chosen();
  }
  /// Enter or a double click on the selected row.
  void Activate() {
    if (index_ >= 0) Activated();
  }
  /// Ticks a row or takes its tick away.
  void Tick(int row) {
    SetTicked(row, !Ticked(row));
    TickChanged();
  }

  Signal<Sheet> Chosen;
  Signal<Sheet> Activated;
  Signal<Sheet> TickChanged;

 private:
  std::vector<Text> headings_;
  std::vector<SheetRow> rows_;
  int index_ = -1;
  int edition_ = 0;
  bool tickable_ = false;
};

}  // namespace cuewright
