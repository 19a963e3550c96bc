#include "platform/mpv_clock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <random>

namespace cuewright {
namespace {

constexpr double kStart = 1000;  // an instant of the monotonic clock

void Feed(MpvClock& clock, double time, std::optional<double> audio, std::optional<double> picture) {
  clock.Add(clock.Epoch(), {.time = time, .audio = audio, .picture = picture});
}

double FrameAt(double position, double frame) { return std::floor(position / frame + 1e-9) * frame; }

TEST(MpvClock, StandsAtTheHeldPositionWhateverTheSamplesSay) {
  MpvClock clock;
  clock.Hold(3.333, kStart);
  Feed(clock, kStart, 3.18, 3.36);
  Feed(clock, kStart + 0.01, 3.19, 3.36);
  EXPECT_DOUBLE_EQ(clock.Position(kStart + 5), 3.333);
  EXPECT_FALSE(clock.WantsSamples());
}

TEST(MpvClock, FollowsTheSoundToTheMillisecondBetweenSamples) {
  MpvClock clock;
  clock.Hold(0, kStart);
  clock.Run(kStart);
  for (int i = 0; i < 100; ++i) {
    const double time = kStart + i * 0.005;
    Feed(clock, time, 2 + i * 0.005, FrameAt(2 + i * 0.005, 0.04));
    if (i > 1) {
      EXPECT_NEAR(clock.Position(time + 0.0031), 2 + i * 0.005 + 0.0031, 0.0005);
    }
  }
}

TEST(MpvClock, SmoothsJitterOfTheSound) {
  MpvClock clock;
  clock.Run(kStart);
  std::mt19937 random(7);
  std::uniform_real_distribution<double> jitter(-0.004, 0.004);
  for (int i = 0; i < 400; ++i) {
    const double time = kStart + i * 0.005;
    Feed(clock, time, i * 0.005 + jitter(random), {});
    if (i > 40) {
      EXPECT_NEAR(clock.Position(time), i * 0.005, 0.0025);
    }
  }
}

TEST(MpvClock, NeverRunsBackwardWhenTheSoundIsFoundBehind) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 20; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  const double before = clock.Position(kStart + 0.1);
  for (int i = 20; i < 60; ++i) {
    Feed(clock, kStart + i * 0.005, i * 0.005 - 0.05, {});
    EXPECT_GE(clock.Position(kStart + i * 0.005), before);
  }
  EXPECT_NEAR(clock.Position(kStart + 0.295), 0.245, 0.001);
}

TEST(MpvClock, DoesNotRunAheadBeforeTheSoundMoves) {
  MpvClock clock;
  clock.Hold(1, kStart);
  clock.Run(kStart);
  for (int i = 0; i < 30; ++i) Feed(clock, kStart + i * 0.005, 1.0, 1.0);
  EXPECT_NEAR(clock.Position(kStart + 0.15), 1.0, 0.001);
}

TEST(MpvClock, FollowsThePictureWithoutSound) {
  MpvClock clock;
  clock.SetFrameDuration(0.04);
  clock.Run(kStart);
  for (int i = 0; i < 100; ++i) {
    const double position = i * 0.005;
    Feed(clock, kStart + position, {}, FrameAt(position, 0.04));
    EXPECT_NEAR(clock.Position(kStart + position), position, 0.004);
  }
  // The player waits for the file from here on.
  const double stood = clock.Position(kStart + 0.495);
  for (int i = 100; i < 150; ++i) {
    clock.Add(clock.Epoch(), {.time = kStart + i * 0.005, .audio = {}, .picture = 0.48, .idle = true});
  }
  EXPECT_NEAR(clock.Position(kStart + 150 * 0.005), stood, 0.006);
}

TEST(MpvClock, RunsOnUnderAPictureThatStaysLongerThanAFrame) {
  MpvClock clock;
  clock.SetFrameDuration(0.04);
  clock.Run(kStart);
  for (int i = 0; i < 1200; ++i) {
    const double position = i * 0.005;
    // The first picture stays for a second and the others for 400 ms.
    const double shown = position < 1 ? 0 : 1 + FrameAt(position - 1, 0.4);
    Feed(clock, kStart + position, {}, shown);
    EXPECT_NEAR(clock.Position(kStart + position), position, 0.006) << position;
  }
}

TEST(MpvClock, IsAtMostOneFrameAheadOfPicturesThatComeLate) {
  MpvClock clock;
  clock.SetFrameDuration(0.04);
  clock.Run(kStart);
  // Each picture is on show for three times as long as it should be.
  for (int i = 0; i < 1000; ++i) {
    const double time = i * 0.005;
    const double shown = FrameAt(time / 3, 0.04);
    Feed(clock, kStart + time, {}, shown);
    if (time > 0.2) {
      EXPECT_LE(clock.Position(kStart + time), shown + 0.09) << time;
    }
  }
}

TEST(MpvClock, GoesOnWithThePictureWhenTheSoundEndsFirst) {
  MpvClock clock;
  clock.SetFrameDuration(0.04);
  clock.Run(kStart);
  for (int i = 0; i < 400; ++i) {
    const double position = i * 0.005;
    const bool sound = position < 0.7;
    Feed(clock, kStart + position, sound ? std::optional(position) : std::nullopt, FrameAt(position, 0.04));
    if (i > 2) {
      EXPECT_NEAR(clock.Position(kStart + position), position, 0.006) << position;
    }
  }
}

TEST(MpvClock, GoesOnWithThePictureWhenTheSoundStands) {
  MpvClock clock;
  clock.SetFrameDuration(0.04);
  clock.Run(kStart);
  for (int i = 0; i < 400; ++i) {
    const double position = i * 0.005;
    Feed(clock, kStart + position, std::min(position, 0.7), FrameAt(position, 0.04));
    if (i > 2) {
      EXPECT_NEAR(clock.Position(kStart + position), position, 0.006) << position;
    }
  }
}

TEST(MpvClock, ChangesToTheSoundWhenItBegins) {
  MpvClock clock;
  clock.SetFrameDuration(0.04);
  clock.Run(kStart);
  for (int i = 0; i < 200; ++i) {
    const double position = i * 0.005;
    const bool sound = position > 0.5;
    Feed(clock, kStart + position, sound ? std::optional(position) : std::nullopt, FrameAt(position, 0.04));
    EXPECT_NEAR(clock.Position(kStart + position), position, 0.004) << position;
  }
}

TEST(MpvClock, BridgesALongTimeWithoutSamplesButNotForEver) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 20; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  EXPECT_NEAR(clock.Position(kStart + 0.4), 0.4, 0.001);
  EXPECT_LT(clock.Position(kStart + 60), 1.0);
}

