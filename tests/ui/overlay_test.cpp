#include "ui/overlay.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include "capture/sub_window.h"

namespace cuewright {
namespace {

/// A picture of one colour, as a film would be.
class Film final : public QWidget {
 public:
  Film() { resize(500, 300); }

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), QColor(0, 120, 0)); }
  void mousePressEvent(QMouseEvent*) override { ++presses; }

 public:
  int presses = 0;
};

struct OverlayTest : ::testing::Test {
  OverlayTest() {
    style.fontName = u"DejaVu Sans";
    style.fontSize = 18;
    style.color = 0x00FFFF;
    overlay.setGeometry(10, 100, 480, overlay.WantedHeight(480));
    film.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&film));
  }

  void Show(TextView text) {
    form.Load();
    form.SetStyle(style);
    overlay.setGeometry(10, 100, 480, overlay.WantedHeight(480));
    form.ShowText(text);
  }
  QImage Picture() { return film.grab().toImage(); }
  /// Pixels of a colour inside the overlay, the edges of letters not counted.
  int Count(QColor color) {
    const QImage picture = Picture();
    const double ratio = picture.devicePixelRatio();
    int count = 0;
    for (int y = 100; y < 100 + overlay.height(); ++y) {
      for (int x = 10; x < 490; ++x) {
        count += picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio)) == color ? 1 : 0;
      }
    }
    return count;
  }
  /// Left and right edge of what isn't the film.
  std::pair<int, int> Extent(int fromY, int toY) {
    const QImage picture = Picture();
    int left = 10000;
    int right = -1;
    for (int y = fromY; y < toY; ++y) {
      for (int x = 10; x < 490; ++x) {
        if (picture.pixelColor(x, y) == QColor(0, 120, 0)) continue;
        left = std::min(left, x);
        right = std::max(right, x);
      }
    }
    return {left, right};
  }

  Film film;
  SubWindow form;
  SubWindow::Style style;
  Overlay overlay{form, &film};
};

constexpr QColor kGreen(0, 120, 0);
constexpr QColor kYellow(255, 255, 0);

TEST_F(OverlayTest, ThePictureShowsThroughAroundTheText) {
  Show(u"Hello");
  const int all = 480 * overlay.height();
  EXPECT_GT(Count(kYellow), 50);
  EXPECT_GT(Count(kGreen), all * 8 / 10);
}

TEST_F(OverlayTest, AnOpaqueOneIsBlackAroundTheText) {
  style.opaque = true;
  Show(u"Hello");
  EXPECT_EQ(Count(kGreen), 0);
  EXPECT_GT(Count(Qt::black), 480 * overlay.height() * 8 / 10);
  EXPECT_GT(Count(kYellow), 50);
}

TEST_F(OverlayTest, TheShadowLiesBehindTheTextAndCanBeOff) {
  Show(u"Hello");
  EXPECT_GT(Count(Qt::black), 10);
  form.lblShadow.SetVisible(false);
  EXPECT_EQ(Count(Qt::black), 0);
}

TEST_F(OverlayTest, HasRoomForTwoLines) {
  const QFontMetrics metrics(QFont("DejaVu Sans", 18));
  Show(u"Hello");
  EXPECT_EQ(overlay.WantedHeight(480), 2 * metrics.height() + 2);
  form.ShowText(u"Hello\r\nworld");
  const auto [left, right] = Extent(100 + metrics.height(), 100 + 2 * metrics.height());
  EXPECT_GT(right, left);
  EXPECT_NEAR((left + right) / 2, 250, 4);  // centred
}

TEST_F(OverlayTest, ItalicsAndUnderlineAreSeen) {
  Show(u"Hello");
  const QImage plain = Picture();
  style.italic = true;
  form.SetStyle(style);
  const QImage italic = Picture();
  EXPECT_NE(plain, italic);
  style.italic = false;
  style.underline = true;
  form.SetStyle(style);
  EXPECT_NE(plain, Picture());
}

TEST_F(OverlayTest, DrawsThePartsOfACaptionEachInItsOwnLook) {
  form.lblShadow.SetVisible(false);
  form.Load();
  form.SetStyle(style);
  const auto show = [&](RunStyle second) {
    form.ShowCaption({{{u"one\ntw", {}}, {u"o and", second}, {u" three", {}}}, kUsualPlace});
    return Picture();
  };
  overlay.setGeometry(10, 100, 480, overlay.WantedHeight(480));
  const QImage plain = show({});
  EXPECT_EQ(form.lblSub.GetText(), u"one\r\ntwo and three");
  RunStyle part;
  part.italic = true;
  const QImage italic = show(part);
  EXPECT_NE(italic, plain);
  part.italic = false;
  part.bold = true;
  EXPECT_NE(show(part), plain);
  part.bold = false;
  part.underline = true;
  EXPECT_NE(show(part), plain);
  EXPECT_EQ(show({}), plain);
  part.underline = false;
  part.colour = 0xFF0000;
  show(part);
  EXPECT_GT(Count(Qt::red), 20);
  EXPECT_GT(Count(kYellow), 20);
  form.lblShadow.SetVisible(true);
  show(part);
  EXPECT_GT(Count(Qt::black), 10) << "the shadow has no colour of its own";
}

