#pragma once

#include <optional>
#include <vector>

#include "form/control_array.h"
#include "form/controls.h"

namespace cuewright {

/// The controls of the main window, `frmMain`. What they do is wired by their owners.
class MainWindow final : public Form {
 public:
  MainWindow();

  /// The menus of the menu bar, in its order.
  std::vector<MenuItem*> Menus() {
    return {&mnuFile, &mnuEdit, &mnuFormat, &mnuView, &mnuFilm, &mnuTools, &mnuSettings, &mnuHelp};
  }

  /// The text pane takes the keyboard.
  void FocusText() { RequestFocus(txtSub); }

  /// When the key or the pointer's button that is being handled went down or up: seconds of the steady clock. Empty
  /// outside such an event.
  std::optional<double> inputInstant;

  // The information bar, the list's divider and the player's place.
  Picture picStatus{*this, "picStatus"};
  Picture picIco{*this, "picIco"};
  Picture picLogo{*this, "picLogo"};
  Label lblTextFile{*this, "lblTextFile"};
  Label lblVideoFile{*this, "lblVideoFile"};
  Label lblNotice{*this, "lblNotice"};
  Label lblStatus{*this, "lblStatus"};
  Button cmdShowLines{*this, "cmdShowLines"};
  Button cmdShowFindings{*this, "cmdShowFindings"};
  Button cmdApplyFindings{*this, "cmdApplyFindings"};
  Button cmdUndoRules{*this, "cmdUndoRules"};
  Button cmdNotice{*this, "cmdNotice"};
  Picture picPLogo{*this, "picPLogo"};
  Picture imgSize{*this, "imgSize"};

  // The Audio bar.
  Picture picWave{*this, "picWave"};
  Picture picLevel{*this, "picLevel"};
  Slider sldWavScale{*this, "sldWavScale"};
  Picture imgWavPos{*this, "imgWavPos"};
  Label lblWave{*this, "lblWave"};
  Button cmdStopSound{*this, "cmdStopSound"};
  Label lblWaveTip{*this, "lblWaveTip"};
  Picture picBoard{*this, "picBoard"};
  Picture imgWaveSize{*this, "imgWaveSize"};

  // The bottom panel.
  Picture picBottom{*this, "picBottom"};
  Label lblShow{*this, "lblShow"};
  Label lblDuration{*this, "lblDuration"};
  ControlArray<TextBox, 2> txtTime{*this, "txtTime"};
  TextBox txtSub{*this, "txtSub"};
  Button cmdApply{*this, "cmdApply"};
  Button cmdNext{*this, "cmdNext"};
  Button cmdEnd{*this, "cmdEnd"};
  Button cmdCancel{*this, "cmdCancel"};
  Label lblMainMode{*this, "lblMainMode"};
  OptionButton optPress{*this, "optPress"};
  OptionButton optManual{*this, "optManual"};
  OptionButton optPreview{*this, "optPreview"};
  Label lblMode{*this, "lblMode"};
  Label lblPosition{*this, "lblPosition"};
  Label lblTime{*this, "lblTime"};
  Label lblStringPos{*this, "lblStringPos"};

  Timer tmrTime{*this, "tmrTime", 10};
  Timer tmrLimit{*this, "tmrLimit", 1};
  Timer tmrPreview{*this, "tmrPreview", 10};
  Timer tmrWave{*this, "tmrWave", 20};
  Timer tmrJournal{*this, "tmrJournal", 200};
  Timer tmrFilmSound{*this, "tmrFilmSound", 100};
  Timer tmrFit{*this, "tmrFit", 100};
  Timer tmrShots{*this, "tmrShots", 10};
  Timer tmrRelease{*this, "tmrRelease", 200};
  Timer tmrTimesFromSound{*this, "tmrTimesFromSound", 100};
  Timer tmrPairs{*this, "tmrPairs", 20};
  Timer tmrStretch{*this, "tmrStretch", 5};
  Timer tmrWaveDetail{*this, "tmrWaveDetail", 10};

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuNew{*this, "mnuNew", &mnuFile};
  MenuItem mnuNewClip{*this, "mnuNewClip", &mnuFile};
  MenuItem mnuLine0{*this, "mnuLine0", &mnuFile};
  MenuItem mnuOpenText{*this, "mnuOpenText", &mnuFile};
  MenuItem mnuReopen{*this, "mnuReopen", &mnuFile};
  MenuItem mnuOpenVideo{*this, "mnuOpenVideo", &mnuFile};
  MenuItem mnuOpenWav{*this, "mnuOpenWav", &mnuFile};
  MenuItem mnuFilmSound{*this, "mnuFilmSound", &mnuFile};
  MenuItem mnuClose{*this, "mnuClose", &mnuFile};
  MenuItem mnuLine0a{*this, "mnuLine0a", &mnuFile};
  MenuItem mnuSave{*this, "mnuSave", &mnuFile};
  MenuItem mnuSaveAs{*this, "mnuSaveAs", &mnuFile};
  MenuItem mnuLine0c{*this, "mnuLine0c", &mnuFile};
  MenuItem mnuEmbed{*this, "mnuEmbed", &mnuFile};
  MenuItem mnuLine0b{*this, "mnuLine0b", &mnuFile};
  MenuItem mnuTFileName{*this, "mnuTFileName", &mnuFile};
  MenuItem mnuVFileName{*this, "mnuVFileName", &mnuFile};
  MenuItem mnuAFileName{*this, "mnuAFileName", &mnuFile};
  MenuItem mnuRecent{*this, "mnuRecent", &mnuFile};
  ControlArray<MenuItem, 10> mnuRecentFile{*this, "mnuRecentFile", &mnuRecent};
  MenuItem mnuLine0e{*this, "mnuLine0e", &mnuRecent};
  MenuItem mnuClearRecent{*this, "mnuClearRecent", &mnuRecent};
  MenuItem mnuLine0d{*this, "mnuLine0d", &mnuFile};
  MenuItem mnuExit{*this, "mnuExit", &mnuFile};

