#include "ui/color_scheme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QImage>
#include <QRadioButton>
#include <QTest>
#include <cmath>

#include "ui/joined_letters.h"

namespace cuewright {
namespace {

bool WindowsAreDark() {
  const QPalette colors = QApplication::palette();
  return colors.color(QPalette::WindowText).lightness() > colors.color(QPalette::Window).lightness();
}

/// The settings portal of a desktop that prefers what the test says.
class Portal final : public QDBusVirtualObject {
 public:
  explicit Portal(uint scheme) : scheme_(scheme) {}

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.member() != "Read" || message.arguments() != QVariantList{"org.freedesktop.appearance", "color-scheme"})
      return false;
    const QDBusVariant inner{QVariant::fromValue(scheme_)};
    bus.send(message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    return true;
  }
  static void Change(QDBusConnection bus, uint scheme) {
    QDBusMessage told = QDBusMessage::createSignal("/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                                                   "SettingChanged");
    told << "org.freedesktop.appearance"
         << "color-scheme" << QVariant::fromValue(QDBusVariant(QVariant::fromValue(scheme)));
    bus.send(told);
  }

 private:
  uint scheme_;
};

struct ColorTest : ::testing::Test {
  ~ColorTest() override {
    QApplication::setPalette(QPalette());
    qunsetenv("CUEWRIGHT_COLOR_SCHEME");
  }
};

using Colors = ColorTest;

TEST_F(Colors, GoDarkAndBack) {
  ColorScheme scheme;
  ASSERT_FALSE(WindowsAreDark());
  scheme.Apply(true);
  EXPECT_TRUE(WindowsAreDark());
  scheme.Apply(false);
  EXPECT_FALSE(WindowsAreDark());
}

TEST_F(Colors, EveryTextStandsOutFromItsGround) {
  ColorScheme scheme;
  scheme.Apply(true);
  const QPalette colors = QApplication::palette();
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
      {QPalette::WindowText, QPalette::Window},       {QPalette::Text, QPalette::Base},
      {QPalette::ButtonText, QPalette::Button},       {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::Link, QPalette::Base}};
  for (const auto& [text, ground] : pairs) {
    EXPECT_GT(colors.color(text).lightness() - colors.color(ground).lightness(), 80) << text;
  }
}

/// Contrast of two colours as the guidelines for accessible content count it, 1 to 21.
double Contrast(QColor a, QColor b) {
  const auto light = [](QColor color) {
    const auto part = [](double value) {
      return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF()) + 0.05;
  };
  return std::max(light(a), light(b)) / std::min(light(a), light(b));
}

TEST_F(Colors, UncheckedBoxesAndRadioButtonsAreSeenInTheDark) {
  const QString before = QApplication::style()->objectName();
  QApplication::setStyle(new JoinedLetters("fusion"));
  {
    ColorScheme scheme;
    scheme.Apply(true);
    QCheckBox box;
    QRadioButton radio;
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{&box, &radio}) {
      button->resize(button->sizeHint());
      const QImage picture = button->grab().toImage();
      const QColor ground = picture.pixelColor(0, 0);
      // The outline is met on the way through the middle, on both sides.
      double best = 1;
      const int y = picture.height() / 2;
      for (int x = 0; x < 8; ++x) best = std::max(best, Contrast(picture.pixelColor(x, y), ground));
      EXPECT_GE(best, 3) << button->metaObject()->className();
    }
    scheme.Apply(false);
  }
  QApplication::setStyle(before);
}

TEST_F(Colors, TheEnvironmentGoesFirst) {
  qputenv("CUEWRIGHT_COLOR_SCHEME", "dark");
  const ColorScheme scheme;
  EXPECT_TRUE(WindowsAreDark());
}

TEST_F(Colors, FollowTheDesktopsPortalAlsoLater) {
  // Another party of the bus than the program itself.
  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
  if (!bus.isConnected()) GTEST_SKIP() << "there is no session bus here";
  if (!bus.registerService("org.freedesktop.portal.Desktop")) GTEST_SKIP() << "the desktop's own portal is there";
  Portal portal(1);
  ASSERT_TRUE(bus.registerVirtualObject("/org/freedesktop/portal/desktop", &portal));
  {
    const ColorScheme scheme;
    EXPECT_TRUE(QTest::qWaitFor(WindowsAreDark));
    Portal::Change(bus, 2);
    EXPECT_TRUE(QTest::qWaitFor([] { return !WindowsAreDark(); }));
    Portal::Change(bus, 1);
    EXPECT_TRUE(QTest::qWaitFor(WindowsAreDark));
  }
  bus.unregisterObject("/org/freedesktop/portal/desktop");
  bus.unregisterService("org.freedesktop.portal.Desktop");
  QDBusConnection::disconnectFromBus("portal");
}

}  // namespace
}  // namespace cuewright
