#include "runner/run.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <cstdlib>

#include "platform/child_processes.h"
#include "platform/output_files.h"
#include "platform/posix_files.h"
#include "tests/runner/films.h"
#include "tests/support/fakes.h"

namespace cuewright {
namespace {

using testing::BrightFrames;
using testing::DarkFilm;
using testing::OneCaption;
using testing::Probe;
using testing::TempFolder;

/// Films burnt and sounds taken out by the real FFmpeg.
struct RunnerRun : ::testing::Test {
  /// A job on a film that burns the caption in.
  RunJob Burn(const Text& film, const Text& target) {
    RunJob job;
    job.source = film;
    job.target = target;
    job.filters.push_back({PictureFilter::Kind::Subtitler, true, folder.Write("t.ssa", OneCaption()), 0, 0, 0});
    return job;
  }
  RunJob Wave(const std::string& film, const Text& target, int rate, bool decoded = true) {
    RunJob job;
    job.kind = RunJob::Kind::Wave;
    job.source = FromUtf8(film);
    job.target = target;
    job.soundDecoded = decoded;
    job.sampleRate = rate;
    return job;
  }
  /// What failed; empty when all went well.
  std::string Run(std::vector<RunJob> jobs) {
    lastFraction = 0;
    ScriptRun run({files, processes, outputs, 1252}, std::move(jobs));
    for (;;) {
      const ScriptRun::State state = run.Step(50);
      for (const std::string& note : run.TakeNotes()) notes.push_back(note);
      if (const auto fraction = run.Fraction()) {
        EXPECT_GE(*fraction, lastFraction);
        lastFraction = *fraction;
      }
      if (state == ScriptRun::State::Done) return {};
      if (state == ScriptRun::State::Failed) return run.Failure();
    }
  }
  /// Nothing of a run is left beside its result.
  std::vector<std::string> Left() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
      const std::string name = entry.path().filename().string();
      if (name.starts_with(".cuewright")) names.push_back(name);
    }
    return names;
  }
  std::string Bytes(const std::string& name) const { return folder.Bytes(name); }

  TempFolder folder;
  PosixFiles files;
  PosixProcesses processes;
  PosixOutputFiles outputs;
  std::vector<std::string> notes;
  double lastFraction = 0;
};

TEST_F(RunnerRun, BurnsTheTextInFromItsStartToItsEnd) {
  EXPECT_EQ(Run({Burn(FromUtf8(DarkFilm()), folder / "out.avi")}), "");
  EXPECT_EQ(Probe(Bytes("out.avi"), "stream=codec_name,codec_tag_string,width,height"),
            "mpeg4,xvid,320,180\nmp3,U[0][0][0]\n");
  const std::vector<bool> bright = BrightFrames(Bytes("out.avi"));
  ASSERT_GE(bright.size(), 74u);
  for (std::size_t i = 0; i < bright.size(); ++i) {
    EXPECT_EQ(bright[i], i >= 25 && i < 50) << i;
  }
  EXPECT_EQ(lastFraction, 1.0);
  EXPECT_TRUE(Left().empty());
  EXPECT_TRUE(notes.empty());
}

TEST_F(RunnerRun, TheTextBeginsAndEndsWithThePictureWhoseTimeItHas) {
  // At 30 and 60 the time of picture 111 comes out as slightly less than the whole number of milliseconds that it is.
  constexpr int kFirst = 13;
  constexpr int kLength = 7;
  constexpr int kEnd = kFirst + 12 * 2 * kLength;
  for (const auto& [pictures, seconds] : {std::pair(24000, 1001), {25, 1}, {30, 1}, {60, 1}}) {
    const std::string rate = std::to_string(pictures) + "/" + std::to_string(seconds);
    const std::string film = folder.Bytes("film.mp4");
    testing::Output({"ffmpeg", "-y", "-nostdin", "-v", "error", "-f", "lavfi", "-i",
                     "color=c=0x204060:d=8:s=160x90:r=" + rate, "-c:v", "mpeg4", "-q:v", "3", film});
    // A time is cut to milliseconds, as it is told of a picture, and rounded to hundredths, as it is written.
    const auto hundredths = [pictures = pictures, seconds = seconds](int picture) {
      return (picture * 1000 * seconds / pictures + 5) / 10;
    };
    std::vector<std::pair<int, int>> times;
    for (int start = kFirst; start < kEnd; start += 2 * kLength) {
      times.emplace_back(hundredths(start), hundredths(start + kLength));
    }
    const RunJob job = Burn(FromUtf8(film), folder / "out.avi");
    folder.Write("t.ssa", testing::Captions(times));
    EXPECT_EQ(Run({job}), "");
    const std::vector<bool> bright = BrightFrames(Bytes("out.avi"));
    ASSERT_GT(bright.size(), std::size_t{kEnd});
    for (int picture = 0; picture < kEnd; ++picture) {
      const bool shown = picture >= kFirst && (picture - kFirst) % (2 * kLength) < kLength;
      EXPECT_EQ(bright[static_cast<std::size_t>(picture)], shown) << rate << ", picture " << picture;
    }
  }
}

