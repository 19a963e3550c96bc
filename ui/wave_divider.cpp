#include "ui/wave_divider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

namespace cuewright {
namespace {

constexpr int kStep = 12;
constexpr int kDots = 5;
constexpr int kDotGap = 6;

}  // namespace

WaveDivider::WaveDivider(QWidget* parent) : QWidget(parent) {
  setCursor(Qt::SplitVCursor);
  setFocusPolicy(Qt::TabFocus);
}

void WaveDivider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const bool focus = hasFocus() && window()->isActiveWindow();
  if (focus) painter.fillRect(rect().adjusted(0, 2, 0, -2), palette().highlight());
  painter.setPen(Qt::NoPen);
  painter.setBrush(focus ? palette().highlightedText() : palette().mid());
  for (int i = 0; i < kDots; ++i) {
    painter.drawRect(width() / 2 + (i - kDots / 2) * kDotGap, height() / 2 - 1, 2, 2);
  }
}

void WaveDivider::mousePressEvent(QMouseEvent* event) { grip_ = qFloor(event->position().y()); }

void WaveDivider::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) Moved(grip_ - qFloor(event->position().y()));
}

void WaveDivider::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Up && event->key() != Qt::Key_Down) return QWidget::keyPressEvent(event);
  Moved(event->key() == Qt::Key_Up ? kStep : -kStep);
}

}  // namespace cuewright