  MenuItem mnuEdit{*this, "mnuEdit"};
  MenuItem mnuUndo{*this, "mnuUndo", &mnuEdit};
  MenuItem mnuRedo{*this, "mnuRedo", &mnuEdit};
  MenuItem mnuLine1c{*this, "mnuLine1c", &mnuEdit};
  MenuItem mnuCut{*this, "mnuCut", &mnuEdit};
  MenuItem mnuCopy{*this, "mnuCopy", &mnuEdit};
  MenuItem mnuPaste{*this, "mnuPaste", &mnuEdit};
  MenuItem mnuSelectAll{*this, "mnuSelectAll", &mnuEdit};
  MenuItem mnuLine1d{*this, "mnuLine1d", &mnuEdit};
  MenuItem mnuAdd{*this, "mnuAdd", &mnuEdit};
  MenuItem mnuInsertAbove{*this, "mnuInsertAbove", &mnuAdd};
  MenuItem mnuInsertBelow{*this, "mnuInsertBelow", &mnuAdd};
  MenuItem mnuInsertAtFilm{*this, "mnuInsertAtFilm", &mnuAdd};
  MenuItem mnuInsertStretch{*this, "mnuInsertStretch", &mnuAdd};
  MenuItem mnuAddBelow{*this, "mnuAddBelow", &mnuAdd};
  MenuItem mnuAddBottom{*this, "mnuAddBottom", &mnuAdd};
  MenuItem mnuDuplicate{*this, "mnuDuplicate", &mnuAdd};
  MenuItem mnuEditSelected{*this, "mnuEditSelected", &mnuEdit};
  MenuItem mnuRemove{*this, "mnuRemove", &mnuEdit};
  MenuItem mnuOrder{*this, "mnuOrder", &mnuEdit};
  MenuItem mnuMoveUp{*this, "mnuMoveUp", &mnuOrder};
  MenuItem mnuMoveDown{*this, "mnuMoveDown", &mnuOrder};
  MenuItem mnuSortByStart{*this, "mnuSortByStart", &mnuOrder};
  MenuItem mnuSwapTexts{*this, "mnuSwapTexts", &mnuOrder};
  MenuItem mnuLetterCase{*this, "mnuLetterCase", &mnuEdit};
  MenuItem mnuUpperCase{*this, "mnuUpperCase", &mnuLetterCase};
  MenuItem mnuLowerCase{*this, "mnuLowerCase", &mnuLetterCase};
  MenuItem mnuSentenceCase{*this, "mnuSentenceCase", &mnuLetterCase};
  MenuItem mnuLine1e{*this, "mnuLine1e", &mnuEdit};
  MenuItem mnuSplit{*this, "mnuSplit", &mnuEdit};
  MenuItem mnuSplitAtCaret{*this, "mnuSplitAtCaret", &mnuSplit};
  MenuItem mnuSplitAtFilm{*this, "mnuSplitAtFilm", &mnuSplit};
  MenuItem mnuJoin{*this, "mnuJoin", &mnuEdit};
  MenuItem mnuJoinSelected{*this, "mnuJoinSelected", &mnuJoin};
  MenuItem mnuJoinNext{*this, "mnuJoinNext", &mnuJoin};
  MenuItem mnuJoinPrevious{*this, "mnuJoinPrevious", &mnuJoin};
  MenuItem mnuDialogueNext{*this, "mnuDialogueNext", &mnuJoin};
  MenuItem mnuDialoguePrevious{*this, "mnuDialoguePrevious", &mnuJoin};
  MenuItem mnuLine1{*this, "mnuLine1", &mnuEdit};
  MenuItem mnuFind{*this, "mnuFind", &mnuEdit};
  MenuItem mnuReplace{*this, "mnuReplace", &mnuEdit};
  MenuItem mnuGoTo{*this, "mnuGoTo", &mnuEdit};
  MenuItem mnuLine1a{*this, "mnuLine1a", &mnuEdit};
  MenuItem mnuCountUntimed{*this, "mnuCountUntimed", &mnuEdit};
  MenuItem mnuNextUntimed{*this, "mnuNextUntimed", &mnuEdit};
  MenuItem mnuLine1b{*this, "mnuLine1b", &mnuEdit};
  MenuItem mnuAppend{*this, "mnuAppend", &mnuEdit};
  MenuItem mnuDelay{*this, "mnuDelay", &mnuEdit};
  MenuItem mnuTimes{*this, "mnuTimes", &mnuEdit};
  MenuItem mnuShift{*this, "mnuShift", &mnuTimes};
  MenuItem mnuRetime{*this, "mnuRetime", &mnuTimes};
  MenuItem mnuMeetNext{*this, "mnuMeetNext", &mnuTimes};
  MenuItem mnuSnapTimes{*this, "mnuSnapTimes", &mnuTimes};
  MenuItem mnuFit{*this, "mnuFit", &mnuTimes};
  MenuItem mnuFitAll{*this, "mnuFitAll", &mnuTimes};
  MenuItem mnuTakeFitBack{*this, "mnuTakeFitBack", &mnuTimes};
  MenuItem mnuNextDoubtful{*this, "mnuNextDoubtful", &mnuTimes};
  MenuItem mnuFitOnRelease{*this, "mnuFitOnRelease", &mnuTimes};
  MenuItem mnuHand{*this, "mnuHand", &mnuTimes};
  MenuItem mnuTimesFromSound{*this, "mnuTimesFromSound", &mnuTimes};
  MenuItem mnuReset{*this, "mnuReset", &mnuEdit};

