#pragma once

#include "forms/delay_dialog.h"

class QWidget;

namespace cuewright {

/// Shows the dialog `frmDelay` over `owner` until it closes.
void RunDelayDialog(DelayDialog& form, QWidget* owner);

}  // namespace cuewright
