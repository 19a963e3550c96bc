#pragma once

#include <cstdint>

#include "capture/caption_grid.h"
#include "capture/main_window.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"

namespace cuewright {

/// Shows the current caption in the window: the text pane, the time boxes and the style checks follow the list.
class CaptionPanel {
 public:
  CaptionPanel(MainWindow& window, CaptionList& list, CaptionGrid& grid, const LangStrings& strings);

  /// Start and end of the caption shown last, in ms.

  enum class Showing { BlankCaption, Notice };
  /// Empties the list: to one blank caption, or to the notice that there is no document.
  void ResetGrid(Showing showing);

  /// The checks of the three style items follow the row.
  void ShowStyles(Row row);

  /// The headings and the alignment in the language in force.
  void ApplyLanguage(bool rightToLeft);

  Signal<CaptionPanel, Row> CaptionShown;  ///< the window shows another caption, or the same one anew

 private:
  void ShowRow(Row row, bool scroll);

  MainWindow& window_;
  CaptionList& list_;
  CaptionGrid& grid_;
  const LangStrings& strings_;
  std::int32_t shownStart_ = 0;
  std::int32_t shownEnd_ = 0;
};

}  // namespace cuewright
