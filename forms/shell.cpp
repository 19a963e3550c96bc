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

Shell::Shell(MainWindow& window, CaptionList& list, CaptionGrid& grid, CaptionPanel& panel, DocumentState& document,
             AppOptions& options, const LangStrings& strings, SettingsStore& store, Recall& recall, Preview& preview,
             TimingCapture& capture, CaptionCommands& commands, PlayerBinding& playerBinding, const Folders& folders,
             Ports ports)
    : window_(window),
      list_(list),
      grid_(grid),
      panel_(panel),
      document_(document),
      options_(options),
      strings_(strings),
      store_(store),
      recall_(recall),
      preview_(preview),
      capture_(capture),
      commands_(commands),
      playerBinding_(playerBinding),
      folders_(folders),
      ports_(ports) {
  Wire();
}

void Shell::Wire() {
  window_.mnuInfoBar.Clicked.Connect([this] { ToggleInfoBar(); });
  const auto opens = [this](MenuItem& item, const Text& target) {
    item.Clicked.Connect([this, target] { OpenExternal(ports_.desktop, target); });
  };
  const auto page = [this](MenuItem& item, const Text& path) {
    item.Clicked.Connect([this, path] { OpenWebPage(ports_.desktop, path, options_.Language); });
  };
  page(window_.mnuTessaly, {});
  page(window_.mnuForums, u"forum");
  page(window_.mnuPermanentSubs, u"guides.php");
  window_.mnuWebsite.Clicked.Connect(
      [this] { OpenWebPage(ports_.desktop, ProductPage(options_.Language), options_.Language); });
  opens(window_.mnuSuggest, MailLink(u"Tessaly Cuewright: feature suggestion"));
  opens(window_.mnuMediaPlayer, Text(kPlayerPage));
  window_.picLogo.MouseDown.Connect([this](const MouseEvent& mouse) {
    if (mouse.button == MouseButton::Left) window_.mnuWebsite.Click();
  });
}

Shell::StartSize Shell::LoadOptions(int screenWidth, int screenHeight) {
  CarryOn step;
  StartSize size;
  step([&] {
    window_.mnuInfoBar.SetChecked(options_.M_INFOBAR);
    UpdateBars();
  });
  step([&] { grid_.SetFont(options_.M_FONTNAME, options_.M_FONTSIZE, options_.M_FONTBOLD); });
  step([&] {
    const int state = ReadNumber(store_, u"WindowState", kMaximised);
    size.maximised = state == kMaximised;
    // Any other value leaves the window as the desktop makes it.
    if (state != kNormal && state != kMaximised) return;
    size.width = std::min(ReadNumber(store_, u"WindowWidth", kDefaultWidth), screenWidth);
    size.height = std::min(ReadNumber(store_, u"WindowHeight", kDefaultHeight), screenHeight);
  });
  step([&] {
    memory_.Load();
    size.corner = memory_.WindowCorner();
    UpdateBars();
  });
  step([&] { ports_.player.SetVolume(ReadNumber(store_, u"Volume", kDefaultVolume)); });
  step([&] { ports_.player.SetStretchToFit(options_.P_STRETCH != 0); });
  step([&] {
    ports_.player.SetUiMode(options_.P_UIMODE);
    options_.P_UIMODE = ports_.player.UiMode();
  });
  step([&] { commands_.ShowSeparator(); });
  step([&] {
    if (applyFilter) applyFilter();
  });
  step([&] { recall_.ShowKept(); });
  if (step.Last()) {
    ports_.messages.Show({u"Error while loading main settings.\r\n\r\nError #" + Decimal(step.Last()->number) +
                              u"\r\n" + step.Last()->description,
                          BoxIcon::Warning});
  }
  return size;
}

void Shell::SetDocumentItems(bool on) {
  window_.lblShow.SetEnabled(on);
  window_.lblDuration.SetEnabled(on);
  grid_.SetEnabled(on);
  for (MenuItem* item :
       {&window_.mnuSave, &window_.mnuSaveAs, &window_.mnuAdd, &window_.mnuEditSelected, &window_.mnuBold,
        &window_.mnuItalic, &window_.mnuUnderline, &window_.mnuConvert, &window_.mnuAppend, &window_.mnuRemove,
        &window_.mnuRules, &window_.mnuSpell, &window_.mnuFind, &window_.mnuReplace, &window_.mnuDelay,
        &window_.mnuReset, &window_.mnuGoTo, &window_.mnuCountUntimed, &window_.mnuNextUntimed}) {
    item->SetEnabled(on);
  }
}

