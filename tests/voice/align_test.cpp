#include "voice/align.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace cuewright {
namespace {

/// A line of sounds that last about a tenth of a second each, drawn by a seed.
SoundTable Line(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> level(60, 160);
  SoundTable line;
  for (int sound = 0; sound < 18; ++sound) {
    SoundTable::Step step{};
    for (std::uint8_t& band : step) band = static_cast<std::uint8_t>(level(random));
    for (int i = 0; i < 10; ++i) line.Append(step);
  }
  return line;
}

/// A film in which lines are said at times, over a faint noise.
struct Film {
  std::int32_t Say(const SoundTable& line) {
    Wait(80);
    const auto start = static_cast<std::int32_t>(table.Steps()) * SoundTable::kStepMs;
    for (std::size_t step = 0; step < line.Steps(); ++step) table.Append(line.At(step));
    Wait(50);
    return start;
  }
  void Wait(int steps) {
    for (int i = 0; i < steps; ++i) {
      SoundTable::Step quiet{};
      for (std::uint8_t& band : quiet) band = static_cast<std::uint8_t>(40 + random() % 10);
      table.Append(quiet);
    }
  }

  SoundTable table;
  std::mt19937 random{99};
};

TEST(AlignLines, FindsEachLineAmongOtherSpeech) {
  Film film;
  std::vector<SoundTable> lines;
  std::vector<std::int32_t> starts;
  for (unsigned i = 0; i < 30; ++i) {
    if (i % 5 == 2) film.Say(Line(1000 + i));  // it stands in no line
    lines.push_back(Line(i));
    starts.push_back(film.Say(lines.back()));
  }
  const std::vector<AlignedLine> aligned = AlignLines(lines, film.table);
  ASSERT_EQ(aligned.size(), lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_NEAR(aligned[i].start.Count(), starts[i], 150) << i;
    EXPECT_NEAR(aligned[i].end.Count(), starts[i] + 1800, 200) << i;
    EXPECT_FALSE(aligned[i].doubtful) << i;
  }
}

/// The line as another voice says it, while something is heard in a few bands that has nothing to do with it.
SoundTable OtherVoice(const SoundTable& line, std::mt19937& random, float unlike = 8) {
  std::normal_distribution<float> near(0, unlike);
  std::uniform_int_distribution<int> anything(40, 200);
  SoundTable said;
  for (std::size_t i = 0; i < line.Steps(); ++i) {
    SoundTable::Step step = line.At(i);
    for (std::size_t band = 0; band < step.size(); ++band) {
      const float own = static_cast<float>(step[band]) + near(random) + (band % 2 == 0 ? 25.0F : -25.0F);
      step[band] = static_cast<std::uint8_t>(band < 6 ? anything(random) : static_cast<int>(std::max(own, 40.0F)));
    }
    said.Append(step);
  }
  return said;
}

TEST(AlignLines, LearnsTheFilmsVoiceFromTheLinesThatAreSurelyFound) {
  std::mt19937 random(4);
  Film film;
  std::vector<SoundTable> lines;
  std::vector<std::int32_t> starts;
  for (unsigned i = 0; i < 60; ++i) {
    if (i % 3 == 2) film.Say(OtherVoice(Line(1000 + i), random));
    lines.push_back(Line(i));
    starts.push_back(film.Say(OtherVoice(lines.back(), random)));
  }
  const std::vector<AlignedLine> aligned = AlignLines(lines, film.table);
  ASSERT_EQ(aligned.size(), lines.size());
  int found = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) found += int{Abs(aligned[i].start - starts[i]) <= 250};
  EXPECT_GE(found, 50);
}

/// The line as somebody says it who takes 1.8 times as long.
SoundTable Slowly(const SoundTable& line) {
  SoundTable slow;
  for (std::size_t i = 0; i < line.Steps() * 9 / 5; ++i) slow.Append(line.At(i * 5 / 9));
  return slow;
}

