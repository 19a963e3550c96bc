#include "forms/voice_fitting.h"

#include <chrono>
#include <thread>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::FakeProcesses;
using testing::ProgramFixture;

/// A film in which somebody speaks four times, and captions that were held for that, each late.
struct VoiceFittingTest : ProgramFixture {
  VoiceFittingTest() {
    std::string held;
    for (const int start : kStarts) {
      const auto clock = [](int ms) {
        return "00:00:" + std::to_string(100 + ms / 1000).substr(1) + "," + std::to_string(1000 + ms % 1000).substr(1);
      };
      held += "1\r\n" + clock(start + 210) + " --> " + clock(start + kLength + 190) + "\r\nWords\r\n\r\n";
    }
    program->documentFiles.OpenSubtitleFile(folder.Write("a.srt", held));
    Play(folder.Write("film.mkv", "x"));
  }

  /// The sound of the film as the decoder gives it, a buzz where somebody speaks.
  static std::string Samples() {
    std::string bytes;
    unsigned noise = 1;
    for (int sample = 0; sample < 24 * kSamplesASecond; ++sample) {
      const int ms = static_cast<int>(std::int64_t{sample} * 1000 / kSamplesASecond);
      bool spoken = false;
      for (const int start : kStarts) spoken = spoken || (ms >= start && ms < start + kLength);
      noise = noise * 1664525 + 1013904223;
      const int value = static_cast<int>(noise >> 27) + (spoken ? (sample % 157) * 50 - 4000 : 0);
      bytes += static_cast<char>(value & 0xFF);
      bytes += static_cast<char>((value >> 8) & 0xFF);
    }
    return bytes;
  }

  /// The decoder gives the sound and ends, and the search is waited for.
  void Hear(const std::string& samples, int status = 0) {
    processes.runs.back()->output = samples;
    processes.runs.back()->status = status;
    WaitForSearch();
  }
  void WaitForSearch() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (Window().tmrFit.Enabled() && std::chrono::steady_clock::now() < end) {
      Window().tmrFit.Pass();
      std::this_thread::yield();
    }
    ASSERT_FALSE(Window().tmrFit.Enabled());
  }

  Ms StartOf(Row row) const { return program->list.GetCaptionStart(row); }
  Text Told() { return Window().lblNotice.GetText(); }

  static constexpr int kLength = 2000;
  static constexpr int kStarts[] = {2000, 7000, 12000, 17000};
};

TEST_F(VoiceFittingTest, ADocumentThatCameMeanwhileIsLeftAlone) {
  Window().mnuFitAll.Click();
  // The same file, read anew: its times are those that are being fitted.
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  EXPECT_FALSE(Window().tmrFit.Enabled());
  Hear(Samples());
  for (Row row = 1; row <= 4; ++row) EXPECT_EQ(StartOf(row), kStarts[row - 1] + 210);
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(VoiceFittingTest, MovesAllCaptionsInOneStep) {
  Window().mnuFitAll.Click();
  ASSERT_EQ(processes.runs.size(), 1u);
  EXPECT_EQ(processes.runs.back()->program, u"ffmpeg");
  EXPECT_EQ(Told(), u"Looking for the voice in the film...");
  Hear(Samples());
  for (Row row = 1; row <= 4; ++row) {
    EXPECT_NEAR(StartOf(row).Count(), kStarts[row - 1], 25);
    EXPECT_NEAR(program->list.GetCaptionEnd(row).Count(), kStarts[row - 1] + kLength, 40);
  }
  EXPECT_EQ(Told(), u"Captions fitted to the voice: 4; doubtful: 0.");
  EXPECT_TRUE(program->document.DocModified);
  Window().mnuUndo.Click();
  for (Row row = 1; row <= 4; ++row) EXPECT_EQ(StartOf(row), kStarts[row - 1] + 210);
}

TEST_F(VoiceFittingTest, MovesTheSelectionAloneAndReadsTheFilmOnce) {
  program->list.SetRow(2, false);
  Window().mnuFit.Click();
  Hear(Samples());
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_NEAR(StartOf(2).Count(), kStarts[1], 25);
  program->list.SetRow(3, false);
  Window().mnuFit.Click();
  WaitForSearch();
  EXPECT_EQ(processes.runs.size(), 1u);
  EXPECT_NEAR(StartOf(3).Count(), kStarts[2], 25);
}

TEST_F(VoiceFittingTest, WhatWasChangedMeanwhileStays) {
  Window().mnuFitAll.Click();
  program->list.SetCaptionStart(3, 12500, false);
  Hear(Samples());
  EXPECT_EQ(StartOf(3), 12500);
  EXPECT_NEAR(StartOf(4).Count(), kStarts[3], 25);
}

TEST_F(VoiceFittingTest, NothingMovesInSilenceAndThatIsTold) {
  Window().mnuFitAll.Click();
  Hear(std::string(2 * 24 * kSamplesASecond, '\0'));
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_EQ(Told(), u"Nothing was moved: the film is silent.");
  EXPECT_FALSE(Window().mnuUndo.Enabled() && StartOf(1) != kStarts[0] + 210);
}

TEST_F(VoiceFittingTest, AFilmThatCantBeReadIsTold) {
  Window().mnuFitAll.Click();
  Hear({}, 1);
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_NE(Told().find(u"film.mkv"), Text::npos) << ToUtf8(Told());
}

TEST_F(VoiceFittingTest, AnotherFilmEndsTheSearch) {
  Window().mnuFitAll.Click();
  Play(folder.Write("other.mkv", "x"));
  Window().tmrFit.Pass();
  EXPECT_FALSE(Window().tmrFit.Enabled());
  EXPECT_TRUE(processes.runs.back()->gone);
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
}

TEST_F(VoiceFittingTest, TheClassicMannerHasNoneOfIt) {
  EXPECT_TRUE(Window().mnuFit.Visible());
  program->options.manner.SetClassic(true);
  program->fitting.ShowItems();
  EXPECT_FALSE(Window().mnuFit.Visible());
  EXPECT_FALSE(Window().mnuFitAll.Visible());
}

}  // namespace
}  // namespace cuewright
