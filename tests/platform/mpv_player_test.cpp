#include "platform/mpv_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <clocale>
#include <cmath>
#include <filesystem>
#include <optional>
#include <thread>

#include "core/runtime_error.h"
#include "platform/mpv_library.h"
#include "tests/support/media_files.h"
#include "tests/support/task_queue.h"

namespace cuewright {
namespace {

using test::Media;
using testing::AnyOf;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

class MpvPlayerTest : public testing::Test {
 protected:
  MpvPlayerTest() { Start(); }

  void Start(MpvPlayerOptions options = {}) {
    options.extra.emplace_back("ao", "null");
    player.reset();
    player = std::make_unique<MpvPlayer>(library, queue.Poster(), options);
    player->PlayStateChange.Connect([this](int state) { states.push_back(state); });
    player->PositionChange.Connect([this](double before, double after) { moves.emplace_back(before, after); });
    player->MediaError.Connect([this](const Text& text) { errors.push_back(ToUtf8(text)); });
    player->FrameReady.Connect([this] { ++frames; });
  }

  void Open(const std::string& path) { player->SetUrl(FromUtf8(path)); }

  bool WaitForState(int state) {
    return queue.RunUntil([&] { return player->PlayState() == state; });
  }
  bool WaitForPosition(double seconds) {
    return queue.RunUntil([&] { return player->CurrentPosition() >= seconds; });
  }
  bool WaitForMove(std::size_t count = 1) {
    return queue.RunUntil([&] { return moves.size() >= count; });
  }
  bool WaitForError() {
    return queue.RunUntil([&] { return !errors.empty(); });
  }
  void LetPass(double seconds) {
    const double end = Now() + seconds;
    queue.RunUntil([&] { return Now() >= end; });
  }

  /// Plays for a while, and gives the largest difference between what the clock and what the time went on by.
  double WorstStep(double seconds) {
    const double firstTime = Now();
    const double firstPosition = player->CurrentPosition();
    double worst = 0;
    double last = firstPosition;
    while (Now() - firstTime < seconds) {
      queue.RunUntil([&, due = Now() + 0.002] { return Now() >= due; });
      const double time = Now();
      const double position = player->CurrentPosition();
      EXPECT_GE(position, last) << "backward at " << position;
      last = position;
      worst = std::max(worst, std::abs((position - firstPosition) - (time - firstTime)));
    }
    RecordProperty("worst_ms", static_cast<int>(std::lround(worst * 1000)));
    return worst;
  }

  MpvLibrary library;
  test::TaskQueue queue;
  std::unique_ptr<MpvPlayer> player;
  std::vector<int> states;
  std::vector<std::pair<double, double>> moves;
  std::vector<std::string> errors;
  int frames = 0;
};

TEST(MpvLibrary, IsLoadedAtRunTime) {
  const MpvLibrary library;
  EXPECT_TRUE(library.Available()) << ToUtf8(library.Error());
  EXPECT_EQ(ToUtf8(library.FileName()), "libmpv.so.2");
}

TEST(MpvLibrary, ThatIsMissingIsToldByItsFileName) {
  const MpvLibrary library("libmpv-that-is-not-there.so.2");
  EXPECT_FALSE(library.Available());
  EXPECT_EQ(ToUtf8(library.FileName()), "libmpv-that-is-not-there.so.2");
  EXPECT_FALSE(library.Error().empty());
}

TEST(MpvLibrary, WithoutTheFunctionsOfAPlayerCountsAsMissing) {
  const MpvLibrary library("libc.so.6");
  EXPECT_FALSE(library.Available());
  EXPECT_THAT(ToUtf8(library.Error()), HasSubstr("mpv_"));
}

TEST(MpvLibrary, ThatTheSystemHasIsLoadedOnlyWhenUsed) {
  const MpvLibrary library(MpvLibrary::DefaultFileName(), MpvLibrary::Load::WhenUsed);
  EXPECT_TRUE(library.Available());
  EXPECT_NE(library.Api().create, nullptr);
  EXPECT_TRUE(library.Available()) << ToUtf8(library.Error());
}

TEST(MpvLibrary, ThatTheSystemLacksIsKnownToBeMissingAtOnce) {
  for (const char* name : {"libmpv-that-is-not-there.so.2", "libc.so.6"}) {
    const MpvLibrary library(name, MpvLibrary::Load::WhenUsed);
    EXPECT_FALSE(library.Available()) << name;
  }
}

TEST(MpvPlayerWithoutLibrary, GoesOnWithoutVideoAndFailsOnlyToOpen) {
  const MpvLibrary library("libmpv-that-is-not-there.so.2");
  test::TaskQueue queue;
  MpvPlayer player(library, queue.Poster());
  player.SetVolume(20);
  player.SetUiMode(u"mini");
  player.SetStretchToFit(false);
  player.Play();
  player.Stop();
  player.SetCurrentPosition(3);
  player.SetUrl(u"");
  player.Close();
  EXPECT_EQ(player.PlayState(), 0);
  EXPECT_EQ(player.CurrentPosition(), 0);
  try {
    player.SetUrl(u"/film.mkv");
    FAIL() << "opened";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 429);
  }
}

TEST_F(MpvPlayerTest, OpensAndPlaysByItself) {
  EXPECT_EQ(player->PlayState(), 0);
  Open(Media().Film(4));
  EXPECT_EQ(player->PlayState(), kPlayerTransitional);
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  ASSERT_TRUE(WaitForPosition(0.3));
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying));
  EXPECT_NEAR(player->Duration(), 4, 0.1);
  EXPECT_THAT(moves, IsEmpty());
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MpvPlayerTest, StopGoesToTheStartAndStaysThere) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.3));
  player->Stop();
  EXPECT_EQ(player->PlayState(), kPlayerStopped);
  EXPECT_EQ(player->CurrentPosition(), 0);
  LetPass(0.3);
  EXPECT_EQ(player->PlayState(), kPlayerStopped);
  EXPECT_EQ(player->CurrentPosition(), 0);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying, kPlayerStopped));
  player->Play();
  ASSERT_TRUE(WaitForPosition(0.01));
  EXPECT_LT(player->CurrentPosition(), 0.2);
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
}

