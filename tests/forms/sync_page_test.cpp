#include "forms/sync_page.h"

#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

/// A film in which somebody speaks at times that nobody foresees, and captions made for one that begins later.
struct SyncPageTest : ProgramFixture {
  SyncPageTest() {
    std::mt19937 random(7);
    std::string text;
    SoundTable table;
    std::int32_t at = 4000;
    SoundTable::Step quiet;
    quiet.fill(50);
    SoundTable::Step loud;
    loud.fill(130);
    for (int caption = 0; caption < 60; ++caption) {
      const std::int32_t start = at;
      const std::int32_t end = start + 700 + static_cast<std::int32_t>(random() % 2500);
      while (static_cast<std::int32_t>(table.Steps()) * SoundTable::kStepMs < start) table.Append(quiet);
      while (static_cast<std::int32_t>(table.Steps()) * SoundTable::kStepMs < end) table.Append(loud);
      text += Record(caption + 1, start + kLate, end + kLate);
      spoken += Record(caption + 1, start, end);
      starts.push_back(start);
      at = end + 300 + static_cast<std::int32_t>(random() % 4000);
    }
    for (int step = 0; step < 500; ++step) table.Append(quiet);
    program->documentFiles.OpenSubtitleFile(folder.Write("a.srt", text));
    Play(folder.Write("film.mkv", "x"));
    std::filesystem::create_directories(ToUtf8(folder / "cache"));
    files.WritePrivate(SoundTableBeside(sounds.PathFor(folder / "film.mkv", player.AudioTrack())), table.Bytes());
    Window().mnuRetime.Click();
    program->retime.optSync.Click();
  }

  SyncPage& Page() { return *program->retime.sync; }
  void Find() {
    Page().cmdSyncFind.Click();
    AwaitEnd();
  }
  void AwaitEnd() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (Page().tmrSync.Enabled() && std::chrono::steady_clock::now() < end) {
      Page().tmrSync.Pass();
      std::this_thread::yield();
    }
    ASSERT_FALSE(Page().tmrSync.Enabled());
  }

  static std::string Record(int number, int start, int end) {
    const auto clock = [](int ms) {
      const auto two = [](int value) { return std::to_string(100 + value).substr(1); };
      return "00:" + two(ms / 60000) + ":" + two(ms / 1000 % 60) + "," + std::to_string(1000 + ms % 1000).substr(1);
    };
    return std::to_string(number) + "\r\n" + clock(start) + " --> " + clock(end) + "\r\nWords\r\n\r\n";
  }

  static constexpr std::int32_t kLate = 7300;
  std::vector<std::int32_t> starts;
  std::string spoken;  ///< a subtitle that fits the film
};

TEST_F(SyncPageTest, TheListShowsThePlacesBeforeTheyAreTakenInOneStep) {
  Find();
  ASSERT_EQ(Page().lstSegments.Items().size(), 1u);
  EXPECT_TRUE(Page().lstSegments.Items()[0].starts_with(u"1 to 60:  -7.")) << ToUtf8(Page().lstSegments.Items()[0]);
  EXPECT_NEAR(program->grid.ShownTimes(5).start.Count(), starts[4], 100);
  EXPECT_EQ(program->list.GetCaptionStart(5), starts[4] + kLate);
  program->retime.cmdOK.Click();
  for (Row row = 1; row <= 60; ++row) EXPECT_NEAR(program->list.GetCaptionStart(row).Count(), starts[row.Index()], 100);
  Window().mnuUndo.Click();
  EXPECT_EQ(program->list.GetCaptionStart(5), starts[4] + kLate);
}

TEST_F(SyncPageTest, WhatWasSetByHandIsHeldWhenThePlacesAreLookedForAgain) {
  Find();
  program->list.SetRow(31, false);
  Page().cmdBorder.Click();
  ASSERT_EQ(Page().lstSegments.Items().size(), 2u);
  Page().lstSegments.Choose(1);
  Page().txtOffset.SetText(u"-9.000");
  Page().cmdSetOffset.Click();
  EXPECT_EQ(program->grid.ShownTimes(31).start, starts[30] + kLate - 9000);
  Page().lstSegments.Choose(0);
  Page().cmdFreeSegment.Click();
  Find();
  ASSERT_EQ(Page().lstSegments.Items().size(), 2u);
  EXPECT_EQ(Page().lstSegments.Items()[1], u"31 to 60:  -9.000  (set by hand)");
  EXPECT_NEAR(program->grid.ShownTimes(5).start.Count(), starts[4], 100);
  Page().lstSegments.Choose(1);
  Page().cmdJoinSegment.Click();
  EXPECT_EQ(Page().lstSegments.Items().size(), 1u);
}

