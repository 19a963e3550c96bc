#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "audio/snap_points.h"
#include "audio/wave_pyramid.h"
#include "core/ms.h"
#include "sound/sound_table.h"

namespace cuewright {

/// A place where a voice begins or ends.
struct VoiceEdge {
  Ms ms = 0;
  CaptionEdge edge = CaptionEdge::Start;

  bool operator==(const VoiceEdge&) const = default;
};

/// Where something that stands out of the noise begins and ends. `levels` are loudnesses in dB, one each 10 ms from
/// `first` ms on; a few dozen seconds tell best what noise is.
std::vector<VoiceEdge> FindVoiceEdges(std::span<const float> levels, Ms first);

/// The edges of the voice in the sound that is loaded. They are looked for around the time that is asked for, in what
/// the sound is made of, and by its peaks where that isn't known.
class VoiceSnaps final : public SnapPoints {
 public:
  VoiceSnaps(const WavePyramid& peaks, const SoundTable& table) : peaks_(peaks), table_(table) {}

  void Find(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const override;

 private:
  /// Loudness in dB of the ten ms that begin at a time.
  float LevelAt(Ms ms) const;

  const WavePyramid& peaks_;
  const SoundTable& table_;
};

}  // namespace cuewright
