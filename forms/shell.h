#pragma once

#include <optional>

#include "capture/preview.h"
#include "capture/workbench.h"
#include "forms/caption_commands.h"
#include "forms/layout_memory.h"
#include "forms/main_layout.h"
#include "forms/ports.h"
#include "forms/recall.h"

namespace cuewright {

/// How the main window starts and ends, and its layout.
class Shell {
 public:
  Shell(Workbench bench, SettingsStore& store, Recall& recall, Preview& preview, CaptionCommands& commands,
        Ports ports);

  /// The size and state that the window starts with.
  struct StartSize {
    int width = 0;
    int height = 0;
    bool maximised = false;
    std::optional<LayoutMemory::Corner> corner{};  ///< where the window stood; unset: anywhere
  };

  /// Applies the settings to the window; the size is for a screen of these pixels.
  StartSize LoadOptions(int screenWidth, int screenHeight);
  /// Stores the window's own settings; size and state only when it isn't minimised.
  void SaveAtUnload(bool minimised, bool maximised, int width, int height);

  MainLayout& Layout() { return layout_; }
  LayoutMemory& Memory() { return memory_; }
  /// Lays the window out for the bars that are switched on.
  void UpdateBars();
  /// The list has the user's letters.
  void ShowListFont();
  /// Lays the columns out for the present layout; the widths of text pane and scroll bar are the window's.
  void ApplyColumns(int paneWidth, int scrollBarWidth);

  Signal<Shell> LayoutChanged;
  Signal<Shell> Loading;  ///< the settings are being applied to the window: nothing plays yet

 private:
  void Wire();
  /// A part of the window comes or goes.
  void Toggle(bool& part);

  Workbench bench_;
  SettingsStore& store_;
  Recall& recall_;
  Preview& preview_;
  CaptionCommands& commands_;
  Ports ports_;
  MainLayout layout_;
  LayoutMemory memory_{store_, layout_};
};

}  // namespace cuewright
