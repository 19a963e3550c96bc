#include "voice/spoken_text.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include "core/runtime_error.h"
#include "sound/sound_measurer.h"

namespace cuewright {
namespace {

constexpr TextView kSpeaker = u"espeak-ng";
constexpr std::size_t kLinesAtOnce = 64;
constexpr std::size_t kLongestLine = 600;         ///< characters; nobody says more within a caption
constexpr std::size_t kLongestArgument = 40'000;  ///< characters, well below what the system takes
constexpr int kPauseMs = 3000;                    ///< longer than any that the synthesiser makes by itself
constexpr int kWaitMs = 50;
constexpr std::size_t kWaveHead = 44;
constexpr std::size_t kRateInHead = 24;
constexpr int kLowestRate = 16000;  ///< below, the highest band can't be heard
constexpr int kHighestRate = 192000;

/// A line as text between marks; letters that would be marks are left out, they have no sound.
Text AsSpeech(const Text& line) {
  Text speech;
  for (const char16_t c : TextView(line).substr(0, kLongestLine)) {
    const bool mark = c < u' ' || c == u'<' || c == u'>' || c == u'&';
    speech += mark ? u' ' : c;
  }
  // Half a letter at the cut would be no letter.
  if (!speech.empty() && (speech.back() & 0xFC00) == 0xD800) speech.pop_back();
  return speech;
}

/// Lines of silence between the runs of sound in a wave.
class WaveCutter {
 public:
  WaveCutter(int samplesASecond, int pauseMs) : pause_(std::size_t{1} * samplesASecond * pauseMs / 1000) {}

  void Cut(std::span<const std::int16_t> samples) {
    lines_.emplace_back();
    std::size_t at = 0;
    while (at < samples.size()) {
      const auto heard = [](int sample) { return sample != 0; };
      const std::size_t sound = std::find_if(samples.begin() + at, samples.end(), heard) - samples.begin();
      TakeSilence(sound - at);
      const std::size_t silence = std::find(samples.begin() + sound, samples.end(), 0) - samples.begin();
      lines_.back().insert(lines_.back().end(), samples.begin() + sound, samples.begin() + silence);
      at = silence;
    }
  }

  std::vector<std::vector<std::int16_t>> Take() { return std::move(lines_); }

 private:
  void TakeSilence(std::size_t count) {
    // The synthesiser shortens a pause by some ms, and adds what it makes by itself behind a sentence.
    const std::size_t pauses = (count + pause_ / 10) / pause_;
    if (pauses == 0 && !lines_.back().empty()) lines_.back().insert(lines_.back().end(), count, std::int16_t{0});
    for (std::size_t i = 0; i < pauses; ++i) lines_.emplace_back();
  }