TEST_F(MpvPlayerTest, TheEndOfTheFilmIsAStop) {
  Open(Media().Film(2));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  double furthest = 0;
  ASSERT_TRUE(queue.RunUntil([&] {
    furthest = std::max(furthest, player->CurrentPosition());
    return player->PlayState() == kPlayerStopped;
  }));
  EXPECT_NEAR(furthest, 2, 0.1);
  EXPECT_EQ(player->CurrentPosition(), 0);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying, kPlayerStopped));
  player->Play();
  ASSERT_TRUE(WaitForPosition(0.2));
  EXPECT_LT(player->CurrentPosition(), 0.5);
}

TEST_F(MpvPlayerTest, PauseStandsAndPlayGoesOnFromThere) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.5));
  player->Pause();
  EXPECT_EQ(player->PlayState(), kPlayerPaused);
  LetPass(0.1);
  const double paused = player->CurrentPosition();
  EXPECT_NEAR(paused, 0.5, 0.1);
  LetPass(0.3);
  EXPECT_EQ(player->CurrentPosition(), paused);
  player->Play();
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
  ASSERT_TRUE(WaitForPosition(paused + 0.001));
  EXPECT_LT(player->CurrentPosition(), paused + 0.1);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying, kPlayerPaused, kPlayerPlaying));
}

TEST_F(MpvPlayerTest, PauseOfAStoppedFilmDoesNothing) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  player->Stop();
  player->Pause();
  EXPECT_EQ(player->PlayState(), kPlayerStopped);
}

TEST_F(MpvPlayerTest, ASeekWhilePlayingIsReadableAtOnceAndAnnouncedWhenItHasLanded) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.3));
  player->SetCurrentPosition(2.5);
  EXPECT_DOUBLE_EQ(player->CurrentPosition(), 2.5);
  EXPECT_THAT(moves, IsEmpty());
  ASSERT_TRUE(WaitForMove());
  EXPECT_NEAR(moves[0].first, 0.3, 0.1);
  EXPECT_DOUBLE_EQ(moves[0].second, 2.5);
  ASSERT_TRUE(WaitForPosition(2.7));
  EXPECT_LT(player->CurrentPosition(), 2.9);
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying));
}

TEST_F(MpvPlayerTest, ASeekWhilePausedShowsTheRequestedPositionAndPlaysFromThere) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.3));
  player->Pause();
  player->SetCurrentPosition(1.234);
  ASSERT_TRUE(WaitForMove());
  LetPass(0.2);
  EXPECT_DOUBLE_EQ(player->CurrentPosition(), 1.234);
  EXPECT_EQ(player->PlayState(), kPlayerPaused);
  player->Play();
  ASSERT_TRUE(WaitForPosition(1.3));
  EXPECT_LT(player->CurrentPosition(), 1.45);
}

