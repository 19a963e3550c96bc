#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "sound/sound_table.h"
#include "voice/fit_edge.h"
#include "voice/fit_voice_model.h"

namespace cuewright {

/// The levels around a caption: of the noise that is always there, and of the loudest sound.
struct SoundLevels {
  std::array<float, SoundTable::kBands> quiet{};
  std::array<float, SoundTable::kBands> loud{};

  SoundLevels(const SoundTable& sound, StepSpan span);
};

/// Where a caption's own words, as a synthesiser speaks them, fit into a film's sound: every way to lay them there is
/// weighed, with any gap before and behind. `start` and `end` come in with what the change of the sound and the hand
/// tell of the caption's edges, and go out with what the words tell added.
class WordsAlignment {
 public:
  /// `alone` is the time without another caption, in which a voice is unlikely to be anybody else's.
  WordsAlignment(const SoundTable& sound, const VoiceModel& model, const SoundLevels& levels, StepSpan alone);

  /// False when there is nothing to lay, or too much. `held` are the steps in which the words probably are.
  bool Align(const SoundTable& words, StepSpan held, EdgeEvidence& start, EdgeEvidence& end);

 private:
  static constexpr std::size_t kFeatures = std::size_t{2} * SoundTable::kBands;
  /// Levels, and how they change within some steps.
  using Features = std::array<float, kFeatures>;

  void TakeWords(const SoundTable& words, std::size_t count, StepSpan held);
  void TakeWindow(std::ptrdiff_t first, std::size_t count);
  void Compare();
  void Forward(const EdgeEvidence& start);
  void Backward(const EdgeEvidence& end);
  float& CostAt(std::vector<float>& costs, std::size_t step, std::size_t word) const {
    return costs[step * words_.size() + word];
  }
  std::ptrdiff_t StepOf(std::ptrdiff_t place) const { return first_ + place; }

  const SoundTable& sound_;
  const VoiceModel& model_;
  const SoundLevels& levels_;
  StepSpan alone_;
  std::array<float, SoundTable::kBands> weight_{};
  std::ptrdiff_t first_ = 0;      // step of the window's first
  std::vector<Features> words_;   // the words, as long as the caption was held, as loud as the voice
  std::vector<Features> window_;  // what is heard
  std::vector<float> gap_;        // cost of "nobody speaks" before a step of the window, from its first on
  std::vector<float> mismatch_;   // by step of the window and step of the words
  std::vector<float> costs_;      // of the best way to or from each of these
};

}  // namespace cuewright
