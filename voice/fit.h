#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/ms.h"
#include "sound/sound_table.h"
#include "voice/fit_voice_model.h"
#include "voice/reaction.h"

namespace cuewright {

/// A caption as a person held it, in ms. One whose end isn't behind its start has no times.
struct HeldCaption {
  Ms start = 0;
  Ms end = 0;
  bool wanted = true;  ///< false: the caption is not fitted, it only tells where somebody speaks
};

/// What was learned of a film's voices, its noise and the hand, for further captions of the same film. It is empty at
/// first, and whoever keeps it keeps the film's table of sound as well.
struct FitMemory {
  const SoundTable* sound = nullptr;
  std::optional<Reaction> hand{};  ///< the `FitChoice::hand` of then
  std::optional<double> startLate{};
  std::optional<double> endLate{};
  std::vector<HeldCaption> captions{};  ///< from which it was learned
  Reaction reaction{};                  ///< by which these captions were judged
  std::vector<VoiceModel> models{};
  std::vector<Ms> until{};  ///< up to which start each model is used
};

/// How captions are fitted.
struct FitChoice {
  std::optional<double> startLate{};          ///< the median lateness of presses in ms; empty: found from the film
  std::optional<double> endLate{};            ///< the same of releases
  std::optional<Reaction> hand{};             ///< of a person who was measured; goes before the two above
  Ms leastGap = 0;                            ///< ms that are left between two captions
  const std::atomic<bool>* giveUp = nullptr;  ///< set by another thread to end the work
  /// What earlier fits learned: it is used while few captions came since or changed, and else learned anew.
  FitMemory* memory = nullptr;
};

/// Why nothing was fitted.
enum class FitProblem : std::uint8_t {
  None,
  NoCaptions,  ///< none of the wanted ones has times
  Silence,     ///< nothing is heard
  NoVoice,     ///< what is heard while captions are shown is the same as between them
  NoReaction,  ///< how late the hand is couldn't be found, and wasn't told
  GivenUp,     ///< the caller wanted no more
};

/// What became of a caption.
struct FittedCaption {
  Ms start = 0;
  Ms end = 0;
  double startConfidence =
      0;  ///< the probability that the start is right to 50 ms, also where it stayed at the constant
  double endConfidence = 0;
  bool startMoved = false;  ///< true: moved to the voice; false: moved by the constant alone, for want of evidence
  bool endMoved = false;
  bool wanted = false;  ///< the caption was wanted and has times; a caption that wasn't is unchanged

  double Confidence() const { return std::min(startConfidence, endConfidence); }
};

struct FitResult {
  FitProblem problem = FitProblem::None;
  Reaction reaction;                    ///< by which the presses were judged
  std::vector<FittedCaption> captions;  ///< as many as were given; as they were where there is a problem
};

/// Below this a fitted caption is doubtful.
constexpr double kDoubtfulFit = 0.6;

/// Moves captions to where the voice begins and ends, at most 350 ms from where the person's constant lateness puts
/// them. `words` has what a synthesiser makes of each caption's text; it is empty where that is of no use, and so is
/// the table of one. Captions are in order of their starts.
FitResult FitCaptions(const SoundTable& sound, std::span<const HeldCaption> captions, std::span<const SoundTable> words,
                      const FitChoice& choice);

}  // namespace cuewright
