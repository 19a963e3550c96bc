#include "capture/main_window.h"

namespace cuewright {
namespace {

/// The keys of an item; another set of keys may have others.
struct ItemKeys {
  MenuItem MainWindow::*item;
  const char* keys;
};

constexpr ItemKeys kKeys[] = {{&MainWindow::mnuNew, "Ctrl+N"},
                              {&MainWindow::mnuOpenText, "Ctrl+O"},
                              {&MainWindow::mnuSave, "Ctrl+S"},
                              {&MainWindow::mnuSaveAs, "Ctrl+Shift+S"},
                              {&MainWindow::mnuExit, "Ctrl+Q"},
                              {&MainWindow::mnuUndo, "Ctrl+Z"},
                              {&MainWindow::mnuRedo, "Ctrl+Shift+Z; Ctrl+Y"},
                              {&MainWindow::mnuCut, "Ctrl+X"},
                              {&MainWindow::mnuCopy, "Ctrl+C"},
                              {&MainWindow::mnuPaste, "Ctrl+V"},
                              {&MainWindow::mnuSelectAll, "Ctrl+A"},
                              {&MainWindow::mnuRemove, "Del"},
                              {&MainWindow::mnuJoinSelected, "Ctrl+J"},
                              {&MainWindow::mnuMoveUp, "Alt+Up"},
                              {&MainWindow::mnuMoveDown, "Alt+Down"},
                              {&MainWindow::mnuSortByStart, "Ctrl+Shift+O"},
                              {&MainWindow::mnuUpperCase, "Ctrl+Shift+U"},
                              {&MainWindow::mnuLowerCase, "Ctrl+Shift+L"},
                              {&MainWindow::mnuSentenceCase, "Ctrl+Shift+E"},
                              {&MainWindow::mnuShift, "Ctrl+T"},
                              {&MainWindow::mnuBold, "Ctrl+B"},
                              {&MainWindow::mnuItalic, "Ctrl+I"},
                              {&MainWindow::mnuUnderline, "Ctrl+U"},
                              {&MainWindow::mnuInsertAbove, "Alt+Shift+Ins"},
                              {&MainWindow::mnuInsertBelow, "Alt+Ins"},
                              {&MainWindow::mnuInsertAtFilm, "Ctrl+Alt+Ins"},
                              {&MainWindow::mnuSplitAtCaret, "Ctrl+Shift+Return"},
                              {&MainWindow::mnuSplitAtFilm, "Ctrl+Alt+Return"},
                              {&MainWindow::mnuJoinNext, "Ctrl+Shift+J"},
                              {&MainWindow::mnuJoinPrevious, "Ctrl+Alt+J"},
                              {&MainWindow::mnuDialogueNext, "Ctrl+Shift+K"},
                              {&MainWindow::mnuDialoguePrevious, "Ctrl+Alt+K"},
                              {&MainWindow::mnuDuplicate, "Ctrl+D"},
                              {&MainWindow::mnuMeetNext, "Ctrl+L"},
                              {&MainWindow::mnuSwapTexts, "Ctrl+Shift+X"},
                              {&MainWindow::mnuInsertStretch, "Ctrl+Shift+Ins"},
                              {&MainWindow::mnuWaveIn, "Alt+Shift+PgUp"},
                              {&MainWindow::mnuWaveOut, "Alt+Shift+PgDown"},
                              {&MainWindow::mnuWaveHigher, "Alt+Shift+Up"},
                              {&MainWindow::mnuWaveLower, "Alt+Shift+Down"},
                              {&MainWindow::mnuWaveToCaption, "Ctrl+Shift+W"},
                              {&MainWindow::mnuShotHere, "Ctrl+Shift+M"},
                              {&MainWindow::mnuShotAtCursor, "Ctrl+Alt+M"},
                              {&MainWindow::mnuSnapTimes, "Ctrl+Alt+L"},
                              {&MainWindow::mnuRetime, "Ctrl+Shift+T"},
                              {&MainWindow::mnuFit, "F4"},
                              {&MainWindow::mnuTakeFitBack, "Shift+F4"},
                              {&MainWindow::mnuNextDoubtful, "Ctrl+F4"},
                              {&MainWindow::mnuFind, "Ctrl+F"},
                              {&MainWindow::mnuReplace, "Ctrl+H"},
                              {&MainWindow::mnuRawMarks, "Ctrl+M"},
                              {&MainWindow::mnuNextFinding, "F8"},
                              {&MainWindow::mnuCheck, "Shift+F8"},
                              {&MainWindow::mnuGSettings, "Ctrl+,"},
                              {&MainWindow::mnuHelpTopics, "F1"},
                              {&MainWindow::mnuPalette, "Ctrl+Shift+P"},
                              {&MainWindow::mnuPlayOrPause, "Space"},
                              {&MainWindow::mnuPlayCaption, "F5"},
                              {&MainWindow::mnuRepeatCaption, "Shift+F5"},
                              {&MainWindow::mnuPlayBeforeStart, "F6"},
                              {&MainWindow::mnuPlayAfterStart, "Shift+F6"},
                              {&MainWindow::mnuPlayBeforeEnd, "F7"},
                              {&MainWindow::mnuPlayAfterEnd, "Shift+F7"},
                              {&MainWindow::mnuPlayGap, "Ctrl+F6"},
                              {&MainWindow::mnuPlayStretch, "Ctrl+F5"},
                              {&MainWindow::mnuFrameBack, "Alt+Left"},
                              {&MainWindow::mnuFrameForward, "Alt+Right"},
                              {&MainWindow::mnuStepBack, "Alt+Shift+Left"},
                              {&MainWindow::mnuStepForward, "Alt+Shift+Right"},
                              {&MainWindow::mnuSecondBack, "Alt+PgUp"},
                              {&MainWindow::mnuSecondForward, "Alt+PgDown"},
                              {&MainWindow::mnuSlower, "Ctrl+-"},
                              {&MainWindow::mnuFaster, "Ctrl++; Ctrl+="},
                              {&MainWindow::mnuUsualSpeed, "Ctrl+0"},
                              {&MainWindow::mnuStartHere, "F11"},
                              {&MainWindow::mnuEndHere, "F12"},
                              {&MainWindow::mnuPushFromHere, "Shift+F11"},
                              {&MainWindow::mnuStartEarlier, "Alt+1"},
                              {&MainWindow::mnuStartLater, "Alt+2"},
                              {&MainWindow::mnuEndEarlier, "Alt+3"},
                              {&MainWindow::mnuEndLater, "Alt+4"},
                              {&MainWindow::mnuStartMuchEarlier, "Ctrl+Alt+1"},
                              {&MainWindow::mnuStartMuchLater, "Ctrl+Alt+2"},
                              {&MainWindow::mnuEndMuchEarlier, "Ctrl+Alt+3"},
                              {&MainWindow::mnuEndMuchLater, "Ctrl+Alt+4"},
                              {&MainWindow::mnuStartSnapBack, "Alt+5"},
                              {&MainWindow::mnuStartSnapOn, "Alt+6"},
                              {&MainWindow::mnuEndSnapBack, "Alt+7"},
                              {&MainWindow::mnuEndSnapOn, "Alt+8"},
                              {&MainWindow::mnuNextInPane, "Ctrl+Return"},
                              {&MainWindow::mnuGoToPosition, "Ctrl+Shift+G"},
                              {&MainWindow::mnuRetake, "Ctrl+R"},
                              {&MainWindow::mnuTakeBefore, "Ctrl+Shift+R"}};

}  // namespace

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
  for (const ItemKeys& each : kKeys) (this->*each.item).SetShortcut(each.keys);
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

}  // namespace cuewright
