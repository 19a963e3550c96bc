#pragma once

#include "forms/audio_dialog.h"

class QWidget;

namespace cuewright {

/// Shows the dialog `frmAudio` over `owner` until it closes.
void RunAudioDialog(AudioDialog& form, QWidget* owner);

}  // namespace cuewright
