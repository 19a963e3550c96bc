#pragma once

#include <string>
#include <string_view>

#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"

namespace cuewright {

/// The window `frmRun` of a run of our own runner: how far it is, the time left, and a way to cancel. What it shows
/// comes as lines from the runner.
class RunWindow final : public Dialog {
 public:
  explicit RunWindow(const LangStrings& strings);

  Label lblFile{*this, "lblFile"};
  ProgressBar barProgress{*this, "barProgress"};
  Label lblLeft{*this, "lblLeft"};
  Label lblFailure{*this, "lblFailure"};
  Button cmdCancel{*this, "cmdCancel"};

  void Open(bool rightToLeft);

  /// Takes what the runner has written, in pieces of any size.
  void TakeInput(std::string_view bytes);
  /// The runner writes no more: the window goes, unless it shows a failure.
  void EndInput();

  /// True when the user closed the window of a run that went on.
  bool Cancelled() const { return cancelled_; }
  Signal<RunWindow> FailureShown;

 protected:
  void OnClose() override;

 private:
  void TakeLine(std::string_view line);
  void ShowFailure(std::string_view reason);

  const LangStrings& strings_;
  std::string input_;  // the line that isn't whole yet
  bool failed_ = false;
  bool ended_ = false;
  bool cancelled_ = false;
};

}  // namespace cuewright
