#include <QTimer>

#include "tests/ui/dialog_fixture.h"
#include "ui/about_view.h"

namespace cuewright {
namespace {

constexpr std::size_t kArabic = 14;

struct AboutWindowView : testing::DialogFixture {
  AboutDialog& About() { return program->helpDialogs.about; }
  void ShowAbout() {
    About().Open();
    Show(std::make_unique<AboutView>(About(), nullptr));
  }
};

TEST_F(AboutWindowView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowAbout();
  ExpectBound(About());
}

TEST_F(AboutWindowView, HasASpokenNameForAllThatTheKeyboardReaches) {
  ShowAbout();
  ExpectNamed();
  EXPECT_EQ(Find("picTop")->accessibleName(), "Tessaly Cuewright");
}

TEST_F(AboutWindowView, NoTextIsCutOffInAnyLanguage) {
  for (std::size_t language = 0; language < kLanguageCount; ++language) {
    program->ChangeLanguage(language);
    ShowAbout();
    ExpectNothingCutOff("language " + std::to_string(language) + ": ");
    view.reset();
    About().Close();
  }
}

TEST_F(AboutWindowView, TheTimerShowsTheMemoryAnew) {
  system.memory = 1024;
  ShowAbout();
  auto* timer = view->findChild<QTimer*>("tmrMemo");
  ASSERT_NE(timer, nullptr);
  EXPECT_EQ(timer->interval(), 1000);
  EXPECT_TRUE(timer->isActive());
  system.memory = 2048;
  timer->setInterval(0);
  QCoreApplication::processEvents();
  EXPECT_EQ(Find<QLabel>("lblMemo")->text(), "Physical memory available to Windows: 2 KB");
}

TEST_F(AboutWindowView, TheKeyboardOpensTheLinkAndClosesTheWindow) {
  ShowAbout();
  EXPECT_EQ(QApplication::focusWidget(), Find("cmdOK"));
  EXPECT_TRUE(TabRound().contains("lblTessaly"));
  QTest::keyClick(Find("lblTessaly"), Qt::Key_Return);
  EXPECT_EQ(desktop.opened.size(), 1u);
  EXPECT_TRUE(view->isVisible());
  QTest::keyClick(Find("cmdOK"), Qt::Key_Return);
  EXPECT_FALSE(view->isVisible());
  EXPECT_FALSE(About().IsOpen());
}

TEST_F(AboutWindowView, EscapeClosesIt) {
  ShowAbout();
  QTest::keyClick(view.get(), Qt::Key_Escape);
  EXPECT_FALSE(About().IsOpen());
}

TEST_F(AboutWindowView, ThePictureIsMirroredInArabic) {
  ShowAbout();
  const QImage plain = Find("picTop")->grab().toImage();
  view.reset();
  About().Close();
  program->ChangeLanguage(kArabic);
  ShowAbout();
  const QImage mirrored = Find("picTop")->grab().toImage();
  const auto painted = [](const QImage& image, bool left) {
    // The icon is on this side when anything but the ground is painted in its place.
    const int x = left ? 44 : image.width() - 44;
    for (int y = 14; y < image.height() - 14; ++y) {
      if (image.pixel(x, y) != image.pixel(1, 1)) return true;
    }
    return false;
  };
  EXPECT_TRUE(painted(plain, true));
  EXPECT_TRUE(painted(mirrored, false));
}

}  // namespace
}  // namespace cuewright
