#include "forms/control_states.h"

#include "core/caption_time.h"
#include "core/paths.h"
#include "core/runtime_error.h"

namespace cuewright {

ControlStates::ControlStates(Workbench bench, CaptionPanel& panel, SubWindow& sub, Preview& preview,
                             TimingCapture& capture, Player& player)
    : bench_(bench), panel_(panel), sub_(sub), preview_(preview), capture_(capture), player_(player) {}

void ControlStates::SetDocumentItems(bool on) {
  bench_.window.lblShow.SetEnabled(on);
  bench_.window.lblDuration.SetEnabled(on);
  bench_.grid.SetEnabled(on);
  for (MenuItem* item : {&bench_.window.mnuSave,         &bench_.window.mnuSaveAs,       &bench_.window.mnuAdd,
                         &bench_.window.mnuEditSelected, &bench_.window.mnuBold,         &bench_.window.mnuItalic,
                         &bench_.window.mnuUnderline,    &bench_.window.mnuConvert,      &bench_.window.mnuAppend,
                         &bench_.window.mnuRemove,       &bench_.window.mnuRules,        &bench_.window.mnuSpell,
                         &bench_.window.mnuFind,         &bench_.window.mnuReplace,      &bench_.window.mnuDelay,
                         &bench_.window.mnuReset,        &bench_.window.mnuGoTo,         &bench_.window.mnuCountUntimed,
                         &bench_.window.mnuNextUntimed,  &bench_.window.mnuCheck,        &bench_.window.mnuNextFinding,
                         &bench_.window.mnuBreakLines,   &bench_.window.mnuClean,        &bench_.window.mnuCut,
                         &bench_.window.mnuCopy,         &bench_.window.mnuPaste,        &bench_.window.mnuSelectAll,
                         &bench_.window.mnuJoinSelected, &bench_.window.mnuMoveUp,       &bench_.window.mnuMoveDown,
                         &bench_.window.mnuSortByStart,  &bench_.window.mnuLetterCase,   &bench_.window.mnuUpperCase,
                         &bench_.window.mnuLowerCase,    &bench_.window.mnuSentenceCase, &bench_.window.mnuShift}) {
    item->SetEnabled(on);
  }
  // A key runs an item even while the menu around it is disabled.
  for (MenuItem* item :
       {&bench_.window.mnuInsertAbove,  &bench_.window.mnuInsertBelow,      &bench_.window.mnuInsertAtFilm,
        &bench_.window.mnuSplit,        &bench_.window.mnuSplitAtCaret,     &bench_.window.mnuSplitAtFilm,
        &bench_.window.mnuJoin,         &bench_.window.mnuJoinNext,         &bench_.window.mnuJoinPrevious,
        &bench_.window.mnuDialogueNext, &bench_.window.mnuDialoguePrevious, &bench_.window.mnuDuplicate,
        &bench_.window.mnuMeetNext,     &bench_.window.mnuSwapTexts,        &bench_.window.mnuRetime,
        &bench_.window.mnuFit,          &bench_.window.mnuFitAll,           &bench_.window.mnuTakeFitBack,
        &bench_.window.mnuNextDoubtful, &bench_.window.mnuTimesFromSound}) {
    item->SetEnabled(on);
  }
}

void ControlStates::ResetControls() {
  const bool document = bench_.document.HasDocument();
  const bool video = bench_.document.HasVideo();
  bench_.window.mnuClose.SetEnabled(document || video || !bench_.document.WavePath.empty());
  SetDocumentItems(document);
  if (!document) {
    capture_.Reset();
    capture_.SelectMode(CaptionMode::PressAndHold);
    for (TextBox& box : bench_.window.txtTime) box.SetText(MsToTimeText(0));
    panel_.ResetGrid(CaptionPanel::Showing::Notice);
    bench_.window.cmdApply.SetEnabled(false);
    bench_.window.cmdNext.SetEnabled(false);
    bench_.window.cmdEnd.SetEnabled(false);
  }
  if (video) {
    bench_.window.picPLogo.SetVisible(false);
  } else if (player_.Enabled()) {
    EmptyPlayer();
  }
  player_.SetEnabled(video);
  for (Label* label : {&bench_.window.lblPosition, &bench_.window.lblTime, &bench_.window.lblStringPos})
    label->SetEnabled(video);
  bench_.window.tmrTime.SetEnabled(video);
  const bool both = document && video;
  bench_.window.lblMode.SetEnabled(both);
  bench_.window.lblMainMode.SetEnabled(both);
  bench_.window.optPress.SetEnabled(both);
  bench_.window.optManual.SetEnabled(both);
  bench_.window.optPreview.SetEnabled(both);
  preview_.ClearPreviewCaption();
  RefreshFileLabels();
  Shown();
}

void ControlStates::RefreshFileLabels() {
  const bool document = bench_.document.HasDocument();
  const bool video = bench_.document.HasVideo();
  if (!document && !video) {
    bench_.window.lblTextFile.SetText(bench_.strings[Message::WelcomeToProgram]);
    bench_.window.lblVideoFile.SetText(bench_.strings[Message::UseTheFileMenu]);
    return;
  }
  bench_.window.lblTextFile.SetText(!document                    ? bench_.strings[Message::NoTextFileLoaded]
                                    : !bench_.document.HasFile() ? bench_.strings[Message::EditCaptionItem]
                                                                 : bench_.strings[Message::CurrentSubtitleFile] +
                                                                       FileNameOf(bench_.document.SubtitlePath));
  bench_.window.lblVideoFile.SetText(
      video ? bench_.strings[Message::CurrentVideoFile] +
                  InItsOrder(bench_.strings[Message::CurrentVideoFile], bench_.document.VideoPath)
            : bench_.strings[Message::NoVideoFileLoaded]);
}

void ControlStates::EmptyPlayer() {
  CarryOn step;
  step([&] { player_.SetUrl({}); });
  step([&] { player_.Close(); });
  player_.SetEnabled(false);
  bench_.window.picPLogo.SetVisible(true);
  sub_.Unload();
}

}  // namespace cuewright
