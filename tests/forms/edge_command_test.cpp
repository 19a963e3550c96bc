#include "forms/edge_command.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/printers.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

/// Four captions, and a shot at 3 s that a hand marked.
struct EdgesByTheHouse : ProgramFixture {
  EdgesByTheHouse() {
    program->documentFiles.OpenSubtitleFile(
        folder.Write("p.srt",
                     "1\n00:00:01,000 --> 00:00:02,900\nOne.\n\n2\n00:00:03,100 --> 00:00:05,000\nTwo.\n\n"
                     "3\n00:00:05,200 --> 00:00:07,000\nThree.\n\n4\n00:00:09,000 --> 00:00:11,000\nFour.\n\n"));
    Play(folder.Write("film.mkv", "x"));
    EXPECT_TRUE(program->check.Choose(u"streaming-en"));
    program->filmShots.Toggle(3000);
    Dialog().Opened.Connect([this] {
      if (during) during();
      Dialog().Close();
    });
  }
  ProposalsDialog& Dialog() { return program->proposals.dialog; }
  std::pair<int, int> Times(Row row) {
    return {List().GetCaptionStart(row).Count(), List().GetCaptionEnd(row).Count()};
  }

  std::function<void()> during;
};

TEST_F(EdgesByTheHouse, AreShownBeforeTheyMoveAndMoveInOneStep) {
  during = [this] {
    EXPECT_EQ(Dialog().Title(), u"Snap to shots and gaps");
    EXPECT_EQ(Dialog().lstProposals.Rows().size(), 2u);
    Dialog().cmdApply.Click();
  };
  Window().mnuSnapTimes.Click();
  // Two frames at 24 before the shot, and as many between captions.
  EXPECT_EQ(Times(1), (std::pair{1000, 2917}));
  EXPECT_EQ(Times(2), (std::pair{3000, 5117}));
  EXPECT_EQ(Times(3), (std::pair{5200, 7000}));
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  Window().mnuUndo.Click();
  EXPECT_EQ(Times(1), (std::pair{1000, 2900}));
  EXPECT_EQ(Times(2), (std::pair{3100, 5000}));
}

TEST_F(EdgesByTheHouse, GoToShotsAlsoWhereTheRulesSayNothingOfThem) {
  EXPECT_TRUE(program->check.Choose(u"plain"));
  during = [this] { Dialog().cmdApply.Click(); };
  Window().mnuSnapTimes.Click();
  EXPECT_EQ(Times(1), (std::pair{1000, 2917}));
  EXPECT_EQ(Times(2).first, 3000);
}

TEST_F(EdgesByTheHouse, OfTheSelectedCaptionsAloneMoveWhenThoseAreMeant) {
  List().SetRow(1, false);
  during = [this] {
    Dialog().cmbScope.Choose(1);
    EXPECT_EQ(Dialog().lstProposals.Rows().size(), 1u);
    Dialog().cmdApply.Click();
  };
  Window().mnuSnapTimes.Click();
  EXPECT_EQ(Times(1), (std::pair{1000, 2917}));
  EXPECT_EQ(Times(2), (std::pair{3100, 5000}));
}

TEST_F(EdgesByTheHouse, StayWhenTheWindowIsLeft) {
  Window().mnuSnapTimes.Click();
  EXPECT_EQ(Times(2), (std::pair{3100, 5000}));
  EXPECT_EQ(program->history.UndoSteps(), 0u);
}

TEST_F(EdgesByTheHouse, HaveNoCommandInTheClassicManner) {
  program->options.manner.SetClassic(true);
  program->edges.ShowItem();
  EXPECT_FALSE(Window().mnuSnapTimes.Visible());
}

}  // namespace
}  // namespace cuewright
