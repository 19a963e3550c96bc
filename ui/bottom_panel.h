#pragma once

#include <QWidget>

#include "capture/main_window.h"
#include "core/app_options.h"

namespace cuewright {

class Binder;

/// The panel `picBottom` below the list and the film: the caption's times and text, the capture's buttons, its modes.
class BottomPanel final : public QWidget {
 public:
  BottomPanel(MainWindow& form, const AppOptions& options, Binder& binder, QWidget* parent);

  /// The text pane `txtSub`.
  QWidget* Pane() const { return pane_; }

 private:
  QWidget* MakeTimeRow();
  QWidget* MakeButtons();
  QWidget* MakeModes();

  MainWindow& form_;
  const AppOptions& options_;
  Binder& binder_;
  QWidget* pane_;
};

}  // namespace cuewright
