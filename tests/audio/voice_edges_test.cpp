#include "audio/voice_edges.h"

#include <gtest/gtest.h>

namespace cuewright {
namespace {

/// Ten seconds of noise at 20 dB with a voice of 60 dB in the stretches given, in steps of 10 ms.
std::vector<float> Sound(const std::vector<std::pair<int, int>>& voices) {
  std::vector<float> levels(1000);
  for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = 20 + static_cast<float>(i * 7 % 5);
  for (const auto& [from, to] : voices) std::fill(levels.begin() + from, levels.begin() + to, 60.0F);
  return levels;
}

using Edges = std::vector<VoiceEdge>;

TEST(VoiceEdges, StandWhereAVoiceBeginsAndEnds) {
  EXPECT_EQ(FindVoiceEdges(Sound({{100, 250}, {400, 520}}), 5000), (Edges{{6000, CaptionEdge::Start},
                                                                          {7500, CaptionEdge::End},
                                                                          {9000, CaptionEdge::Start},
                                                                          {10200, CaptionEdge::End}}));
}

TEST(VoiceEdges, PausesWithinAWordAndClicksAreNone) {
  EXPECT_EQ(FindVoiceEdges(Sound({{100, 180}, {190, 300}, {600, 604}}), 0),
            (Edges{{1000, CaptionEdge::Start}, {3000, CaptionEdge::End}}));
}

TEST(VoiceEdges, AnEvenSoundHasNone) {
  EXPECT_EQ(FindVoiceEdges(Sound({}), 0), Edges());
  EXPECT_EQ(FindVoiceEdges({}, 0), Edges());
}

TEST(VoiceEdges, NothingIsToldOfTheEndsOfWhatIsKnown) {
  EXPECT_EQ(FindVoiceEdges(Sound({{0, 200}, {900, 1000}}), 0),
            (Edges{{2000, CaptionEdge::End}, {9000, CaptionEdge::Start}}));
}

TEST(VoiceSnaps, LookIntoTheSoundAroundATime) {
  WavePyramid peaks;
  for (int ms = 0; ms < 20000; ++ms) {
    const bool voice = ms >= 8000 && ms < 9500;
    const auto level = static_cast<std::int16_t>(voice ? 8000 : 40);
    peaks.Append({level, static_cast<std::int16_t>(-level)});
  }
  SoundTable table;
  const VoiceSnaps snaps(peaks, table);
  std::vector<SnapPoint> found;
  snaps.Find(CaptionEdge::Start, 7900, 8100, found);
  snaps.Find(CaptionEdge::End, 7900, 8100, found);
  snaps.Find(CaptionEdge::End, 9400, 9600, found);
  EXPECT_EQ(found, (std::vector<SnapPoint>{{8000, SnapKind::Voice}, {9500, SnapKind::Voice}}));
  // Where it is known what the sound is made of, that tells: what is loud in the bass alone is no voice.
  for (int step = 0; step < 2000; ++step) {
    SoundTable::Step bands{};
    bands.fill(40);
    if (step >= 800 && step < 950) bands[0] = 150;
    if (step >= 1000 && step < 1100) bands[4] = 150;
    table.Append(bands);
  }
  found.clear();
  snaps.Find(CaptionEdge::Start, 7000, 11000, found);
  EXPECT_EQ(found, (std::vector<SnapPoint>{{10000, SnapKind::Voice}}));
}

}  // namespace
}  // namespace cuewright
