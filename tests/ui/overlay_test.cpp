#include "ui/overlay.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include "core/form/sub_window.h"

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
    style.colour = 0x00FFFF;
    overlay.setGeometry(10, 100, 480, overlay.WantedHeight());
    film.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&film));
  }

  void Show(TextView text) {
    form.Load();
    form.SetStyle(style);
    overlay.setGeometry(10, 100, 480, overlay.WantedHeight());
    form.ShowText(text);
  }
  QImage Picture() { return film.grab().toImage(); }
  /// Pixels of a colour inside the overlay, the edges of letters not counted.
  int Count(QColor colour) {
    const QImage picture = Picture();
    const double ratio = picture.devicePixelRatio();
    int count = 0;
    for (int y = 100; y < 100 + overlay.height(); ++y) {
      for (int x = 10; x < 490; ++x) {
        count += picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio)) == colour ? 1 : 0;
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
  EXPECT_EQ(overlay.WantedHeight(), 2 * metrics.height() + 2);
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

TEST_F(OverlayTest, RightToLeftTextReadsFromTheRight) {
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
