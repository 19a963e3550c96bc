#pragma once

#include <functional>

#include "capture/workbench.h"
#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "forms/delay_dialog.h"
#include "forms/find_windows.h"
#include "forms/open_forms.h"
#include "forms/ports.h"
#include "forms/proposal_tools.h"
#include "settings/languages.h"

namespace cuewright {

/// The menu's actions that work on the whole list: the delay, the reset of all timing, and the search.
class EditingTools {
 public:
  EditingTools(Workbench bench, const Languages& languages, OpenForms& openForms, Ports ports,
               ProposalTools& proposals);

  DelayDialog delayDialog;
  FindWindow findWindow;
  ReplaceWindow replaceWindow;

  Signal<EditingTools> DelayDone;  ///< the delay dialog has closed: what draws the captions' times draws them anew

 private:
  void SetDelay();
  void ResetTiming();

  MainWindow& window_;
  CaptionList& list_;
  const LangStrings& strings_;
  const Languages& languages_;
  OpenForms& openForms_;
  Ports ports_;
};

}  // namespace cuewright
