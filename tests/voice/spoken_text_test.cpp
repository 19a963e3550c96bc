#include "voice/spoken_text.h"

#include <gtest/gtest.h>

#include <cstring>

#include "core/runtime_error.h"
#include "platform/child_processes.h"

namespace cuewright {
namespace {

constexpr int kRate = 16000;

std::string WaveOf(const std::vector<std::int16_t>& samples) {
  std::string wave(44 + samples.size() * 2, '\0');
  const std::int32_t rate = kRate;
  std::memcpy(wave.data() + 24, &rate, sizeof rate);
  std::memcpy(wave.data() + 44, samples.data(), samples.size() * 2);
  return wave;
}

void Append(std::vector<std::int16_t>& samples, std::size_t count, std::int16_t value) {
  samples.insert(samples.end(), count, value);
}

TEST(LinesOfAWave, AreDividedByPausesAndKeepTheirOwn) {
  std::vector<std::int16_t> samples;
  Append(samples, 100, 7);
  Append(samples, 3000, 0);  // a breath within the first line
  Append(samples, 50, 8);
  Append(samples, 15800, 0);
  Append(samples, 20, 9);
  Append(samples, 17500, 0);
  const SpokenLines spoken = TakeLinesApart(WaveOf(samples), 2, 1000);
  ASSERT_EQ(spoken.lines.size(), 2U);
  EXPECT_EQ(spoken.samplesASecond, kRate);
  EXPECT_EQ(spoken.lines[0].size(), 3150U);
  EXPECT_EQ(spoken.lines[1].size(), 20U);
}

TEST(LinesOfAWave, OneThatSaysNothingIsEmpty) {
  std::vector<std::int16_t> samples;
  Append(samples, 100, 7);
  Append(samples, 32000, 0);
  Append(samples, 20, 9);
  Append(samples, 16000, 0);
  const SpokenLines spoken = TakeLinesApart(WaveOf(samples), 3, 1000);
  ASSERT_EQ(spoken.lines.size(), 3U);
  EXPECT_TRUE(spoken.lines[1].empty());
  EXPECT_EQ(spoken.lines[2].size(), 20U);
}

TEST(LinesOfAWave, AnotherNumberOfThemAndNoWaveGiveNone) {
  EXPECT_TRUE(TakeLinesApart(WaveOf({1, 2, 3}), 1, 1000).lines.empty());
  EXPECT_TRUE(TakeLinesApart("RIFF", 1, 1000).lines.empty());
  EXPECT_TRUE(TakeLinesApart(std::string(4000, '\0'), 1, 1000).lines.empty());
}

struct TextSpeakerTest : ::testing::Test {
  PosixProcesses processes;
  TextSpeaker speaker{processes, u"en"};
};

TEST_F(TextSpeakerTest, SpeaksEachLineByItself) {
  const std::vector<Text> lines = {u"Good morning, everybody; how are you today?", u"...", u"Fish & <chips>.", u"Yes."};
  const SpokenLines together = speaker.Speak(lines);
  ASSERT_EQ(together.problem, "");
  ASSERT_EQ(together.lines.size(), 4U);
  EXPECT_TRUE(together.lines[1].empty());
  for (const std::size_t line : {0U, 2U, 3U}) {
    const SpokenLines alone = speaker.Speak(std::span(lines).subspan(line, 1));
    ASSERT_EQ(alone.lines.size(), 1U);
    // A line is spoken alike wherever it stands.
    EXPECT_NEAR(static_cast<double>(alone.lines[0].size()), static_cast<double>(together.lines[line].size()),
                together.samplesASecond * 0.03)
        << line;
  }
  EXPECT_GT(together.lines[0].size(), together.lines[3].size() * 3);
}

TEST_F(TextSpeakerTest, ManyLinesComeInTheirOrder) {
  std::vector<Text> lines(150, u"No.");
  lines[100] = u"This one is by far the longest of them all.";
  const SpokenLines spoken = speaker.Speak(lines);
  ASSERT_EQ(spoken.lines.size(), 150U);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i != 100) {
      EXPECT_LT(spoken.lines[i].size(), spoken.lines[100].size() / 3) << i;
    }
    EXPECT_FALSE(spoken.lines[i].empty()) << i;
  }
}

TEST_F(TextSpeakerTest, ATextThatLooksLikeAnOptionIsSpoken) {
  EXPECT_FALSE(speaker.Speak(std::vector<Text>{u"--version"}).lines[0].empty());
}

TEST_F(TextSpeakerTest, GivesUpWhenAskedTo) {
  const SpokenLines spoken = speaker.Speak(std::vector<Text>{u"Yes."}, [] { return false; });
  ASSERT_EQ(spoken.lines.size(), 1U);
  EXPECT_TRUE(spoken.lines[0].empty());
}

TEST_F(TextSpeakerTest, AnUnknownLanguageIsTold) {
  TextSpeaker unknown(processes, u"xx");
  EXPECT_NE(unknown.Speak(std::vector<Text>{u"Yes."}).problem.find("'xx'"), std::string::npos);
}

TEST(MissingSpeaker, IsToldWithItsPackage) {
  struct NoPrograms : Processes {
    std::unique_ptr<ChildProcess> Start(const Text&, const std::vector<Text>&, const StartOptions&) override {
      throw RuntimeError{53, u"File not found"};
    }
  } none;
  const SpokenLines spoken = TextSpeaker(none, u"en").Speak(std::vector<Text>(200, u"Yes."));
  EXPECT_NE(spoken.problem.find("package espeak-ng"), std::string::npos);
}

TEST(Cepstra, TellTheShapeAndNotTheLoudness) {
  const SoundTable::Step quiet = {10, 20, 30, 40, 50, 40, 30, 20, 10};
  SoundTable::Step loud = quiet;
  for (std::uint8_t& band : loud) band = static_cast<std::uint8_t>(band + 60);
  const SoundTable::Step other = {50, 40, 30, 20, 10, 20, 30, 40, 50};
  for (std::size_t order = 0; order < Cepstrum().size(); ++order) {
    EXPECT_NEAR(CepstrumOf(quiet)[order], CepstrumOf(loud)[order], 0.01);
  }
  EXPECT_GT(std::abs(CepstrumOf(quiet)[1] - CepstrumOf(other)[1]), 10);
}

TEST(TableOfSamples, TakesARateThatItCanHear) {
  EXPECT_EQ(TableOfSamples(std::vector<std::int16_t>(22050, 100), 22050).Steps(), 100U);
  EXPECT_EQ(TableOfSamples(std::vector<std::int16_t>(8000, 100), 8000).Steps(), 0U);
}

}  // namespace
}  // namespace cuewright