TEST_F(RunnerRun, ResizesTheTextWithThePictureByEachWay) {
  for (int mode = 0; mode < 4; ++mode) {
    RunJob job = Burn(FromUtf8(DarkFilm()), folder / "out.avi");
    job.filters.push_back({PictureFilter::Kind::Resize, true, {}, 96, 64, mode});
    EXPECT_EQ(Run({job}), "");
    EXPECT_TRUE(Probe(Bytes("out.avi"), "stream=width,height").starts_with("96,64\n"));
    const std::vector<bool> bright = BrightFrames(Bytes("out.avi"));
    EXPECT_TRUE(bright[35]) << mode;
    EXPECT_FALSE(bright[10]) << mode;
  }
}

TEST_F(RunnerRun, ASizeThatXvidDoesNotTakeIsEncodedAllTheSame) {
  RunJob job = Burn(FromUtf8(DarkFilm()), folder / "out.avi");
  job.filters.push_back({PictureFilter::Kind::Resize, true, {}, 321, 181, 1});
  EXPECT_EQ(Run({job}), "");
  EXPECT_TRUE(
      Probe(Bytes("out.avi"), "stream=codec_name,codec_tag_string,width,height").starts_with("mpeg4,xvid,321,181\n"));
}

TEST_F(RunnerRun, ARangeEndsTheFilmEarly) {
  RunJob job = Burn(FromUtf8(DarkFilm()), folder / "out.avi");
  job.rangeEnd = 1800;
  EXPECT_EQ(Run({job}), "");
  EXPECT_NEAR(std::stod(Probe(Bytes("out.avi"), "format=duration")), 1.24, 0.09);
  job.rangeStart = 1000;
  job.rangeEnd = 1000;
  EXPECT_EQ(Run({job}), "");
  // The times of the text are those of the film.
  const std::vector<bool> bright = BrightFrames(Bytes("out.avi"));
  EXPECT_TRUE(bright[2]);
  job.rangeEnd = 100000;
  EXPECT_EQ(Run({job}), "the range leaves nothing of the film");
}

TEST_F(RunnerRun, AWaveHasTheRateAskedForOrThatOfTheFilm) {
  EXPECT_EQ(Run({Wave(DarkFilm(), folder / "a.wav", 22050), Wave(DarkFilm(), folder / "b.wav", 0)}), "");
  EXPECT_EQ(Probe(Bytes("a.wav"), "stream=codec_name,sample_rate,channels"), "pcm_s16le,22050,1\n");
  EXPECT_EQ(Probe(Bytes("b.wav"), "stream=codec_name,sample_rate,channels"), "pcm_s16le,48000,1\n");
  EXPECT_NEAR(std::stod(Probe(Bytes("a.wav"), "format=duration")), 3, 0.1);
}

/// A film of 6 seconds whose sound has a burst at 3 s of its own, in the container of its name's ending.
struct OddFilm {
  std::string name;
  double pictureStart = 0;
  double soundStart = 0;
  bool gap = false;
  double burst = 3;  // seconds of the film as a player shows it; what the encoder puts before comes on top
};

std::vector<OddFilm> OddFilms() {
  std::vector<OddFilm> films;
  for (const char* ending : {"mp4", "mkv", "ts", "vob", "mpg"}) {
    films.push_back({std::string("late.") + ending, 0, 0.7, false, 3.7});
    films.push_back({std::string("early.") + ending, 0.7, 0});
    films.push_back({std::string("gap.") + ending, 0, 0, true});
  }
  films.push_back({"early.avi", 0.7, 0});
  return films;
}

