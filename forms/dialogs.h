#pragma once

#include "capture/caption_grid.h"
#include "capture/main_window.h"
#include "forms/export_dialog.h"
#include "forms/format_dialog.h"
#include "forms/settings_dialog.h"

namespace cuewright {

/// The dialogs that the menus Format and Settings and the saving open.
class Dialogs {
 public:
  Dialogs(MainWindow& window, CaptionGrid& grid, const SettingsParts& settingsParts, const FormatParts& formatParts,
          ExportDialog& exportDialog);

  SettingsDialog settings;
  FormatDialog format;

  /// Opens the general settings; nothing happens while they are open.
  void OpenSettings();
  /// Opens the settings of the format in `SettingsFormatIndex`.
  void OpenFormatSettings();

 private:
  void ChangeListFont();

  CaptionGrid& grid_;
  AppOptions& options_;
  Pickers& pickers_;
  bool fromExport_ = false;
};

}  // namespace cuewright
