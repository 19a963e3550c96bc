#pragma once

#include <QObject>
#include <optional>

#include "capture/main_window.h"

namespace cuewright {

/// When a key or button went, by the steady clock in seconds, from the window system's stamp in ms and the time now.
/// Empty for an event without a stamp; now for a stamp of another clock than this machine's.
std::optional<double> InstantOfStamp(quint64 stamp, double now);

/// Tells the main window, for each key and each button of the pointer, when it went down or up: a busy window handles
/// it later.
class InputInstants : public QObject {
 public:
  explicit InputInstants(MainWindow& form);
  ~InputInstants() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  MainWindow& form_;
  bool clearing_ = false;
};

}  // namespace cuewright