std::string MakeOddFilm(const TempFolder& folder, const OddFilm& film) {
  const std::string path = folder.Bytes(film.name);
  const std::string ending = path.substr(path.rfind('.') + 1);
  const bool modern = ending == "mp4" || ending == "mkv";
  const std::string sound = ending == "mp4" ? "aac" : ending == "mkv" || ending == "avi" ? "ac3" : "mp2";
  const std::string between = folder.Bytes("between.mkv");
  testing::Output({"ffmpeg",
                   "-nostdin",
                   "-v",
                   "error",
                   "-y",
                   "-itsoffset",
                   std::to_string(film.pictureStart),
                   "-f",
                   "lavfi",
                   "-i",
                   "testsrc=size=64x64:rate=25:duration=6",
                   "-itsoffset",
                   std::to_string(film.soundStart),
                   "-f",
                   "lavfi",
                   "-i",
                   "aevalsrc='if(between(t,3,3.1),0.8*sin(2*PI*1000*t),0)':s=48000:d=6",
                   "-map",
                   "0:v",
                   "-map",
                   "1:a",
                   "-c:v",
                   modern            ? "libx264"
                   : ending == "avi" ? "mpeg4"
                                     : "mpeg2video",
                   "-pix_fmt",
                   "yuv420p",
                   "-c:a",
                   sound,
                   film.gap ? between : path});
  if (film.gap) {
    // Between 0.9 and 1.9 s the packets are left out.
    testing::Output({"ffmpeg", "-nostdin", "-v", "error", "-y", "-i", between, "-c", "copy", "-bsf:a",
                     "noise=drop='between(n\\,40\\,80)'", path});
  }
  return path;
}

/// What the sound's encoder, which is told by the container, puts before its first sample.
double EncoderDelay(const OddFilm& film) {
  if (film.soundStart > 0) return 0;  // it begins that much earlier
  if (film.name.ends_with("mp4")) return film.gap ? 1024 / 48000.0 : 0;
  return film.name.ends_with("mkv") || film.name.ends_with("avi") ? 256 / 48000.0 : 481 / 48000.0;
}

/// Where the burst is, in seconds of the samples from the first one on.
double Burst(const std::string& path) {
  constexpr std::size_t kRate = 48000;
  const std::string bytes = testing::Output({"ffmpeg", "-nostdin", "-v", "error", "-i", path, "-map", "0:a:0", "-ac",
                                             "1", "-ar", std::to_string(kRate), "-f", "s16le", "-"});
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto sample = static_cast<std::int16_t>(static_cast<unsigned char>(bytes[at]) |
                                                  static_cast<unsigned char>(bytes[at + 1]) << 8);
    if (std::abs(sample) > 6000) return static_cast<double>(at) / 2 / kRate;
  }
  return -1;
}

TEST_F(RunnerRun, SoundThatBeginsLateOrEarlyOrHasGapsKeepsItsTimes) {
  for (const OddFilm& odd : OddFilms()) {
    SCOPED_TRACE(odd.name);
    const std::string film = MakeOddFilm(folder, odd);
    const double burst = odd.burst + EncoderDelay(odd);
    EXPECT_EQ(Run({Wave(film, folder / "a.wav", 22050), Wave(film, folder / "b.wav", 0, false)}), "");
    EXPECT_NEAR(Burst(Bytes("a.wav")), burst, 0.005);
    EXPECT_NEAR(Burst(Bytes("b.wav")), burst, 0.005);
    RunJob burn = Burn(FromUtf8(film), folder / "a.avi");
    EXPECT_EQ(Run({burn}), "");
    EXPECT_NEAR(Burst(Bytes("a.avi")), burst, 0.005);
  }
}

TEST_F(RunnerRun, AFileThatFfmpegCouldNotEndIsAFailureWhateverItsStatus) {
  const std::string path = ::getenv("PATH");
  std::filesystem::create_directory(Bytes("bin"));
  const std::string fake = ToUtf8(folder.Write(
      "bin/ffmpeg", "#!/bin/sh\necho '[error] Error writing trailer of x: No space left on device' >&2\nexit 0\n"));
  std::filesystem::permissions(fake, std::filesystem::perms::owner_all);
  folder.Write("a.wav", "what was there");
  ::setenv("PATH", (Bytes("bin") + ":" + path).c_str(), 1);
  const std::string failure = Run({Wave(DarkFilm(), folder / "a.wav", 0)});
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(failure, "Error writing trailer of x: No space left on device");
  EXPECT_EQ(folder.Read("a.wav"), "what was there");
  EXPECT_TRUE(Left().empty());
}

