#include "ui/link_button.h"

#include <QEvent>
#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <utility>

namespace cuewright {
namespace {

constexpr int kEntryMargin = 10;

bool IsEnter(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

}  // namespace

LinkButton::LinkButton(QWidget* parent) : QToolButton(parent) {
  setAutoRaise(true);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setToolButtonStyle(Qt::ToolButtonTextOnly);
  ShowColor();
}

void LinkButton::ShowColor() {
  const QColor link = palette().color(QPalette::Active, QPalette::Link);
  if (palette().color(QPalette::Active, QPalette::ButtonText) == link) return;
  QPalette colors = palette();
  colors.setColor(QPalette::Active, QPalette::ButtonText, link);
  colors.setColor(QPalette::Inactive, QPalette::ButtonText, link);
  setPalette(colors);
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    click();
  } else {
    QToolButton::keyPressEvent(event);
  }
}

void LinkButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowColor();
}

MenuEntry::MenuEntry(QWidget* parent) : QToolButton(parent) {
  setAutoRaise(true);
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setToolButtonStyle(Qt::ToolButtonTextOnly);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize MenuEntry::sizeHint() const {
  return QToolButton::sizeHint().expandedTo({fontMetrics().horizontalAdvance(text()) + 2 * kEntryMargin + 4, 0});
}

void MenuEntry::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionToolButton option;
  initStyleOption(&option);
  const QString caption = std::exchange(option.text, QString());
  painter.drawComplexControl(QStyle::CC_ToolButton, option);
  painter.setFont(font());
  const int flags =
      (QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter).toInt() | Qt::TextShowMnemonic;
  painter.drawItemText(rect().adjusted(kEntryMargin, 0, -kEntryMargin, 0), flags, palette(), isEnabled(), caption,
                       QPalette::ButtonText);
}

void MenuEntry::keyPressEvent(QKeyEvent* event) {
  // On the chosen entry Enter is for the window's default button.
  if (IsEnter(*event) && !isChecked()) {
    click();
  } else {
    QToolButton::keyPressEvent(event);
  }
}

}  // namespace cuewright