TEST_F(MpvPlayerTest, OfManySeeksTheLastOneCounts) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.1));
  for (int i = 0; i < 20; ++i) player->SetCurrentPosition(0.5 + i * 0.1);
  EXPECT_DOUBLE_EQ(player->CurrentPosition(), 2.4);
  ASSERT_TRUE(WaitForMove());
  EXPECT_DOUBLE_EQ(moves.back().second, 2.4);
  ASSERT_TRUE(WaitForPosition(2.6));
  EXPECT_LT(player->CurrentPosition(), 2.8);
  EXPECT_EQ(moves.size(), 1U);
}

TEST_F(MpvPlayerTest, ASeekBeforeTheStartGoesToTheStart) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.4));
  player->SetCurrentPosition(-3);
  EXPECT_EQ(player->CurrentPosition(), 0);
  ASSERT_TRUE(WaitForMove());
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
}

TEST_F(MpvPlayerTest, ASeekPastTheEndWhilePlayingEndsTheFilm) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.2));
  player->SetCurrentPosition(99);
  EXPECT_LE(player->CurrentPosition(), 4.1);
  ASSERT_TRUE(WaitForState(kPlayerStopped));
  EXPECT_EQ(player->CurrentPosition(), 0);
  player->Play();
  ASSERT_TRUE(WaitForPosition(0.2));
  EXPECT_LT(player->CurrentPosition(), 0.5);
}

TEST_F(MpvPlayerTest, ASeekPastTheEndWhilePausedStaysPaused) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.2));
  player->Pause();
  player->SetCurrentPosition(99);
  ASSERT_TRUE(WaitForMove());
  LetPass(0.2);
  EXPECT_EQ(player->PlayState(), kPlayerPaused);
  EXPECT_NEAR(player->CurrentPosition(), 4, 0.1);
  player->SetCurrentPosition(1);
  ASSERT_TRUE(WaitForMove(2));
  player->Play();
  ASSERT_TRUE(WaitForPosition(1.2));
  EXPECT_EQ(player->PlayState(), kPlayerPlaying);
}

TEST_F(MpvPlayerTest, TellsTheSoundTracksAndHearsTheOneThatIsChosen) {
  const std::string film =
      Media().Make("two_tracks.mkv",
                   "-f lavfi -i color=red:s=64x36:r=25:d=3 -f lavfi -i sine=440:d=3 -f lavfi -i sine=880:d=3 "
                   "-map 0 -map 1 -map 2 -metadata:s:a:0 language=fre -metadata:s:a:1 title=Remarks ");
  Open(film);
  ASSERT_TRUE(WaitForPosition(0.1));
  const std::vector<SoundTrack> tracks = player->SoundTracks();
  EXPECT_EQ(tracks, (std::vector<SoundTrack>{{1, u"fre"}, {2, u"Remarks"}}));
  EXPECT_TRUE(queue.RunUntil([&] { return player->AudioTrack() == 1; }));
  player->SetAudioTrack(2);
  EXPECT_TRUE(queue.RunUntil([&] { return player->AudioTrack() == 2; }));
  // The next film begins with its first one.
  Open(Media().Film(3));
  EXPECT_TRUE(player->SoundTracks().empty());
  EXPECT_TRUE(queue.RunUntil([&] { return player->SoundTracks().size() == 1; }));
  Open(film);
  EXPECT_TRUE(queue.RunUntil([&] { return player->AudioTrack() == 1; }));
}

TEST_F(MpvPlayerTest, AFilmPlaysOnWhenTheGraphicsCardIsToDecodeIt) {
  player->SetHardwareDecoding(true);
  Open(Media().Film(3));
  EXPECT_TRUE(WaitForPosition(0.3));
  player->SetHardwareDecoding(false);
  EXPECT_TRUE(WaitForPosition(0.8));
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MpvPlayerTest, PlayAtTheEndBeginsAnew) {
  Open(Media().Film(2));
  ASSERT_TRUE(WaitForPosition(0.2));
  player->Pause();
  player->SetCurrentPosition(99);
  ASSERT_TRUE(WaitForMove());
  LetPass(0.2);
  player->Play();
  ASSERT_TRUE(queue.RunUntil([&] { return player->CurrentPosition() < 0.5; }));
  ASSERT_TRUE(WaitForPosition(0.3));
  EXPECT_LT(player->CurrentPosition(), 0.6);
}

