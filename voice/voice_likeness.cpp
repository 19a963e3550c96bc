#include "voice/voice_likeness.h"

#include <algorithm>

#include "voice/band_levels.h"

namespace cuewright {
namespace {

constexpr std::size_t kBlock = 500;    ///< steps from one measure of quiet and loud to the next
constexpr std::size_t kAround = 1500;  ///< steps before and behind that are measured
constexpr double kQuiet = 0.15;
constexpr double kLoud = 0.92;
constexpr float kLeastRange = 4;   ///< dB between quiet and loud: below that a band tells nothing
constexpr float kWholeRange = 16;  ///< dB from which on a band counts fully
constexpr Ms kLongestTrackMs = 48 * 3600 * 1000;

/// What a band adds: its place between quiet and loud, weighted by how far these lie apart.
void AddBand(const SoundTable& sound, std::size_t band, VoiceTrack& track, VoiceTrack& weights) {
  const std::vector<BandLevels> levels = LevelsOf(sound, band, {kBlock, kAround, kQuiet, kLoud});
  for (std::size_t step = 0; step < track.size(); ++step) {
    const BandLevels& here = levels[step / kBlock];
    const float range = here.loud - here.quiet;
    if (range < kLeastRange) continue;
    const float weight = std::min(1.0F, range / kWholeRange);
    const float place = (sound.Db(step, band) - here.quiet) / range;
    track[step] += weight * std::clamp(place, 0.0F, 1.0F);
    weights[step] += weight;
  }
}

}  // namespace

VoiceTrack VoiceOfSound(const SoundTable& sound) {
  VoiceTrack track(sound.Steps());
  VoiceTrack weights(sound.Steps());
  for (std::size_t band = 0; band < SoundTable::kBands; ++band) AddBand(sound, band, track, weights);
  for (std::size_t step = 0; step < track.size(); ++step) {
    track[step] /= std::max(weights[step], 1.0F);
  }
  return track;
}

VoiceTrack VoiceOfCaptions(std::span<const CaptionTimes> captions) {
  Ms last = 0;
  for (const CaptionTimes& times : captions) last = std::max(last, times.end);
  VoiceTrack track(std::min(last, kLongestTrackMs).Count() / SoundTable::kStepMs);
  for (const CaptionTimes& times : captions) {
    const auto at = [&](Ms ms) {
      return track.begin() + std::clamp<std::ptrdiff_t>((ms.Count() + SoundTable::kStepMs / 2) / SoundTable::kStepMs, 0,
                                                        std::ssize(track));
    };
    if (times.start >= 0 && times.end > times.start) std::fill(at(times.start), at(times.end), 1.0F);
  }
  return track;
}

}  // namespace cuewright