TEST_F(SyncPageTest, AnotherSubtitleGivesThePlacesToTheMillisecond) {
  dialogs.paths = {folder.Write("spoken.srt", spoken)};
  const Text before = program->document.SubtitlePath;
  Page().cmdSyncFile.Click();
  AwaitEnd();
  ASSERT_EQ(Page().lstSegments.Items().size(), 1u) << ToUtf8(Page().Told());
  EXPECT_TRUE(Page().lstSegments.Items()[0].starts_with(u"1 to 60:  -7.300")) << ToUtf8(Page().lstSegments.Items()[0]);
  // The document is still itself, and nothing of it has changed.
  EXPECT_EQ(program->document.SubtitlePath, before);
  EXPECT_EQ(program->list.GetCaptionStart(5), starts[4] + kLate);
  EXPECT_FALSE(program->document.DocModified);
  program->retime.cmdOK.Click();
  for (Row row = 1; row <= 60; ++row) EXPECT_EQ(program->list.GetCaptionStart(row), starts[row.Index()]);
}

TEST_F(SyncPageTest, AnotherSubtitleThatIsOfAnotherFilmIsToldByItsName) {
  std::string others;
  int at = 900;
  for (int caption = 1; caption <= 60; ++caption) {
    others += Record(caption, at, at + 400 + 97 * (caption * caption % 23));
    at += 3500 + 131 * (caption * caption * caption % 37);
  }
  dialogs.paths = {folder.Write("foreign.srt", others)};
  Page().cmdSyncFile.Click();
  AwaitEnd();
  EXPECT_TRUE(Page().lstSegments.Items().empty());
  EXPECT_EQ(program->retime.lblResult.GetText(), u"The captions don't fit those of foreign.srt better than by chance.");
  // A file without captions is told, and one that was not chosen is none.
  dialogs.paths = {folder / "none.srt"};
  Page().cmdSyncFile.Click();
  EXPECT_FALSE(Page().tmrSync.Enabled());
  EXPECT_FALSE(boxes.shown.empty());
  Page().cmdSyncFile.Click();
  EXPECT_FALSE(Page().tmrSync.Enabled());
}

TEST_F(SyncPageTest, TheTimeLineShowsWhereTheSegmentsWillBe) {
  EXPECT_TRUE(Page().Blocks().empty());
  Find();
  program->list.SetRow(31, false);
  Page().cmdBorder.Click();
  const std::vector<SyncBlock> blocks = Page().Blocks();
  ASSERT_EQ(blocks.size(), 2u);
  EXPECT_NEAR(blocks[0].start.Count(), starts[0], 100);
  EXPECT_NEAR(blocks[1].start.Count(), starts[30], 100);
  EXPECT_LT(blocks[0].end, blocks[1].start);
  EXPECT_EQ(blocks[1].end, program->grid.ShownTimes(60).end);
  EXPECT_EQ(blocks[1].sureness, SyncSureness::Fixed);
  EXPECT_FALSE(blocks[0].chosen);
  EXPECT_TRUE(blocks[1].chosen);
  EXPECT_TRUE(blocks[0].offset.starts_with(u"-7."));
}

TEST_F(SyncPageTest, ASearchCanBeStopped) {
  Page().cmdSyncFind.Click();
  ASSERT_TRUE(Page().tmrSync.Enabled());
  EXPECT_EQ(Page().cmdSyncFind.GetText(), u"Stop");
  EXPECT_FALSE(Page().cmdSyncFile.Enabled());
  Page().cmdSyncFind.Click();
  EXPECT_FALSE(Page().tmrSync.Enabled());
  EXPECT_EQ(Page().cmdSyncFind.GetText(), u"Find the places");
  EXPECT_TRUE(Page().cmdSyncFile.Enabled());
  EXPECT_EQ(program->retime.lblResult.GetText(), u"Stopped: no place was found.");
  Find();
  EXPECT_EQ(Page().lstSegments.Items().size(), 1u);
}

TEST_F(SyncPageTest, TimesThatChangedMeanwhileAreNotMoved) {
  Page().cmdSyncFind.Click();
  program->list.SetCaptionEnd(3, program->list.TimesAt(3).end + 5);
  AwaitEnd();
  EXPECT_TRUE(Page().lstSegments.Items().empty());
  EXPECT_EQ(program->retime.lblResult.GetText(), u"The text was changed meanwhile, so no line has got times.");
}

TEST_F(SyncPageTest, ClosingTheWindowChangesNothing) {
  Find();
  program->retime.cmdCancel.Click();
  EXPECT_EQ(program->grid.ShownTimes(5).start, starts[4] + kLate);
  EXPECT_EQ(program->list.GetCaptionStart(5), starts[4] + kLate);
}

TEST_F(SyncPageTest, TheClassicMannerHasNoneOfIt) {
  program->options.manner.SetClassic(true);
  program->retime.ApplyLanguage(false);
  EXPECT_FALSE(program->retime.optSync.Visible());
}

}  // namespace
}  // namespace cuewright
