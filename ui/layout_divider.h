#pragma once

#include <QWidget>

#include "core/signal.h"

namespace cuewright {

/// The divider `imgSize` between list and film, which the pointer drags and the arrow keys move.
class LayoutDivider final : public QWidget {
 public:
  explicit LayoutDivider(QWidget* parent);

  Signal<LayoutDivider, int> Dragged;  ///< its left edge is to stand so far from the left (right) of its parent
  Signal<LayoutDivider, int> Stepped;  ///< it is to move by so many pixels towards the end of the line

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace cuewright
