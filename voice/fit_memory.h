#pragma once

#include <span>

#include "voice/fit.h"

namespace cuewright {

/// True while the memory is of the same film and the same hand, and the captions that came or changed since are at most
/// a fifth as many as those that it was learned from.
bool Serves(const FitMemory& memory, const SoundTable& sound, std::span<const HeldCaption> captions,
            const FitChoice& choice);

/// A memory for what will be learned from these captions; nothing is learned in it yet.
FitMemory MemoryFor(const SoundTable& sound, std::span<const HeldCaption> captions, const FitChoice& choice);

}  // namespace cuewright
