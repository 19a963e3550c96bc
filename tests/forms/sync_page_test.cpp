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
    const auto clock = [](int ms) {
      const auto two = [](int value) { return std::to_string(100 + value).substr(1); };
      return "00:" + two(ms / 60000) + ":" + two(ms / 1000 % 60) + "," + std::to_string(1000 + ms % 1000).substr(1);
    };
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
      text += std::to_string(caption + 1) + "\r\n" + clock(start + kLate) + " --> " + clock(end + kLate) +
              "\r\nWords\r\n\r\n";
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
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (Page().tmrSync.Enabled() && std::chrono::steady_clock::now() < end) {
      Page().tmrSync.Pass();
      std::this_thread::yield();
    }
    ASSERT_FALSE(Page().tmrSync.Enabled());
  }

  static constexpr std::int32_t kLate = 7300;
  std::vector<std::int32_t> starts;
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
