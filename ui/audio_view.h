#pragma once

#include "forms/audio_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmAudio` on the toolkit.
class AudioView final : public DialogView {
 public:
  AudioView(AudioDialog& form, QWidget* owner);
};

}  // namespace cuewright