TEST_F(RunnerRun, AWaveHasOneChannelOrTwo) {
  for (const auto& [layout, channels] : {std::pair{"mono", "1\n"}, {"stereo", "2\n"}, {"5.1", "2\n"}}) {
    const std::string film = Bytes(std::string(layout) + ".avi");
    testing::Output({"ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", "color=s=64x64:r=25:d=1", "-f", "lavfi",
                     "-i", "anullsrc=r=48000:cl=" + std::string(layout), "-t", "1", "-c:v", "mpeg4", "-c:a", "ac3",
                     film});
    EXPECT_EQ(Run({Wave(film, folder / "a.wav", 0)}), "");
    EXPECT_EQ(Probe(Bytes("a.wav"), "stream=channels"), channels) << layout;
    // The plain header, whose samples begin at byte 44.
    EXPECT_EQ(folder.Read("a.wav").substr(36, 4), "data");
  }
}

TEST_F(RunnerRun, SoundIsCopiedIntoAWaveAsItIs) {
  EXPECT_EQ(Run({Wave(DarkFilm(), folder / "a.wav", 0, false)}), "");
  EXPECT_EQ(Probe(Bytes("a.wav"), "format=format_name"), "wav\n");
  EXPECT_EQ(Probe(Bytes("a.wav"), "stream=codec_name"), "mp3\n");
  EXPECT_TRUE(notes.empty());
}

TEST_F(RunnerRun, SoundThatAWaveCannotHoldIsKeptAndTold) {
  EXPECT_EQ(Run({Wave(DarkFilm("libopus"), folder / "a.wav", 0, false)}), "");
  EXPECT_EQ(Probe(Bytes("a.wav"), "stream=codec_name"), "opus\n");
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_NE(notes[0].find("Matroska"), std::string::npos);
}

TEST_F(RunnerRun, SoundThatAviCannotHoldIsWrittenUncompressedAndTold) {
  EXPECT_EQ(Run({Burn(FromUtf8(DarkFilm("libopus")), folder / "a.avi")}), "");
  EXPECT_EQ(Probe(Bytes("a.avi"), "stream=codec_name"), "mpeg4\npcm_s16le\n");
  EXPECT_EQ(notes.size(), 1u);
}

TEST_F(RunnerRun, NoNameOfAFileIsEverTakenForAnythingElse) {
  const std::string names[] = {
      "-y.avi",           "a:b.avi",       "a'b\"c.avi",    "a\nb.avi",          "$(touch gone).avi",
      "a;touch gone.avi", "%03d.avi",      "\xFF\xC3.avi",  "[x],scale=8:8.avi", "a\\b.avi",
      "http://x.avi",     "file:film.avi", "concat:a|b.avi"};
  const std::string old = std::filesystem::current_path().string();
  std::filesystem::current_path(folder.Path());
  std::filesystem::create_directories("http:/");
  for (const std::string& name : names) {
    std::filesystem::copy_file(DarkFilm(), name, std::filesystem::copy_options::overwrite_existing);
    RunJob burn = Burn(FromUtf8(name), FromUtf8("out" + name.substr(name.rfind('/') + 1)));
    const Text text = FromUtf8("s" + name.substr(name.rfind('/') + 1) + ".ssa");
    files.WritePrivate(text, OneCaption());
    burn.filters[0].subtitle = text;
    RunJob wave = Wave(name, FromUtf8("w" + name.substr(name.rfind('/') + 1)), 8000);
    EXPECT_EQ(Run({burn, wave}), "") << name;
    EXPECT_TRUE(BrightFrames(Bytes("out" + name.substr(name.rfind('/') + 1)))[35]) << name;
    EXPECT_EQ(Probe(Bytes("w" + name.substr(name.rfind('/') + 1)), "stream=sample_rate"), "8000\n") << name;
  }
  EXPECT_FALSE(std::filesystem::exists("gone"));
  EXPECT_TRUE(Left().empty());
  std::filesystem::current_path(old);
}

TEST_F(RunnerRun, AFailureLeavesTheOldFileAndNothingElse) {
  folder.Write("out.avi", "old");
  EXPECT_EQ(Run({Burn(folder / "no.avi", folder / "out.avi")}), "there is no film " + Bytes("no.avi"));
  EXPECT_NE(Run({Burn(folder.Write("bad.avi", "no film"), folder / "out.avi")}), "");
  RunJob job = Burn(FromUtf8(DarkFilm()), folder / "out.avi");
  job.filters[0].subtitle = folder / "no.ssa";
  EXPECT_EQ(Run({job}), "File not found: " + Bytes("no.ssa"));
  EXPECT_NE(Run({Burn(FromUtf8(DarkFilm()), folder / "no/where.avi")}).find("where.avi"), std::string::npos);
  EXPECT_EQ(folder.Read("out.avi"), "old");
  EXPECT_TRUE(Left().empty());
}

