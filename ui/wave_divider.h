#pragma once

#include <QWidget>

#include "core/signal.h"

namespace cuewright {

/// The edge `imgWaveSize` above the Audio bar, by which the pointer and the arrow keys make it higher.
class WaveDivider final : public QWidget {
 public:
  explicit WaveDivider(QWidget* parent);

  Signal<WaveDivider, int> Moved;  ///< the bar is to be higher by so many pixels

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int grip_ = 0;  ///< where in the edge the pointer took hold
};

}  // namespace cuewright
