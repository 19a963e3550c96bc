#include "ui/video_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTest>
#include <QVBoxLayout>

#include "platform/mpv_library.h"
#include "platform/mpv_player.h"
#include "tests/support/media_files.h"
#include "ui/video_surface.h"

namespace cuewright {
namespace {

using test::Media;
using testing::Not;

constexpr int kLimitMs = 20'000;

bool IsRed(QColor color) { return color.red() > 200 && color.green() < 40 && color.blue() < 40; }
bool IsBlack(QColor color) { return color.red() < 20 && color.green() < 20 && color.blue() < 20; }

class VideoViewTest : public testing::Test {
 protected:
  VideoViewTest() {
    MpvPlayerOptions options;
    options.extra.emplace_back("ao", "null");
    options.output = WantedVideoOutput();
    player = std::make_unique<MpvPlayer>(
        library,
        [this](std::function<void()> task) {
          QMetaObject::invokeMethod(&context, std::move(task), Qt::QueuedConnection);
        },
        options);
    player->SetEnabled(true);
    view = new VideoView(*player, *player, &window);
    auto* column = new QVBoxLayout(&window);
    edit = new QLineEdit(&window);
    column->addWidget(edit);
    column->addWidget(view, 1);
    window.resize(480, 400);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.activateWindow();
    edit->setFocus();
  }
  ~VideoViewTest() override { delete view; }

  void Open(const std::string& path) { player->SetUrl(FromUtf8(path)); }

  static bool Wait(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, kLimitMs); }
  bool WaitForState(int state) {
    return Wait([&] { return player->PlayState() == state; });
  }
  bool WaitForPosition(double seconds) {
    return Wait([&] { return player->CurrentPosition() >= seconds; });
  }

  QColor ColorAt(double x, double y) {
    const QImage image = view->Surface()->grab().toImage();
    return image.pixelColor(static_cast<int>(x * (image.width() - 1)), static_cast<int>(y * (image.height() - 1)));
  }

  template <class Widget>
  Widget* Find(const char* name) {
    auto* widget = window.findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Click(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }

  MpvLibrary library;
  QObject context;
  std::unique_ptr<MpvPlayer> player;
  QWidget window;
  VideoView* view = nullptr;
  QLineEdit* edit = nullptr;
};

TEST_F(VideoViewTest, IsBlackWithNothingOpen) { EXPECT_TRUE(IsBlack(ColorAt(0.5, 0.5))); }

TEST_F(VideoViewTest, ShowsThePictureWithBarsAroundIt) {
  Open(Media().Film(4, 25, "red"));
  EXPECT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.5)); }));
  // 16:9 in an area that is taller.
  EXPECT_TRUE(IsBlack(ColorAt(0.5, 0.01)));
  EXPECT_TRUE(IsBlack(ColorAt(0.5, 0.99)));
  EXPECT_TRUE(IsRed(ColorAt(0.02, 0.5)));
}

TEST_F(VideoViewTest, IsBlackAgainWhenTheFilmIsClosed) {
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.5)); }));
  player->SetUrl(u"");
  EXPECT_TRUE(Wait([&] { return IsBlack(ColorAt(0.5, 0.5)); }));
}

TEST_F(VideoViewTest, IsBlackWhileASoundPlaysThatFollowsAFilm) {
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.5)); }));
  Open(Media().Sound(4));
  EXPECT_TRUE(Wait([&] { return IsBlack(ColorAt(0.5, 0.5)); }));
  EXPECT_TRUE(WaitForPosition(0.2));
}

TEST_F(VideoViewTest, IsBlackAfterAFileThatIsNoFilm) {
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.5)); }));
  Open(Media().File("text.txt", "Not a film.\n"));
  EXPECT_TRUE(Wait([&] { return IsBlack(ColorAt(0.5, 0.5)); }));
}

TEST_F(VideoViewTest, ThePausedPictureFollowsTheWindow) {
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(WaitForPosition(0.2));
  player->Pause();
  window.resize(900, 300);
  EXPECT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.02)) && IsBlack(ColorAt(0.02, 0.5)); }));
}

TEST_F(VideoViewTest, KeepsTheSizeOfThePictureWhereItIsNotToFit) {
  Open(Media().Film(4, 25, "red"));
  player->SetStretchToFit(false);
  window.resize(1000, 800);
  EXPECT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.5)) && IsBlack(ColorAt(0.1, 0.5)); }));
}

TEST_F(VideoViewTest, TheButtonsWorkByPointer) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.2));
  Click("wmpPause");
  EXPECT_EQ(player->PlayState(), kPlayerPaused);
  Click("wmpPlay");
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
  Click("wmpStop");
  EXPECT_EQ(player->PlayState(), kPlayerStopped);
  EXPECT_EQ(player->CurrentPosition(), 0);
}

TEST_F(VideoViewTest, TheButtonsWorkByKey) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.2));
  for (const auto& [name, state] : {std::pair("wmpPause", kPlayerPaused), std::pair("wmpPlay", kPlayerPlaying),
                                    std::pair("wmpStop", kPlayerStopped)}) {
    auto* button = Find<QWidget>(name);
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(player->PlayState(), state) << name;
  }
}

