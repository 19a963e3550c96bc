#pragma once

#include <span>
#include <vector>

#include "core/caption_list.h"
#include "sound/sound_table.h"

namespace cuewright {

/// How much each 10 ms of something sounds like a voice: 0 for not at all, 1 for surely.
using VoiceTrack = std::vector<float>;

/// The track of a film's sound: how far its bands lie between the quiet and the loud level of the half minute around. A
/// voice in front of noise or music stands out in it; where all is equally loud nothing does.
VoiceTrack VoiceOfSound(const SoundTable& sound);

/// The track of captions: a voice while one is shown.
VoiceTrack VoiceOfCaptions(std::span<const CaptionTimes> captions);

}  // namespace cuewright
