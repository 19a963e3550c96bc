#include "ui/joined_letters.h"

#include <QPainter>
#include <QStyleOption>
#include <QTextLayout>
#include <algorithm>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr qreal kOneLine = 10'000;  // wider than any caption

bool HasJoinedLetters(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar c) { return c.joiningType() == QChar::Joining_Dual; });
}

/// A caption without its mark, and where the letter of the access key stands in it (-1 without one).
struct Caption {
  QString text;
  int key = -1;
};

Caption ReadCaption(const QString& marked) {
  Caption caption;
  for (int at = 0; at < marked.size(); ++at) {
    if (marked[at] == '&' && at + 1 < marked.size()) {
      ++at;
      if (marked[at] != '&' && caption.key < 0) caption.key = CountOf(caption.text);
    }
    caption.text += marked[at];
  }
  return caption;
}

/// The line below the letter, in the coordinates of a text that begins at its top left.
QRectF Underline(const Caption& caption, const QPainter& painter) {
  QTextLayout layout(caption.text, painter.font(), painter.device());
  QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
  option.setTextDirection(painter.layoutDirection());
  layout.setTextOption(option);
  layout.beginLayout();
  QTextLine line = layout.createLine();
  line.setLineWidth(kOneLine);
  layout.endLayout();
  const qreal first = line.cursorToX(caption.key);
  const qreal last = line.cursorToX(caption.key + 1);
  const QFontMetricsF metrics = painter.fontMetrics();
  const qreal top = metrics.ascent() + metrics.underlinePos();
  return {std::min(first, last), top, std::abs(last - first), std::max(metrics.lineWidth(), 1.0)};
}

}  // namespace

JoinedLetters::JoinedLetters(const QString& style) : QProxyStyle(style) { setObjectName(style); }

void JoinedLetters::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
  if (!box && element != PE_IndicatorRadioButton) return;
  const QPalette& colors = option->palette;
  if (colors.color(QPalette::WindowText).lightness() <= colors.color(QPalette::Window).lightness()) return;
  // The toolkit derives the outline from the window's colour, and gets one that is darker still.
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, !box);
  painter->setPen(colors.color(QPalette::PlaceholderText));
  painter->setBrush(Qt::NoBrush);
  if (box) {
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  } else {
    painter->drawEllipse(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
  }
  painter->restore();
}

void JoinedLetters::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  if (element != CE_MenuItem || item == nullptr || !HasJoinedLetters(item->text)) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  // Items of a menu draw their text by themselves: whole, and without the line below the letter.
  QStyleOptionMenuItem whole(*item);
  whole.text = ReadCaption(item->text).text.replace('&', "&&");
  QProxyStyle::drawControl(element, &whole, painter, widget);
}

void JoinedLetters::drawItemText(QPainter* painter, const QRect& area, int flags, const QPalette& colors, bool enabled,
                                 const QString& text, QPalette::ColorRole role) const {
  const bool marked = (flags & Qt::TextShowMnemonic) != 0 && (flags & Qt::TextHideMnemonic) == 0;
  const Caption caption = marked && HasJoinedLetters(text) ? ReadCaption(text) : Caption();
  if (caption.key < 0) {
    QProxyStyle::drawItemText(painter, area, flags, colors, enabled, text, role);
    return;
  }
  const int plain = flags & ~Qt::TextShowMnemonic;
  QProxyStyle::drawItemText(painter, area, plain, colors, enabled, caption.text, role);
  const QRect bounds = painter->boundingRect(area, plain, caption.text);
  const QBrush brush = role == QPalette::NoRole ? painter->pen().brush() : colors.brush(role);
  painter->fillRect(Underline(caption, *painter).translated(bounds.topLeft()), brush);
}

}  // namespace cuewright