TEST_F(MpvPlayerTest, ASeekWhileStoppedMovesAndPlayGoesOnFromThere) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.2));
  player->Stop();
  player->SetCurrentPosition(2);
  ASSERT_TRUE(WaitForMove());
  EXPECT_EQ(player->PlayState(), kPlayerStopped);
  EXPECT_DOUBLE_EQ(player->CurrentPosition(), 2);
  player->Play();
  ASSERT_TRUE(WaitForPosition(2.1));
  EXPECT_LT(player->CurrentPosition(), 2.4);
}

TEST_F(MpvPlayerTest, StopWhileLoadingStopsAtTheStart) {
  Open(Media().Film(4));
  player->Stop();
  EXPECT_EQ(player->PlayState(), kPlayerStopped);
  ASSERT_TRUE(queue.RunUntil([&] { return player->Duration() > 0; }));
  LetPass(0.3);
  EXPECT_EQ(player->CurrentPosition(), 0);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerStopped));
  player->Play();
  ASSERT_TRUE(WaitForPosition(0.2));
  EXPECT_LT(player->CurrentPosition(), 0.5);
}

TEST_F(MpvPlayerTest, ASeekWhileLoadingIsDoneWhenTheFileIsOpen) {
  Open(Media().Film(4));
  player->SetCurrentPosition(2);
  EXPECT_DOUBLE_EQ(player->CurrentPosition(), 2);
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  EXPECT_GE(player->CurrentPosition(), 2);
  ASSERT_TRUE(WaitForPosition(2.2));
  EXPECT_LT(player->CurrentPosition(), 2.5);
}

TEST_F(MpvPlayerTest, ASecondFilmReplacesTheFirst) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(1));
  Open(Media().Film(2));
  EXPECT_EQ(player->CurrentPosition(), 0);
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  EXPECT_LT(player->CurrentPosition(), 0.5);
  ASSERT_TRUE(queue.RunUntil([&] { return std::abs(player->Duration() - 2) < 0.2; }));
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying, kPlayerTransitional, kPlayerPlaying));
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MpvPlayerTest, ManyFilmsInARowEndWithTheLast) {
  for (int i = 0; i < 10; ++i) Open(i % 2 ? Media().Film(2) : Media().Film(4));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  ASSERT_TRUE(WaitForPosition(0.2));
  EXPECT_NEAR(player->Duration(), 2, 0.1);
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MpvPlayerTest, AFilmOpenedAgainHasItsLengthAgain) {
  const std::string film = Media().Film(2);
  for (int i = 0; i < 8; ++i) {
    Open(film);
    ASSERT_TRUE(queue.RunUntil([&] { return std::abs(player->Duration() - 2) < 0.1; })) << i;
    ASSERT_TRUE(WaitForState(kPlayerPlaying));
    if (i % 2 == 1) player->Close();
  }
}

TEST_F(MpvPlayerTest, AFilmOfOneFrameEnds) {
  const std::string films[] = {
      Media().Make("one_frame.mp4", "-f lavfi -i color=c=red:size=64x48:rate=25 -frames:v 1 -pix_fmt yuv420p "),
      Media().Make("one_frame.mkv", "-f lavfi -i color=c=red:size=64x48:rate=25 -frames:v 1 -pix_fmt yuv420p "),
      Media().Make("one_frame.avi", "-f lavfi -i color=c=red:size=64x48:rate=25 -frames:v 1 -c:v mpeg4 "),
      Media().Make("one_frame.png", "-f lavfi -i color=c=red:size=64x48:rate=25 -frames:v 1 "),
      Media().Make("two_frames.mp4", "-f lavfi -i color=c=red:size=64x48:rate=25 -frames:v 2 -pix_fmt yuv420p "),
  };
  for (const std::string& film : films) {
    SCOPED_TRACE(film);
    states.clear();
    Open(film);
    ASSERT_TRUE(queue.RunUntil([&] { return player->PlayState() == kPlayerStopped && !states.empty(); }));
    EXPECT_THAT(errors, IsEmpty());
    states.clear();
    player->Play();
    ASSERT_TRUE(queue.RunUntil([&] { return states.size() == 2; }));
    LetPass(0.3);
    EXPECT_THAT(states, ElementsAre(kPlayerPlaying, kPlayerStopped));
    player->Close();
  }
}

