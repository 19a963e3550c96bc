#pragma once

#include "sound/sound_table.h"
#include "text/text.h"

namespace cuewright {

/// True when a file holds sound or pictures, as FFmpeg sees it; false when FFmpeg can't be started.
bool IsFilm(const Text& name);

/// Reads what the sound of a film is made of; why that failed, or empty. A film without sound is a failure.
Text ReadSoundTable(const Text& film, SoundTable& sound);

}  // namespace cuewright
