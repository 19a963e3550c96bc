#include "ui/keyed_button.h"

#include <QEvent>
#include <QPainter>

namespace cuewright {
namespace {

constexpr int kMargin = 6;
constexpr double kKeySize = 0.85;  // of the button's letters

}  // namespace

KeyedButton::KeyedButton(const std::uint8_t& key, const Manner& manner, QWidget* parent)
    : QPushButton(parent), key_(key), manner_(manner) {}

bool KeyedButton::event(QEvent* event) {
  // The key may have been changed in a window that was in front.
  if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) TellKey();
  return QPushButton::event(event);
}

void KeyedButton::TellKey() {
  const QString key = manner_.HasCalmWindow() ? KeyName() : QString();
  if (accessibleDescription() == key) return;
  setAccessibleDescription(key);
  update();
}

void KeyedButton::paintEvent(QPaintEvent* event) {
  QPushButton::paintEvent(event);
  if (accessibleDescription().isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont small = font();
  small.setUnderline(false);
  small.setPointSizeF(small.pointSizeF() * kKeySize);
  painter.setFont(small);
  const QFontMetrics metrics(small);
  const int side = metrics.height();
  const QRect cap = QStyle::alignedRect(layoutDirection(), Qt::AlignRight | Qt::AlignBottom, {side + 2, side},
                                        rect().adjusted(kMargin, kMargin, -kMargin, -kMargin));
  QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
  painter.setPen(ink);
  painter.drawText(cap, Qt::AlignCenter, KeyName());
  ink.setAlphaF(0.45F);
  painter.setPen(ink);
  painter.drawRoundedRect(QRectF(cap).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}

}  // namespace cuewright
