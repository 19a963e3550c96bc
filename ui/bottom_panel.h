#pragma once

#include <QWidget>

namespace cuewright {

/// The panel `picBottom` below the list and the film: the caption's times and text, the capture's buttons, its modes.
class BottomPanel final : public QWidget {
 public:
  explicit BottomPanel(QWidget* parent);

  /// The text pane `txtSub`.
  QWidget* Pane() const { return pane_; }

 private:
  QWidget* MakeTimeRow();
  QWidget* MakeButtons();
  QWidget* MakeModes();

  QWidget* pane_;
};

}  // namespace cuewright
