#include "forms/editing_tools.h"

#include "tools/delay.h"

namespace cuewright {

EditingTools::EditingTools(Workbench bench, const Languages& languages, OpenForms& openForms, Ports ports,
                           ProposalTools& proposals)
    : delayDialog(bench.list, bench.strings, ports.messages),
      findWindow(bench.list, bench.strings, languages, openForms),
      replaceWindow(bench.list, bench.strings, languages, openForms, proposals),
      window_(bench.window),
      list_(bench.list),
      strings_(bench.strings),
      languages_(languages),
      openForms_(openForms),
      ports_(ports) {
  window_.mnuDelay.Clicked.Connect([this] { SetDelay(); });
  window_.mnuReset.Clicked.Connect([this] { ResetTiming(); });
  window_.mnuFind.Clicked.Connect([this] {
    openForms_.UnloadForm("frmReplace");
    findWindow.Show();
  });
  window_.mnuReplace.Clicked.Connect([this] {
    openForms_.UnloadForm("frmFind");
    replaceWindow.Show();
  });
}

void EditingTools::SetDelay() {
  const bool played = ports_.player.PlayState() == kPlayerPlaying;
  if (played) ports_.player.Pause();
  const Row row = list_.Selected();
  delayDialog.Open(list_.GetCaptionStart(row), languages_.IsRightToLeft());
  if (list_.IsCaptionTimed(row)) list_.SetRow(row, false);
  if (played) ports_.player.Play();
  DelayDone();
}

void EditingTools::ResetTiming() {
  if (ports_.messages.Show({strings_[Message::ResetAllTimecodes], BoxIcon::Question, BoxButtons::YesNo}) !=
      BoxAnswer::Yes) {
    return;
  }
  ClearAllTiming(list_);
  list_.SetRow(list_.Selected(), true);
}

}  // namespace cuewright
