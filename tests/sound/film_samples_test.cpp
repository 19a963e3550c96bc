#include "sound/film_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "core/process_output.h"
#include "platform/child_processes.h"
#include "tests/support/media_files.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

struct FilmSamplesTest : ::testing::Test {
  SoundReading Read(const std::string& film, int track = -1) {
    return Read(film, track, FactsOf(processes, FromUtf8(film), track));
  }
  SoundReading Read(const std::string& film, int track, const TrackFacts& facts) {
    samples.clear();
    return ReadSamples(
        processes, FromUtf8(film), track, facts,
        [this](std::span<const std::int16_t> more) { samples.insert(samples.end(), more.begin(), more.end()); },
        [this](double seconds) {
          told = seconds;
          return goOn;
        });
  }
  /// The loudest sample of a stretch, in seconds.
  int Loudest(double from, double to) const {
    int loudest = 0;
    for (auto i = static_cast<std::size_t>(from * kSamplesASecond); i < static_cast<std::size_t>(to * kSamplesASecond);
         ++i) {
      loudest = std::max(loudest, std::abs(int{samples.at(i)}));
    }
    return loudest;
  }

  PosixProcesses processes;
  std::vector<std::int16_t> samples;
  double told = -1;
  bool goOn = true;
};

TEST_F(FilmSamplesTest, BeginWhereTheFilmBegins) {
  const SoundReading reading = Read(test::Media().FilmWithSound(4, 1.5, 2));
  EXPECT_EQ(reading.problem, "");
  EXPECT_FALSE(reading.cancelled);
  EXPECT_NEAR(static_cast<double>(samples.size()) / kSamplesASecond, 3.5, 0.1);
  EXPECT_NEAR(told, static_cast<double>(samples.size()) / kSamplesASecond, 1e-9);
  EXPECT_LT(Loudest(0, 1.45), 200);
  EXPECT_GT(Loudest(1.55, 1.65), 500);
}

TEST_F(FilmSamplesTest, KeepTheirPlaceBesideThePictureInEveryContainer) {
  // An encoder puts silence before the sound. A container either tells to skip it, or moves the picture by as much.
  struct Kind {
    const char* name;
    const char* codec;
  };
  for (const Kind& kind :
       {Kind{"aac.mp4", "aac"}, Kind{"aac.mkv", "aac"}, Kind{"aac.ts", "aac"}, Kind{"mp3.mp4", "mp3"},
        Kind{"mp3.mkv", "mp3"}, Kind{"flac.mkv", "flac"}, Kind{"wave.mkv", "pcm_s16le"}}) {
    const std::string film = test::Media().Make(
        kind.name, std::string("-f lavfi -i color=s=64x36:r=25:d=4 -f lavfi -i \"aevalsrc=gte(t\\,2)*sin(2*PI*700*t)/2"
                               ":s=22050:d=4\" -c:v mpeg4 -c:a ") +
                       kind.codec + " ");
    const auto startOf = [&](TextView what) {
      return std::atof(OutputOf(processes, u"ffprobe",
                                {u"-v", u"error", u"-select_streams", u"v:0", u"-show_entries",
                                 Text(what) + u"=start_time", u"-of", u"csv=p=0", FromUtf8(film)})
                           .c_str());
    };
    const double picture = startOf(u"stream") - startOf(u"format");
    EXPECT_EQ(Read(film).problem, "") << kind.name;
    const auto heard = std::ranges::find_if(samples, [](int sample) { return std::abs(sample) > 1500; });
    const auto seconds = static_cast<double>(heard - samples.begin()) / kSamplesASecond;
    EXPECT_NEAR(seconds - picture, 2, 0.006) << kind.name;
  }
}

TEST_F(FilmSamplesTest, HoldTheWholeOfASoundByItself) {
  for (const char* name : {"alone.wav", "alone.flac", "alone.mp3", "alone.mp4"}) {
    const std::string film =
        test::Media().Make(name, "-f lavfi -i \"aevalsrc=gte(t\\,2)*sin(2*PI*700*t)/2:s=22050:d=4\" ");
    EXPECT_EQ(Read(film).problem, "") << name;
    const auto heard = std::ranges::find_if(samples, [](int sample) { return std::abs(sample) > 1500; });
    EXPECT_NEAR(static_cast<double>(heard - samples.begin()) / kSamplesASecond, 2, 0.006) << name;
  }
}

TEST_F(FilmSamplesTest, OfATrueCentreAreTheCentresAlone) {
  // The sides are loud, the centre is still for a second.
  const std::string film = test::Media().Make(
      "centre.mkv",
      "-f lavfi -i \"aevalsrc=sin(2*PI*400*t)/2|sin(2*PI*300*t)/2|gte(t\\,1)*sin(2*PI*500*t)/4|0|0|0:c=5.1:d=2\" "
      "-c:a flac ");
  EXPECT_TRUE(FactsOf(processes, FromUtf8(film), -1).centre);
  EXPECT_EQ(Read(film).problem, "");
  EXPECT_LT(Loudest(0, 0.95), 100);
  EXPECT_NEAR(Loudest(1.1, 1.9), 32767 / 4, 400);
  EXPECT_FALSE(FactsOf(processes, FromUtf8(test::Media().Film(1)), -1).centre);
}

