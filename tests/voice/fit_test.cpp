#include "voice/fit.h"

#include <random>

namespace cuewright {
namespace {

/// A film of made-up sound: a voice with a level and a spectrum that go up and down, over noise that is always there.
class MadeFilm {
 public:
  MadeFilm(int seconds, int noiseDb) : noiseDb_(noiseDb), voices_(static_cast<std::size_t>(seconds) * 100) {}

  /// Somebody speaks from one step to another; `seed` is what is said.
  void Speak(std::size_t first, std::size_t last, unsigned seed) {
    for (std::size_t step = first; step < last; ++step) voices_[step] = VoiceAt(step - first, seed);
    spoken_.push_back({static_cast<std::int32_t>(first) * 10, static_cast<std::int32_t>(last) * 10});
  }

  SoundTable Sound() const {
    std::mt19937 random(5);
    SoundTable table;
    for (const SoundTable::Step& voice : voices_) {
      SoundTable::Step step;
      for (std::size_t band = 0; band < step.size(); ++band) {
        const int noise = 2 * noiseDb_ + static_cast<int>(random() % 9);
        step[band] = static_cast<std::uint8_t>(std::max(noise, int{voice[band]}));
      }
      table.Append(step);
    }
    return table;
  }

  /// What a synthesiser would make of the text: the same without noise.
  static SoundTable Words(std::size_t steps, unsigned seed) {
    SoundTable table;
    for (std::size_t step = 0; step < steps; ++step) table.Append(VoiceAt(step, seed));
    return table;
  }

  /// The captions as a hand holds them that is late by 150 to 290 ms.
  std::vector<HeldCaption> Held() const {
    std::mt19937 random(7);
    std::vector<HeldCaption> held;
    for (const HeldCaption& caption : spoken_) {
      const auto late = [&] { return 150 + static_cast<std::int32_t>(random() % 140); };
      held.push_back({caption.start + late(), caption.end + late()});
    }
    return held;
  }

  const std::vector<HeldCaption>& Spoken() const { return spoken_; }

 private:
  static SoundTable::Step VoiceAt(std::size_t step, unsigned seed) {
    std::mt19937 random(seed * 1000 + static_cast<unsigned>(step / 8));
    SoundTable::Step voice;
    for (std::uint8_t& level : voice) level = static_cast<std::uint8_t>(70 + random() % 70);
    return voice;
  }

