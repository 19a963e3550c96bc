#include "capture/main_window.h"

namespace cuewright {

MainWindow::MainWindow() : Form("frmMain") {
  for (MenuItem* line :
       {&mnuLine0,  &mnuLine0a, &mnuLine0b, &mnuLine0c, &mnuLine0d, &mnuLine0e, &mnuLine1,  &mnuLine1a, &mnuLine1b,
        &mnuLine1c, &mnuLine1d, &mnuLine1e, &mnuLine2,  &mnuLine2a, &mnuLine3,  &mnuLine3a, &mnuLine3b, &mnuLine3c,
        &mnuLine4,  &mnuLine4a, &mnuLine5,  &mnuLine6,  &mnuLine6a, &mnuLine6b, &rmnuLine}) {
    line->SetSeparator(true);
  }
  for (MenuItem* item : {&mnuBold, &mnuItalic, &mnuUnderline, &rmnuBold, &rmnuItalic, &rmnuUnderline, &mnuInfoBar,
                         &mnuUnfoldInfoBar, &mnuToolBar, &mnuAudioBar, &mnuRawMarks, &mnuFullWave, &mnuRepeatCaption,
                         &mnuWaveCentred, &mnuWaveSnaps, &mnuHardware, &mnuFitOnRelease}) {
    item->SetCheckable(true);
  }
  for (MenuItem& item : mnuSeparator) item.SetCheckable(true);
  for (MenuItem& item : mnuListColumn) item.SetCheckable(true);
  for (MenuItem& item : mnuListTime) item.SetCheckable(true);
  for (MenuItem& item : mnuWaveLook) item.SetCheckable(true);
  for (MenuItem& item : mnuSoundTrack) item.SetCheckable(true);
  for (MenuItem& item : mnuRetakeStep) item.SetCheckable(true);
  mnuNew.SetShortcut("Ctrl+N");
  mnuOpenText.SetShortcut("Ctrl+O");
  mnuSave.SetShortcut("Ctrl+S");
  mnuSaveAs.SetShortcut("Ctrl+Shift+S");
  mnuExit.SetShortcut("Ctrl+Q");
  mnuUndo.SetShortcut("Ctrl+Z");
  mnuRedo.SetShortcut("Ctrl+Shift+Z; Ctrl+Y");
  mnuCut.SetShortcut("Ctrl+X");
  mnuCopy.SetShortcut("Ctrl+C");
  mnuPaste.SetShortcut("Ctrl+V");
  mnuSelectAll.SetShortcut("Ctrl+A");
  mnuRemove.SetShortcut("Del");
  mnuJoinSelected.SetShortcut("Ctrl+J");
  mnuMoveUp.SetShortcut("Alt+Up");
  mnuMoveDown.SetShortcut("Alt+Down");
  mnuSortByStart.SetShortcut("Ctrl+Shift+O");
  mnuUpperCase.SetShortcut("Ctrl+Shift+U");
  mnuLowerCase.SetShortcut("Ctrl+Shift+L");
  mnuSentenceCase.SetShortcut("Ctrl+Shift+E");
  mnuShift.SetShortcut("Ctrl+T");
  mnuBold.SetShortcut("Ctrl+B");
  mnuItalic.SetShortcut("Ctrl+I");
  mnuUnderline.SetShortcut("Ctrl+U");
  mnuInsertAbove.SetShortcut("Alt+Shift+Ins");
  mnuInsertBelow.SetShortcut("Alt+Ins");
  mnuInsertAtFilm.SetShortcut("Ctrl+Alt+Ins");
  mnuSplitAtCaret.SetShortcut("Ctrl+Shift+Return");
  mnuSplitAtFilm.SetShortcut("Ctrl+Alt+Return");
  mnuJoinNext.SetShortcut("Ctrl+Shift+J");
  mnuJoinPrevious.SetShortcut("Ctrl+Alt+J");
  mnuDialogueNext.SetShortcut("Ctrl+Shift+K");
  mnuDialoguePrevious.SetShortcut("Ctrl+Alt+K");
  mnuDuplicate.SetShortcut("Ctrl+D");
  mnuMeetNext.SetShortcut("Ctrl+L");
  mnuSwapTexts.SetShortcut("Ctrl+Shift+X");
  mnuInsertStretch.SetShortcut("Ctrl+Shift+Ins");
  mnuWaveIn.SetShortcut("Alt+Shift+PgUp");
  mnuWaveOut.SetShortcut("Alt+Shift+PgDown");
  mnuWaveHigher.SetShortcut("Alt+Shift+Up");
  mnuWaveLower.SetShortcut("Alt+Shift+Down");
  mnuWaveToCaption.SetShortcut("Ctrl+Shift+W");
  mnuShotHere.SetShortcut("Ctrl+Shift+M");
  mnuShotAtCursor.SetShortcut("Ctrl+Alt+M");
  mnuSnapTimes.SetShortcut("Ctrl+Alt+L");
  mnuRetime.SetShortcut("Ctrl+Shift+T");
  mnuFit.SetShortcut("F4");
  mnuTakeFitBack.SetShortcut("Shift+F4");
  mnuNextDoubtful.SetShortcut("Ctrl+F4");
  mnuFind.SetShortcut("Ctrl+F");
  mnuReplace.SetShortcut("Ctrl+H");
  mnuRawMarks.SetShortcut("Ctrl+M");
  mnuNextFinding.SetShortcut("F8");
  mnuCheck.SetShortcut("Shift+F8");
  mnuGSettings.SetShortcut("Ctrl+,");
  mnuHelpTopics.SetShortcut("F1");
  mnuPalette.SetShortcut("Ctrl+Shift+P");
  SetFilmKeys();
  mnuUTF8.SetText(u"UTF-8");
  mnuLine0b.SetVisible(false);
  mnuTFileName.SetVisible(false);
  mnuVFileName.SetVisible(false);
  mnuAFileName.SetVisible(false);
  mnuRecent.SetVisible(false);
  cmdCancel.SetVisible(false);
  for (Control* control : std::initializer_list<Control*>{&picWave, &picLevel, &sldWavScale, &imgWavPos, &lblWave,
                                                          &cmdStopSound, &lblWaveTip, &picBoard, &imgWaveSize}) {
    control->SetVisible(false);
  }
  sldWavScale.SetEnabled(false);
  optPress.SetValue(true);
}

void MainWindow::SetFilmKeys() {
  mnuPlayOrPause.SetShortcut("Space");
  mnuPlayCaption.SetShortcut("F5");
  mnuRepeatCaption.SetShortcut("Shift+F5");
  mnuPlayBeforeStart.SetShortcut("F6");
  mnuPlayAfterStart.SetShortcut("Shift+F6");
  mnuPlayBeforeEnd.SetShortcut("F7");
  mnuPlayAfterEnd.SetShortcut("Shift+F7");
  mnuPlayGap.SetShortcut("Ctrl+F6");
  mnuPlayStretch.SetShortcut("Ctrl+F5");
  mnuFrameBack.SetShortcut("Alt+Left");
  mnuFrameForward.SetShortcut("Alt+Right");
  mnuStepBack.SetShortcut("Alt+Shift+Left");
  mnuStepForward.SetShortcut("Alt+Shift+Right");
  mnuSecondBack.SetShortcut("Alt+PgUp");
  mnuSecondForward.SetShortcut("Alt+PgDown");
  mnuSlower.SetShortcut("Ctrl+-");
  mnuFaster.SetShortcut("Ctrl++; Ctrl+=");
  mnuUsualSpeed.SetShortcut("Ctrl+0");
  mnuStartHere.SetShortcut("F11");
  mnuEndHere.SetShortcut("F12");
  mnuPushFromHere.SetShortcut("Shift+F11");
  mnuStartEarlier.SetShortcut("Alt+1");
  mnuStartLater.SetShortcut("Alt+2");
  mnuEndEarlier.SetShortcut("Alt+3");
  mnuEndLater.SetShortcut("Alt+4");
  mnuStartMuchEarlier.SetShortcut("Ctrl+Alt+1");
  mnuStartMuchLater.SetShortcut("Ctrl+Alt+2");
  mnuEndMuchEarlier.SetShortcut("Ctrl+Alt+3");
  mnuEndMuchLater.SetShortcut("Ctrl+Alt+4");
  mnuStartSnapBack.SetShortcut("Alt+5");
  mnuStartSnapOn.SetShortcut("Alt+6");
  mnuEndSnapBack.SetShortcut("Alt+7");
  mnuEndSnapOn.SetShortcut("Alt+8");
  mnuNextInPane.SetShortcut("Ctrl+Return");
  mnuGoToPosition.SetShortcut("Ctrl+Shift+G");
  mnuRetake.SetShortcut("Ctrl+R");
  mnuTakeBefore.SetShortcut("Ctrl+Shift+R");
}

}  // namespace cuewright
