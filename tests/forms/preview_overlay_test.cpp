#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct PreviewOverlay : ProgramFixture {
  void Open(int captions) {
    program->files.OpenSubtitleFile(SubRip("a.srt", captions));
    Play(folder.Write("film.mkv", "x"));
  }
  void Preview() { program->capture.SelectMode(CaptionMode::Preview); }
  void At(double seconds) {
    player.position = seconds;
    Window().tmrTime.Tick();
    for (int i = 0; i < 3; ++i) Window().tmrPreview.Tick();
  }
  Text Shown() { return program->sub.lblSub.GetText(); }
};

TEST_F(PreviewOverlay, ACaptionInItalicsShowsItalicWithoutItsMarker) {
  Open(2);
  List().SetCaptionText(1, u"<i>slanted");
  program->preview.ShowPreviewCaption(1);
  EXPECT_TRUE(program->sub.GetStyle().italic);
  EXPECT_EQ(Shown(), u"slanted");
  program->preview.ShowPreviewCaption(2);
  EXPECT_FALSE(program->sub.GetStyle().italic);
}

TEST_F(PreviewOverlay, ABoldCaptionHasTheWeightOfTheSettings) {
  Open(1);
  List().SetCaptionText(1, u"<b>heavy");
  for (const bool bold : {false, true}) {
    program->options.previewFontBold = bold;
    program->preview.ShowPreviewCaption(1);
    EXPECT_EQ(program->sub.GetStyle().bold, bold);
    EXPECT_EQ(Shown(), u"heavy");
  }
}

TEST_F(PreviewOverlay, AtTheLowestPlaceThePlayersControlsStayFree) {
  EXPECT_EQ(PlaceOverlay(0, 0, 640, 400, 60, 100).top, 276);
}

TEST_F(PreviewOverlay, InAGapItIsEmptyAndNothingIsSelectedAnew) {
  Open(3);
  Preview();
  At(1.5);
  EXPECT_EQ(Shown(), u"line 1");
  At(2.0);
  EXPECT_EQ(Shown(), u"");
  EXPECT_EQ(List().Selected(), 1);
  EXPECT_EQ(program->preview.PreviewRow(), 0);
}

TEST_F(PreviewOverlay, BeginsAnewAfterAStop) {
  Open(3);
  Preview();
  At(3.5);
  ASSERT_EQ(Shown(), u"line 3");
  player.Stop();
  EXPECT_EQ(Shown(), u"");
  player.Play();
  At(0.5);
  At(1.5);
  EXPECT_EQ(Shown(), u"line 1");
}

TEST_F(PreviewOverlay, OfTheFirstCaptionBeginsAnewAfterAStop) {
  Open(3);
  Preview();
  At(1.5);
  ASSERT_EQ(Shown(), u"line 1");
  player.Stop();
  player.Play();
  At(1.5);
  EXPECT_EQ(Shown(), u"line 1");
}

TEST_F(PreviewOverlay, BeginsAnewWithTheNextFilm) {
  Open(3);
  Preview();
  At(3.5);
  program->playerBinding.LoadVideoFile(folder.Write("next.mkv", "x"));
  player.Become(kPlayerTransitional);
  player.Become(kPlayerPlaying);
  At(0.5);
  At(1.5);
  EXPECT_EQ(Shown(), u"line 1");
}

TEST_F(PreviewOverlay, TheSelectionWaitsForWhoeverTypesInThePane) {
  Open(3);
  Preview();
  At(1.5);
  ASSERT_EQ(List().Selected(), 1);
  Window().txtSub.GotFocus();
  At(2.5);
  EXPECT_EQ(Shown(), u"line 2");
  EXPECT_EQ(List().Selected(), 1);
  Window().txtSub.LostFocus();
  At(2.6);
  EXPECT_EQ(List().Selected(), 2);

  program->options.manner.SetClassic(true);
  Window().txtSub.GotFocus();
  At(3.5);
  EXPECT_EQ(List().Selected(), 3);
}

TEST_F(PreviewOverlay, WithoutFollowingTheSelectionStays) {
  Open(3);
  program->options.followCaptions = false;
  Preview();
  At(1.5);
  At(3.5);
  EXPECT_EQ(Shown(), u"line 3");
  EXPECT_EQ(List().Selected(), 1);
}

TEST_F(PreviewOverlay, LeavingPreviewModeEmptiesIt) {
  Open(3);
  Preview();
  At(1.5);
  ASSERT_EQ(Shown(), u"line 1");
  program->capture.SelectMode(CaptionMode::PressAndHold);
  EXPECT_EQ(Shown(), u"");
  EXPECT_FALSE(Window().tmrPreview.Enabled());
  EXPECT_EQ(program->preview.PreviewRow(), 0);
}

TEST_F(PreviewOverlay, ASeekIsFollowedAtOnce) {
  Open(5);
  Preview();
  player.SetCurrentPosition(4.5);
  EXPECT_EQ(program->preview.PreviewNextRow(), 4);
  player.SetCurrentPosition(1.5);
  EXPECT_EQ(program->preview.PreviewNextRow(), 1);
}

TEST_F(PreviewOverlay, TheTextOnShowIsDrawnAgainWhileItIsEdited) {
  Open(3);
  Preview();
  At(1.5);
  Window().txtSub.SetText(u"changed");
  Window().txtSub.Edited();
  EXPECT_EQ(Shown(), u"changed");
}

TEST_F(PreviewOverlay, BothLabelsHaveTheTextAndFollowTheReadingDirection) {
  Open(1);
  program->preview.ShowPreviewCaption(1);
  EXPECT_EQ(program->sub.lblShadow.GetText(), u"line 1");
  EXPECT_FALSE(program->sub.lblSub.RightToLeft());
  program->preview.ShowPreviewCaption(0);
  program->preview.ShowPreviewCaption(9);
  EXPECT_EQ(Shown(), u"line 1");
}

}  // namespace
}  // namespace cuewright
