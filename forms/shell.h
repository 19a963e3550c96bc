#pragma once

#include <functional>
#include <vector>

#include "capture/caption_grid.h"
#include "capture/caption_panel.h"
#include "capture/main_window.h"
#include "capture/timing_capture.h"
#include "core/document.h"
#include "core/folders.h"
#include "core/lang_strings.h"
#include "forms/caption_commands.h"
#include "forms/layout_memory.h"
#include "forms/main_layout.h"
#include "forms/player_binding.h"
#include "forms/ports.h"
#include "forms/recall.h"

namespace cuewright {

/// How the main window starts, what of it the open files allow, and its layout.
class Shell {
 public:
  Shell(MainWindow& window, CaptionList& list, CaptionGrid& grid, CaptionPanel& panel, DocumentState& document,
        AppOptions& options, const LangStrings& strings, SettingsStore& store, Recall& recall, Preview& preview,
        TimingCapture& capture, CaptionCommands& commands, PlayerBinding& playerBinding, const Folders& folders,
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
  /// Enables and shows what the open files allow.
  void ResetControls();
  /// The two file labels of the information bar.
  void RefreshFileLabels();
  /// Captions of all controls in the language in force.
  void ApplyMainWindowLanguage(bool rightToLeft);
  /// Stores the window's own settings; size and state only when it isn't minimised.
  void SaveAtUnload(bool minimised, bool maximised, int width, int height);

  MainLayout& Layout() { return layout_; }
  LayoutMemory& Memory() { return memory_; }
  /// Lays the window out for the bars that are switched on.
  void UpdateBars();
  /// Lays the columns out for the present layout; the widths of text pane and scroll bar are the window's.
  void ApplyColumns(int paneWidth, int scrollBarWidth);

  Signal<> LayoutChanged;
  /// Keeps the system's own filter for subtitles out of the way, before anything plays. Set by the program.
  std::function<void()> applyFilter;

 private:
  void Wire();
  void SetDocumentItems(bool on);
  void ToggleInfoBar();
  void ApplyMenuTexts();
  void ApplyTexts(bool rightToLeft);
  void ApplyDirection(bool rightToLeft);

  MainWindow& window_;
  CaptionList& list_;
  CaptionGrid& grid_;
  CaptionPanel& panel_;
  DocumentState& document_;
  AppOptions& options_;
  const LangStrings& strings_;
  SettingsStore& store_;
  Recall& recall_;
  Preview& preview_;
  TimingCapture& capture_;
  CaptionCommands& commands_;
  PlayerBinding& playerBinding_;
  const Folders& folders_;
  Ports ports_;
  MainLayout layout_;
  LayoutMemory memory_{store_, layout_};
};

}  // namespace cuewright
