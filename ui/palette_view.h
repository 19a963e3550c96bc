#pragma once

#include "forms/palette.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmPalette` on the toolkit.
class PaletteView final : public DialogView {
 public:
  PaletteView(Palette& form, QWidget* owner);
};

}  // namespace cuewright