TEST_F(MpvPlayerTest, TheClockRunsOnUnderPicturesThatStayForLong) {
  // The picture is 25 times a second by the container, but most of them are left out.
  Open(Media().Make("slides.mkv",
                    "-f lavfi -i testsrc=size=64x48:rate=25:duration=6 -vf select='not(mod(n\\,25))' "
                    "-vsync vfr -pix_fmt yuv420p -c:v libx264 "));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  ASSERT_TRUE(WaitForPosition(1.1));
  EXPECT_LT(WorstStep(2.5), 0.025);
}

TEST_F(MpvPlayerTest, TheEmptyUrlUnloads) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.3));
  player->SetUrl(u"");
  EXPECT_EQ(player->PlayState(), 0);
  EXPECT_EQ(player->CurrentPosition(), 0);
  EXPECT_EQ(player->Duration(), 0);
  LetPass(0.3);
  player->Play();
  player->SetCurrentPosition(1);
  EXPECT_EQ(player->PlayState(), 0);
  EXPECT_EQ(player->CurrentPosition(), 0);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, kPlayerPlaying, 0));
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(MpvPlayerTest, MayEndAtAnyMoment) {
  for (const double seconds : {0.0, 0.005, 0.03, 0.1}) {
    Start();
    Open(Media().Film(4));
    LetPass(seconds);
    player->SetCurrentPosition(1);
    player.reset();
    EXPECT_THAT(errors, IsEmpty()) << seconds;
  }
}

// At 5 frames a second a clock that steps by frames would be off by up to 200 ms.
constexpr int kSlowFrames = 5;
constexpr double kSmooth = 0.08;

TEST_F(MpvPlayerTest, TheClockIsSmoothAndKeepsTheRealTime) {
  Open(Media().Film(4, kSlowFrames));
  ASSERT_TRUE(WaitForPosition(0.4));
  EXPECT_LT(WorstStep(2), kSmooth);
}

TEST_F(MpvPlayerTest, TheClockIsSmoothWithoutSound) {
  Open(Media().SilentFilm(4, kSlowFrames));
  ASSERT_TRUE(WaitForPosition(0.4));
  EXPECT_LT(WorstStep(2), kSmooth);
}

TEST_F(MpvPlayerTest, TheClockIsSmoothWhereTheContainerTellsItsTicksAsTheFrameRate) {
  Open(Media().Make("ticks.asf",
                    "-f lavfi -i testsrc=size=64x48:rate=5:duration=4 -pix_fmt yuv420p -c:v wmv2 -g 5 -f asf "));
  ASSERT_TRUE(WaitForPosition(0.4));
  EXPECT_LT(WorstStep(2), kSmooth);
}

TEST_F(MpvPlayerTest, TheClockIsSmoothWithoutPicture) {
  Open(Media().Sound(4));
  ASSERT_TRUE(WaitForPosition(0.4));
  EXPECT_LT(WorstStep(2), kSmooth);
}

TEST_F(MpvPlayerTest, TheClockIsSmoothWhereTheSoundEndsBeforeThePicture) {
  Open(Media().FilmWithSound(4, 0, 1.5));
  ASSERT_TRUE(WaitForPosition(0.4));
  EXPECT_LT(WorstStep(3), kSmooth);
}

TEST_F(MpvPlayerTest, TheClockIsSmoothWhereTheSoundBeginsAfterThePicture) {
  Open(Media().FilmWithSound(4, 1.5, 2));
  ASSERT_TRUE(WaitForPosition(1.0));
  EXPECT_LT(WorstStep(1.5), kSmooth);
}

TEST_F(MpvPlayerTest, SoundAlonePlaysToItsEnd) {
  Open(Media().Sound(2));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  double furthest = 0;
  ASSERT_TRUE(queue.RunUntil([&] {
    furthest = std::max(furthest, player->CurrentPosition());
    return player->PlayState() == kPlayerStopped;
  }));
  EXPECT_NEAR(furthest, 2, 0.25);
}