TEST_F(FilmSamplesTest, AreTheSameInAWave) {
  const std::string film = test::Media().Make(
      "centre_and_sides.mkv",
      "-f lavfi -i \"aevalsrc=sin(2*PI*400*t)/2|sin(2*PI*300*t)/2|gte(t\\,1)*sin(2*PI*500*t)/4|0|0|0:c=5.1:d=2\" "
      "-c:a flac ");
  for (const bool centre : {true, false}) {
    const std::string wave = (test::Media().Folder() / (centre ? "centre.wav" : "all.wav")).string();
    const auto child = processes.Start(u"ffmpeg", WaveArguments(FromUtf8(film), -1, {centre}, FromUtf8(wave)));
    while (!child->Ended()) child->Wait(100);
    EXPECT_EQ(child->TakeOutput(), "");
    Read(film, -1, {centre});
    ASSERT_EQ(samples.size(), std::size_t{2 * kSamplesASecond});
    EXPECT_EQ(Loudest(0, 0.95) < 100, centre);
    const std::vector<std::int16_t> read = samples;
    Read(wave);
    EXPECT_EQ(samples, read);
  }
}

TEST_F(FilmSamplesTest, AreTakenFromAllChannelsOnceACentreWasStill) {
  SoundTable still, loud;
  for (SoundTable* table : {&still, &loud}) {
    for (int i = 0; i < 3; ++i) table->Append(SoundTable::Step{10, 40});
  }
  loud.Append(SoundTable::Step{0, 0, 0, 0, 0, 0, 0, 0, 41});
  TrackFacts facts{.centre = true};
  EXPECT_FALSE(CentreWasStill(facts, loud));
  EXPECT_TRUE(facts.centre);
  EXPECT_TRUE(CentreWasStill(facts, still));
  EXPECT_FALSE(facts.centre);
  EXPECT_FALSE(CentreWasStill(facts, still));
}

TEST_F(FilmSamplesTest, NeedNoOtherTrackWhereTheContainerTellsTheStart) {
  const auto taken = [&](const std::string& film, bool ownStart) {
    const auto child = processes.Start(u"ffmpeg", SamplesArguments(FromUtf8(film), -1, {false, ownStart}));
    std::string bytes;
    std::optional<int> status;
    while (!status) {
      child->Wait(100);
      status = child->Ended();
      bytes += child->TakeOutput();
    }
    return bytes;
  };
  const std::string early = "-itsoffset 1.2 -f lavfi -i color=s=64x36:r=25:d=2 -f lavfi -i sine=d=3 ";
  const std::string late = "-f lavfi -i color=s=64x36:r=25:d=3 -itsoffset 0.7 -f lavfi -i sine=d=2 ";
  for (const std::string ending : {"mp4", "mov", "mkv"}) {
    for (const bool first : {true, false}) {
      const std::string film =
          test::Media().Make((first ? "first." : "second.") + ending, (first ? early : late) + "-c:v mpeg4 -c:a aac ");
      EXPECT_TRUE(FactsOf(processes, FromUtf8(film), -1).ownStart) << film;
      const std::string alone = taken(film, true);
      EXPECT_NEAR(static_cast<double>(alone.size()) / 2 / kSamplesASecond, first ? 3 : 2.7, 0.1) << film;
      EXPECT_TRUE(alone == taken(film, false)) << film;
    }
  }
  EXPECT_FALSE(FactsOf(processes, FromUtf8(test::Media().Make("start.ts", late)), -1).ownStart);
}

TEST_F(FilmSamplesTest, OfTwoChannelsAreAsLoudAsEachOfThem) {
  for (const std::string codec : {"pcm_f32le", "pcm_s16le"}) {
    const std::string film = test::Media().Make(
        "as_loud_" + codec + ".mkv",
        "-f lavfi -i \"aevalsrc=0.9*sin(2*PI*300*t)|0.9*sin(2*PI*300*t):c=stereo:s=48000:d=1\" -c:a " + codec + " ");
    Read(film);
    EXPECT_NEAR(Loudest(0.2, 0.8), 32767 * 0.9, 300) << codec;
  }
}

TEST_F(FilmSamplesTest, AreNotThereWithoutSound) {
  const std::string silent = test::Media().SilentFilm(1);
  EXPECT_EQ(Read(silent).problem, "the film has no such sound");
  EXPECT_TRUE(samples.empty());
  EXPECT_NE(Read(test::Media().Folder() / "nothing.mkv").problem, "");
  EXPECT_NE(Read(test::Media().File("noise.mkv", std::string(5000, 'x'))).problem, "");
}

TEST_F(FilmSamplesTest, EndWhenTheyAreNotWantedAnyMore) {
  goOn = false;
  const SoundReading reading = Read(test::Media().Film(2));
  EXPECT_TRUE(reading.cancelled);
  EXPECT_EQ(reading.problem, "");
}

TEST(SampleBytesTest, ArePutTogetherOverTheEndsOfPieces) {
  SampleBytes bytes;
  EXPECT_TRUE(bytes.Take("\x01").empty());
  const auto first = bytes.Take(std::string_view("\x02\x03", 2));
  EXPECT_EQ(std::vector(first.begin(), first.end()), std::vector<std::int16_t>{0x0201});
  const auto second = bytes.Take(std::string_view("\xFF\x00\x80", 3));
  EXPECT_EQ(std::vector(second.begin(), second.end()), (std::vector<std::int16_t>{-253, -32768}));
  EXPECT_TRUE(bytes.Take({}).empty());
}

}  // namespace
}  // namespace cuewright
