#include "capture/sub_window.h"

namespace cuewright {

void SubWindow::Load() {
  if (loaded_) return;
  loaded_ = true;
  ShowText({});
  LoadedChanged();
}

void SubWindow::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  ShowText({});
  LoadedChanged();
}

void SubWindow::SetStyle(const Style& style) {
  if (style_ == style) return;
  style_ = style;
  StyleChanged();
}

void SubWindow::ShowText(TextView text) {
  lblShadow.SetText(text);
  lblSub.SetText(text);
}

}  // namespace cuewright
