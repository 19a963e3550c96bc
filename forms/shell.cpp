#include "forms/shell.h"

#include <algorithm>

#include "audio/audio_bar.h"
#include "core/caption_time.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "forms/web.h"
#include "settings/options.h"

namespace cuewright {
namespace {

constexpr int kNormal = 0;
constexpr int kMaximised = 2;
constexpr int kDefaultWidth = 600;
constexpr int kDefaultHeight = 570;
constexpr int kDefaultVolume = 75;
constexpr int kBottomHeight = 176;

}  // namespace

Shell::Shell(Workbench bench, SettingsStore& store, Recall& recall, Preview& preview, CaptionCommands& commands,
             Ports ports)
    : bench_(bench), store_(store), recall_(recall), preview_(preview), commands_(commands), ports_(ports) {
  Wire();
}

void Shell::Wire() {
  bench_.window.mnuInfoBar.Clicked.Connect([this] { Toggle(bench_.options.infoBarOn); });
  bench_.window.mnuUnfoldInfoBar.Clicked.Connect([this] { Toggle(bench_.options.infoBarUnfolded); });
  bench_.window.mnuToolBar.Clicked.Connect([this] { Toggle(bench_.options.toolBarOn); });
  const auto opens = [this](MenuItem& item, const Text& target) {
    item.Clicked.Connect([this, target] { OpenExternal(ports_.desktop, target); });
  };
  const auto page = [this](MenuItem& item, const Text& path) {
    item.Clicked.Connect([this, path] { OpenWebPage(ports_.desktop, path, bench_.options.language); });
  };
  page(bench_.window.mnuTessaly, {});
  page(bench_.window.mnuForums, u"forum");
  page(bench_.window.mnuPermanentSubs, u"guides.php");
  bench_.window.mnuWebsite.Clicked.Connect(
      [this] { OpenWebPage(ports_.desktop, ProductPage(bench_.options.language), bench_.options.language); });
  opens(bench_.window.mnuSuggest, MailLink(u"Tessaly Cuewright: feature suggestion"));
  opens(bench_.window.mnuMediaPlayer, Text(kPlayerPage));
  bench_.window.picLogo.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) bench_.window.mnuWebsite.Click();
  });
}

Shell::StartSize Shell::LoadOptions(int screenWidth, int screenHeight) {
  CarryOn step;
  StartSize size;
  step([&] { UpdateBars(); });
  step([&] { ShowListFont(); });
  step([&] {
    const int state = ReadNumber(store_, u"WindowState", kMaximised);
    size.maximised = state == kMaximised;
    // Any other value leaves the window as the desktop makes it.
    if (state != kNormal && state != kMaximised) return;
    size.width = std::min(ReadNumber(store_, u"WindowWidth", kDefaultWidth), screenWidth);
    size.height = std::min(ReadNumber(store_, u"WindowHeight", kDefaultHeight), screenHeight);
  });
  step([&] {
    layout_.ShareAlike(bench_.options.manner.ListIsAWorkbench());
    memory_.Load();
    size.corner = memory_.WindowCorner();
    UpdateBars();
  });
  step([&] { ports_.player.SetVolume(ReadNumber(store_, u"Volume", kDefaultVolume)); });
  step([&] { ports_.player.SetStretchToFit(bench_.options.stretchVideo != 0); });
  step([&] {
    ports_.player.SetUiMode(bench_.options.playerControls);
    bench_.options.playerControls = ports_.player.UiMode();
  });
  step([&] { commands_.ShowSeparator(); });
  step([&] { commands_.ShowMarks(); });
  step([&] { Loading(); });
  step([&] { recall_.ShowKept(); });
  if (step.Last()) {
    ports_.messages.Show({u"Error while loading main settings.\r\n\r\nError #" + Decimal(step.Last()->number) +
                              u"\r\n" + step.Last()->description,
                          BoxIcon::Warning});
  }
  return size;
}

void Shell::ShowListFont() {
  const AppOptions& options = bench_.options;
  const AppOptions usual;
  // Without a font chosen for the list it has the desktop's.
  const bool chosen = options.listFontName != usual.listFontName || options.listFontSize != usual.listFontSize ||
                      options.listFontBold != usual.listFontBold;
  const bool desktops = options.manner.HasCalmWindow() && !chosen;
  bench_.grid.SetFont(desktops ? Text() : options.listFontName, options.listFontSize, options.listFontBold);
}

void Shell::UpdateBars() {
  const AppOptions& options = bench_.options;
  const bool calm = options.manner.HasCalmWindow();
  bench_.window.mnuInfoBar.SetChecked(options.infoBarOn);
  bench_.window.mnuUnfoldInfoBar.SetChecked(options.infoBarUnfolded);
  bench_.window.mnuUnfoldInfoBar.SetVisible(calm);
  bench_.window.mnuUnfoldInfoBar.SetEnabled(options.infoBarOn);
  bench_.window.mnuToolBar.SetChecked(options.toolBarOn);
  bench_.window.mnuToolBar.SetVisible(calm);
  bench_.window.picIco.SetVisible(options.infoBarOn);
  using Band = MainLayout::Band;
  const Band band = !options.infoBarOn ? Band::Off : calm && !options.infoBarUnfolded ? Band::Line : Band::Full;
  const int wave = options.manner.WaveIsAWorkbench() ? options.waveHeight : AudioBar::kHeight;
  layout_.SetBars(band, options.audioBarOn ? wave : 0, kBottomHeight);
  LayoutChanged();
}

void Shell::Toggle(bool& part) {
  part = !part;
  UpdateBars();
  preview_.PlacePreview();
}

void Shell::ApplyColumns(int paneWidth, int scrollBarWidth) {
  bench_.grid.SetColumnWidths(memory_.Columns(layout_.ListWidth(), paneWidth, scrollBarWidth));
}

void Shell::SaveAtUnload(bool minimised, bool maximised, int width, int height) {
  if (!minimised) {
    store_.SaveSettings(kMainSection, {{u"WindowState", Decimal(maximised ? kMaximised : 0)},
                                       {u"WindowHeight", Decimal(height)},
                                       {u"WindowWidth", Decimal(width)}});
  }
  memory_.Save();
  SaveMainWindowSettings(store_, bench_.options, ports_.player.Volume());
}

}  // namespace cuewright