TEST_F(VideoViewTest, EveryControlIsReachedWithTabAndHasAName) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  std::vector<std::string> visited;
  for (int i = 0; i < 8; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    visited.push_back(QApplication::focusWidget()->objectName().toStdString());
  }
  for (const char* name : {"wmpPlay", "wmpPause", "wmpStop", "wmpSeek", "wmpMute", "wmpVolume"}) {
    EXPECT_THAT(visited, testing::Contains(name));
    EXPECT_FALSE(Find<QWidget>(name)->accessibleName().isEmpty()) << name;
  }
}

TEST_F(VideoViewTest, AClickOnAControlLeavesTheKeyboardWhereItIs) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.1));
  for (const char* name : {"wmpPause", "wmpPlay", "wmpMute", "wmpSeek", "wmpVolume"}) {
    Click(name);
    EXPECT_EQ(QApplication::focusWidget(), edit) << name;
  }
}

TEST_F(VideoViewTest, AClickOnThePictureTakesTheKeyboardFromATextBox) {
  QTest::mouseClick(view->Surface(), Qt::LeftButton);
  EXPECT_EQ(QApplication::focusWidget(), view->Surface());
  EXPECT_FALSE(view->Surface()->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_F(VideoViewTest, NoControlTakesALetterOrAnInputMethod) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  for (const char* name : {"wmpPlay", "wmpPause", "wmpStop", "wmpSeek", "wmpMute", "wmpVolume"}) {
    auto* control = Find<QWidget>(name);
    EXPECT_FALSE(control->testAttribute(Qt::WA_InputMethodEnabled)) << name;
    for (int key = Qt::Key_A; key <= Qt::Key_Z; ++key) {
      QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QChar(key));
      QApplication::sendEvent(control, &event);
      EXPECT_FALSE(event.isAccepted()) << name << " took " << static_cast<char>(key);
    }
  }
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
}

TEST_F(VideoViewTest, TheSeekBarShowsThePositionAndSetsIt) {
  Open(Media().Film(4));
  auto* seek = Find<QSlider>("wmpSeek");
  ASSERT_TRUE(Wait([&] { return seek->maximum() > 3900 && seek->value() > 300; }));
  EXPECT_NEAR(seek->value(), player->CurrentPosition() * 1000, 300);
  player->Pause();
  QTest::mouseClick(seek, Qt::LeftButton, {}, QPoint(seek->width() / 2, seek->height() / 2));
  EXPECT_NEAR(player->CurrentPosition(), 2, 0.2);
  const double before = player->CurrentPosition();
  QTest::keyClick(seek, Qt::Key_Right);
  EXPECT_NEAR(player->CurrentPosition(), before + 1, 0.1);
  EXPECT_EQ(player->PlayState(), kPlayerPaused);
}

TEST_F(VideoViewTest, TimeIsShownAsPositionAndLength) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(1.3));
  player->Pause();
  EXPECT_EQ(Find<QLabel>("wmpTime")->text().toStdString(), "00:01 / 00:04");
}

TEST_F(VideoViewTest, VolumeAndMuteGoBothWays) {
  auto* volume = Find<QSlider>("wmpVolume");
  player->SetVolume(30);
  EXPECT_EQ(volume->value(), 30);
  volume->setValue(55);
  EXPECT_EQ(player->Volume(), 55);
  Click("wmpMute");
  EXPECT_TRUE(player->Muted());
  player->SetMuted(false);
  EXPECT_FALSE(Find<QAbstractButton>("wmpMute")->isChecked());
}

TEST_F(VideoViewTest, TheModeSaysWhichControlsShow) {
  const auto shown = [&](const char* name) { return Find<QWidget>(name)->isVisible(); };
  player->SetUiMode(u"mini");
  EXPECT_TRUE(shown("wmpPlay") && shown("wmpPause") && shown("wmpStop"));
  EXPECT_FALSE(shown("wmpSeek") || shown("wmpTime") || shown("wmpMute") || shown("wmpVolume"));
  player->SetUiMode(u"none");
  EXPECT_FALSE(shown("wmpPlay") || shown("wmpTransport"));
  player->SetUiMode(u"full");
  EXPECT_TRUE(shown("wmpPlay") && shown("wmpSeek") && shown("wmpTime") && shown("wmpMute") && shown("wmpVolume"));
}

TEST_F(VideoViewTest, TheControlsAreOffWhileThePlayerIs) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  EXPECT_TRUE(Find<QWidget>("wmpPlay")->isEnabled());
  player->SetEnabled(false);
  EXPECT_FALSE(Find<QWidget>("wmpPlay")->isEnabled());
  EXPECT_FALSE(Find<QWidget>("wmpSeek")->isEnabled());
  player->SetEnabled(true);
  player->SetUrl(u"");
  EXPECT_FALSE(Find<QWidget>("wmpStop")->isEnabled());
}

TEST_F(VideoViewTest, MayBeMadeAndEndedWhileTheFilmPlays) {
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(WaitForPosition(0.2));
  delete view;
  ASSERT_TRUE(WaitForPosition(0.5));
  view = new VideoView(*player, *player, &window);
  window.layout()->addWidget(view);
  EXPECT_TRUE(Wait([&] { return IsRed(ColorAt(0.5, 0.5)); }));
}

}  // namespace
}  // namespace cuewright