TEST_F(OverlayTest, APartInLettersThatAreUprightStandsUprightInACaptionInItalics) {
  form.lblShadow.SetVisible(false);
  Show(u"Hello");
  const QImage upright = Picture();
  style.italic = true;
  form.SetStyle(style);
  form.ShowCaption({{{u"Hello", {}}}, kUsualPlace});
  EXPECT_EQ(Picture(), upright);
}

TEST_F(OverlayTest, ACaptionStandsAtTheSideOfItsPlace) {
  form.lblShadow.SetVisible(false);
  form.Load();
  form.SetStyle(style);
  overlay.setGeometry(10, 100, 480, overlay.WantedHeight(480));
  const auto extent = [&](int place) {
    form.ShowCaption({{{u"Hello", {}}}, place});
    return Extent(100, 100 + overlay.height());
  };
  EXPECT_LT(extent(7).first, 20);
  EXPECT_GT(extent(9).second, 480);
  EXPECT_NEAR((extent(8).first + extent(8).second) / 2, 250, 4);
  form.ShowText(u"Hello");
  EXPECT_NEAR((Extent(100, 200).first + Extent(100, 200).second) / 2, 250, 4);
}

TEST_F(OverlayTest, HasRoomForAllLinesAndForThoseThatWrap) {
  const QFontMetrics metrics(QFont("DejaVu Sans", 18));
  form.Load();
  form.SetStyle(style);
  form.ShowText(u"one\r\ntwo\r\nthree\r\nfour");
  EXPECT_GE(overlay.WantedHeight(480), 4 * metrics.height());
  form.ShowText(u"a caption that is far too long to stand in one single line of the picture, or in two of them");
  EXPECT_GE(overlay.WantedHeight(480), 3 * metrics.height());
  overlay.setGeometry(10, 100, 480, overlay.WantedHeight(480));
  const auto [left, right] = Extent(100 + 2 * metrics.height(), 100 + 3 * metrics.height());
  EXPECT_GT(right, left);
}

TEST_F(OverlayTest, OfTheClassicMannerIsTwoLinesHigh) {
  style.allLines = false;
  Show(u"one\r\ntwo\r\nthree\r\nfour");
  EXPECT_EQ(overlay.WantedHeight(480), 2 * QFontMetrics(QFont("DejaVu Sans", 18)).height() + 2);
}

TEST_F(OverlayTest, EachLineIsReadByItsOwnLetters) {
  form.lblShadow.SetVisible(false);
  const int line = QFontMetrics(QFont("DejaVu Sans", 18)).height();
  // The sign at the end of an Arabic line stands on its left, that of an English one on its right, in one caption.
  Show(u"\u0633\u0644\u0627\u0645\r\nHello");
  const auto arabic = Extent(100, 100 + line);
  const auto english = Extent(100 + line, 100 + 2 * line);
  for (const bool rightToLeft : {false, true}) {
    form.lblSub.SetRightToLeft(rightToLeft);
    form.ShowText(u"\u0633\u0644\u0627\u0645 -\r\nHello -");
    const auto arabicSigned = Extent(100, 100 + line);
    const auto englishSigned = Extent(100 + line, 100 + 2 * line);
    // Centred, so that the letters move away from their sign.
    EXPECT_LT(arabicSigned.first, arabic.first);
    EXPECT_GT(englishSigned.second, english.second);
    const QImage picture = Picture();
    const auto dashAt = [&](int x, int y) { return picture.pixelColor(x, y) == kYellow; };
    int left = 0;
    int right = 0;
    for (int y = 100 + line / 3; y < 100 + line; ++y) left += dashAt(arabicSigned.first + 2, y) ? 1 : 0;
    for (int y = 100 + line + line / 3; y < 100 + 2 * line; ++y) right += dashAt(englishSigned.second - 2, y) ? 1 : 0;
    // A dash is a thin line where letters would be high.
    EXPECT_TRUE(left >= 1 && left <= 3) << left;
    EXPECT_TRUE(right >= 1 && right <= 3) << right;
  }
}

TEST_F(OverlayTest, ALineWithoutLettersIsReadLikeTheLanguage) {
  Show(u"12 -");
  const QImage fromLeft = Picture();
  form.lblSub.SetRightToLeft(true);
  EXPECT_NE(fromLeft, Picture());
}

TEST_F(OverlayTest, RightToLeftTextReadsFromTheRightInTheClassicManner) {
  style.allLines = false;
  Show(u"abc!");
  const QImage fromLeft = Picture();
  form.lblSub.SetRightToLeft(true);
  form.lblShadow.SetRightToLeft(true);
  EXPECT_NE(fromLeft, Picture());  // the sign stands on the other side
}

TEST_F(OverlayTest, TakesNeitherFocusNorPointer) {
  Show(u"Hello");
  EXPECT_EQ(overlay.focusPolicy(), Qt::NoFocus);
  QTest::mouseClick(film.windowHandle(), Qt::LeftButton, {}, QPoint(250, 100 + overlay.height() / 2));
  EXPECT_EQ(film.presses, 1);
  EXPECT_NE(QApplication::focusWidget(), &overlay);
}

TEST_F(OverlayTest, IsThereWhileAVideoIsOpen) {
  EXPECT_FALSE(overlay.isVisible());
  Show(u"Hello");
  EXPECT_TRUE(overlay.isVisible());
  form.Unload();
  EXPECT_FALSE(overlay.isVisible());
}

}  // namespace
}  // namespace cuewright