TEST(MpvClock, TakesAJumpOfTheSoundOnlyWhenSeveralSamplesAgree) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 20; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  Feed(clock, kStart + 0.1, 0.6, {});
  EXPECT_NEAR(clock.Position(kStart + 0.1), 0.1, 0.001);
  for (int i = 21; i < 30; ++i) Feed(clock, kStart + i * 0.005, 0.5 + i * 0.005, {});
  EXPECT_NEAR(clock.Position(kStart + 0.145), 0.645, 0.001);
}

TEST(MpvClock, IsCorrectedOnceByThePausedPlayer) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 20; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  clock.Pause(kStart + 0.097);
  EXPECT_NEAR(clock.Position(kStart + 3), 0.097, 0.001);
  clock.Add(clock.Epoch(), {.time = kStart + 0.1, .audio = 0.0985, .picture = 0.08, .paused = false});
  EXPECT_NEAR(clock.Position(kStart + 3), 0.097, 0.001);
  clock.Add(clock.Epoch(), {.time = kStart + 0.1, .audio = 0.0985, .picture = 0.08, .paused = true});
  EXPECT_DOUBLE_EQ(clock.Position(kStart + 3), 0.0985);
  EXPECT_FALSE(clock.WantsSamples());
}

TEST(MpvClock, DropsASampleReadAcrossASeek) {
  MpvClock clock;
  clock.Run(kStart);
  const std::uint64_t before = clock.Epoch();
  clock.Hold(5, kStart);
  clock.Run(kStart);
  clock.Add(before, {.time = kStart, .audio = 80.0, .picture = 80.0});
  clock.Add(before, {.time = kStart + 0.005, .audio = 80.005, .picture = 80.0});
  EXPECT_DOUBLE_EQ(clock.Position(kStart + 0.01), 5);
}

