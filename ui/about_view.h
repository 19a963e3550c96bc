#pragma once

#include "forms/about_dialog.h"
#include "ui/dialog_view.h"

namespace cuewright {

/// The dialog `frmAbout` on the toolkit. It is moved by its picture as by its frame.
class AboutView final : public DialogView {
 public:
  AboutView(AboutDialog& form, QWidget* owner);
};

}  // namespace cuewright
