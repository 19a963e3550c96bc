#include "voice/fit_memory.h"

#include <algorithm>

namespace cuewright {

bool Serves(const FitMemory& memory, const SoundTable& sound, std::span<const HeldCaption> captions,
            const FitChoice& choice) {
  constexpr int kFreshPart = 5;
  const bool same = memory.sound == &sound && memory.hand == choice.hand && memory.startLate == choice.startLate &&
                    memory.endLate == choice.endLate;
  if (!same) return false;
  const auto fresh = std::ranges::count_if(captions, [&](const HeldCaption& caption) {
    return caption.end > caption.start && std::ranges::none_of(memory.captions, [&](const HeldCaption& each) {
             return each.start == caption.start && each.end == caption.end;
           });
  });
  return fresh * kFreshPart <= std::ssize(memory.captions);
}

FitMemory MemoryFor(const SoundTable& sound, std::span<const HeldCaption> captions, const FitChoice& choice) {
  FitMemory memory{.sound = &sound, .hand = choice.hand, .startLate = choice.startLate, .endLate = choice.endLate};
  memory.captions.assign(captions.begin(), captions.end());
  return memory;
}

}  // namespace cuewright
