#pragma once

#include <cstdint>

#include "capture/caption_grid.h"
#include "capture/main_window.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/seen_text.h"

namespace cuewright {

/// Shows the current caption in the window: the text pane, the time boxes and the style checks follow the list.
class CaptionPanel {
 public:
  CaptionPanel(MainWindow& window, CaptionList& list, CaptionGrid& grid, const LangStrings& strings);

  /// Start and end of the caption shown last, in ms.

  enum class Showing { BlankCaption, Notice };
  /// Empties the list: to one blank caption, or to the notice that there is no document.
  void ResetGrid(Showing showing);

  /// The text pane shows the text of a row, without marks unless the user wants to see them.
  void ShowText(Row row);
  /// The text of the pane as it is stored: marks that aren't shown have kept their places.
  Text TakeText();

  /// The checks of the three style items follow the row.
  void ShowStyles(Row row);

  /// Sets the headings and the alignment for the language in force.
  void ApplyLanguage(bool rightToLeft);

  Signal<CaptionPanel, Row> CaptionShown;  ///< the window shows another caption, or the same one anew

 private:
  void ShowRow(Row row, bool scroll);
  bool HidesMarks() const;

  MainWindow& window_;
  CaptionList& list_;
  CaptionGrid& grid_;
  const LangStrings& strings_;
  SeenText pane_;  // what the pane shows, while it hides marks
  Ms shownStart_ = 0;
  Ms shownEnd_ = 0;
};

}  // namespace cuewright
