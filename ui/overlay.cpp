#include "ui/overlay.h"

#include <QFontMetrics>
#include <QPainter>

#include "ui/qt_colour.h"
#include "ui/qt_text.h"

namespace cuewright {
Overlay::Overlay(SubWindow& form, QWidget* parent) : QWidget(parent), form_(form) {
  setObjectName("frmSub");
  setAccessibleName("Caption over the picture");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  setFocusPolicy(Qt::NoFocus);
  const auto show = [this] { ShowState(); };
  connections_.push_back(form_.LoadedChanged.ConnectScoped(show));
  connections_.push_back(form_.StyleChanged.ConnectScoped(show));
  connections_.push_back(form_.lblSub.Changed.ConnectScoped(show));
  connections_.push_back(form_.lblShadow.Changed.ConnectScoped(show));
  ShowState();
}

void Overlay::ShowState() {
  if (isHidden() == form_.Loaded()) setVisible(form_.Loaded());
  raise();
  update();
}

QFont Overlay::StyleFont() const {
  const SubWindow::Style& style = form_.GetStyle();
  QFont font(ToQt(style.fontName), style.fontSize, style.bold ? QFont::Bold : QFont::Normal, style.italic);
  font.setUnderline(style.underline);
  return font;
}

int Overlay::WantedHeight() const { return 2 * QFontMetrics(StyleFont()).height() + 2; }

void Overlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const SubWindow::Style& style = form_.GetStyle();
  if (style.opaque) painter.fillRect(rect(), Qt::black);
  const QString text = ToQt(ReplaceAll(form_.lblSub.GetText(), kLineEnd, u"\n"));
  if (text.isEmpty()) return;
  painter.setFont(StyleFont());
  painter.setLayoutDirection(form_.lblSub.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
  if (form_.lblShadow.Visible()) {
    painter.setPen(Qt::black);
    painter.drawText(rect().translated(style.shadowShift, style.shadowShift), flags, text);
  }
  painter.setPen(ColourOf(style.colour));
  painter.drawText(rect(), flags, text);
}

}  // namespace cuewright
