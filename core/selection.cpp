#include "core/selection.h"

#include <algorithm>
#include <utility>

namespace cuewright {

Selection::Selection(CaptionList& list) : list_(list) {
  list_.SelectionChanged.Connect([this](Row row) {
    if (!drawing_ && Count() == 1 && Has(row)) anchor_ = row;
  });
  list_.Spliced.Connect([this](const Splice& splice) {
    if (splice.added != splice.removed && splice.first + splice.removed <= anchor_) {
      anchor_ += splice.added - splice.removed;
    }
    anchor_ = std::clamp<Row>(anchor_, 1, list_.Rows() - 1);
  });
}

void Selection::Only(Row row, bool scroll) {
  if (list_.InRange(row)) list_.SelectRows(RowSet(row), row, scroll);
}

void Selection::ExtendTo(Row row, bool scroll) {
  if (!list_.InRange(row)) return;
  if (!TakesMany()) return Only(row, scroll);
  drawing_ = true;
  list_.SelectRows({anchor_, row}, row, scroll);
  drawing_ = false;
}

void Selection::AddTo(Row row, bool scroll) {
  if (!list_.InRange(row)) return;
  if (!TakesMany()) return Only(row, scroll);
  RowSet rows = list_.SelectedRows();
  rows.Add(anchor_, row);
  drawing_ = true;
  list_.SelectRows(std::move(rows), row, scroll);
  drawing_ = false;
}

void Selection::Toggle(Row row) {
  if (!list_.InRange(row)) return;
  if (!TakesMany()) return Only(row);
  RowSet rows = list_.SelectedRows();
  if (!rows.Has(row)) {
    rows.Add(row, row);
  } else if (rows.Count() > 1) {
    rows.Remove(row, row);
  }
  anchor_ = row;
  drawing_ = true;
  list_.SelectRows(std::move(rows), row, false);
  drawing_ = false;
}

void Selection::MoveCurrent(Row row, bool scroll) {
  if (!list_.InRange(row)) return;
  if (!TakesMany()) return Only(row, scroll);
  list_.SelectRows(list_.SelectedRows(), row, scroll);
}

void Selection::All() {
  if (TakesMany()) list_.SelectRows({1, list_.Rows() - 1}, list_.Selected(), false);
}

}  // namespace cuewright
