#include "forms/status_line.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct StatusLineTest : ProgramFixture {
  std::string Line() { return ToUtf8(Window().lblStatus.GetText()); }
};

TEST_F(StatusLineTest, SaysNothingWithoutADocument) {
  EXPECT_TRUE(Window().lblStatus.Visible());
  EXPECT_EQ(Line(), "");
}

TEST_F(StatusLineTest, CountsTheCaptionsAndWhatIsSelected) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 6));
  EXPECT_EQ(Line(), "6 captions     Length: 0.800     7.5 characters a second");
  program->grid.selection.ExtendTo(3);
  EXPECT_EQ(Line(), "6 captions     3 selected     Length: 2.400     7.5 characters a second");
  Window().mnuRemove.Click();
  EXPECT_EQ(Line(), "3 captions     Length: 0.800     7.5 characters a second");
  Window().mnuUndo.Click();
  EXPECT_EQ(Line().find("6 captions"), 0u);
}

TEST_F(StatusLineTest, TellsTheFilmsRate) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  player.framesPerSecond = 24000 / 1001.0;
  Play(folder.Write("film.mkv", "x"));
  player.SetSpeed(1);
  EXPECT_EQ(Line(), "1 caption     Length: 0.800     7.5 characters a second     23.976 frames a second");
}

TEST_F(StatusLineTest, IsNotThereInTheClassicManner) {
  program->options.manner.SetClassic(true);
  Window().mnuGSettings.Click();
  program->dialogs.settings.Close();
  EXPECT_FALSE(Window().lblStatus.Visible());
}

TEST_F(StatusLineTest, TheInformationBandIsALineUntilItIsUnfolded) {
  using Band = MainLayout::Band;
  const MainLayout& layout = program->shell.Layout();
  EXPECT_EQ(layout.InformationBand(), Band::Line);
  const int folded = layout.Status().height;
  Window().mnuUnfoldInfoBar.Click();
  EXPECT_TRUE(Window().mnuUnfoldInfoBar.Checked());
  EXPECT_EQ(layout.InformationBand(), Band::Full);
  EXPECT_GT(layout.Status().height, folded);
  Window().mnuInfoBar.Click();
  EXPECT_EQ(layout.InformationBand(), Band::Off);
  EXPECT_FALSE(Window().mnuUnfoldInfoBar.Enabled());
  Window().mnuInfoBar.Click();
  program->options.manner.SetClassic(true);
  program->options.infoBarUnfolded = false;
  program->shell.UpdateBars();
  EXPECT_EQ(layout.InformationBand(), Band::Full);
  EXPECT_FALSE(Window().mnuUnfoldInfoBar.Visible());
  EXPECT_FALSE(Window().mnuToolBar.Visible());
}

TEST_F(StatusLineTest, TheToolBarIsRememberedAsItWas) {
  EXPECT_TRUE(Window().mnuToolBar.Checked());
  Window().mnuToolBar.Click();
  EXPECT_FALSE(program->options.toolBarOn);
  program->shell.SaveAtUnload(false, false, 900, 700);
  Restart({});
  EXPECT_FALSE(program->options.toolBarOn);
  EXPECT_FALSE(Window().mnuToolBar.Checked());
}

}  // namespace
}  // namespace cuewright
