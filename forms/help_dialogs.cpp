#include "forms/help_dialogs.h"

namespace cuewright {

HelpDialogs::HelpDialogs(MainWindow& window, const AppOptions& options, const LangStrings& strings,
                         const Languages& languages, const FormatCatalogue& catalogue, Desktop& desktop,
                         const SystemInfo& system)
    : about(options, strings, languages, catalogue, desktop, system) {
  window.mnuAbout.Clicked.Connect([this] {
    if (about.IsOpen()) return;
    about.Open();
    if (runAbout) runAbout();
  });
}

}  // namespace cuewright
