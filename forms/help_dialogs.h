#pragma once

#include "capture/main_window.h"
#include "forms/about_dialog.h"
#include "forms/update_dialog.h"

namespace cuewright {

/// The dialogs that the menu Help opens.
class HelpDialogs {
 public:
  HelpDialogs(MainWindow& window, const UpdateParts& parts, const FormatCatalogue& catalogue, const SystemInfo& system);

  AboutDialog about;
  UpdateDialog update;
};

}  // namespace cuewright
