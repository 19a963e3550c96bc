#include "audio/wave_samples.h"

namespace cuewright {

void MixFrames(std::span<const char> bytes, std::size_t frameBytes, std::vector<std::int16_t>& mixed) {
  const int channels = static_cast<int>(frameBytes / Sample16::kBytes);
  if (channels == 0) return;
  for (std::size_t at = 0; at + frameBytes <= bytes.size(); at += frameBytes) {
    int sum = 0;
    for (int i = 0; i < channels; ++i) sum += Sample16::At(&bytes[at + i * Sample16::kBytes]);
    mixed.push_back(static_cast<std::int16_t>(sum / channels));
  }
}

}  // namespace cuewright
