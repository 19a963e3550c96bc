#include "capture/sub_window.h"

#include <utility>

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
  const bool plain = shown_.runs.empty() && shown_.place == kUsualPlace;
  shown_ = {};
  lblShadow.SetText(text);
  lblSub.SetText(text);
  if (!plain) StyleChanged();
}

void SubWindow::ShowCaption(SeenCaption caption) {
  Text text;
  for (const StyledRun& run : caption.runs) text += run.text;
  text = ReplaceAll(text, u"\n", kLineEnd);
  const bool same = caption.runs == shown_.runs && caption.place == shown_.place;
  shown_ = std::move(caption);
  lblShadow.SetText(text);
  lblSub.SetText(text);
  if (!same) StyleChanged();
}

}  // namespace cuewright