TEST(AlignLines, LearnsThePaceOfTheFilmFromTheLinesThatAreSurelyFound) {
  std::mt19937 random(6);
  Film film;
  std::vector<SoundTable> lines;
  std::vector<std::int32_t> starts;
  for (unsigned i = 0; i < 60; ++i) {
    if (i % 3 == 2) film.Say(OtherVoice(Slowly(Line(1000 + i)), random, 25));
    lines.push_back(Line(i));
    starts.push_back(film.Say(OtherVoice(Slowly(lines.back()), random, 25)));
  }
  const std::vector<AlignedLine> aligned = AlignLines(lines, film.table);
  ASSERT_EQ(aligned.size(), lines.size());
  int found = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) found += int{Abs(aligned[i].start - starts[i]) <= 250};
  EXPECT_GE(found, 58);
}

TEST(AlignLines, ALineThatNobodySaysIsDoubtfulAndLiesBetweenItsNeighbours) {
  Film film;
  std::vector<SoundTable> lines;
  for (unsigned i = 0; i < 20; ++i) {
    lines.push_back(Line(i));
    if (i != 9) film.Say(lines.back());
  }
  const std::vector<AlignedLine> aligned = AlignLines(lines, film.table);
  ASSERT_EQ(aligned.size(), lines.size());
  EXPECT_TRUE(aligned[9].doubtful);
  EXPECT_GE(aligned[9].start, aligned[8].end);
  EXPECT_LE(aligned[9].end, aligned[10].start);
  EXPECT_LT(aligned[9].start, aligned[9].end);
  EXPECT_FALSE(aligned[8].doubtful);
  EXPECT_FALSE(aligned[10].doubtful);
}

TEST(AlignLines, WhatCannotBeSpokenIsDoubtful) {
  Film film;
  const SoundTable line = Line(1);
  const std::int32_t start = film.Say(line);
  const std::vector<AlignedLine> aligned =
      AlignLines(std::vector<SoundTable>{SoundTable(), line, SoundTable()}, film.table);
  ASSERT_EQ(aligned.size(), 3U);
  EXPECT_TRUE(aligned[0].doubtful);
  EXPECT_EQ(aligned[0].confidence, 0);
  EXPECT_NEAR(aligned[1].start.Count(), start, 150);
  EXPECT_TRUE(aligned[2].doubtful);
  EXPECT_GE(aligned[2].start, aligned[1].end);
}

TEST(AlignLines, WithoutSoundEveryLineIsDoubtful) {
  const std::vector<SoundTable> lines = {Line(1), Line(2)};
  SoundTable silence;
  for (int i = 0; i < 3000; ++i) silence.Append({});
  for (const SoundTable& film : {SoundTable(), silence}) {
    const std::vector<AlignedLine> aligned = AlignLines(lines, film);
    ASSERT_EQ(aligned.size(), 2U);
    for (const AlignedLine& each : aligned) EXPECT_TRUE(each.doubtful);
    for (const AlignedLine& each : aligned) EXPECT_EQ(each.confidence, 0);
    EXPECT_LE(aligned[0].end, aligned[1].start);
  }
  EXPECT_TRUE(AlignLines({}, silence).empty());
}

TEST(AlignLines, TellsHowFarItIsThroughBothRounds) {
  Film film;
  std::vector<SoundTable> lines = {Line(1), Line(2), Line(3), Line(4)};
  for (const SoundTable& line : lines) film.Say(line);
  std::vector<std::size_t> told;
  AlignLines(lines, film.table, [&](std::size_t done) {
    told.push_back(done);
    return true;
  });
  ASSERT_GT(told.size(), lines.size());
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_EQ(told.front(), 0u);
  EXPECT_EQ(told.back(), 3u);
}

TEST(AlignLines, GivesUpWhenAskedTo) {
  Film film;
  const std::vector<SoundTable> lines = {Line(1), Line(2)};
  for (const SoundTable& line : lines) film.Say(line);
  EXPECT_TRUE(AlignLines(lines, film.table, [](std::size_t done) { return done < 1; }).empty());
}

}  // namespace
}  // namespace cuewright
