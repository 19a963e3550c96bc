#include "voice/hand_exercise.h"

#include <cmath>
#include <numbers>
#include <string_view>

#include "core/counting.h"
#include "text/byte_numbers.h"
#include "voice/spoken_text.h"

namespace cuewright {
namespace {

constexpr int kNumbers = 20;
constexpr int kToneRate = 22050;
constexpr int kMsASecond = 1000;
constexpr int kLeadMs = 2500;  ///< before the first one, and behind the last

/// Numbers of four figures: they take a second or two to say, as captions do.
int NumberAt(int place) { return 1000 + (place * 3847 + 729) % 9000; }

/// Pauses that nobody can foresee.
int PauseMs(int place) { return 900 + (place * 457 + 131) % 1100; }

std::vector<std::int16_t> Tone(int place) {
  const int ms = 800 + (place * 613) % 1200;
  std::vector<std::int16_t> samples(std::int64_t{ms} * kToneRate / kMsASecond);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double turn = 2 * std::numbers::pi * 440.0 * static_cast<double>(i) / kToneRate;
    samples[i] = static_cast<std::int16_t>(std::lround(9000 * std::sin(turn)));
  }
  return samples;
}

}  // namespace

std::string WaveFileOf(std::span<const std::int16_t> samples, int samplesASecond) {
  constexpr std::uint32_t kHeader = 36;
  const auto size = static_cast<std::uint32_t>(samples.size() * 2);
  const auto rate = static_cast<std::uint32_t>(samplesASecond);
  std::string wave = "RIFF";
  PutBytes(wave, kHeader + size, 4);
  wave += "WAVEfmt ";
  PutBytes(wave, 16, 4);
  PutBytes(wave, 1, 2);  // PCM
  PutBytes(wave, 1, 2);  // one channel
  PutBytes(wave, rate, 4);
  PutBytes(wave, rate * 2, 4);
  PutBytes(wave, 2, 2);
  PutBytes(wave, 16, 2);
  wave += "data";
  PutBytes(wave, size, 4);
  for (const std::int16_t sample : samples) PutBytes(wave, static_cast<std::uint16_t>(sample), 2);
  return wave;
}

HandExercise MakeHandExercise(Processes* processes, const Text& language) {
  HandExercise exercise;
  for (int place = 0; place < kNumbers; ++place) exercise.lines.push_back(Decimal(NumberAt(place)));
  SpokenLines spoken;
  if (processes != nullptr) spoken = TextSpeaker(*processes, language).Speak(exercise.lines);
  exercise.spoken = processes != nullptr && spoken.problem.empty() && spoken.lines.size() == exercise.lines.size();
  const int rate = exercise.spoken ? spoken.samplesASecond : kToneRate;
  std::vector<std::int16_t> samples;
  const auto pause = [&](int ms) { samples.resize(samples.size() + ms * rate / kMsASecond); };
  const auto now = [&] { return static_cast<std::int32_t>(samples.size() * kMsASecond / rate); };
  pause(kLeadMs);
  for (int place = 0; place < kNumbers; ++place) {
    const std::vector<std::int16_t> line = exercise.spoken ? ItemAt(spoken.lines, place) : Tone(place);
    const std::int32_t start = now();
    samples.insert(samples.end(), line.begin(), line.end());
    exercise.truth.push_back({start, now()});
    pause(PauseMs(place));
  }
  pause(kLeadMs);
  exercise.wave = WaveFileOf(samples, rate);
  return exercise;
}

}  // namespace cuewright
