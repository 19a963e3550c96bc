#include "voice/fit_voice_model.h"

#include <random>

namespace cuewright {
namespace {

constexpr std::size_t kBands = SoundTable::kBands;

/// Noise of 30 dB; in every other 100 steps somebody speaks, a vowel in the low bands and then a hiss in the highest.
class HissingFilm {
 public:
  HissingFilm() {
    std::mt19937 random(11);
    for (std::size_t step = 0; step < 4000; ++step) {
      const bool voice = step / 100 % 2 == 1;
      const bool hiss = step % 100 >= 60;
      SoundTable::Step levels;
      for (std::size_t band = 0; band < kBands; ++band) {
        const std::size_t noise = 60 + random() % 7;
        const bool loud = voice && (hiss ? band == kBands - 1 : band < 4);
        levels[band] = static_cast<std::uint8_t>(loud ? noise + (hiss ? 16 : 40) : noise);
      }
      sound.Append(levels);
    }
    for (std::ptrdiff_t first = 0; first < 4000; first += 200) {
      others.push_back({first, first + 100});
      spoken.push_back({first + 100, first + 200});
    }
  }

  SoundTable sound;
  std::vector<StepSpan> spoken;
  std::vector<StepSpan> others;
};

TEST(VoiceModel, ASoundOfOneBandIsHeardWhereAllOthersAreDrowned) {
  const HissingFilm film;
  const VoiceModel model(film.sound, film.spoken, film.others);
  EXPECT_GT(model.Voice(130), 1);
  EXPECT_GT(model.Voice(180), 1);
  EXPECT_LT(model.Voice(50), -1);
}

TEST(VoiceModel, AllOfAVoiceThatIsAlwaysLouderIsHeardAndOfOneThatIsDrownedByHalfLess) {
  const HissingFilm film;
  const VoiceModel clear(film.sound, film.spoken, film.others);
  EXPECT_GT(clear.Heard(), 0.95);
  std::vector<StepSpan> half = film.spoken;
  for (StepSpan& span : half) span.first -= 100;
  const VoiceModel drowned(film.sound, half, film.others);
  EXPECT_GT(drowned.Heard(), 0.3);
  EXPECT_LT(drowned.Heard(), 0.7);
}

TEST(VoiceModel, WithoutSamplesNothingIsTold) {
  const HissingFilm film;
  const VoiceModel model(film.sound, {}, film.others);
  EXPECT_EQ(model.Voice(130), 0);
  EXPECT_EQ(model.Separation(), 0);
}

TEST(VoiceModel, BeyondTheSoundNothingIsTold) {
  const HissingFilm film;
  const VoiceModel model(film.sound, film.spoken, film.others);
  EXPECT_EQ(model.Voice(-1), 0);
  EXPECT_EQ(model.Voice(4000), 0);
}

}  // namespace
}  // namespace cuewright
