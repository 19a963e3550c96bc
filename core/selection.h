#pragma once

#include <vector>

#include "core/caption_list.h"

namespace cuewright {

/// How a user's hand takes rows of the list: one, a stretch of them, one more. What is taken is the list's; this knows
/// from which row a stretch is drawn. Where the list takes one row at a time all of it comes down to that row.
class Selection {
 public:
  explicit Selection(CaptionList& list);

  /// The selected rows in order, at least one.
  std::vector<Row> Rows() const { return list_.SelectedRows().Rows(); }
  int Count() const { return list_.SelectedRows().Count(); }
  bool Has(Row row) const { return list_.SelectedRows().Has(row); }
  /// The row that the window shows; it need not be selected.
  Row Current() const { return list_.Selected(); }

  /// Each of these takes a row in range and does nothing for another. With `scroll` the row comes into view.
  void Only(Row row, bool scroll = false);
  /// Selects all from the row of the last `Only` or `Toggle` to this one.
  void ExtendTo(Row row, bool scroll = false);
  /// The same, and what is selected already stays so.
  void AddTo(Row row, bool scroll = false);
  /// Selects the row as well, or no longer; the last selected one stays selected.
  void Toggle(Row row);
  /// The window shows the row; the others stay selected.
  void MoveCurrent(Row row, bool scroll = true);
  /// Selects all captions; the current one stays it.
  void All();

 private:
  bool TakesMany() const { return list_.Options().manner.ListIsAWorkbench(); }

  CaptionList& list_;
  Row anchor_ = 1;
  bool drawing_ = false;  ///< the anchor stays while a stretch is drawn from it
};

}  // namespace cuewright
