#pragma once

#include <functional>

#include "core/form/main_window.h"
#include "forms/about_dialog.h"

namespace cuewright {

/// The dialogs that the menu Help opens.
class HelpDialogs {
 public:
  HelpDialogs(MainWindow& window, const AppOptions& options, const LangStrings& strings, const Languages& languages,
              const FormatCatalogue& catalogue, Desktop& desktop, const SystemInfo& system);

  AboutDialog about;

  /// Shows a dialog that is filled; it goes by itself when it closes. Set by the owner of the windows.
  std::function<void()> runAbout;
};

}  // namespace cuewright
