#include "ui/overlay.h"

#include <QFontMetrics>
#include <QPainter>
#include <QtMath>
#include <cmath>

#include "ui/qt_color.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

/// The direction of a line's first letter; one without letters is read like the language in force.
Qt::LayoutDirection DirectionOf(const QString& line, Qt::LayoutDirection language) {
  for (const QChar letter : line) {
    if (letter.direction() == QChar::DirL) return Qt::LeftToRight;
    if (letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL) return Qt::RightToLeft;
  }
  return language;
}

/// At which side a caption stands: left, middle and right are a column each of a number pad's keys.
Qt::Alignment AlignmentOf(int place) {
  constexpr Qt::Alignment kColumns[] = {Qt::AlignRight, Qt::AlignLeft, Qt::AlignHCenter};
  return kColumns[place % 3] | Qt::AlignAbsolute;
}

/// Lays a line out below `top`, wrapped where the width asks for it. Gives where the next one begins.
qreal LayOut(QTextLayout& layout, qreal width, qreal top, qreal leading) {
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, top});
    top += line.height() + leading;
  }
  layout.endLayout();
  return top;
}

}  // namespace

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

Qt::LayoutDirection Overlay::LanguageDirection() const {
  return form_.lblSub.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

QString Overlay::ShownText() const { return ToQt(ReplaceAll(form_.lblSub.GetText(), kLineEnd, u"\n")); }

QTextCharFormat Overlay::FormatOf(const RunStyle& style, Pass pass) const {
  // Bold text within a bold caption gets a heavier weight, where the font has one.
  const int own = form_.GetStyle().bold ? QFont::Bold : QFont::Normal;
  const int bolder = form_.GetStyle().bold ? QFont::Black : QFont::Bold;
  QTextCharFormat format;
  format.setFontWeight(style.bold ? bolder : own);
  format.setFontItalic(style.italic);
  format.setFontUnderline(style.underline);
  format.setFontStrikeOut(style.strike);
  if (style.colour && pass == Pass::Letters) format.setForeground(QColor::fromRgb(*style.colour));
  return format;
}

QList<QTextLayout::FormatRange> Overlay::FormatsOf(qsizetype begin, qsizetype length, Pass pass) const {
  QList<QTextLayout::FormatRange> formats;
  qsizetype at = -begin;
  for (const StyledRun& run : form_.Shown().runs) {
    const qsizetype from = std::max<qsizetype>(at, 0);
    at += std::ssize(run.text);
    const qsizetype to = std::min(at, length);
    if (from >= to) continue;
    formats.push_back({static_cast<int>(from), static_cast<int>(to - from), FormatOf(run.style, pass)});
  }
  return formats;
}

int Overlay::DrawLines(QPainter* painter, int width, Pass pass) const {
  const QFont font = StyleFont();
  const qreal leading = std::max(QFontMetricsF(font).leading(), 0.0);
  qreal top = 0;
  qsizetype begin = 0;
  for (const QString& text : ShownText().split('\n')) {
    QTextLayout layout(text, font);
    layout.setFormats(FormatsOf(begin, text.size(), pass));
    begin += text.size() + 1;
    QTextOption option(AlignmentOf(form_.Shown().place));
    option.setWrapMode(QTextOption::WordWrap);
    option.setTextDirection(DirectionOf(text, LanguageDirection()));
    layout.setTextOption(option);
    top = LayOut(layout, width, top, leading);
    if (painter != nullptr) layout.draw(painter, {0, 0});
  }
  return qCeil(top - leading);
}

int Overlay::WantedHeight(int width) const {
  const int twoLines = 2 * QFontMetrics(StyleFont()).height() + 2;
  if (!form_.GetStyle().allLines || ShownText().isEmpty()) return twoLines;
  return std::max(twoLines, DrawLines(nullptr, width, Pass::Letters) + 2);
}

void Overlay::DrawText(QPainter& painter, Pass pass) const {
  if (form_.GetStyle().allLines) {
    DrawLines(&painter, width(), pass);
    return;
  }
  painter.setLayoutDirection(LanguageDirection());
  painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, ShownText());
}

void Overlay::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const SubWindow::Style& style = form_.GetStyle();
  if (style.opaque) painter.fillRect(rect(), Qt::black);
  if (ShownText().isEmpty()) return;
  painter.setFont(StyleFont());
  if (form_.lblShadow.Visible()) {
    painter.setPen(Qt::black);
    painter.translate(style.shadowShift, style.shadowShift);
    DrawText(painter, Pass::Shadow);
    painter.translate(-style.shadowShift, -style.shadowShift);
  }
  painter.setPen(ColorOf(style.color));
  DrawText(painter, Pass::Letters);
}

}  // namespace cuewright
