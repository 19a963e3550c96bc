#pragma once

#include <cstdint>

#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "form/controls.h"
#include "form/dialog.h"

namespace cuewright {

/// The dialog `frmDelay`, which shifts all timed captions by one amount.
class DelayDialog final : public Dialog {
 public:
  DelayDialog(CaptionList& list, const LangStrings& strings, Messages& messages);

  Label lblTitle{*this, "lblTitle"};
  Slider sldMin{*this, "sldMin"};
  Slider sldSec{*this, "sldSec"};
  Slider sldMs{*this, "sldMs"};
  Label lblMin{*this, "lblMin"};
  Label lblSec{*this, "lblSec"};
  Label lblMs{*this, "lblMs"};
  Label lblResult{*this, "lblResult"};
  Label lblDetail{*this, "lblDetail"};
  Button cmdApply{*this, "cmdApply"};
  Button cmdCancel{*this, "cmdCancel"};

  /// Fills the controls; the sample is a caption that starts at `sampleStart` ms.
  void Open(Ms sampleStart, bool rightToLeft);

  /// The delay that the bars stand for, in ms; negative is earlier.
  Ms Delay() const;

  Signal<DelayDialog> RepaintRequested;  ///< what the controls hold is to be seen at once

 private:
  void ShowBars();
  void ShowDelay();
  void ShowSample(std::int64_t start);
  void Apply();

  CaptionList& list_;
  const LangStrings& strings_;
  Messages& messages_;
  Ms sampleStart_ = 0;
};

}  // namespace cuewright
