#pragma once

#include <QObject>

namespace cuewright {

class HelpWindow;

/// F1 in any window beside the main one opens the page of that window; a window without a name, such as a message,
/// opens that of the window below it. The main window has F1 in its menu.
class HelpKey final : public QObject {
 public:
  explicit HelpKey(HelpWindow& help);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  HelpWindow& help_;
};

}  // namespace cuewright
