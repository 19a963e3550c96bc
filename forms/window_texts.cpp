#include "forms/window_texts.h"

#include "core/runtime_error.h"
#include "forms/control_texts.h"

namespace cuewright {

namespace {

/// What an item of a menu says.
struct ItemText {
  MenuItem MainWindow::*item;
  Message text;
};

constexpr ItemText kItems[] = {{&MainWindow::mnuFile, Message::MenuFile},
                               {&MainWindow::mnuNew, Message::NewSubtitle},
                               {&MainWindow::mnuNewClip, Message::NewFromClipboard},
                               {&MainWindow::mnuOpenText, Message::OpenText},
                               {&MainWindow::mnuReopen, Message::ReopenAs},
                               {&MainWindow::mnuOpenVideo, Message::OpenVideo},
                               {&MainWindow::mnuOpenWav, Message::OpenAudio},
                               {&MainWindow::mnuClose, Message::CloseAll},
                               {&MainWindow::mnuSave, Message::Save},
                               {&MainWindow::mnuSaveAs, Message::SaveAs},
                               {&MainWindow::mnuEmbed, Message::EmbedSubtitles},
                               {&MainWindow::mnuExit, Message::Exit},
                               {&MainWindow::mnuRecent, Message::OpenRecent},
                               {&MainWindow::mnuClearRecent, Message::ClearList},
                               {&MainWindow::mnuEdit, Message::MenuEdit},
                               {&MainWindow::mnuCut, Message::CutCaptions},
                               {&MainWindow::mnuCopy, Message::CopyCaptions},
                               {&MainWindow::mnuPaste, Message::PasteCaptions},
                               {&MainWindow::mnuSelectAll, Message::SelectAll},
                               {&MainWindow::mnuAdd, Message::AddCaption},
                               {&MainWindow::mnuInsertAbove, Message::AboveCurrent},
                               {&MainWindow::mnuInsertBelow, Message::BelowCurrent},
                               {&MainWindow::mnuInsertAtFilm, Message::AtFilmPosition},
                               {&MainWindow::mnuInsertStretch, Message::InsertStretch},
                               {&MainWindow::mnuAddBelow, Message::BelowCurrent},
                               {&MainWindow::mnuAddBottom, Message::AtTheBottom},
                               {&MainWindow::mnuEditSelected, Message::EditCaptionItem},
                               {&MainWindow::mnuRemove, Message::RemoveCaption},
                               {&MainWindow::mnuJoinSelected, Message::JoinSelected},
                               {&MainWindow::mnuMoveUp, Message::MoveUp},
                               {&MainWindow::mnuMoveDown, Message::MoveDown},
                               {&MainWindow::mnuSortByStart, Message::SortByStart},
                               {&MainWindow::mnuOrder, Message::OrderMenu},
                               {&MainWindow::mnuTimes, Message::TimesMenu},
                               {&MainWindow::mnuLetterCase, Message::LetterCase},
                               {&MainWindow::mnuUpperCase, Message::UpperCase},
                               {&MainWindow::mnuLowerCase, Message::LowerCase},
                               {&MainWindow::mnuSentenceCase, Message::SentenceCase},
                               {&MainWindow::mnuSplit, Message::SplitCaption},
                               {&MainWindow::mnuSplitAtCaret, Message::AtCaret},
                               {&MainWindow::mnuSplitAtFilm, Message::AtFilmPosition},
                               {&MainWindow::mnuJoin, Message::JoinCaption},
                               {&MainWindow::mnuJoinNext, Message::JoinNext},
                               {&MainWindow::mnuJoinPrevious, Message::JoinPrevious},
                               {&MainWindow::mnuDialogueNext, Message::DialogueNext},
                               {&MainWindow::mnuDialoguePrevious, Message::DialoguePrevious},
                               {&MainWindow::mnuDuplicate, Message::DuplicateCaption},
                               {&MainWindow::mnuMeetNext, Message::MeetNext},
                               {&MainWindow::mnuSwapTexts, Message::SwapTexts},
                               {&MainWindow::mnuFind, Message::Find},
                               {&MainWindow::mnuReplace, Message::Replace},
                               {&MainWindow::mnuGoTo, Message::GoToLine},
                               {&MainWindow::mnuCountUntimed, Message::CountNonTimed},
                               {&MainWindow::mnuNextUntimed, Message::SelectNextNonTimed},
                               {&MainWindow::mnuAppend, Message::AppendSubtitle},
                               {&MainWindow::mnuShift, Message::ShiftCaptions},
                               {&MainWindow::mnuDelay, Message::SetDelay},
                               {&MainWindow::mnuRetime, Message::RetimeItem},
                               {&MainWindow::mnuSnapTimes, Message::SnapTimesItem},
                               {&MainWindow::mnuFit, Message::FitItem},
                               {&MainWindow::mnuFitAll, Message::FitAllItem},
                               {&MainWindow::mnuTakeFitBack, Message::TakeFitBack},
                               {&MainWindow::mnuNextDoubtful, Message::NextDoubtful},
                               {&MainWindow::mnuFitOnRelease, Message::FitOnRelease},
                               {&MainWindow::mnuHand, Message::HandItem},
                               {&MainWindow::mnuTimesFromSound, Message::TimesFromSound},
                               {&MainWindow::mnuReset, Message::RemoveAllTiming},
                               {&MainWindow::mnuFilmSound, Message::FilmSoundItem},
                               {&MainWindow::mnuFormat, Message::MenuFormat},
                               {&MainWindow::mnuFont, Message::ListFontItem},
                               {&MainWindow::mnuBold, Message::Bold},
                               {&MainWindow::mnuItalic, Message::Italic},
                               {&MainWindow::mnuUnderline, Message::Underline},
                               {&MainWindow::mnuConvert, Message::ConvertFrom},
                               {&MainWindow::mnuView, Message::MenuView},
                               {&MainWindow::mnuInfoBar, Message::InfoBar},
                               {&MainWindow::mnuUnfoldInfoBar, Message::UnfoldInfoBar},
                               {&MainWindow::mnuToolBar, Message::ToolBar},
                               {&MainWindow::mnuAudioBar, Message::AudioBar},
                               {&MainWindow::mnuRawMarks, Message::MarksInTexts},
                               {&MainWindow::mnuListColumns, Message::ListColumnsItem},
                               {&MainWindow::mnuListTimes, Message::ListTimesItem},
                               {&MainWindow::mnuAudioBarColor, Message::AudioBarColor},
                               {&MainWindow::mnuFullWave, Message::FullHeightWave},
                               {&MainWindow::mnuBoard, Message::WaveMenu},
                               {&MainWindow::mnuWaveIn, Message::WaveIn},
                               {&MainWindow::mnuWaveOut, Message::WaveOut},
                               {&MainWindow::mnuWaveHigher, Message::WaveHigher},
                               {&MainWindow::mnuWaveLower, Message::WaveLower},
                               {&MainWindow::mnuWaveToCaption, Message::WaveToCaption},
                               {&MainWindow::mnuWaveCentred, Message::WaveCentred},
                               {&MainWindow::mnuWaveSnaps, Message::WaveSnaps},
                               {&MainWindow::mnuShotHere, Message::ShotHere},
                               {&MainWindow::mnuShotAtCursor, Message::ShotAtCursor},
                               {&MainWindow::mnuShots, Message::ShotsItem},
                               {&MainWindow::mnuTools, Message::MenuTools},
                               {&MainWindow::mnuKeys, Message::KeysOfCommands},
                               {&MainWindow::mnuSpell, Message::SpellCheck},
                               {&MainWindow::mnuRules, Message::ApplyCurrentRules},
                               {&MainWindow::mnuAudioExtract, Message::ExtractionWizard},
                               {&MainWindow::mnuReport, Message::ViewReport},
                               {&MainWindow::mnuCheck, Message::CheckSubtitles},
                               {&MainWindow::mnuNextFinding, Message::NextFinding},
                               {&MainWindow::mnuBreakLines, Message::BreakLines},
                               {&MainWindow::mnuClean, Message::CleanTexts},
                               {&MainWindow::mnuSettings, Message::MenuSettings},
                               {&MainWindow::mnuFormatSettings, Message::FormatSettings},
                               {&MainWindow::mnuLineSeparator, Message::LineSeparator},
                               {&MainWindow::mnuGSettings, Message::GeneralSettings},
                               {&MainWindow::mnuEmptySounds, Message::EmptySoundStore},
                               {&MainWindow::mnuHelp, Message::MenuHelp},
                               {&MainWindow::mnuHelpTopics, Message::HelpTopics},
                               {&MainWindow::mnuPalette, Message::FindCommand},
                               {&MainWindow::mnuLinks, Message::WebLinks},
                               {&MainWindow::mnuTessaly, Message::StartPageItem},
                               {&MainWindow::mnuForums, Message::ForumsItem},
                               {&MainWindow::mnuPermanentSubs, Message::SubtitlesGuide},
                               {&MainWindow::mnuMediaPlayer, Message::DownloadPlayer},
                               {&MainWindow::mnuSuggest, Message::SuggestFeature},
                               {&MainWindow::mnuUpdate, Message::CheckForUpdates},
                               {&MainWindow::mnuWebsite, Message::WebsiteItem},
                               {&MainWindow::mnuAbout, Message::AboutProgram},
                               {&MainWindow::rmnuBold, Message::Bold},
                               {&MainWindow::rmnuItalic, Message::Italic},
                               {&MainWindow::rmnuUnderline, Message::Underline},
                               {&MainWindow::rmnuEdit, Message::EditCaptionItem},
                               {&MainWindow::rmnuRemove, Message::RemoveCaption},
                               {&MainWindow::mnuFilm, Message::MenuFilm},
                               {&MainWindow::mnuPlayOrPause, Message::PlayOrPause},
                               {&MainWindow::mnuPlayCaption, Message::PlayCaption},
                               {&MainWindow::mnuRepeatCaption, Message::RepeatCaption},
                               {&MainWindow::mnuPlayBeforeStart, Message::PlayBeforeStart},
                               {&MainWindow::mnuPlayAfterStart, Message::PlayAfterStart},
                               {&MainWindow::mnuPlayBeforeEnd, Message::PlayBeforeEnd},
                               {&MainWindow::mnuPlayAfterEnd, Message::PlayAfterEnd},
                               {&MainWindow::mnuPlayGap, Message::PlayGap},
                               {&MainWindow::mnuPlayStretch, Message::PlayStretch},
                               {&MainWindow::mnuFrameBack, Message::FrameBack},
                               {&MainWindow::mnuFrameForward, Message::FrameForward},
                               {&MainWindow::mnuStepBack, Message::StepBack},
                               {&MainWindow::mnuStepForward, Message::StepForward},
                               {&MainWindow::mnuSecondBack, Message::SecondBack},
                               {&MainWindow::mnuSecondForward, Message::SecondForward},
                               {&MainWindow::mnuSlower, Message::Slower},
                               {&MainWindow::mnuFaster, Message::Faster},
                               {&MainWindow::mnuUsualSpeed, Message::UsualSpeed},
                               {&MainWindow::mnuStartHere, Message::StartHere},
                               {&MainWindow::mnuEndHere, Message::EndHere},
                               {&MainWindow::mnuPushFromHere, Message::PushFromHere},
                               {&MainWindow::mnuNudge, Message::NudgeTimes},
                               {&MainWindow::mnuStartEarlier, Message::StartEarlier},
                               {&MainWindow::mnuStartLater, Message::StartLater},
                               {&MainWindow::mnuEndEarlier, Message::EndEarlier},
                               {&MainWindow::mnuEndLater, Message::EndLater},
                               {&MainWindow::mnuStartMuchEarlier, Message::StartMuchEarlier},
                               {&MainWindow::mnuStartMuchLater, Message::StartMuchLater},
                               {&MainWindow::mnuEndMuchEarlier, Message::EndMuchEarlier},
                               {&MainWindow::mnuEndMuchLater, Message::EndMuchLater},
                               {&MainWindow::mnuStartSnapBack, Message::StartSnapBack},
                               {&MainWindow::mnuStartSnapOn, Message::StartSnapOn},
                               {&MainWindow::mnuEndSnapBack, Message::EndSnapBack},
                               {&MainWindow::mnuEndSnapOn, Message::EndSnapOn},
                               {&MainWindow::mnuNextInPane, Message::NextInPane},
                               {&MainWindow::mnuGoToPosition, Message::GoToPositionItem},
                               {&MainWindow::mnuSoundTracks, Message::SoundTracksItem},
                               {&MainWindow::mnuHardware, Message::HardwareItem},
                               {&MainWindow::mnuRetake, Message::RetakeItem},
                               {&MainWindow::mnuTakeBefore, Message::TakeBeforeItem},
                               {&MainWindow::mnuRetakeSteps, Message::RetakeStepItem}};

void ShowMenus(MainWindow& w, const LangStrings& strings) {
  for (const ItemText& each : kItems) (w.*each.item).SetText(strings[each.text]);
  const ControlText rows[] = {{w.mnuListColumn[0], Message::Start},
                              {w.mnuListColumn[1], Message::End},
                              {w.mnuListColumn[2], Message::ColumnDuration},
                              {w.mnuListColumn[3], Message::ColumnGap},
                              {w.mnuListColumn[4], Message::SpeedColumnItem},
                              {w.mnuListTime[0], Message::TimesAsClock},
                              {w.mnuListTime[1], Message::TimesInMilliseconds},
                              {w.mnuListTime[2], Message::TimesInFrames},
                              {w.mnuWaveLook[0], Message::LookWave},
                              {w.mnuWaveLook[1], Message::LookSpectrogram},
                              {w.mnuWaveLook[2], Message::LookBoth}};
  ShowTexts(rows, strings);
}

void ShowPanels(MainWindow& w, const LangStrings& strings) {
  const ControlText rows[] = {{w.cmdNext, Message::Next},
                              {w.cmdEnd, Message::End},
                              {w.cmdCancel, Message::Cancel},
                              {w.lblPosition, Message::CurrentPosition},
                              {w.lblShow, Message::ShowTime},
                              {w.lblDuration, Message::DurationTime},
                              {w.lblMainMode, Message::CaptioningMode},
                              {w.lblWaveTip, Message::RightClickToDrag},
                              {w.cmdStopSound, Message::StopReading},
                              {w.optManual, Message::ManualMode},
                              {w.optPreview, Message::PreviewMode}};
  ShowTexts(rows, strings);
}

}  // namespace

WindowTexts::WindowTexts(Workbench bench, CaptionPanel& panel, CaptionCommands& commands, TimingCapture& capture,
                         ControlStates& states, Messages& messages)
    : bench_(bench), panel_(panel), commands_(commands), capture_(capture), states_(states), messages_(messages) {}

void WindowTexts::ApplyMainWindowLanguage(bool rightToLeft) {
  CarryOn step;
  step([&] { ApplyTexts(rightToLeft); });
  step([&] { ApplyDirection(rightToLeft); });
  step([&] { states_.RefreshFileLabels(); });
  if (step.Last()) {
    messages_.Show({u"Runtime error # " + Decimal(step.Last()->number) + Text(kLineEnd) + step.Last()->description,
                    BoxIcon::Warning});
  }
}

void WindowTexts::ApplyTexts(bool rightToLeft) {
  panel_.ApplyLanguage(rightToLeft);
  for (const auto show : {ShowMenus, ShowPanels}) {
    show(bench_.window, bench_.strings);
  }
  commands_.ShowSeparator();
  capture_.ShowModeTexts();
  for (TextBox& box : bench_.window.txtTime) box.SetToolTip(bench_.strings[Message::PressEnterToUpdate]);
  SpeakNames();
  bench_.window.lblTime.SetToolTip(bench_.strings[Message::PositionInMilliseconds]);
  if (!bench_.grid.Active()) bench_.grid.ShowNotice(bench_.strings[Message::NoTextFileLoaded]);
}

void WindowTexts::SpeakNames() {
  MainWindow& w = bench_.window;
  const ControlText rows[] = {
      {w.txtTime[0], Message::SpokenCaptionStart},   {w.txtTime[1], Message::SpokenCaptionDuration},
      {w.txtSub, Message::SpokenCaptionText},        {w.picPLogo, Message::NoVideoFileLoaded},
      {w.imgSize, Message::SpokenDivider},           {w.picStatus, Message::SpokenInfoBar},
      {w.picBottom, Message::SpokenCaptioningPanel}, {w.picWave, Message::SpokenAudioBar},
      {w.picLevel, Message::SpokenSoundLevel},       {w.sldWavScale, Message::WaveHeight},
      {w.picBoard, Message::SpokenWaveBoard},        {w.imgWaveSize, Message::SpokenWaveDivider},
      {w.imgWavPos, Message::SpokenWavePosition},    {w.cmdNotice, Message::CloseNotice}};
  SpeakTexts(rows, bench_.strings);
}

void WindowTexts::ApplyDirection(bool rightToLeft) {
  for (Control* control : std::initializer_list<Control*>{
           &bench_.window.lblMainMode, &bench_.window.lblMode, &bench_.window.lblTextFile, &bench_.window.lblVideoFile,
           &bench_.window.optPress, &bench_.window.optManual, &bench_.window.optPreview}) {
    control->SetRightToLeft(rightToLeft);
  }
  bench_.window.SetRightToLeft(rightToLeft);
}

}  // namespace cuewright
