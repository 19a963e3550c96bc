#include "forms/window_texts.h"

#include "core/runtime_error.h"
#include "forms/control_texts.h"

namespace cuewright {

namespace {

void ShowFileAndEdit(MainWindow& w, const LangStrings& strings) {
  const ControlText rows[] = {{w.mnuFile, Message::MenuFile},
                              {w.mnuNew, Message::NewSubtitle},
                              {w.mnuNewClip, Message::NewFromClipboard},
                              {w.mnuOpenText, Message::OpenText},
                              {w.mnuReopen, Message::ReopenAs},
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
                              {w.mnuCut, Message::CutCaptions},
                              {w.mnuCopy, Message::CopyCaptions},
                              {w.mnuPaste, Message::PasteCaptions},
                              {w.mnuSelectAll, Message::SelectAll},
                              {w.mnuAdd, Message::AddCaption},
                              {w.mnuInsertAbove, Message::AboveCurrent},
                              {w.mnuInsertBelow, Message::BelowCurrent},
                              {w.mnuInsertAtFilm, Message::AtFilmPosition},
                              {w.mnuInsertStretch, Message::InsertStretch},
                              {w.mnuAddBelow, Message::BelowCurrent},
                              {w.mnuAddBottom, Message::AtTheBottom},
                              {w.mnuEditSelected, Message::EditCaptionItem},
                              {w.mnuRemove, Message::RemoveCaption},
                              {w.mnuJoinSelected, Message::JoinSelected},
                              {w.mnuMoveUp, Message::MoveUp},
                              {w.mnuMoveDown, Message::MoveDown},
                              {w.mnuSortByStart, Message::SortByStart},
                              {w.mnuOrder, Message::OrderMenu},
                              {w.mnuTimes, Message::TimesMenu},
                              {w.mnuLetterCase, Message::LetterCase},
                              {w.mnuUpperCase, Message::UpperCase},
                              {w.mnuLowerCase, Message::LowerCase},
                              {w.mnuSentenceCase, Message::SentenceCase},
                              {w.mnuSplit, Message::SplitCaption},
                              {w.mnuSplitAtCaret, Message::AtCaret},
                              {w.mnuSplitAtFilm, Message::AtFilmPosition},
                              {w.mnuJoin, Message::JoinCaption},
                              {w.mnuJoinNext, Message::JoinNext},
                              {w.mnuJoinPrevious, Message::JoinPrevious},
                              {w.mnuDialogueNext, Message::DialogueNext},
                              {w.mnuDialoguePrevious, Message::DialoguePrevious},
                              {w.mnuDuplicate, Message::DuplicateCaption},
                              {w.mnuMeetNext, Message::MeetNext},
                              {w.mnuSwapTexts, Message::SwapTexts},
                              {w.mnuFind, Message::Find},
                              {w.mnuReplace, Message::Replace},
                              {w.mnuGoTo, Message::GoToLine},
                              {w.mnuCountUntimed, Message::CountNonTimed},
                              {w.mnuNextUntimed, Message::SelectNextNonTimed},
                              {w.mnuAppend, Message::AppendSubtitle},
                              {w.mnuShift, Message::ShiftCaptions},
                              {w.mnuDelay, Message::SetDelay},
                              {w.mnuRetime, Message::RetimeItem},
                              {w.mnuSnapTimes, Message::SnapTimesItem},
                              {w.mnuFit, Message::FitItem},
                              {w.mnuFitAll, Message::FitAllItem},
                              {w.mnuTakeFitBack, Message::TakeFitBack},
                              {w.mnuNextDoubtful, Message::NextDoubtful},
                              {w.mnuFitOnRelease, Message::FitOnRelease},
                              {w.mnuHand, Message::HandItem},
                              {w.mnuTimesFromSound, Message::TimesFromSound},
                              {w.mnuReset, Message::RemoveAllTiming},
                              {w.mnuFilmSound, Message::FilmSoundItem}};
  ShowTexts(rows, strings);
}

void ShowFormatToSettings(MainWindow& w, const LangStrings& strings) {
  const ControlText rows[] = {{w.mnuFormat, Message::MenuFormat},
                              {w.mnuFont, Message::ListFontItem},
                              {w.mnuBold, Message::Bold},
                              {w.mnuItalic, Message::Italic},
                              {w.mnuUnderline, Message::Underline},
                              {w.mnuConvert, Message::ConvertFrom},
                              {w.mnuView, Message::MenuView},
                              {w.mnuInfoBar, Message::InfoBar},
                              {w.mnuUnfoldInfoBar, Message::UnfoldInfoBar},
                              {w.mnuToolBar, Message::ToolBar},
                              {w.mnuAudioBar, Message::AudioBar},
                              {w.mnuRawMarks, Message::MarksInTexts},
                              {w.mnuListColumns, Message::ListColumnsItem},
                              {w.mnuListColumn[0], Message::Start},
                              {w.mnuListColumn[1], Message::End},
                              {w.mnuListColumn[2], Message::ColumnDuration},
                              {w.mnuListColumn[3], Message::ColumnGap},
                              {w.mnuListColumn[4], Message::SpeedColumnItem},
                              {w.mnuListTimes, Message::ListTimesItem},
                              {w.mnuListTime[0], Message::TimesAsClock},
                              {w.mnuListTime[1], Message::TimesInMilliseconds},
                              {w.mnuListTime[2], Message::TimesInFrames},
                              {w.mnuAudioBarColor, Message::AudioBarColor},
                              {w.mnuFullWave, Message::FullHeightWave},
                              {w.mnuBoard, Message::WaveMenu},
                              {w.mnuWaveIn, Message::WaveIn},
                              {w.mnuWaveOut, Message::WaveOut},
                              {w.mnuWaveHigher, Message::WaveHigher},
                              {w.mnuWaveLower, Message::WaveLower},
                              {w.mnuWaveToCaption, Message::WaveToCaption},
                              {w.mnuWaveLook[0], Message::LookWave},
                              {w.mnuWaveLook[1], Message::LookSpectrogram},
                              {w.mnuWaveLook[2], Message::LookBoth},
                              {w.mnuWaveCentred, Message::WaveCentred},
                              {w.mnuWaveSnaps, Message::WaveSnaps},
                              {w.mnuShotHere, Message::ShotHere},
                              {w.mnuShotAtCursor, Message::ShotAtCursor},
                              {w.mnuShots, Message::ShotsItem},
                              {w.mnuTools, Message::MenuTools},
                              {w.mnuKeys, Message::KeysOfCommands},
                              {w.mnuSpell, Message::SpellCheck},
                              {w.mnuRules, Message::ApplyCurrentRules},
                              {w.mnuAudioExtract, Message::ExtractionWizard},
                              {w.mnuReport, Message::ViewReport},
                              {w.mnuCheck, Message::CheckSubtitles},
                              {w.mnuNextFinding, Message::NextFinding},
                              {w.mnuBreakLines, Message::BreakLines},
                              {w.mnuClean, Message::CleanTexts},
                              {w.mnuSettings, Message::MenuSettings},
                              {w.mnuFormatSettings, Message::FormatSettings},
                              {w.mnuLineSeparator, Message::LineSeparator},
                              {w.mnuGSettings, Message::GeneralSettings},
                              {w.mnuEmptySounds, Message::EmptySoundStore}};
  ShowTexts(rows, strings);
}

void ShowHelpAndListMenu(MainWindow& w, const LangStrings& strings) {
  const ControlText rows[] = {{w.mnuHelp, Message::MenuHelp},
                              {w.mnuHelpTopics, Message::HelpTopics},
                              {w.mnuPalette, Message::FindCommand},
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
                              {w.rmnuRemove, Message::RemoveCaption}};
  ShowTexts(rows, strings);
}

void ShowFilm(MainWindow& w, const LangStrings& strings) {
  const ControlText rows[] = {{w.mnuFilm, Message::MenuFilm},
                              {w.mnuPlayOrPause, Message::PlayOrPause},
                              {w.mnuPlayCaption, Message::PlayCaption},
                              {w.mnuRepeatCaption, Message::RepeatCaption},
                              {w.mnuPlayBeforeStart, Message::PlayBeforeStart},
                              {w.mnuPlayAfterStart, Message::PlayAfterStart},
                              {w.mnuPlayBeforeEnd, Message::PlayBeforeEnd},
                              {w.mnuPlayAfterEnd, Message::PlayAfterEnd},
                              {w.mnuPlayGap, Message::PlayGap},
                              {w.mnuPlayStretch, Message::PlayStretch},
                              {w.mnuFrameBack, Message::FrameBack},
                              {w.mnuFrameForward, Message::FrameForward},
                              {w.mnuStepBack, Message::StepBack},
                              {w.mnuStepForward, Message::StepForward},
                              {w.mnuSecondBack, Message::SecondBack},
                              {w.mnuSecondForward, Message::SecondForward},
                              {w.mnuSlower, Message::Slower},
                              {w.mnuFaster, Message::Faster},
                              {w.mnuUsualSpeed, Message::UsualSpeed},
                              {w.mnuStartHere, Message::StartHere},
                              {w.mnuEndHere, Message::EndHere},
                              {w.mnuPushFromHere, Message::PushFromHere},
                              {w.mnuNudge, Message::NudgeTimes},
                              {w.mnuStartEarlier, Message::StartEarlier},
                              {w.mnuStartLater, Message::StartLater},
                              {w.mnuEndEarlier, Message::EndEarlier},
                              {w.mnuEndLater, Message::EndLater},
                              {w.mnuStartMuchEarlier, Message::StartMuchEarlier},
                              {w.mnuStartMuchLater, Message::StartMuchLater},
                              {w.mnuEndMuchEarlier, Message::EndMuchEarlier},
                              {w.mnuEndMuchLater, Message::EndMuchLater},
                              {w.mnuStartSnapBack, Message::StartSnapBack},
                              {w.mnuStartSnapOn, Message::StartSnapOn},
                              {w.mnuEndSnapBack, Message::EndSnapBack},
                              {w.mnuEndSnapOn, Message::EndSnapOn},
                              {w.mnuNextInPane, Message::NextInPane},
                              {w.mnuGoToPosition, Message::GoToPositionItem},
                              {w.mnuSoundTracks, Message::SoundTracksItem},
                              {w.mnuHardware, Message::HardwareItem},
                              {w.mnuRetake, Message::RetakeItem},
                              {w.mnuTakeBefore, Message::TakeBeforeItem},
                              {w.mnuRetakeSteps, Message::RetakeStepItem}};
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
  for (const auto show : {ShowFileAndEdit, ShowFormatToSettings, ShowFilm, ShowHelpAndListMenu, ShowPanels}) {
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
