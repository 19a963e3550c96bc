#include "ui/joined_letters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QStyle>

namespace cuewright {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 60;

QImage Drawn(const QStyle& style, const QString& text) {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  QFont font = QApplication::font();
  font.setPointSize(20);
  painter.setFont(font);
  painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  style.drawItemText(&painter, image.rect(), Qt::AlignCenter | Qt::TextShowMnemonic, QPalette(Qt::white), true, text,
                     QPalette::WindowText);
  return image;
}

/// The smallest area with all that differs.
QRect Difference(const QImage& a, const QImage& b) {
  QRect area;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      if (a.pixel(x, y) != b.pixel(x, y)) area |= QRect(x, y, 1, 1);
    }
  }
  return area;
}

TEST(JoinedLettersStyle, AddsNothingButALineBelowTheLetterOfTheAccessKey) {
  const JoinedLetters style("fusion");
  for (const auto& [marked, plain] : {std::pair(u"&پرونده", u"پرونده"), std::pair(u"قا&لب", u"قالب")}) {
    const QString caption = QString::fromUtf16(plain);
    const QImage whole = Drawn(style, caption);
    const QRect line = Difference(whole, Drawn(style, QString::fromUtf16(marked)));
    EXPECT_FALSE(line.isEmpty()) << caption.toStdString();
    EXPECT_LE(line.height(), 4) << caption.toStdString();
    EXPECT_LT(line.width(), kWidth / 4) << caption.toStdString();
    EXPECT_GT(line.top(), kHeight / 2) << caption.toStdString();
  }
}

TEST(JoinedLettersStyle, UnderlinesTheFirstLetterAtTheRightEnd) {
  const JoinedLetters style("fusion");
  const QRect first =
      Difference(Drawn(style, QString::fromUtf16(u"پرونده")), Drawn(style, QString::fromUtf16(u"&پرونده")));
  const QRect last =
      Difference(Drawn(style, QString::fromUtf16(u"پرونده")), Drawn(style, QString::fromUtf16(u"پروند&ه")));
  EXPECT_GT(first.left(), kWidth / 2);
  EXPECT_LT(last.right(), kWidth / 2);
}

TEST(JoinedLettersStyle, LeavesOtherCaptionsToTheStyleBelow) {
  const JoinedLetters style("fusion");
  for (const char* caption : {"&File", "Файл", "Save && close"}) {
    EXPECT_TRUE(Difference(Drawn(style, caption), Drawn(*style.baseStyle(), caption)).isEmpty()) << caption;
  }
}

TEST(JoinedLettersStyle, BearsTheNameOfTheStyleBelow) { EXPECT_EQ(JoinedLetters("fusion").objectName(), "fusion"); }

}  // namespace
}  // namespace cuewright
