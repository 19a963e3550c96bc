#include "voice/align_features.h"

#include <algorithm>
#include <cmath>

#include "core/counting.h"
#include "voice/band_levels.h"

namespace cuewright {
namespace {

constexpr std::size_t kStepsAFrame = FilmFeatures::kFrameMs / SoundTable::kStepMs;
constexpr std::size_t kAroundSteps = 1500;  ///< steps to either side that tell quiet and loud
constexpr double kQuiet = 0.2;
constexpr double kLoud = 0.9;
constexpr float kLowest = -45;  ///< dB below the loud: further down all is silence

float FrameDb(const SoundTable& sound, std::size_t frame, std::size_t band) {
  float db = 0;
  for (std::size_t step = frame * kStepsAFrame; step < (frame + 1) * kStepsAFrame; ++step) {
    db += sound.Db(step, band);
  }
  return db / kStepsAFrame;
}

}  // namespace

FilmFeatures::FilmFeatures(const SoundTable& film) {
  const std::size_t frames = film.Steps() / kStepsAFrame;
  frames_.resize(frames);
  quiet_.resize(frames / kBlock + 1);
  for (std::size_t band = 0; band < SoundTable::kBands; ++band) {
    const std::vector<BandLevels> levels = LevelsOf(film, band, {kBlock * kStepsAFrame, kAroundSteps, kQuiet, kLoud});
    for (std::size_t block = 0; block < quiet_.size() && block < levels.size(); ++block) {
      quiet_[block][band] = std::max(levels[block].quiet - levels[block].loud, kLowest);
    }
    for (std::size_t frame = 0; frame < frames; ++frame) {
      frames_[frame][band] = std::max(FrameDb(film, frame, band) - levels[frame / kBlock].loud, kLowest);
    }
  }
}

std::vector<SpokenFrames> FeaturesOfLines(std::span<const SoundTable> lines) {
  FilmFeatures::Bands loud{};
  for (std::size_t band = 0; band < loud.size(); ++band) {
    ByteHistogram histogram;
    for (const SoundTable& line : lines) {
      for (std::size_t step = 0; step < line.Steps(); ++step) histogram.Add(line.At(step)[band]);
    }
    // A film is silent for about as long as it speaks.
    loud[band] = histogram.Quantile(2 * kLoud - 1);
  }
  std::vector<SpokenFrames> all;
  for (const SoundTable& line : lines) {
    SpokenFrames& frames = all.emplace_back(line.Steps() / kStepsAFrame);
    for (std::size_t frame = 0; frame < frames.size(); ++frame) {
      for (std::size_t band = 0; band < loud.size(); ++band) {
        frames[frame][band] = std::max(FrameDb(line, frame, band) - loud[band], kLowest);
      }
    }
  }
  return all;
}

SpokenFrames AtPace(const SpokenFrames& line, double pace) {
  if (line.empty()) return {};
  const double last = CountOf(line) - 1;
  SpokenFrames paced(std::lround(CountOf(line) * pace));
  double middle = 0.5;
  for (FilmFeatures::Bands& frame : paced) {
    const double place = std::clamp(middle / pace - 0.5, 0.0, last);
    const auto before = static_cast<std::size_t>(place);
    const auto share = static_cast<float>(place - std::floor(place));
    const FilmFeatures::Bands& next = line[std::min(before + 1, line.size() - 1)];
    for (std::size_t band = 0; band < frame.size(); ++band) {
      frame[band] = line[before][band] * (1 - share) + next[band] * share;
    }
    ++middle;
  }
  return paced;
}

}  // namespace cuewright