void Shell::ResetControls() {
  const bool document = document_.HasDocument();
  const bool video = document_.HasVideo();
  window_.mnuClose.SetEnabled(document || video || !document_.WavePath.empty());
  SetDocumentItems(document);
  if (!document) {
    capture_.Reset();
    capture_.SelectMode(CaptionMode::PressAndHold);
    for (TextBox& box : window_.txtTime) box.SetText(MsToTimeText(0));
    panel_.ResetGrid(false);
    window_.cmdApply.SetEnabled(false);
    window_.cmdNext.SetEnabled(false);
    window_.cmdEnd.SetEnabled(false);
  }
  if (video) {
    window_.picPLogo.SetVisible(false);
  } else if (ports_.player.Enabled()) {
    playerBinding_.Empty();
  }
  ports_.player.SetEnabled(video);
  for (Label* label : {&window_.lblPosition, &window_.lblTime, &window_.lblStringPos}) label->SetEnabled(video);
  window_.tmrTime.SetEnabled(video);
  const bool both = document && video;
  window_.lblMode.SetEnabled(both);
  window_.lblMainMode.SetEnabled(both);
  window_.optPress.SetEnabled(both);
  window_.optManual.SetEnabled(both);
  window_.optPreview.SetEnabled(both);
  preview_.ClearPreviewCaption();
  RefreshFileLabels();
}

void Shell::RefreshFileLabels() {
  const bool document = document_.HasDocument();
  const bool video = document_.HasVideo();
  if (!document && !video) {
    window_.lblTextFile.SetText(strings_[22]);
    window_.lblVideoFile.SetText(strings_[23]);
    return;
  }
  window_.lblTextFile.SetText(!document              ? strings_[24]
                              : !document_.HasFile() ? strings_[12]
                                                     : strings_[48] + FileNameOf(document_.SubtitlePath));
  window_.lblVideoFile.SetText(video ? strings_[49] + InItsOrder(strings_[49], document_.VideoPath) : strings_[25]);
}

void Shell::UpdateBars() {
  window_.picIco.SetVisible(options_.M_INFOBAR);
  layout_.SetBars(options_.M_INFOBAR, options_.M_AUDIOBAR ? AudioBar::kHeight : 0, kBottomHeight);
  LayoutChanged();
}

void Shell::ToggleInfoBar() {
  options_.M_INFOBAR = !options_.M_INFOBAR;
  window_.mnuInfoBar.SetChecked(options_.M_INFOBAR);
  UpdateBars();
  preview_.PlacePreview();
}

void Shell::ApplyColumns(int paneWidth, int scrollBarWidth) {
  grid_.SetColumnWidths(memory_.Columns(layout_.ListWidth(), paneWidth, scrollBarWidth));
}

