#pragma once

#include <QObject>
#include <QWidget>
#include <vector>

#include "form/focus_group.h"

namespace cuewright {

/// Keeps the keyboard's focus within a group of buttons, where the toolkit would send it on by the order of the tab
/// key. While none of them can be pressed the focus rests nowhere; it comes back unless the user has put it elsewhere.
class FocusKeeper final : public QObject {
 public:
  /// The widgets of `root` have the buttons' names. To be made before they are bound: it has to act before a widget is
  /// disabled.
  FocusKeeper(QWidget& root, const FocusGroup& group);

 private:
  void Follow(Button& button);
  void Settle();
  QWidget* WidgetOf(const Button& button) const;

  QWidget& root_;
  const FocusGroup& group_;
  Button* last_ = nullptr;  // was disabled with the focus, which hasn't come back yet
  bool settling_ = false;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
