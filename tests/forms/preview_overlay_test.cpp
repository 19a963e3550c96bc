#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct PreviewOverlay : ProgramFixture {
  void Open(int captions) {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", captions));
    Play(folder.Write("film.mkv", "x"));
  }
  void Preview() { program->capture.SelectMode(CaptionMode::Preview); }
  void At(double seconds) {
    player.position = seconds;
    Window().tmrTime.Pass();
    for (int i = 0; i < 3; ++i) Window().tmrPreview.Pass();
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

TEST_F(PreviewOverlay, StylesAreShownWhereTheyStandAndMarksAreNot) {
  Open(2);
  List().SetCaptionText(1, u"{\\an8}One <i>two</i>|<font color=\"#ff8000\"><b>three</b></font> <3");
  program->preview.ShowPreviewCaption(1);
  EXPECT_EQ(Shown(), u"One two\r\nthree <3");
  const SeenCaption& seen = program->sub.Shown();
  ASSERT_EQ(seen.runs.size(), 5u);
  EXPECT_EQ(seen.runs[1].text, u"two");
  EXPECT_TRUE(seen.runs[1].style.italic);
  EXPECT_EQ(seen.runs[2].text, u"\n");
  EXPECT_TRUE(seen.runs[3].style.bold);
  EXPECT_EQ(seen.runs[3].style.colour, 0xFF8000u);
  EXPECT_EQ(seen.runs[4].style, RunStyle());
  EXPECT_EQ(seen.place, 8);
  EXPECT_FALSE(program->sub.GetStyle().italic);
}

TEST_F(PreviewOverlay, GoesBackToItsUsualPlaceWithTheNextCaption) {
  Open(2);
  List().SetCaptionText(1, u"{\\an8}One");
  program->preview.ShowPreviewCaption(1);
  int announced = 0;
  const auto connection = program->sub.StyleChanged.ConnectScoped([&] { ++announced; });
  program->preview.ShowPreviewCaption(2);
  EXPECT_EQ(program->sub.Shown().place, kUsualPlace);
  EXPECT_GT(announced, 0);
  program->preview.ShowPreviewCaption(1);
  program->preview.ClearPreviewCaption();
  EXPECT_TRUE(program->sub.Shown().runs.empty());
  EXPECT_EQ(program->sub.Shown().place, kUsualPlace);
}

TEST_F(PreviewOverlay, AStyleOfThePartOnShowIsDrawnAnewWhenItChanges) {
  Open(2);
  Preview();
  At(1.5);
  Window().mnuItalic.Click();
  ASSERT_EQ(program->sub.Shown().runs.size(), 1u);
  EXPECT_TRUE(program->sub.Shown().runs[0].style.italic);
}

TEST_F(PreviewOverlay, OfTheClassicMannerShowsOneLookAndOtherMarksAsText) {
  program->options.manner.SetClassic(true);
  Open(1);
  List().SetCaptionText(1, u"{\\an8}One <i>two</i>");
  program->preview.ShowPreviewCaption(1);
  EXPECT_EQ(Shown(), u"{\\an8}One two</i>");
  EXPECT_TRUE(program->sub.GetStyle().italic);
  EXPECT_TRUE(program->sub.Shown().runs.empty());
}

TEST_F(PreviewOverlay, ACaptionForTheTopStandsThere) {
  EXPECT_EQ(PercentOfPlace(2, 90), 90);
  EXPECT_EQ(PercentOfPlace(5, 90), 50);
  EXPECT_EQ(PercentOfPlace(8, 90), 0);
  EXPECT_EQ(PlaceOverlay(0, 40, 640, 400, 60, PercentOfPlace(7, 90)).top, 40);
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
  Window().txtSub.TakeFocus();
  At(2.5);
  EXPECT_EQ(Shown(), u"line 2");
  EXPECT_EQ(List().Selected(), 1);
  Window().txtSub.LoseFocus();
  At(2.6);
  EXPECT_EQ(List().Selected(), 2);

  program->options.manner.SetClassic(true);
  Window().txtSub.TakeFocus();
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
  Window().txtSub.NoteEdited();
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
