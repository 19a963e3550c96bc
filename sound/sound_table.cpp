#include "sound/sound_table.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "text/byte_numbers.h"

namespace cuewright {
namespace {

/// Begins every file of a table; the digit counts up when the contents change their meaning.
constexpr std::string_view kHead = "cuewright sound 1\n";
constexpr std::size_t kCountBytes = 4;

}  // namespace

std::uint8_t SoundTable::UnitsOf(float power) {
  constexpr float kMost = 255;
  const float units = 10 * std::log10(std::max(power, 1.0F)) / kDbPerUnit;
  // Never negative, so that this rounds.
  return static_cast<std::uint8_t>(std::min(units + 0.5F, kMost));
}

double SoundTable::EdgeHz(int band) {
  constexpr double kAll = kBands;
  return kLowestHz * std::pow(kHighestHz / kLowestHz, band / kAll);
}

bool SoundTable::Silent() const {
  constexpr float kAudibleDb = 20;
  return std::ranges::all_of(steps_,
                             [](const Step& step) { return std::ranges::max(step) * kDbPerUnit <= kAudibleDb; });
}

std::string SoundTable::Bytes() const {
  std::string bytes(kHead);
  PutBytes(bytes, steps_.size(), kCountBytes);
  if (!steps_.empty()) bytes.append(reinterpret_cast<const char*>(steps_.data()), steps_.size() * sizeof(Step));
  return bytes;
}

bool SoundTable::Read(std::string_view bytes) {
  steps_.clear();
  if (!bytes.starts_with(kHead) || bytes.size() < kHead.size() + kCountBytes) return false;
  bytes.remove_prefix(kHead.size());
  const std::size_t count = NumberOf(bytes.substr(0, kCountBytes));
  bytes.remove_prefix(kCountBytes);
  if (bytes.size() != count * sizeof(Step)) return false;
  steps_.resize(count);
  if (count > 0) std::memcpy(steps_.data(), bytes.data(), bytes.size());
  return true;
}

}  // namespace cuewright
