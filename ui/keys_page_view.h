#pragma once

#include "forms/keys_page.h"
#include "ui/settings_page_view.h"

class QLineEdit;

namespace cuewright {

/// The page of the keyboard shortcuts.
class KeysPageView final : public SettingsPageView {
 public:
  KeysPageView(KeysPage& page, Picture& area, Binder& binder, QWidget* parent);

 private:
  QLineEdit* MakeField(TextBox& box, int letters, int width, QWidget* parent);

  KeysPage& page_;
};

}  // namespace cuewright
