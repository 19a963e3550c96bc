#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// The file that keeps the table of a film's sound, beside the wave file of that sound.
inline Text SoundTableBeside(TextView wave) { return Text(wave) + u".bands"; }

/// What a sound is made of over time: the loudness of 9 bands of frequency every 10 ms, a byte each. The bands lie from
/// 100 Hz to 8 kHz and are equally wide in octaves; 90 minutes take 4.9 MB.
class SoundTable {
 public:
  static constexpr int kBands = 9;
  static constexpr int kStepMs = 10;
  static constexpr double kLowestHz = 100;
  static constexpr double kHighestHz = 8000;
  static constexpr float kDbPerUnit = 0.5F;

  /// Half decibels above a power of one 16-bit unit squared, 0 for less; a full sine of one band has 174.
  using Step = std::array<std::uint8_t, kBands>;

  /// A power in the units of a `Step`.
  static std::uint8_t UnitsOf(float power);
  /// The lower edge of a band in Hz, of band `kBands` the upper one of the last.
  static double EdgeHz(int band);

  std::size_t Steps() const { return steps_.size(); }
  /// The step that begins `step` * 10 ms into the sound.
  const Step& At(std::size_t step) const { return steps_[step]; }
  float Db(std::size_t step, std::size_t band) const { return static_cast<float>(steps_[step][band]) * kDbPerUnit; }
  /// True when nothing in the sound can be heard: no band of any step has more than 20 dB.
  bool Silent() const;
  void Append(const Step& step) { steps_.push_back(step); }
  void Clear() { steps_.clear(); }

  /// The table as a file; `Read` takes it back, and leaves an empty table and gives false for any other bytes.
  std::string Bytes() const;
  bool Read(std::string_view bytes);

 private:
  std::vector<Step> steps_;
};

}  // namespace cuewright