  std::size_t pause_;
  std::vector<std::vector<std::int16_t>> lines_;
};

}  // namespace

SpokenLines TakeLinesApart(std::string_view wave, std::size_t count, int pauseMs) {
  SpokenLines spoken;
  if (wave.size() < kWaveHead) return spoken;
  std::int32_t rate = 0;
  std::memcpy(&rate, wave.data() + kRateInHead, sizeof rate);
  if (rate < kLowestRate || rate > kHighestRate) return spoken;
  // The head doesn't tell how long a wave is that goes through a pipe.
  std::vector<std::int16_t> samples((wave.size() - kWaveHead) / sizeof(std::int16_t));
  std::memcpy(samples.data(), wave.data() + kWaveHead, samples.size() * sizeof(std::int16_t));
  WaveCutter cutter(rate, pauseMs);
  cutter.Cut(samples);
  std::vector<std::vector<std::int16_t>> lines = cutter.Take();
  // Behind the last line comes a pause, too.
  if (lines.size() != count + 1 || !lines.back().empty()) return spoken;
  lines.pop_back();
  return {rate, std::move(lines), {}};
}

std::string TextSpeaker::Wave(const Text& marked, std::string& problem) {
  std::unique_ptr<ChildProcess> child;
  CarryOn errors;
  errors([&] {
    child = processes_.Start(Text(kSpeaker), {u"-v", language_, u"-b", u"1", u"-m", u"--stdout", u"--", marked});
  });
  if (!child) {
    problem = "espeak-ng can't be started; the package espeak-ng has it";
    return {};
  }
  std::string wave;
  std::optional<int> status;
  while (!status) {
    child->Wait(kWaitMs);
    // The end is asked for before the output is taken, so that nothing that was written is missed.
    status = child->Ended();
    wave += child->TakeOutput();
  }
  if (*status == 0 && wave.size() > kWaveHead) return wave;
  problem = "espeak-ng doesn't speak the language '" + ToUtf8(language_) + "'; 'espeak-ng --voices' lists them";
  return {};
}

SpokenLines TextSpeaker::SpeakPortion(std::span<const Text> lines) {
  Text marked = u"<speak>";
  for (const Text& line : lines) marked += AsSpeech(line) + u"<break time=\"3000ms\"/>\n";
  marked += u"</speak>";
  std::string problem;
  const std::string wave = Wave(marked, problem);
  SpokenLines spoken = TakeLinesApart(wave, lines.size(), kPauseMs);
  spoken.problem = problem;
  if (!spoken.lines.empty() || !problem.empty()) return spoken;
  if (lines.size() == 1) {
    // The line can't be told from pauses, so there is nothing in it that could be looked for.
    spoken.lines.resize(1);
    return spoken;
  }
  // One of the lines is taken for more than one: the half without it can still be spoken at once.
  const std::size_t half = lines.size() / 2;
  spoken = SpeakPortion(lines.first(half));
  SpokenLines rest = SpeakPortion(lines.subspan(half));
  std::ranges::move(rest.lines, std::back_inserter(spoken.lines));
  spoken.samplesASecond = std::max(spoken.samplesASecond, rest.samplesASecond);
  if (spoken.problem.empty()) spoken.problem = rest.problem;
  return spoken;
}

SpokenLines TextSpeaker::Speak(std::span<const Text> lines, const std::function<bool()>& goOn) {
  SpokenLines all;
  for (std::size_t first = 0; first < lines.size();) {
    std::size_t count = 0;
    std::size_t characters = 0;
    while (first + count < lines.size() && count < kLinesAtOnce && characters < kLongestArgument) {
      characters += std::min(lines[first + count++].size(), kLongestLine);
    }
    if (goOn && !goOn()) break;
    SpokenLines portion = SpeakPortion(lines.subspan(first, count));
    if (!portion.problem.empty()) return portion;
    all.samplesASecond = std::max(all.samplesASecond, portion.samplesASecond);
    std::ranges::move(portion.lines, std::back_inserter(all.lines));
    first += count;
  }
  all.lines.resize(lines.size());
  return all;
}

SoundTable TableOfSamples(std::span<const std::int16_t> samples, int samplesASecond) {
  SoundTable table;
  if (samples.empty() || samplesASecond < kLowestRate) return table;
  SoundMeasurer measurer(table, samplesASecond);
  measurer.Add(samples);
  measurer.Finish();
  return table;
}

namespace {

using Cosines = std::array<std::array<float, SoundTable::kBands>, SoundTable::kBands - 1>;

Cosines MakeCosines() {
  Cosines cosines{};
  const float scale = std::sqrt(2.0F / SoundTable::kBands) * SoundTable::kDbPerUnit;
  for (std::size_t order = 0; order < cosines.size(); ++order) {
    for (std::size_t band = 0; band < SoundTable::kBands; ++band) {
      const double phase = std::numbers::pi * static_cast<double>(order + 1) * (static_cast<double>(band) + 0.5);
      cosines[order][band] = scale * static_cast<float>(std::cos(phase / SoundTable::kBands));
    }
  }
  return cosines;
}

}  // namespace

Cepstrum CepstrumOf(const SoundTable::Step& step) {
  static const Cosines kCosines = MakeCosines();
  Cepstrum cepstrum{};
  for (std::size_t order = 0; order < cepstrum.size(); ++order) {
    for (std::size_t band = 0; band < step.size(); ++band) {
      cepstrum[order] += kCosines[order][band] * static_cast<float>(step[band]);
    }
  }
  return cepstrum;
}

}  // namespace cuewright