  MenuItem mnuFormat{*this, "mnuFormat"};
  MenuItem mnuFont{*this, "mnuFont", &mnuFormat};
  MenuItem mnuLine2{*this, "mnuLine2", &mnuFormat};
  MenuItem mnuBold{*this, "mnuBold", &mnuFormat};
  MenuItem mnuItalic{*this, "mnuItalic", &mnuFormat};
  MenuItem mnuUnderline{*this, "mnuUnderline", &mnuFormat};
  MenuItem mnuLine2a{*this, "mnuLine2a", &mnuFormat};
  MenuItem mnuConvert{*this, "mnuConvert", &mnuFormat};
  MenuItem mnuUTF8{*this, "mnuUTF8", &mnuConvert};

  MenuItem mnuView{*this, "mnuView"};
  MenuItem mnuInfoBar{*this, "mnuInfoBar", &mnuView};
  MenuItem mnuUnfoldInfoBar{*this, "mnuUnfoldInfoBar", &mnuView};
  MenuItem mnuToolBar{*this, "mnuToolBar", &mnuView};
  MenuItem mnuAudioBar{*this, "mnuAudioBar", &mnuView};
  MenuItem mnuRawMarks{*this, "mnuRawMarks", &mnuView};
  MenuItem mnuListColumns{*this, "mnuListColumns", &mnuView};
  ControlArray<MenuItem, 5> mnuListColumn{*this, "mnuListColumn", &mnuListColumns};
  MenuItem mnuListTimes{*this, "mnuListTimes", &mnuView};
  ControlArray<MenuItem, 3> mnuListTime{*this, "mnuListTime", &mnuListTimes};
  MenuItem mnuLine3{*this, "mnuLine3", &mnuView};
  MenuItem mnuAudioBarColor{*this, "mnuAudioBarColor", &mnuView};
  MenuItem mnuFullWave{*this, "mnuFullWave", &mnuView};
  MenuItem mnuBoard{*this, "mnuBoard", &mnuView};
  MenuItem mnuWaveIn{*this, "mnuWaveIn", &mnuBoard};
  MenuItem mnuWaveOut{*this, "mnuWaveOut", &mnuBoard};
  MenuItem mnuWaveHigher{*this, "mnuWaveHigher", &mnuBoard};
  MenuItem mnuWaveLower{*this, "mnuWaveLower", &mnuBoard};
  MenuItem mnuWaveToCaption{*this, "mnuWaveToCaption", &mnuBoard};
  MenuItem mnuLine3a{*this, "mnuLine3a", &mnuBoard};
  ControlArray<MenuItem, 3> mnuWaveLook{*this, "mnuWaveLook", &mnuBoard};
  MenuItem mnuLine3b{*this, "mnuLine3b", &mnuBoard};
  MenuItem mnuWaveCentred{*this, "mnuWaveCentred", &mnuBoard};
  MenuItem mnuWaveSnaps{*this, "mnuWaveSnaps", &mnuBoard};
  MenuItem mnuLine3c{*this, "mnuLine3c", &mnuBoard};
  MenuItem mnuShotHere{*this, "mnuShotHere", &mnuBoard};
  MenuItem mnuShotAtCursor{*this, "mnuShotAtCursor", &mnuBoard};
  MenuItem mnuShots{*this, "mnuShots", &mnuBoard};

