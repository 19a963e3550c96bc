#include "ui/focus_keeper.h"

namespace cuewright {

FocusKeeper::FocusKeeper(QWidget& root, const FocusGroup& group) : QObject(&root), root_(root), group_(group) {
  for (Button* button : group_.Buttons()) {
    connections_.push_back(button->Changed.ConnectScoped([this, button] { Follow(*button); }));
  }
}

QWidget* FocusKeeper::WidgetOf(const Button& button) const {
  return root_.findChild<QWidget*>(QString::fromStdString(button.Name()));
}

void FocusKeeper::Follow(Button& button) {
  QWidget* widget = WidgetOf(button);
  if (!button.Enabled() && root_.window()->focusWidget() == widget) {
    last_ = &button;
    widget->clearFocus();
  }
  if (last_ == nullptr || settling_) return;
  // One press may disable a button and enable it again: only what comes of it counts.
  settling_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Settle(); }, Qt::QueuedConnection);
}

void FocusKeeper::Settle() {
  settling_ = false;
  if (last_ == nullptr) return;
  if (root_.window()->focusWidget() != nullptr) {
    last_ = nullptr;
    return;
  }
  Button* holder = group_.HolderAfter(*last_);
  if (holder == nullptr) return;
  last_ = nullptr;
  WidgetOf(*holder)->setFocus(Qt::OtherFocusReason);
}

}  // namespace cuewright