  int noiseDb_;
  std::vector<SoundTable::Step> voices_;
  std::vector<HeldCaption> spoken_;
};

MadeFilm TenCaptions(int noiseDb) {
  MadeFilm film(60, noiseDb);
  for (unsigned caption = 0; caption < 10; ++caption) {
    const std::size_t first = 200 + std::size_t{caption} * 550;
    film.Speak(first, first + 150 + std::size_t{caption % 3} * 60, caption + 1);
  }
  return film;
}

Ms Furthest(const FitResult& result, const std::vector<HeldCaption>& truth) {
  Ms furthest = 0;
  for (std::size_t place = 0; place < truth.size(); ++place) {
    furthest = std::max({furthest, Abs(result.captions[place].start - truth[place].start),
                         Abs(result.captions[place].end - truth[place].end)});
  }
  return furthest;
}

void ExpectUntouched(const FitResult& result, const std::vector<HeldCaption>& held) {
  ASSERT_EQ(result.captions.size(), held.size());
  for (std::size_t place = 0; place < held.size(); ++place) {
    EXPECT_EQ(result.captions[place].start, held[place].start);
    EXPECT_EQ(result.captions[place].end, held[place].end);
    EXPECT_EQ(result.captions[place].Confidence(), 0);
  }
}

TEST(Fit, MovesStartsAndEndsToTheVoice) {
  const MadeFilm film = TenCaptions(20);
  const FitResult result = FitCaptions(film.Sound(), film.Held(), {}, {.startLate = 220.0, .endLate = 220.0});
  EXPECT_EQ(result.problem, FitProblem::None);
  EXPECT_LE(Furthest(result, film.Spoken()), 50);
  for (const FittedCaption& caption : result.captions) {
    EXPECT_TRUE(caption.startMoved);
    EXPECT_GT(caption.Confidence(), 0.8);
  }
}

TEST(Fit, FindsHowLateTheHandIs) {
  const MadeFilm film = TenCaptions(20);
  std::vector<HeldCaption> held = film.Held();
  for (HeldCaption& caption : held) caption.start += 120;
  const FitResult result = FitCaptions(film.Sound(), held, {}, {});
  EXPECT_EQ(result.problem, FitProblem::None);
  EXPECT_NEAR(result.reaction.start, 340, 45);
  EXPECT_NEAR(result.reaction.end, 220, 50);
  EXPECT_LE(Furthest(result, film.Spoken()), 60);
}

TEST(Fit, OwnWordsTellTheStartWhereAnotherCaptionEnds) {
  // Two captions of two speakers without a pause between: no change of the level tells where the second one begins.
  MadeFilm film(80, 20);
  std::vector<SoundTable> words;
  for (unsigned pair = 0; pair < 10; ++pair) {
    const std::size_t first = 200 + std::size_t{pair} * 700;
    film.Speak(first, first + 150, 2 * pair + 1);
    film.Speak(first + 150, first + 300, 2 * pair + 2);
    for (const unsigned said : {2 * pair + 1, 2 * pair + 2}) words.push_back(MadeFilm::Words(150, said));
  }
  const std::vector<HeldCaption> held = film.Held();
  const FitChoice choice{.startLate = 220.0, .endLate = 220.0};
  const auto meanOfSeconds = [&](const FitResult& result) {
    int sum = 0;
    for (std::size_t place = 1; place < held.size(); place += 2) {
      sum += Abs(result.captions[place].start - film.Spoken()[place].start).Count();
    }
    return 2 * sum / static_cast<int>(held.size());
  };
  const int with = meanOfSeconds(FitCaptions(film.Sound(), held, words, choice));
  EXPECT_LE(with, 22);
  EXPECT_GT(meanOfSeconds(FitCaptions(film.Sound(), held, {}, choice)), with + 10);
}

TEST(Fit, NeverMovesFurtherThanItMay) {
  const MadeFilm film = TenCaptions(20);
  std::vector<HeldCaption> held = film.Held();
  held[4].start += 900;  // the voice began long before
  held[7].end -= 1200;   // and goes on long behind
  const FitResult result = FitCaptions(film.Sound(), held, {}, {.startLate = 220.0, .endLate = 220.0});
  for (std::size_t place = 0; place < held.size(); ++place) {
    EXPECT_LE(Abs(result.captions[place].start - (held[place].start - 220)), 350);
    EXPECT_LE(Abs(result.captions[place].end - (held[place].end - 220)), 350);
  }
}

TEST(Fit, NeighboursDontComeToOverlapAndTheGapHolds) {
  MadeFilm film(40, 20);
  for (unsigned caption = 0; caption < 6; ++caption) {
    const std::size_t first = 300 + std::size_t{caption} * 200;
    film.Speak(first, first + 200, caption + 1);  // without a pause between
  }
  std::vector<HeldCaption> held = film.Held();
  for (std::size_t place = 1; place < held.size(); ++place) held[place].start = held[place - 1].end + 80;
  const FitResult result = FitCaptions(film.Sound(), held, {}, {.startLate = 220.0, .endLate = 150.0, .leastGap = 80});
  for (std::size_t place = 1; place < held.size(); ++place) {
    EXPECT_GE(result.captions[place].start - result.captions[place - 1].end, 80);
    EXPECT_GT(result.captions[place].end, result.captions[place].start);
  }
}

TEST(Fit, OnlyWantedCaptionsMove) {
  const MadeFilm film = TenCaptions(20);
  std::vector<HeldCaption> held = film.Held();
  for (std::size_t place = 0; place < held.size(); ++place) held[place].wanted = place == 3;
  const FitResult result = FitCaptions(film.Sound(), held, {}, {.startLate = 220.0, .endLate = 220.0});
  for (std::size_t place = 0; place < held.size(); ++place) {
    EXPECT_EQ(result.captions[place].wanted, place == 3);
    if (place != 3) {
      EXPECT_EQ(result.captions[place].start, held[place].start);
    }
  }
  EXPECT_NEAR(result.captions[3].start.Count(), film.Spoken()[3].start.Count(), 30);
}

/// Ten captions that are held, of which only one is to be fitted.
std::vector<HeldCaption> OneOf(std::vector<HeldCaption> held, std::size_t wanted) {
  for (std::size_t place = 0; place < held.size(); ++place) held[place].wanted = place == wanted;
  return held;
}

TEST(Fit, WhatWasLearnedOfAFilmServesItsNextCaptionsUntilManyCame) {
  const MadeFilm film = TenCaptions(20);
  const SoundTable sound = film.Sound();
  const std::vector<HeldCaption> held = film.Held();
  FitMemory memory;
  FitChoice choice{.startLate = 220.0, .endLate = 220.0, .memory = &memory};
  const std::span<const HeldCaption> eight = std::span(held).first(8);
  FitCaptions(sound, OneOf({eight.begin(), eight.end()}, 7), {}, choice);
  ASSERT_EQ(memory.captions.size(), 8U);

  const FitResult next = FitCaptions(sound, OneOf({held.begin(), held.begin() + 9}, 8), {}, choice);
  EXPECT_EQ(memory.captions.size(), 8U) << "nothing is learned for one more";
  EXPECT_NEAR(next.captions[8].start.Count(), film.Spoken()[8].start.Count(), 30);
  EXPECT_NEAR(next.captions[8].end.Count(), film.Spoken()[8].end.Count(), 40);
  FitCaptions(sound, OneOf(held, 9), {}, choice);
  EXPECT_EQ(memory.captions.size(), 10U) << "two more are above a fifth";
}

TEST(Fit, WhatWasLearnedServesNoOtherFilmAndNoOtherHand) {
  const MadeFilm film = TenCaptions(20);
  const SoundTable sound = film.Sound();
  const SoundTable other = film.Sound();
  const std::vector<HeldCaption> held = film.Held();
  FitMemory memory;
  FitCaptions(sound, held, {}, {.startLate = 220.0, .endLate = 220.0, .memory = &memory});
  EXPECT_EQ(memory.sound, &sound);
  FitCaptions(other, held, {}, {.startLate = 220.0, .endLate = 220.0, .memory = &memory});
  EXPECT_EQ(memory.sound, &other);
  const FitResult slow = FitCaptions(other, held, {}, {.startLate = 300.0, .endLate = 220.0, .memory = &memory});
  EXPECT_EQ(slow.reaction.start, 300);
  SoundTable silence;
  for (int step = 0; step < 6000; ++step) silence.Append({});
  FitCaptions(silence, held, {}, {.startLate = 220.0, .endLate = 220.0, .memory = &memory});
  EXPECT_NE(memory.sound, &silence);
}

TEST(Fit, CaptionsWithoutTimesStay) {
  const MadeFilm film = TenCaptions(20);
  std::vector<HeldCaption> held = film.Held();
  held.insert(held.begin() + 2, HeldCaption{});
  const FitResult result = FitCaptions(film.Sound(), held, {}, {.startLate = 220.0, .endLate = 220.0});
  EXPECT_EQ(result.captions[2].start, 0);
  EXPECT_EQ(result.captions[2].end, 0);
  EXPECT_NEAR(result.captions[3].start.Count(), film.Spoken()[2].start.Count(), 30);
  const std::vector<HeldCaption> none(3);
  EXPECT_EQ(FitCaptions(film.Sound(), none, {}, {}).problem, FitProblem::NoCaptions);
}

TEST(Fit, NothingMovesInSilence) {
  const MadeFilm film = TenCaptions(20);
  SoundTable silence;
  for (int step = 0; step < 6000; ++step) silence.Append({});
  const FitResult result = FitCaptions(silence, film.Held(), {}, {.startLate = 220.0});
  EXPECT_EQ(result.problem, FitProblem::Silence);
  ExpectUntouched(result, film.Held());
  EXPECT_EQ(FitCaptions({}, film.Held(), {}, {}).problem, FitProblem::Silence);
}

TEST(Fit, NothingMovesWhereOnlyNoiseIsHeard) {
  const MadeFilm film = TenCaptions(20);
  const MadeFilm noise(60, 40);
  const FitResult result = FitCaptions(noise.Sound(), film.Held(), {}, {.startLate = 220.0});
  EXPECT_EQ(result.problem, FitProblem::NoVoice);
  ExpectUntouched(result, film.Held());
}

TEST(Fit, CaptionsBehindTheEndOfTheSoundGetTheConstantAlone) {
  const MadeFilm film = TenCaptions(20);
  std::vector<HeldCaption> held = film.Held();
  held.push_back({500000, 502000});
  const FitResult result = FitCaptions(film.Sound(), held, {}, {.startLate = 220.0, .endLate = 200.0});
  EXPECT_FALSE(result.captions.back().startMoved);
  EXPECT_EQ(result.captions.back().start, 500000 - 220);
  EXPECT_EQ(result.captions.back().end, 502000 - 200);
}

}  // namespace
}  // namespace cuewright
