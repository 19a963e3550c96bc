#pragma once

#include "capture/main_window.h"
#include "capture/preview.h"
#include "capture/timing_capture.h"
#include "core/caption_list.h"
#include "core/edit_history.h"
#include "core/lang_strings.h"

namespace cuewright {

/// The name of a command as the menu shows it.
Text EditName(EditKind kind, const LangStrings& strings);

/// Undo and Redo of the Edit menu.
class UndoCommands {
 public:
  UndoCommands(MainWindow& window, CaptionList& list, EditHistory& history, TimingCapture& capture, Preview& preview,
               const LangStrings& strings);

  /// The two items name what they would do, in the language in force.
  void ShowItems();

 private:
  void Undo();
  void Redo();

  MainWindow& window_;
  CaptionList& list_;
  EditHistory& history_;
  TimingCapture& capture_;
  Preview& preview_;
  const LangStrings& strings_;
};

}  // namespace cuewright