TEST_F(RunnerRun, ASubtitleWithAnotherHeadIsRefusedWithASentence) {
  RunJob job = Burn(FromUtf8(DarkFilm()), folder / "out.avi");
  job.filters[0].subtitle = folder.Write("list.ssa", "#EXTM3U\n#EXTINF:1,\nsecret.txt\n");
  EXPECT_EQ(Run({job}),
            "the subtitle file doesn't begin with \"[Script Info]\", as SubStation Alpha does: " + Bytes("list.ssa"));
  EXPECT_TRUE(Left().empty());
  // One whose head everybody can read is drawn.
  std::string script = OneCaption();
  script.replace(0, script.find('\n'), "\n [script info] ");
  job.filters[0].subtitle = folder.Write("odd.ssa", script);
  EXPECT_EQ(Run({job}), "");
  EXPECT_TRUE(BrightFrames(Bytes("out.avi"))[35]);
}

TEST_F(RunnerRun, ACancelWhileAFileIsEndingKeepsNothingAndStartsNothing) {
  testing::FakeProcesses tools;
  bool cancelled = false;
  folder.Write("film.avi", "film");
  RunJob job = Wave(Bytes("film.avi"), folder / "one.wav", 8000);
  RunJob next = job;
  next.target = folder / "two.wav";
  ScriptRun run({files, tools, outputs, 1252, kDefaultQuantizer, [&] { return cancelled; }}, {job, next});
  ASSERT_EQ(run.Step(0), ScriptRun::State::Running);
  ASSERT_EQ(tools.runs.size(), 1u);
  tools.runs[0]->status = 0;
  cancelled = true;
  EXPECT_EQ(run.Step(0), ScriptRun::State::Cancelled);
  EXPECT_EQ(tools.runs.size(), 1u);
  EXPECT_TRUE(tools.runs[0]->gone);
  EXPECT_FALSE(files.Exists(folder / "one.wav"));
  EXPECT_TRUE(Left().empty());
}

TEST_F(RunnerRun, AFilmIsNotWrittenOverItself) {
  std::filesystem::copy_file(DarkFilm(), Bytes("film.avi"));
  std::filesystem::create_hard_link(Bytes("film.avi"), Bytes("same.avi"));
  EXPECT_EQ(Run({Burn(folder / "film.avi", folder / "same.avi")}),
            "the film can't be written over itself: " + Bytes("film.avi"));
}

TEST_F(RunnerRun, WritesThroughAPrivateLinkToATargetOfAnyName) {
  const std::string target = Bytes("o\"u\nt.avi");
  std::filesystem::create_symlink(target, Bytes("link1.avi"));
  EXPECT_EQ(Run({Burn(FromUtf8(DarkFilm()), folder / "link1.avi")}), "");
  EXPECT_TRUE(std::filesystem::is_symlink(Bytes("link1.avi")));
  EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(target)));
}

TEST_F(RunnerRun, ARunThatGoesAwayTakesItsPartWithIt) {
  {
    std::vector<RunJob> jobs = {Burn(FromUtf8(DarkFilm()), folder / "out.avi")};
    ScriptRun run({files, processes, outputs, 1252}, std::move(jobs));
    EXPECT_EQ(run.Step(0), ScriptRun::State::Running);
    ASSERT_EQ(Left().size(), 1u);
    struct stat info {};
    ASSERT_EQ(::stat(Bytes(Left()[0]).c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);
  }
  EXPECT_TRUE(Left().empty());
  EXPECT_FALSE(files.Exists(folder / "out.avi"));
}

TEST_F(RunnerRun, AResultHasTheRightsOfAnyNewFile) {
  const mode_t mask = ::umask(022);
  EXPECT_EQ(Run({Wave(DarkFilm(), folder / "a.wav", 0)}), "");
  ::umask(mask);
  struct stat info {};
  ASSERT_EQ(::stat(Bytes("a.wav").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0644u);
}

TEST_F(RunnerRun, TextOfAnotherCodePageIsDrawn) {
  RunJob job = Burn(FromUtf8(DarkFilm()), folder / "out.avi");
  job.filters[0].subtitle = folder.Write("k.ssa", OneCaption(204, "\xCF\xF0\xE8\xE2\xE5\xF2"));
  EXPECT_EQ(Run({job}), "");
  EXPECT_TRUE(BrightFrames(Bytes("out.avi"))[35]);
}

}  // namespace
}  // namespace cuewright
