#pragma once

#include <vector>

#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/folders.h"
#include "core/ports/files.h"
#include "core/ports/processes.h"
#include "form/controls.h"
#include "forms/file_router.h"
#include "forms/held_hand.h"
#include "forms/tool_form.h"
#include "settings/languages.h"

namespace cuewright {

/// What the window works on.
struct HandParts {
  TimingCapture& capture;
  FileRouter& router;
  const Folders& folders;
  Files& files;
  const Languages& languages;
  Processes* processes;  ///< null: the exercise has tones
};

/// The window `frmHand`: how late the person's hand is, with keys, mouse and pedal apart, and in which language
/// captions are spoken. It is measured by an exercise, a film of twenty numbers that captions are held for as for any
/// film, or typed.
class HandWindow final : public ToolForm {
 public:
  HandWindow(Workbench bench, const HandParts& parts, OpenForms& openForms);

  Label lblHand{*this, "lblHand"};
  ComboBox cboHand{*this, "cboHand"};
  Label lblLate{*this, "lblLate"};
  Label lblSpread{*this, "lblSpread"};
  Label lblPress{*this, "lblPress"};
  TextBox txtPress{*this, "txtPress"};
  TextBox txtPressSpread{*this, "txtPressSpread"};
  Label lblRelease{*this, "lblRelease"};
  TextBox txtRelease{*this, "txtRelease"};
  TextBox txtReleaseSpread{*this, "txtReleaseSpread"};
  Label lblExercise{*this, "lblExercise"};
  Button cmdExercise{*this, "cmdExercise"};
  Label lblLanguage{*this, "lblLanguage"};
  ComboBox cboLanguage{*this, "cboLanguage"};
  Label lblLanguageHint{*this, "lblLanguageHint"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  void ApplyLanguage(bool rightToLeft) override;
  /// The menu shows the window where the manner in force has it.
  void ShowItem();
  /// The film and the text that are open are the exercise.
  bool Exercising() const;

 private:
  void Load() override;
  void ShowTimes(const HandTimes& times);
  HandTimes TypedTimes() const;
  void Apply();
  void StartExercise();
  /// A caption of the exercise was held: the last one tells how late the hand is.
  void OnHeld();

  Workbench bench_;
  HandParts parts_;
  Text film_;                        ///< of the exercise; empty: there was none
  Text text_;                        ///< the same of its text
  std::vector<CaptionTimes> truth_;  ///< when its numbers are said
};

}  // namespace cuewright