TEST_F(MpvPlayerTest, PicturesOfTheAskedSizeComeWhilePlaying) {
  player->SetSurfaceSize(160, 90);
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(WaitForPosition(0.5));
  ASSERT_TRUE(queue.RunUntil([&] { return frames >= 5; }));
  const VideoFrame frame = player->TakeFrame();
  ASSERT_NE(frame.pixels, nullptr);
  EXPECT_EQ(frame.width, 160);
  EXPECT_EQ(frame.height, 90);
  const std::uint8_t* middle = frame.pixels + 45 * frame.stride + std::size_t{80} * 4;
  EXPECT_LT(middle[0], 30);   // blue
  EXPECT_LT(middle[1], 30);   // green
  EXPECT_GT(middle[2], 200);  // red
}

TEST_F(MpvPlayerTest, ThePausedPictureFollowsTheSurface) {
  player->SetSurfaceSize(160, 90);
  Open(Media().Film(4, 25, "red"));
  ASSERT_TRUE(WaitForPosition(0.3));
  player->Pause();
  player->SetSurfaceSize(320, 240);
  VideoFrame frame;
  ASSERT_TRUE(queue.RunUntil([&] {
    frame = player->TakeFrame();
    return frame.width == 320;
  }));
  const auto redAt = [&](int x, int y) {
    return frame.pixels[static_cast<std::size_t>(y) * frame.stride + static_cast<std::size_t>(x) * 4 + 2];
  };
  EXPECT_GT(redAt(160, 120), 200);
  EXPECT_LT(redAt(160, 5), 20) << "16:9 in 4:3 has bars above and below";
  player->SetStretchToFit(false);
  player->SetSurfaceSize(640, 480);
  ASSERT_TRUE(queue.RunUntil([&] {
    frame = player->TakeFrame();
    return frame.width == 640 && redAt(100, 240) < 20 && redAt(320, 240) > 200;
  })) << "the picture keeps its 320 by 180 points in the middle";
}

TEST_F(MpvPlayerTest, PositionAsTextAgreesWithTheNumberJustRead) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(1.2));
  for (int i = 0; i < 500; ++i) {
    const long long ms = std::llround(player->CurrentPosition() * 1000);
    ASSERT_EQ(ToUtf8(player->CurrentPositionString()), "00:0" + std::to_string(ms / 1000));
  }
}

TEST_F(MpvPlayerTest, VolumeAndMuteAreKeptAndAnnounced) {
  int changes = 0;
  player->ControlsChange.Connect([&] { ++changes; });
  player->SetVolume(130);
  EXPECT_EQ(player->Volume(), 100);
  player->SetVolume(-1);
  EXPECT_EQ(player->Volume(), 0);
  player->SetMuted(true);
  EXPECT_TRUE(player->Muted());
  EXPECT_EQ(changes, 3);
}

struct BadFile {
  const char* name;
  std::function<std::string()> make;
};

class MpvPlayerBadFile : public MpvPlayerTest, public testing::WithParamInterface<int> {};

