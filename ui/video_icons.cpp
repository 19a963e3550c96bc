#include "ui/video_icons.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace cuewright {
namespace {

constexpr int kSide = 30;
constexpr double kIconSide = 16;

QPainterPath Loudspeaker() {
  QPainterPath path;
  path.addPolygon(QPolygonF({{1, 5.5}, {4, 5.5}, {8, 2}, {8, 14}, {4, 10.5}, {1, 10.5}}));
  path.closeSubpath();
  return path;
}

QPainterPath Wave(double radius) {
  QPainterPath arc;
  const QRectF circle(8 - radius, 8 - radius, 2 * radius, 2 * radius);
  arc.arcMoveTo(circle, -45);
  arc.arcTo(circle, -45, 90);
  QPainterPathStroker stroker;
  stroker.setWidth(1.5);
  stroker.setCapStyle(Qt::RoundCap);
  return stroker.createStroke(arc);
}

QPainterPath Cross() {
  QPainterPath lines;
  lines.moveTo(10.5, 5.5);
  lines.lineTo(15, 10.5);
  lines.moveTo(15, 5.5);
  lines.lineTo(10.5, 10.5);
  QPainterPathStroker stroker;
  stroker.setWidth(1.6);
  stroker.setCapStyle(Qt::RoundCap);
  return stroker.createStroke(lines);
}

}  // namespace

QPainterPath VideoIconPath(VideoIcon icon) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  switch (icon) {
    case VideoIcon::Play:
      path.addPolygon(QPolygonF({{3.5, 1.5}, {14, 8}, {3.5, 14.5}}));
      path.closeSubpath();
      break;
    case VideoIcon::Pause:
      path.addRoundedRect(3, 2, 3.8, 12, 1, 1);
      path.addRoundedRect(9.2, 2, 3.8, 12, 1, 1);
      break;
    case VideoIcon::Stop:
      path.addRoundedRect(2.5, 2.5, 11, 11, 1.2, 1.2);
      break;
    case VideoIcon::Sound:
      path.addPath(Loudspeaker());
      path.addPath(Wave(3.5));
      path.addPath(Wave(6.5));
      break;
    case VideoIcon::Muted:
      path.addPath(Loudspeaker());
      path.addPath(Cross());
      break;
  }
  return path;
}

VideoButton::VideoButton(VideoIcon icon, const char* name, const QString& text, QWidget* parent)
    : QAbstractButton(parent), icon_(icon) {
  setObjectName(name);
  setAccessibleName(text);
  setToolTip(text);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void VideoButton::SetIcon(VideoIcon icon) {
  icon_ = icon;
  update();
}

void VideoButton::SetMarked(bool marked) {
  if (marked == marked_) return;
  marked_ = marked;
  update();
}

QSize VideoButton::sizeHint() const { return {kSide, kSide}; }

void VideoButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void VideoButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void VideoButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
  if (isEnabled() && (isDown() || underMouse())) {
    QColor shade = ink;
    shade.setAlphaF(isDown() ? 0.22F : 0.10F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shade);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
  }
  if (isEnabled() && marked_) ink = palette().color(QPalette::Highlight);
  if (!isEnabled()) ink.setAlphaF(0.4F);
  painter.save();
  painter.translate((width() - kIconSide) / 2, (height() - kIconSide) / 2);
  painter.fillPath(VideoIconPath(icon_), ink);
  painter.restore();
  if (hasFocus()) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 5, 5);
  }
}

}  // namespace cuewright
