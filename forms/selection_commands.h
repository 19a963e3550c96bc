#pragma once

#include "capture/caption_panel.h"
#include "capture/preview.h"
#include "capture/workbench.h"
#include "core/ms.h"
#include "formats/format_state.h"
#include "forms/clipboard_captions.h"
#include "forms/ports.h"
#include "text/letter_case.h"

namespace cuewright {

/// The commands that act on all selected captions, each in one step that can be taken back.
class SelectionCommands {
 public:
  SelectionCommands(Workbench bench, CaptionPanel& panel, Preview& preview, const FormatState& formats, Ports ports);

  /// The items are there in the manner that has them.
  void ShowItems();

  /// Gives the style of a marker to all, or takes it from them when they all have it.
  void ToggleStyle(TextView marker);

 private:
  void Wire();
  void Cut();
  void Copy();
  void Paste();
  void Shift();
  void ShiftBy(Ms ms);
  void Join();
  void ChangeCase(LetterCase wanted);
  void Move(bool down);
  void SortByStart();

  const RowSet& Rows() const { return bench_.list.SelectedRows(); }
  /// Puts what `change` makes of the text of each selected row into the list, in one change.
  template <class Change>
  void Rewrite(EditKind kind, Change change);
  /// The rows of a stretch stand in another order: `order` has the row that comes to each place.
  void Reorder(EditKind kind, const RowSet::Stretch& stretch, const std::vector<Row>& order);
  ClipboardCaptions Taken() const;
  /// The window shows what has become of the current row's text.
  void ShowCurrent();

  Workbench bench_;
  CaptionPanel& panel_;
  Preview& preview_;
  const FormatState& formats_;
  Ports ports_;
};

}  // namespace cuewright
