#include "ui/layout_divider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace cuewright {
namespace {

constexpr int kStep = 8;

}  // namespace

LayoutDivider::LayoutDivider(QWidget* parent) : QWidget(parent) {
  setCursor(Qt::SplitHCursor);
  setFocusPolicy(Qt::TabFocus);
}

void LayoutDivider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QStyleOption option;
  option.initFrom(this);
  option.state |= QStyle::State_Horizontal;
  style()->drawControl(QStyle::CE_Splitter, &option, &painter, this);
  // Where the keyboard's focus is.
  if (hasFocus() && window()->isActiveWindow()) painter.fillRect(rect().adjusted(2, 0, -2, 0), palette().highlight());
}

void LayoutDivider::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) == 0) return QWidget::mouseMoveEvent(event);
  const QPoint at = parentWidget()->mapFromGlobal(event->globalPosition().toPoint());
  Dragged(QStyle::visualPos(layoutDirection(), parentWidget()->rect(), at).x());
}

void LayoutDivider::keyPressEvent(QKeyEvent* event) {
  const bool left = event->key() == Qt::Key_Left;
  if (!left && event->key() != Qt::Key_Right) return QWidget::keyPressEvent(event);
  const bool back = left != (layoutDirection() == Qt::RightToLeft);
  Stepped(back ? -kStep : kStep);
}

}  // namespace cuewright