std::vector<BadFile> BadFiles() {
  return {
      {"missing", [] { return (Media().Folder() / "missing.mkv").string(); }},
      {"folder", [] { return Media().Folder().string(); }},
      {"device", [] { return std::string("/dev/null"); }},
      {"empty", [] { return Media().File("empty.mkv", ""); }},
      {"text", [] { return Media().File("text.txt", "Not a film.\nBut two lines.\n"); }},
      {"subtitle", [] { return Media().File("sub.srt", "1\n00:00:01,000 --> 00:00:02,000\nHello\n"); }},
      {"playlist", [] { return Media().File("list.m3u", "#EXTM3U\n" + Media().Film(2) + "\n"); }},
      {"noise",
       [] {
         std::string bytes(200'000, '\0');
         std::uint32_t random = 12345;
         for (char& byte : bytes) byte = static_cast<char>((random = random * 1664525 + 1013904223) >> 24);
         return Media().File("noise.bin", bytes);
       }},
      {"zeros",
       [] {
         const std::string path = Media().File("zeros.mkv", "");
         std::filesystem::resize_file(path, 1'000'000'000);  // takes no room: a hole
         return path;
       }},
  };
}

TEST_P(MpvPlayerBadFile, IsToldInWordsAndLeavesNothingOpen) {
  const BadFile file = BadFiles()[static_cast<std::size_t>(GetParam())];
  Open(file.make());
  ASSERT_TRUE(WaitForError());
  EXPECT_THAT(errors, ElementsAre(Not(IsEmpty())));
  EXPECT_EQ(player->PlayState(), 0);
  EXPECT_THAT(states, ElementsAre(kPlayerTransitional, 0));
  // And the player is as good as before.
  Open(Media().Film(2));
  ASSERT_TRUE(WaitForState(kPlayerPlaying));
  EXPECT_EQ(errors.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(All, MpvPlayerBadFile, testing::Range(0, static_cast<int>(BadFiles().size())),
                         [](const auto& row) { return BadFiles()[static_cast<std::size_t>(row.param)].name; });

TEST_F(MpvPlayerTest, ABadFileEndsTheFilmThatPlays) {
  Open(Media().Film(4));
  ASSERT_TRUE(WaitForPosition(0.2));
  Open(Media().File("text.txt", "Not a film.\n"));
  ASSERT_TRUE(WaitForError());
  EXPECT_EQ(player->PlayState(), 0);
  LetPass(0.2);
  EXPECT_EQ(player->CurrentPosition(), 0);
}

class MpvPlayerFileName : public MpvPlayerTest, public testing::WithParamInterface<const char*> {};

TEST_P(MpvPlayerFileName, IsOpenedAsAFileWhateverItLooksLike) {
  const std::filesystem::path path = Media().Folder() / GetParam();
  std::filesystem::create_directories(path.parent_path());
  std::filesystem::copy_file(Media().Film(2), path, std::filesystem::copy_options::overwrite_existing);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(Media().Folder());
  Open(GetParam());
  std::filesystem::current_path(before);
  EXPECT_TRUE(WaitForState(kPlayerPlaying));
  EXPECT_THAT(errors, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, MpvPlayerFileName,
                         testing::Values("-leading-dash.mkv", "--pause", "http:/looks-like-an-address.mkv",
                                         "av://lavfi", "blank and 'quotes' \"two\" $(x) %1.mkv", "\xff\xfe no utf8.mkv",
                                         "caf\xc3\xa9 \xe6\x98\xa0\xe7\x94\xbb.mkv", "~", "line\nbreak.mkv"));

TEST_F(MpvPlayerTest, AFileThatGoesWhilePlayingPlaysOnOrEnds) {
  const std::filesystem::path copy = Media().Folder() / "goes.mkv";
  std::filesystem::copy_file(Media().Film(2), copy, std::filesystem::copy_options::overwrite_existing);
  Open(copy.string());
  ASSERT_TRUE(WaitForPosition(0.3));
  std::filesystem::remove(copy);
  EXPECT_TRUE(WaitForState(kPlayerStopped));
}

TEST_F(MpvPlayerTest, AFileThatIsCutWhilePlayingEnds) {
  const std::filesystem::path copy = Media().Folder() / "cut.mkv";
  std::filesystem::copy_file(Media().Film(6), copy, std::filesystem::copy_options::overwrite_existing);
  Open(copy.string());
  ASSERT_TRUE(WaitForPosition(0.2));
  std::filesystem::resize_file(copy, 1000);
  player->SetCurrentPosition(5);
  EXPECT_TRUE(queue.RunUntil([&] { return player->PlayState() == kPlayerStopped || player->PlayState() == 0; }));
}

TEST(MpvPlayerLocale, StartsWhereNumbersAreWrittenWithAComma) {
  // Any locale will do whose name isn't "C"; where only that one is installed, the guard has nothing to do.
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "");
  if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) std::setlocale(LC_NUMERIC, "C.UTF-8");
  const MpvLibrary library;
  test::TaskQueue queue;
  MpvPlayerOptions options;
  options.extra.emplace_back("ao", "null");
  MpvPlayer player(library, queue.Poster(), options);
  player.SetUrl(FromUtf8(Media().Film(2)));
  EXPECT_TRUE(queue.RunUntil([&] { return player.PlayState() == kPlayerPlaying; }));
  std::setlocale(LC_ALL, before.c_str());
}

TEST(MpvPlayerOptions, OfTheEnvironmentAreNameAndValue) {
  setenv("CUEWRIGHT_MPV_OPTIONS", " ao=null  input-ipc-server=/tmp/x=y junk ", 1);
  const MpvPlayerOptions options = MpvPlayerOptions::FromEnvironment();
  unsetenv("CUEWRIGHT_MPV_OPTIONS");
  EXPECT_THAT(options.extra, ElementsAre(std::pair<std::string, std::string>("ao", "null"),
                                         std::pair<std::string, std::string>("input-ipc-server", "/tmp/x=y")));
}

}  // namespace
}  // namespace cuewright
