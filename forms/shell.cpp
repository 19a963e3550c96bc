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
    item.Clicked.Connect([this, path] { OpenWebPage(ports_.desktop, path, options_.language); });
  };
  page(window_.mnuTessaly, {});
  page(window_.mnuForums, u"forum");
  page(window_.mnuPermanentSubs, u"guides.php");
  window_.mnuWebsite.Clicked.Connect(
      [this] { OpenWebPage(ports_.desktop, ProductPage(options_.language), options_.language); });
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
    window_.mnuInfoBar.SetChecked(options_.infoBarOn);
    UpdateBars();
  });
  step([&] { grid_.SetFont(options_.listFontName, options_.listFontSize, options_.listFontBold); });
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
  step([&] { ports_.player.SetStretchToFit(options_.stretchVideo != 0); });
  step([&] {
    ports_.player.SetUiMode(options_.playerControls);
    options_.playerControls = ports_.player.UiMode();
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
    window_.lblTextFile.SetText(strings_[Message::WelcomeToProgram]);
    window_.lblVideoFile.SetText(strings_[Message::UseTheFileMenu]);
    return;
  }
  window_.lblTextFile.SetText(!document ? strings_[Message::NoTextFileLoaded]
                              : !document_.HasFile()
                                  ? strings_[Message::EditCaptionItem]
                                  : strings_[Message::CurrentSubtitleFile] + FileNameOf(document_.SubtitlePath));
  window_.lblVideoFile.SetText(video ? strings_[Message::CurrentVideoFile] +
                                           InItsOrder(strings_[Message::CurrentVideoFile], document_.VideoPath)
                                     : strings_[Message::NoVideoFileLoaded]);
}

void Shell::UpdateBars() {
  window_.picIco.SetVisible(options_.infoBarOn);
  layout_.SetBars(options_.infoBarOn, options_.audioBarOn ? AudioBar::kHeight : 0, kBottomHeight);
  LayoutChanged();
}

void Shell::ToggleInfoBar() {
  options_.infoBarOn = !options_.infoBarOn;
  window_.mnuInfoBar.SetChecked(options_.infoBarOn);
  UpdateBars();
  preview_.PlacePreview();
}

void Shell::ApplyColumns(int paneWidth, int scrollBarWidth) {
  grid_.SetColumnWidths(memory_.Columns(layout_.ListWidth(), paneWidth, scrollBarWidth));
}

void Shell::ApplyMenuTexts() {
  struct Labelled {
    Control& control;
    Message message;
  };
  MainWindow& w = window_;
  const Labelled rows[] = {{w.mnuFile, Message::MenuFile},
                           {w.mnuNew, Message::NewSubtitle},
                           {w.mnuNewClip, Message::NewFromClipboard},
                           {w.mnuOpenText, Message::OpenText},
                           {w.mnuOpenVideo, Message::OpenVideo},
                           {w.mnuOpenWav, Message::OpenAudio},
                           {w.mnuClose, Message::CloseAll},
                           {w.mnuSave, Message::Save},
                           {w.mnuSaveAs, Message::SaveAs},
                           {w.mnuEmbed, Message::EmbedSubtitles},
                           {w.mnuExit, Message::Exit},
                           {w.mnuRecent, Message::OpenRecent},
                           {w.mnuClearRecent, Message::ClearList},
                           {w.mnuEdit, Message::MenuEdit},
                           {w.mnuAdd, Message::AddCaption},
                           {w.mnuAddBelow, Message::BelowCurrent},
                           {w.mnuAddBottom, Message::AtTheBottom},
                           {w.mnuEditSelected, Message::EditCaptionItem},
                           {w.mnuRemove, Message::RemoveCaption},
                           {w.mnuFind, Message::Find},
                           {w.mnuReplace, Message::Replace},
                           {w.mnuGoTo, Message::GoToLine},
                           {w.mnuCountUntimed, Message::CountNonTimed},
                           {w.mnuNextUntimed, Message::SelectNextNonTimed},
                           {w.mnuAppend, Message::AppendSubtitle},
                           {w.mnuDelay, Message::SetDelay},
                           {w.mnuReset, Message::RemoveAllTiming},
                           {w.mnuFormat, Message::MenuFormat},
                           {w.mnuFont, Message::ListFontItem},
                           {w.mnuBold, Message::Bold},
                           {w.mnuItalic, Message::Italic},
                           {w.mnuUnderline, Message::Underline},
                           {w.mnuConvert, Message::ConvertFrom},
                           {w.mnuView, Message::MenuView},
                           {w.mnuInfoBar, Message::InfoBar},
                           {w.mnuAudioBar, Message::AudioBar},
                           {w.mnuAudioBarColor, Message::AudioBarColor},
                           {w.mnuFullWave, Message::FullHeightWave},
                           {w.mnuTools, Message::MenuTools},
                           {w.mnuSpell, Message::SpellCheck},
                           {w.mnuRules, Message::ApplyCurrentRules},
                           {w.mnuAudioExtract, Message::ExtractionWizard},
                           {w.mnuReport, Message::ViewReport},
                           {w.mnuSettings, Message::MenuSettings},
                           {w.mnuFormatSettings, Message::FormatSettings},
                           {w.mnuLineSeparator, Message::LineSeparator},
                           {w.mnuGSettings, Message::GeneralSettings},
                           {w.mnuHelp, Message::MenuHelp},
                           {w.mnuHelpTopics, Message::HelpTopics},
                           {w.mnuLinks, Message::WebLinks},
                           {w.mnuTessaly, Message::StartPageItem},
                           {w.mnuForums, Message::ForumsItem},
                           {w.mnuPermanentSubs, Message::SubtitlesGuide},
                           {w.mnuMediaPlayer, Message::DownloadPlayer},
                           {w.mnuSuggest, Message::SuggestFeature},
                           {w.mnuUpdate, Message::CheckForUpdates},
                           {w.mnuWebsite, Message::WebsiteItem},
                           {w.mnuAbout, Message::AboutProgram},
                           {w.rmnuBold, Message::Bold},
                           {w.rmnuItalic, Message::Italic},
                           {w.rmnuUnderline, Message::Underline},
                           {w.rmnuEdit, Message::EditCaptionItem},
                           {w.rmnuRemove, Message::RemoveCaption},
                           {w.cmdNext, Message::Next},
                           {w.cmdEnd, Message::End},
                           {w.cmdCancel, Message::Cancel},
                           {w.lblPosition, Message::CurrentPosition},
                           {w.lblShow, Message::ShowTime},
                           {w.lblDuration, Message::DurationTime},
                           {w.lblMainMode, Message::CaptioningMode},
                           {w.lblWaveTip, Message::RightClickToDrag},
                           {w.mnuFilmSound, Message::FilmSoundItem},
                           {w.mnuEmptySounds, Message::EmptySoundStore},
                           {w.cmdStopSound, Message::StopReading},
                           {w.optManual, Message::ManualMode},
                           {w.optPreview, Message::PreviewMode}};
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
  for (TextBox& box : window_.txtTime) box.SetToolTip(strings_[Message::PressEnterToUpdate]);
  window_.lblTime.SetToolTip(strings_[Message::PositionInMilliseconds]);
  if (!grid_.Active()) grid_.ShowNotice(strings_[Message::NoTextFileLoaded]);
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
