#include "ui/focus_keeper.h"

namespace cuewright {

FocusKeeper::FocusKeeper(QWidget& root, const Binder& binder, const FocusGroup& group)
    : QObject(&root), root_(root), binder_(binder), group_(group) {
  for (Button* button : group_.Buttons()) {
    connections_.push_back(button->Changed.ConnectScoped([this, button] { Follow(*button); }));
  }
}

void FocusKeeper::Follow(Button& button) {
  QWidget* widget = &binder_.WidgetOf(button);
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
  binder_.WidgetOf(*holder).setFocus(Qt::OtherFocusReason);
}

}  // namespace cuewright
