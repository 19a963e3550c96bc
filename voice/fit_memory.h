#pragma once

#include <span>

#include "voice/fit.h"

namespace cuewright {

/// True while what was learned is of the same film and of what is told of the hand, and no more than a fifth as many
/// captions came or changed since as it was learned from.
bool Serves(const FitMemory& memory, const SoundTable& sound, std::span<const HeldCaption> captions,
            const FitChoice& choice);

/// A memory of what is learned from these, which isn't in it yet.
FitMemory MemoryFor(const SoundTable& sound, std::span<const HeldCaption> captions, const FitChoice& choice);

}  // namespace cuewright
