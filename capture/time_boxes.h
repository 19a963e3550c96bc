#pragma once

#include <array>

#include "capture/main_window.h"
#include "core/caption_list.h"

namespace cuewright {

/// The two boxes `txtTime` of start and duration: fields of 12 characters in which typing overwrites and the
/// caret steps over the separators.
class TimeBoxes {
 public:
  TimeBoxes(MainWindow& window, CaptionList& list);

 private:
  void Wire(std::size_t index);
  void OnKeyDown(TextBox& box, KeyEvent& key);
  void OnKeyPress(TextBox& box, KeyEvent& key);
  void Overwrite(TextBox& box, char16_t character);
  /// Where the caret goes from a 0-based position; one character is selected there.
  void StepCaret(TextBox& box, int from);
  void Check(std::size_t index);
  void Commit();

  MainWindow& window_;
  CaptionList& list_;
  std::array<Text, 2> kept_;  // the texts to go back to
  bool caretBack_ = false;
};

}  // namespace cuewright
