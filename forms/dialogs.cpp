#include "forms/dialogs.h"

#include <utility>

#include "core/numbers.h"
#include "external/common_dialogs.h"

namespace cuewright {
namespace {

constexpr int kLeastListFont = 8;
constexpr int kMostListFont = 24;
constexpr int kBoldWeight = 700;
constexpr int kPlainWeight = 400;

}  // namespace

Dialogs::Dialogs(MainWindow& window, CaptionGrid& grid, const SettingsParts& settingsParts,
                 const FormatParts& formatParts, ExportDialog& exportDialog)
    : settings(settingsParts),
      format(formatParts),
      grid_(grid),
      options_(settingsParts.options),
      pickers_(settingsParts.ports.pickers) {
  window.mnuGSettings.Clicked.Connect([this] { OpenSettings(); });
  window.mnuFormatSettings.Clicked.Connect([this] { OpenFormatSettings(); });
  window.mnuFont.Clicked.Connect([this] { ChangeListFont(); });
  exportDialog.SettingsAsked.Connect([this] {
    fromExport_ = true;
    OpenFormatSettings();
  });
  format.Closed.Connect([this, &exportDialog] {
    if (std::exchange(fromExport_, false)) exportDialog.OnConfigured();
  });
}

void Dialogs::OpenSettings() {
  if (settings.IsOpen()) return;
  settings.Open();
}

void Dialogs::OpenFormatSettings() {
  if (format.IsOpen()) return;
  format.Open();
}

void Dialogs::ChangeListFont() {
  FontChoice font;
  font.Name = options_.listFontName;
  font.Size = options_.listFontSize;
  font.Bold = options_.listFontBold;
  font.Weight = font.Bold ? kBoldWeight : kPlainWeight;
  if (!ShowFontDialog(pickers_, font, kLeastListFont, kMostListFont)) return;
  options_.listFontName = font.Name;
  options_.listFontSize = Checked8(RoundToInt32(font.Size));
  options_.listFontBold = font.Bold;
  grid_.SetFont(options_.listFontName, options_.listFontSize, options_.listFontBold);
}

}  // namespace cuewright
