#pragma once

#include <QProxyStyle>

namespace cuewright {

/// A style like the named one that draws captions of joined letters whole, with their access key underlined: the
/// toolkit's own underline takes the letter out of its word, and shows it in the form that it has alone. In dark
/// colours it draws the outlines of check boxes and radio buttons light enough to be seen.
class JoinedLetters final : public QProxyStyle {
 public:
  /// `style` is a name that the toolkit knows, such as "fusion".
  explicit JoinedLetters(const QString& style);

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget = nullptr) const override;
  void drawItemText(QPainter* painter, const QRect& area, int flags, const QPalette& colors, bool enabled,
                    const QString& text, QPalette::ColorRole role = QPalette::NoRole) const override;
};

}  // namespace cuewright