TEST(MpvClock, TellsWhereTheFilmWasAtAnInstantThatIsPast) {
  MpvClock clock;
  clock.Hold(2, kStart - 1);
  clock.Run(kStart);
  for (int i = 0; i < 100; ++i) Feed(clock, kStart + i * 0.005, 2 + i * 0.005, {});
  clock.Pause(kStart + 0.5);
  EXPECT_NEAR(clock.PositionAt(kStart + 0.2532), 2.2532, 0.0005);
  EXPECT_NEAR(clock.PositionAt(kStart + 0.4981), 2.4981, 0.0005);
  EXPECT_NEAR(clock.PositionAt(kStart + 0.7), 2.5, 0.0005);
  EXPECT_DOUBLE_EQ(clock.PositionAt(kStart - 0.5), 2);

  // A seek since then changes nothing of it, and lies between the two instants.
  clock.Run(kStart + 1);
  clock.Hold(60, kStart + 1.1);
  EXPECT_NEAR(clock.PositionAt(kStart + 0.2532), 2.2532, 0.0005);
  EXPECT_NEAR(clock.PositionAt(kStart + 1.0999), 2.5, 0.0005);
  EXPECT_DOUBLE_EQ(clock.PositionAt(kStart + 1.1001), 60);
}

TEST(MpvClock, TellsOfAnInstantThatTheSamplesHaveNotReached) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 100; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  EXPECT_NEAR(clock.PositionAt(kStart + 0.4982), 0.4982, 0.0005);
  EXPECT_NEAR(clock.Position(kStart + 0.52), 0.52, 0.0005);
  EXPECT_NEAR(clock.PositionAt(kStart + 0.51), 0.51, 0.0005);
}

TEST(MpvClock, PutsTheCorrectionOfAPauseIntoItsHistory) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 20; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  clock.Pause(kStart + 0.097);
  clock.Add(clock.Epoch(), {.time = kStart + 0.12, .audio = 0.0985, .picture = 0.08, .paused = true});
  EXPECT_DOUBLE_EQ(clock.PositionAt(kStart + 0.11), 0.0985);
  EXPECT_DOUBLE_EQ(clock.PositionAt(kStart + 3), 0.0985);
}

TEST(MpvClock, FollowsAFilmThatPlaysSlowerOrFaster) {
  for (const double speed : {0.25, 0.5, 2.0, 4.0}) {
    for (const bool sound : {true, false}) {
      MpvClock clock;
      clock.SetSpeed(speed, kStart);
      clock.Run(kStart);
      for (int i = 0; i < 400; ++i) {
        const double time = i * 0.005;
        const double frame = FrameAt(time * speed, 0.04);
        Feed(clock, kStart + time, sound ? std::optional(time * speed) : std::nullopt, frame);
        if (i < 100) continue;
        EXPECT_NEAR(clock.Position(kStart + time + 0.0031), (time + 0.0031) * speed, sound ? 0.001 : 0.004 * speed)
            << speed << (sound ? " sound" : " picture");
      }
      EXPECT_NEAR(clock.PositionAt(kStart + 1.5), 1.5 * speed, sound ? 0.001 : 0.004 * speed) << speed;
    }
  }
}

TEST(MpvClock, ASpeedThatChangesMovesNothingThatWas) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i <= 200; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  clock.SetSpeed(0.5, kStart + 1);
  EXPECT_NEAR(clock.Position(kStart + 1), 1, 0.001);
  EXPECT_NEAR(clock.Position(kStart + 1.04), 1.02, 0.001);
  for (int i = 1; i <= 200; ++i) Feed(clock, kStart + 1 + i * 0.005, 1 + i * 0.0025, {});
  EXPECT_NEAR(clock.Position(kStart + 2.002), 1.501, 0.001);
  EXPECT_NEAR(clock.PositionAt(kStart + 0.5), 0.5, 0.001);
  EXPECT_NEAR(clock.PositionAt(kStart + 1.5), 1.25, 0.001);
}

TEST(MpvClock, ForgetsWhatIsLongPast) {
  MpvClock clock;
  clock.Run(kStart);
  for (int i = 0; i < 4000; ++i) Feed(clock, kStart + i * 0.005, i * 0.005, {});
  EXPECT_NEAR(clock.PositionAt(kStart + 10.5), 10.5, 0.001);
  EXPECT_NEAR(clock.PositionAt(kStart + 3), 9.995, 0.01);
}

}  // namespace
}  // namespace cuewright