void Shell::ApplyMenuTexts() {
  struct Labelled {
    Control& control;
    std::size_t message;
  };
  MainWindow& w = window_;
  const Labelled rows[] = {{w.mnuFile, 0},
                           {w.mnuNew, 17},
                           {w.mnuNewClip, 18},
                           {w.mnuOpenText, 59},
                           {w.mnuOpenVideo, 60},
                           {w.mnuOpenWav, 61},
                           {w.mnuClose, 64},
                           {w.mnuSave, 44},
                           {w.mnuSaveAs, 45},
                           {w.mnuEmbed, 362},
                           {w.mnuExit, 65},
                           {w.mnuRecent, 900},
                           {w.mnuClearRecent, 901},
                           {w.mnuEdit, 1},
                           {w.mnuAdd, 9},
                           {w.mnuAddBelow, 10},
                           {w.mnuAddBottom, 11},
                           {w.mnuEditSelected, 12},
                           {w.mnuRemove, 13},
                           {w.mnuFind, 138},
                           {w.mnuReplace, 432},
                           {w.mnuGoTo, 246},
                           {w.mnuCountUntimed, 134},
                           {w.mnuNextUntimed, 135},
                           {w.mnuAppend, 72},
                           {w.mnuDelay, 170},
                           {w.mnuReset, 14},
                           {w.mnuFormat, 2},
                           {w.mnuFont, 153},
                           {w.mnuBold, 154},
                           {w.mnuItalic, 155},
                           {w.mnuUnderline, 156},
                           {w.mnuConvert, 284},
                           {w.mnuView, 3},
                           {w.mnuInfoBar, 355},
                           {w.mnuAudioBar, 356},
                           {w.mnuAudioBarColor, 357},
                           {w.mnuFullWave, 358},
                           {w.mnuTools, 4},
                           {w.mnuSpell, 259},
                           {w.mnuRules, 31},
                           {w.mnuAudioExtract, 437},
                           {w.mnuReport, 184},
                           {w.mnuSettings, 5},
                           {w.mnuFormatSettings, 325},
                           {w.mnuLineSeparator, 162},
                           {w.mnuGSettings, 193},
                           {w.mnuHelp, 6},
                           {w.mnuHelpTopics, 159},
                           {w.mnuLinks, 269},
                           {w.mnuTessaly, 120},
                           {w.mnuForums, 130},
                           {w.mnuPermanentSubs, 270},
                           {w.mnuMediaPlayer, 131},
                           {w.mnuSuggest, 132},
                           {w.mnuUpdate, 288},
                           {w.mnuWebsite, 19},
                           {w.mnuAbout, 20},
                           {w.rmnuBold, 154},
                           {w.rmnuItalic, 155},
                           {w.rmnuUnderline, 156},
                           {w.rmnuEdit, 12},
                           {w.rmnuRemove, 13},
                           {w.cmdNext, 41},
                           {w.cmdEnd, 42},
                           {w.cmdCancel, 67},
                           {w.lblPosition, 149},
                           {w.lblShow, 318},
                           {w.lblDuration, 320},
                           {w.lblMainMode, 32},
                           {w.lblWaveTip, 30},
                           {w.mnuFilmSound, 972},
                           {w.mnuEmptySounds, 973},
                           {w.cmdStopSound, 976},
                           {w.optManual, 34},
                           {w.optPreview, 35}};
  for (const Labelled& row : rows) row.control.SetText(strings_[row.message]);
}

void Shell::ApplyMainWindowLanguage(bool rightToLeft) {
  CarryOn step;
  step([&] { ApplyTexts(rightToLeft); });
  step([&] { ApplyDirection(rightToLeft); });
  step([&] { RefreshFileLabels(); });
  if (step.Last()) {
    ports_.messages.Show(
        {u"Runtime error # " + Decimal(step.Last()->number) + Text(kLineEnd) + step.Last()->description,
         BoxIcon::Warning});
  }
}

void Shell::ApplyTexts(bool rightToLeft) {
  panel_.ApplyLanguage(rightToLeft);
  ApplyMenuTexts();
  commands_.ShowSeparator();
  capture_.ShowModeTexts();
  for (TextBox& box : window_.txtTime) box.SetToolTip(strings_[415]);
  window_.lblTime.SetToolTip(strings_[104]);
  if (!grid_.Active()) grid_.ShowNotice(strings_[24]);
}

void Shell::ApplyDirection(bool rightToLeft) {
  for (Control* control : std::initializer_list<Control*>{&window_.lblMainMode, &window_.lblMode, &window_.lblTextFile,
                                                          &window_.lblVideoFile, &window_.optPress, &window_.optManual,
                                                          &window_.optPreview}) {
    control->SetRightToLeft(rightToLeft);
  }
  window_.SetRightToLeft(rightToLeft);
}

void Shell::SaveAtUnload(bool minimised, bool maximised, int width, int height) {
  if (!minimised) {
    store_.SaveSettings(kMainSection, {{u"WindowState", Decimal(maximised ? kMaximised : 0)},
                                       {u"WindowHeight", Decimal(height)},
                                       {u"WindowWidth", Decimal(width)}});
  }
  memory_.Save();
  SaveMainWindowSettings(store_, options_, ports_.player.Volume());
}

}  // namespace cuewright