  MenuItem mnuFilm{*this, "mnuFilm"};
  MenuItem mnuPlayOrPause{*this, "mnuPlayOrPause", &mnuFilm};
  MenuItem mnuPlayCaption{*this, "mnuPlayCaption", &mnuFilm};
  MenuItem mnuRepeatCaption{*this, "mnuRepeatCaption", &mnuFilm};
  MenuItem mnuPlayBeforeStart{*this, "mnuPlayBeforeStart", &mnuFilm};
  MenuItem mnuPlayAfterStart{*this, "mnuPlayAfterStart", &mnuFilm};
  MenuItem mnuPlayBeforeEnd{*this, "mnuPlayBeforeEnd", &mnuFilm};
  MenuItem mnuPlayAfterEnd{*this, "mnuPlayAfterEnd", &mnuFilm};
  MenuItem mnuPlayGap{*this, "mnuPlayGap", &mnuFilm};
  MenuItem mnuPlayStretch{*this, "mnuPlayStretch", &mnuFilm};
  MenuItem mnuLine6{*this, "mnuLine6", &mnuFilm};
  MenuItem mnuFrameBack{*this, "mnuFrameBack", &mnuFilm};
  MenuItem mnuFrameForward{*this, "mnuFrameForward", &mnuFilm};
  MenuItem mnuStepBack{*this, "mnuStepBack", &mnuFilm};
  MenuItem mnuStepForward{*this, "mnuStepForward", &mnuFilm};
  MenuItem mnuSecondBack{*this, "mnuSecondBack", &mnuFilm};
  MenuItem mnuSecondForward{*this, "mnuSecondForward", &mnuFilm};
  MenuItem mnuGoToPosition{*this, "mnuGoToPosition", &mnuFilm};
  MenuItem mnuSpeed{*this, "mnuSpeed", &mnuFilm};
  MenuItem mnuSlower{*this, "mnuSlower", &mnuSpeed};
  MenuItem mnuFaster{*this, "mnuFaster", &mnuSpeed};
  MenuItem mnuUsualSpeed{*this, "mnuUsualSpeed", &mnuSpeed};
  MenuItem mnuSoundTracks{*this, "mnuSoundTracks", &mnuFilm};
  ControlArray<MenuItem, 8> mnuSoundTrack{*this, "mnuSoundTrack", &mnuSoundTracks};
  MenuItem mnuHardware{*this, "mnuHardware", &mnuFilm};
  MenuItem mnuLine6a{*this, "mnuLine6a", &mnuFilm};
  MenuItem mnuStartHere{*this, "mnuStartHere", &mnuFilm};
  MenuItem mnuEndHere{*this, "mnuEndHere", &mnuFilm};
  MenuItem mnuPushFromHere{*this, "mnuPushFromHere", &mnuFilm};
  MenuItem mnuNudge{*this, "mnuNudge", &mnuFilm};
  MenuItem mnuStartEarlier{*this, "mnuStartEarlier", &mnuNudge};
  MenuItem mnuStartLater{*this, "mnuStartLater", &mnuNudge};
  MenuItem mnuEndEarlier{*this, "mnuEndEarlier", &mnuNudge};
  MenuItem mnuEndLater{*this, "mnuEndLater", &mnuNudge};
  MenuItem mnuStartMuchEarlier{*this, "mnuStartMuchEarlier", &mnuNudge};
  MenuItem mnuStartMuchLater{*this, "mnuStartMuchLater", &mnuNudge};
  MenuItem mnuEndMuchEarlier{*this, "mnuEndMuchEarlier", &mnuNudge};
  MenuItem mnuEndMuchLater{*this, "mnuEndMuchLater", &mnuNudge};
  MenuItem mnuStartSnapBack{*this, "mnuStartSnapBack", &mnuNudge};
  MenuItem mnuStartSnapOn{*this, "mnuStartSnapOn", &mnuNudge};
  MenuItem mnuEndSnapBack{*this, "mnuEndSnapBack", &mnuNudge};
  MenuItem mnuEndSnapOn{*this, "mnuEndSnapOn", &mnuNudge};
  MenuItem mnuLine6b{*this, "mnuLine6b", &mnuFilm};
  MenuItem mnuNextInPane{*this, "mnuNextInPane", &mnuFilm};
  MenuItem mnuRetake{*this, "mnuRetake", &mnuFilm};
  MenuItem mnuTakeBefore{*this, "mnuTakeBefore", &mnuFilm};
  MenuItem mnuRetakeSteps{*this, "mnuRetakeSteps", &mnuFilm};
  ControlArray<MenuItem, 5> mnuRetakeStep{*this, "mnuRetakeStep", &mnuRetakeSteps};

