#pragma once

#include <QObject>
#include <QWidget>
#include <vector>

#include "form/focus_group.h"
#include "ui/binder.h"

namespace cuewright {

/// Keeps the keyboard's focus within a group of buttons, where the toolkit would send it on by the order of the tab
/// key. While none of them can be pressed the focus rests nowhere; it comes back unless the user has put it elsewhere.
class FocusKeeper final : public QObject {
 public:
  /// The buttons stand in the window `root`. To be made before the binder binds them: it has to act before a widget is
  /// disabled.
  FocusKeeper(QWidget& root, const Binder& binder, const FocusGroup& group);

 private:
  void Follow(Button& button);
  void Settle();

  QWidget& root_;
  const Binder& binder_;
  const FocusGroup& group_;
  Button* last_ = nullptr;  // was disabled with the focus, which hasn't come back yet
  bool settling_ = false;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
