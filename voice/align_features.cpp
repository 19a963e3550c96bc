#include "voice/align_features.h"

#include <algorithm>
#include <cmath>

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
    db += static_cast<float>(sound.At(step)[band]) * SoundTable::kDbPerUnit;
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

std::vector<std::vector<FilmFeatures::Bands>> FeaturesOfLines(std::span<const SoundTable> lines) {
  FilmFeatures::Bands loud{};
  for (std::size_t band = 0; band < loud.size(); ++band) {
    ByteHistogram histogram;
    for (const SoundTable& line : lines) {
      for (std::size_t step = 0; step < line.Steps(); ++step) histogram.Add(line.At(step)[band]);
    }
    // A film is silent for about as long as it speaks.
    loud[band] = histogram.Quantile(2 * kLoud - 1);
  }
  std::vector<std::vector<FilmFeatures::Bands>> all;
  for (const SoundTable& line : lines) {
    std::vector<FilmFeatures::Bands>& frames = all.emplace_back(line.Steps() / kStepsAFrame);
    for (std::size_t frame = 0; frame < frames.size(); ++frame) {
      for (std::size_t band = 0; band < loud.size(); ++band) {
        frames[frame][band] = std::max(FrameDb(line, frame, band) - loud[band], kLowest);
      }
    }
  }
  return all;
}

}  // namespace cuewright
