#include "audio/voice_edges.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

constexpr Ms kStepMs = 10;
/// How much sound around a place tells what noise is.
constexpr Ms kAroundMs = 15000;
/// A pause as short as that is within a word, a sound as short as that is none.
constexpr std::size_t kShortestPause = 15;
constexpr std::size_t kShortestVoice = 8;
/// Where less lies between the quiet and the loud, nobody speaks, or everything is as loud.
constexpr float kLeastSpread = 8;

struct Thresholds {
  float begins = 0;
  float goesOn = 0;
};

float Quantile(std::vector<float>& levels, double part) {
  const auto at = levels.begin() + static_cast<std::ptrdiff_t>(part * static_cast<double>(levels.size() - 1));
  std::nth_element(levels.begin(), at, levels.end());
  return *at;
}

/// A voice lies in the upper part between what is quiet here and what is loud. It goes on a little lower than it
/// begins.
bool FindThresholds(std::span<const float> levels, Thresholds& thresholds) {
  std::vector<float> sorted(levels.begin(), levels.end());
  const float quiet = Quantile(sorted, 0.1);
  const float loud = Quantile(sorted, 0.98);
  if (loud - quiet < kLeastSpread) return false;
  constexpr float kBegins = 0.4F;
  constexpr float kGoesOn = 0.3F;
  thresholds = {quiet + kBegins * (loud - quiet), quiet + kGoesOn * (loud - quiet)};
  return true;
}

struct Run {
  std::size_t first = 0;
  std::size_t end = 0;
};

/// Stretches of steps with a voice, the short pauses within filled.
std::vector<Run> FindRuns(std::span<const float> levels, const Thresholds& thresholds) {
  std::vector<Run> runs;
  bool voice = false;
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const bool was = voice;
    voice = levels[i] >= (was ? thresholds.goesOn : thresholds.begins);
    if (!voice) continue;
    if (!was && (runs.empty() || i - runs.back().end >= kShortestPause)) {
      // The softer steps just before a voice belong to it.
      std::size_t first = i;
      while (first > 0 && i - first < 5 && levels[first - 1] >= thresholds.goesOn) --first;
      runs.push_back({first, i});
    }
    runs.back().end = i + 1;
  }
  std::erase_if(runs, [](const Run& run) { return run.end - run.first < kShortestVoice; });
  return runs;
}

}  // namespace

std::vector<VoiceEdge> FindVoiceEdges(std::span<const float> levels, Ms first) {
  Thresholds thresholds;
  if (levels.empty() || !FindThresholds(levels, thresholds)) return {};
  std::vector<VoiceEdge> edges;
  const auto at = [first](std::size_t step) { return first + static_cast<std::int32_t>(step) * kStepMs; };
  for (const Run& run : FindRuns(levels, thresholds)) {
    // At the ends of what was looked at nothing is known of what lies beyond.
    if (run.first > 0) edges.push_back({at(run.first), CaptionEdge::Start});
    if (run.end < levels.size()) edges.push_back({at(run.end), CaptionEdge::End});
  }
  return edges;
}

float VoiceSnaps::LevelAt(Ms ms) const {
  const auto step = static_cast<std::size_t>(ms / kStepMs);
  if (step < table_.Steps()) {
    // Voices are loudest between about 250 Hz and 5 kHz: a door or a hiss isn't one.
    const SoundTable::Step& bands = table_.At(step);
    return *std::max_element(bands.begin() + 2, bands.end() - 1) * SoundTable::kDbPerUnit;
  }
  constexpr float kDbATenfold = 20;
  const WavePeak peak = peaks_.Of(ms, ms + kStepMs);
  return kDbATenfold * std::log10(static_cast<float>(peak.maximum - peak.minimum) + 1);
}

void VoiceSnaps::Find(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const {
  const Ms first = std::max<Ms>(from - kAroundMs, 0) / kStepMs * kStepMs;
  const Ms known = std::max(peaks_.Length(), static_cast<std::int32_t>(table_.Steps()) * kStepMs);
  const Ms end = std::min(to + kAroundMs, known);
  std::vector<float> levels;
  for (Ms ms = first; ms + kStepMs <= end; ms += kStepMs) {
    levels.push_back(LevelAt(ms));
  }
  for (const VoiceEdge& voice : FindVoiceEdges(levels, first)) {
    if (voice.edge == edge && voice.ms >= from && voice.ms <= to) found.push_back({voice.ms, SnapKind::Voice});
  }
}

}  // namespace cuewright