  MenuItem mnuTools{*this, "mnuTools"};
  MenuItem mnuSpell{*this, "mnuSpell", &mnuTools};
  MenuItem mnuRules{*this, "mnuRules", &mnuTools};
  MenuItem mnuAudioExtract{*this, "mnuAudioExtract", &mnuTools};
  MenuItem mnuReport{*this, "mnuReport", &mnuTools};
  MenuItem mnuLine4a{*this, "mnuLine4a", &mnuTools};
  MenuItem mnuCheck{*this, "mnuCheck", &mnuTools};
  MenuItem mnuNextFinding{*this, "mnuNextFinding", &mnuTools};
  MenuItem mnuBreakLines{*this, "mnuBreakLines", &mnuTools};
  MenuItem mnuClean{*this, "mnuClean", &mnuTools};
  MenuItem mnuLine4{*this, "mnuLine4", &mnuTools};
  MenuItem mnuEmptySounds{*this, "mnuEmptySounds", &mnuTools};

  MenuItem mnuSettings{*this, "mnuSettings"};
  MenuItem mnuFormatSettings{*this, "mnuFormatSettings", &mnuSettings};
  MenuItem mnuLineSeparator{*this, "mnuLineSeparator", &mnuSettings};
  ControlArray<MenuItem, 4> mnuSeparator{*this, "mnuSeparator", &mnuLineSeparator};
  MenuItem mnuKeys{*this, "mnuKeys", &mnuSettings};
  MenuItem mnuGSettings{*this, "mnuGSettings", &mnuSettings};

  MenuItem mnuHelp{*this, "mnuHelp"};
  MenuItem mnuHelpTopics{*this, "mnuHelpTopics", &mnuHelp};
  MenuItem mnuPalette{*this, "mnuPalette", &mnuHelp};
  MenuItem mnuLinks{*this, "mnuLinks", &mnuHelp};
  MenuItem mnuTessaly{*this, "mnuTessaly", &mnuLinks};
  MenuItem mnuForums{*this, "mnuForums", &mnuLinks};
  MenuItem mnuPermanentSubs{*this, "mnuPermanentSubs", &mnuLinks};
  MenuItem mnuMediaPlayer{*this, "mnuMediaPlayer", &mnuLinks};
  MenuItem mnuSuggest{*this, "mnuSuggest", &mnuHelp};
  MenuItem mnuUpdate{*this, "mnuUpdate", &mnuHelp};
  MenuItem mnuLine5{*this, "mnuLine5", &mnuHelp};
  MenuItem mnuWebsite{*this, "mnuWebsite", &mnuHelp};
  MenuItem mnuAbout{*this, "mnuAbout", &mnuHelp};

  // The list's own menu.
  MenuItem mnuRclick{*this, "mnuRclick"};
  MenuItem rmnuEdit{*this, "rmnuEdit", &mnuRclick};
  MenuItem rmnuRemove{*this, "rmnuRemove", &mnuRclick};
  MenuItem rmnuLine{*this, "rmnuLine", &mnuRclick};
  MenuItem rmnuBold{*this, "rmnuBold", &mnuRclick};
  MenuItem rmnuItalic{*this, "rmnuItalic", &mnuRclick};
  MenuItem rmnuUnderline{*this, "rmnuUnderline", &mnuRclick};
};

}  // namespace cuewright
