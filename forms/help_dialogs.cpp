#include "forms/help_dialogs.h"

namespace cuewright {

HelpDialogs::HelpDialogs(MainWindow& window, const UpdateParts& parts, const FormatCatalogue& catalogue,
                         const SystemInfo& system)
    : about(parts.options, parts.strings, parts.languages, catalogue, parts.ports.desktop, system), update(parts) {
  const auto opens = [](MenuItem& item, auto& dialog, std::function<void()>& run) {
    item.Clicked.Connect([&dialog, &run] {
      if (dialog.IsOpen()) return;
      dialog.Open();
      if (run) run();
    });
  };
  opens(window.mnuAbout, about, runAbout);
  opens(window.mnuUpdate, update, runUpdate);
}

}  // namespace cuewright
