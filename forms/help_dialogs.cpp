#include "forms/help_dialogs.h"

namespace cuewright {

HelpDialogs::HelpDialogs(MainWindow& window, const UpdateParts& parts, const FormatCatalogue& catalogue,
                         const SystemInfo& system)
    : about(parts.options, parts.strings, parts.languages, catalogue, parts.ports.desktop, system), update(parts) {
  const auto opens = [](MenuItem& item, auto& dialog) {
    item.Clicked.Connect([&dialog] {
      if (!dialog.IsOpen()) dialog.Open();
    });
  };
  opens(window.mnuAbout, about);
  opens(window.mnuUpdate, update);
}

}  // namespace cuewright
