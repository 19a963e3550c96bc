#include "ui/shots_view.h"

#include <QCheckBox>
#include <QSlider>

#include "tests/ui/dialog_fixture.h"

namespace cuewright {
namespace {

struct ShotsWindowView : testing::DialogFixture {
  ShotsWindowView() {
    Window().mnuShots.Click();
    Show(std::make_unique<ShotsView>(program->shotsDialog, nullptr));
  }
};

TEST_F(ShotsWindowView, EveryControlHasAWidgetAndANameThatIsSpoken) {
  ExpectBound(program->shotsDialog);
  ExpectNamed();
}

TEST_F(ShotsWindowView, TheKeysMoveTheBarAndTheBoxActsAtOnce) {
  auto* slider = Find<QSlider>("sldSense");
  EXPECT_TRUE(slider->hasFocus());
  EXPECT_EQ(slider->value(), 100);
  QTest::keyClick(slider, Qt::Key_PageUp);
  EXPECT_EQ(program->options.shotSense, 125);
  Find<QCheckBox>("chkFind")->click();
  EXPECT_FALSE(program->options.findShots);
}

}  // namespace
}  // namespace cuewright
