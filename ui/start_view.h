#pragma once

#include <QWidget>

#include "forms/start_window.h"
#include "ui/binder.h"

namespace cuewright {

/// The missing-player screen `frmStart`.
class StartView final : public QWidget {
 public:
  explicit StartView(StartWindow& form);

 protected:
  /// Closing the window is leaving the program, unless the user goes on without the player.
  void closeEvent(QCloseEvent* event) override;

 private:
  StartWindow& form_;
  Binder binder_;
  Connection title_;
  Connection direction_;
  Connection ignore_;
  bool goesOn_ = false;
};

}  // namespace cuewright
