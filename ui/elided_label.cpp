#include "ui/elided_label.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace cuewright {
namespace {

constexpr int kLeastLetters = 12;

}  // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

QSize ElidedLabel::minimumSizeHint() const {
  const QSize whole = QLabel::minimumSizeHint();
  return {std::min(whole.width(), fontMetrics().averageCharWidth() * kLeastLetters), whole.height()};
}

QRect ElidedLabel::TextRect() const { return contentsRect().adjusted(margin(), margin(), -margin(), -margin()); }

QString ElidedLabel::ShownText() const { return fontMetrics().elidedText(text(), Qt::ElideMiddle, TextRect().width()); }

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && ShownText() != text()) {
    // As one run of text: a path is no mark-up.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text().toHtmlEscaped(), this);
    return true;
  }
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  const int direction = layoutDirection() == Qt::RightToLeft ? Qt::TextForceRightToLeft : Qt::TextForceLeftToRight;
  style()->drawItemText(&painter, TextRect(),
                        QStyle::visualAlignment(layoutDirection(), alignment()).toInt() | direction, palette(),
                        isEnabled(), ShownText(), foregroundRole());
}

}  // namespace cuewright
