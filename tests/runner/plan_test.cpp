#include "runner/plan.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

Text Behind(const std::vector<Text>& words, TextView option) {
  const auto at = std::find(words.begin(), words.end(), option);
  return at == words.end() || at + 1 == words.end() ? Text() : *(at + 1);
}
bool Has(const std::vector<Text>& words, TextView word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

constexpr TextView kDrawn = u"settb=1/1000000,setpts=PTS+5500,subtitles=f=subtitle0.ssa,setpts=PTS-5500";

RunJob Film() {
  RunJob job;
  job.source = u"/film.avi";
  job.filters.push_back({PictureFilter::Kind::Subtitler, true, u"/text.ssa", 0, 0, 0});
  return job;
}

TEST(RunnerPlan, BurnsInAndCopiesTheSound) {
  const auto words = FfmpegArguments(Film(), {}, u"/part");
  EXPECT_EQ(Behind(words, u"-i"), u"file:/film.avi");
  EXPECT_EQ(Behind(words, u"-vf"), kDrawn);
  EXPECT_EQ(Behind(words, u"-c:v"), u"libxvid");
  EXPECT_EQ(Behind(words, u"-tag:v"), u"xvid");
  EXPECT_EQ(Behind(words, u"-q:v"), u"4");
  EXPECT_EQ(Behind(words, u"-c:a"), u"copy");
  EXPECT_EQ(Behind(words, u"-f"), u"avi");
  EXPECT_EQ(words.back(), u"file:/part");
  EXPECT_FALSE(Has(words, u"-t"));
  EXPECT_FALSE(Has(words, u"-ss"));
}

TEST(RunnerPlan, NamesOfFilesCannotBeTakenForAnythingElse) {
  for (const char16_t* name : {u"-y", u"http://a", u"a:b,c[d]'%03d;$(x)\n", u"\xDCFF"}) {
    RunJob job = Film();
    job.source = name;
    job.filters[0].subtitle = name;
    const auto words = FfmpegArguments(job, {}, name);
    EXPECT_EQ(Behind(words, u"-i"), u"file:" + Text(name));
    EXPECT_EQ(words.back(), u"file:" + Text(name));
    EXPECT_EQ(Behind(words, u"-vf"), kDrawn);
    EXPECT_EQ(Behind(words, u"-protocol_whitelist"), u"file");
  }
}

TEST(RunnerPlan, ResizesBehindTheSubtitlesByEachOfTheFourWays) {
  const char16_t* flags[] = {u"neighbor", u"bilinear", u"bicubic",
                             u"bilinear+accurate_rnd+full_chroma_int+full_chroma_inp"};
  for (int mode = 0; mode < 4; ++mode) {
    RunJob job = Film();
    job.filters.push_back({PictureFilter::Kind::Resize, true, {}, 352, 240, mode});
    EXPECT_EQ(Behind(FfmpegArguments(job, {}, u"/p"), u"-vf"),
              Text(kDrawn) + u",scale=w=352:h=240:flags=" + Text(flags[mode]));
  }
}

TEST(RunnerPlan, ARangeIsWhatItLeavesOutAtBothEnds) {
  RunJob job = Film();
  job.rangeStart = 1500;
  job.rangeEnd = 30000;
  JobWay way;
  way.duration = 300040;
  const auto words = FfmpegArguments(job, way, u"/p");
  EXPECT_EQ(Behind(words, u"-ss"), u"1.500");
  EXPECT_EQ(Behind(words, u"-t"), u"268.540");
  EXPECT_EQ(LengthOf(job, 31000), 0);
}

TEST(RunnerPlan, TheOtherWays) {
  JobWay way;
  way.plainEncoder = true;
  way.soundDecoded = true;
  way.quantizer = 9;
  const auto words = FfmpegArguments(Film(), way, u"/p");
  EXPECT_EQ(Behind(words, u"-c:v"), u"mpeg4");
  EXPECT_EQ(Behind(words, u"-tag:v"), u"xvid");
  EXPECT_EQ(Behind(words, u"-c:a"), u"pcm_s16le");
  EXPECT_EQ(Behind(words, u"-q:v"), u"9");
  RunJob silent = Film();
  silent.sound = false;
  EXPECT_FALSE(Has(FfmpegArguments(silent, {}, u"/p"), u"-c:a"));
}

TEST(RunnerPlan, AWaveIsDecodedOrCopied) {
  RunJob job;
  job.kind = RunJob::Kind::Wave;
  job.source = u"/film.avi";
  const auto copied = FfmpegArguments(job, {}, u"/p");
  EXPECT_EQ(Behind(copied, u"-c:a"), u"copy");
  EXPECT_EQ(Behind(copied, u"-f"), u"wav");
  EXPECT_FALSE(Has(copied, u"-ar"));
  JobWay other;
  other.otherContainer = true;
  EXPECT_EQ(Behind(FfmpegArguments(job, other, u"/p"), u"-f"), u"matroska");
  job.soundDecoded = true;
  job.sampleRate = 22050;
  const auto decoded = FfmpegArguments(job, {}, u"/p");
  EXPECT_EQ(Behind(decoded, u"-c:a"), u"pcm_s16le");
  EXPECT_EQ(Behind(decoded, u"-ar"), u"22050");
  EXPECT_EQ(Behind(decoded, u"-af"), u"aresample=async=1:first_pts=0,aformat=channel_layouts=mono|stereo");
  EXPECT_FALSE(Has(copied, u"-af"));
  job.sampleRate = 0;
  EXPECT_FALSE(Has(FfmpegArguments(job, {}, u"/p"), u"-ar"));
}

TEST(RunnerPlan, FollowsTheProgressInPiecesOfAnySize) {
  const std::string output = "frame=1\nout_time_us=N/A\nout_time_us=1500000\nout_time=x\nprogress=continue\n";
  FfmpegLog log;
  for (const char c : output) log.TakeOutput({&c, 1});
  EXPECT_EQ(log.Done(), 1500);
  log.TakeOutput("out_time_us=900000\n");
  EXPECT_EQ(log.Done(), 1500);
}

TEST(RunnerPlan, ReadsTheLengthWhereFfmpegTellsItAlone) {
  FfmpegLog log;
  log.TakeErrors("[info]   Metadata:\n[info]     title           : Duration: 99:00:00.00\n");
  EXPECT_FALSE(log.Duration());
  log.TakeErrors("[info]   Duration: 01:02:0");
  EXPECT_FALSE(log.Duration());
  log.TakeErrors("3.45, start: 0.0\n[info]   Duration: 00:00:01.00, start\n");
  EXPECT_EQ(log.Duration(), 3723450);
  FfmpegLog unknown;
  unknown.TakeErrors("[info]   Duration: N/A, bitrate: N/A\n");
  EXPECT_FALSE(unknown.Duration());
}

TEST(RunnerPlan, KeepsTheErrorsAlone) {
  FfmpegLog log;
  log.TakeErrors("[info] fine\n[wav @ 0x1] [error] Codec opus not supported\n[fatal] no way\n");
  EXPECT_EQ(log.Errors(), (std::vector<std::string>{"Codec opus not supported", "no way"}));
  EXPECT_TRUE(log.Says("opus"));
  EXPECT_FALSE(log.Says("fine"));
  for (int i = 0; i < 100; ++i) log.TakeErrors("[error] e" + std::to_string(i) + "\n");
  EXPECT_EQ(log.Errors().size(), 20u);
  EXPECT_EQ(log.Errors().back(), "e99");
}

}  // namespace
}  // namespace cuewright
