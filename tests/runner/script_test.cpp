#include "runner/script.h"

#include <gtest/gtest.h>

namespace cuewright {
namespace {

const std::string kEmbedScript =
    "VirtualDub.Open(\"/films/a film.avi\",0,0);\r\n"
    "VirtualDub.audio.SetSource(1);\r\n"
    "VirtualDub.audio.SetMode(0);\r\n"
    "VirtualDub.audio.SetInterleave(1,500,1,0,0);\r\n"
    "VirtualDub.audio.SetClipMode(1,1);\r\n"
    "VirtualDub.audio.SetConversion(0,0,0,0,0);\r\n"
    "VirtualDub.audio.SetVolume();\r\n"
    "VirtualDub.audio.SetCompression();\r\n"
    "VirtualDub.audio.EnableFilterGraph(0);\r\n"
    "VirtualDub.audio.filters.Clear();\r\n"
    "VirtualDub.video.SetDepth(24,24);\r\n"
    "VirtualDub.video.SetInputFormat(0);\r\n"
    "VirtualDub.video.SetOutputFormat(7);\r\n"
    "VirtualDub.video.SetMode(3);\r\n"
    "VirtualDub.video.SetFrameRate(0,1);\r\n"
    "VirtualDub.video.SetIVTC(0,0,-1,0);\r\n"
    "VirtualDub.video.SetCompression(0x64697678,0,10000,0);\r\n"
    "VirtualDub.video.SetRange(0,240000);\r\n"
    "VirtualDub.video.filters.Clear();\r\n"
    "VirtualDub.video.filters.Add(\"subtitler\");\r\n"
    "VirtualDub.video.filters.instance[0].Config(1, \"/texts/its text.ssa\", 0, 0);\r\n"
    "VirtualDub.video.filters.Add(\"resize\");\r\n"
    "VirtualDub.video.filters.instance[1].Config(352,240,2);\r\n"
    "VirtualDub.SaveAVI(\"/films/a film[sub].avi\");\r\n"
    "VirtualDub.Close();\r\n";

TEST(RunnerScript, UnderstandsTheScriptOfAnEmbedding) {
  const Script script = ReadScript(kEmbedScript);
  ASSERT_FALSE(script.problem) << script.problem->line << ": " << script.problem->problem;
  ASSERT_EQ(script.jobs.size(), 1u);
  const RunJob& job = script.jobs[0];
  EXPECT_EQ(job.kind, RunJob::Kind::Avi);
  EXPECT_EQ(job.line, 24);
  EXPECT_EQ(job.source, u"/films/a film.avi");
  EXPECT_EQ(job.target, u"/films/a film[sub].avi");
  EXPECT_TRUE(job.sound);
  EXPECT_FALSE(job.soundDecoded);
  EXPECT_EQ(job.rangeStart, 0);
  EXPECT_EQ(job.rangeEnd, 240000);
  ASSERT_EQ(job.filters.size(), 2u);
  EXPECT_EQ(job.filters[0].kind, PictureFilter::Kind::Subtitler);
  EXPECT_EQ(job.filters[0].subtitle, u"/texts/its text.ssa");
  EXPECT_EQ(job.filters[1].kind, PictureFilter::Kind::Resize);
  EXPECT_EQ(job.filters[1].width, 352);
  EXPECT_EQ(job.filters[1].height, 240);
  EXPECT_EQ(job.filters[1].mode, 2);
}

TEST(RunnerScript, UnderstandsTheScriptOfAnExtraction) {
  const Script script = ReadScript(
      "VirtualDub.Open(\"/a.avi\",0,0);\r\nVirtualDub.audio.SetMode(1);\r\n"
      "VirtualDub.audio.SetConversion(22050,0,0);\r\nVirtualDub.SaveWAV(\"/a.wav\");\r\n");
  ASSERT_FALSE(script.problem);
  EXPECT_EQ(script.jobs[0].kind, RunJob::Kind::Wave);
  EXPECT_TRUE(script.jobs[0].soundDecoded);
  EXPECT_EQ(script.jobs[0].sampleRate, 22050);
  const Script copied = ReadScript("VirtualDub.Open(\"/a.avi\",0,0);\r\nVirtualDub.SaveWAV(\"/a.wav\");\r\n");
  EXPECT_FALSE(copied.jobs[0].soundDecoded);
}

TEST(RunnerScript, TakesPathsInEitherForm) {
  const auto source = [](const std::string& written) {
    const Script script = ReadScript("VirtualDub.Open(\"" + written + "\",0,0);\nVirtualDub.SaveWAV(\"/x\");");
    return script.problem ? script.problem->problem : ToUtf8(script.jobs[0].source);
  };
  EXPECT_EQ(source("/home/a b/c.avi"), "/home/a b/c.avi");
  EXPECT_EQ(source("Z:\\\\home\\\\a b\\\\c.avi"), "/home/a b/c.avi");
  EXPECT_EQ(source("Z:/home/c.avi"), "/home/c.avi");
  EXPECT_EQ(source("films\\\\c.avi"), "films/c.avi");
  EXPECT_EQ(source("z:c.avi"), "z:c.avi");
  EXPECT_EQ(source("/\xC3\xA9\xFF.avi"), "/\xC3\xA9\xFF.avi");
}

TEST(RunnerScript, GoesOverBlankLinesAndComments) {
  const Script script = ReadScript("\xEF\xBB\xBF// a comment\n\n   \r\n  VirtualDub . Open\n");
  EXPECT_EQ(script.problem->line, 4);
  EXPECT_FALSE(
      ReadScript("// a\n\tVirtualDub.Open( \"/a\" , 0 , 0 ) ;  // the film\nVirtualDub.SaveWAV(\"/b\");").problem);
}

TEST(RunnerScript, CarriesOutSeveralJobs) {
  const Script script = ReadScript(
      "VirtualDub.Open(\"/a.avi\",0,0);\nVirtualDub.SaveWAV(\"/a.wav\");\nVirtualDub.Open(\"/b.avi\",0,0);\n"
      "VirtualDub.audio.SetMode(1);\nVirtualDub.SaveWAV(\"/b.wav\");\n");
  ASSERT_EQ(script.jobs.size(), 2u);
  EXPECT_EQ(script.jobs[1].source, u"/b.avi");
  EXPECT_FALSE(script.jobs[0].soundDecoded);
  EXPECT_TRUE(script.jobs[1].soundDecoded);
}

TEST(RunnerScript, RefusesWhatItCannotDoByItsLineAndWithWhatItExpected) {
  struct Case {
    const char* line;
    const char* expected;
  };
  const Case cases[] = {
      {"VirtualDub.Open(\"a\",0,0)", "expected \";\" behind the command, but the line ends"},
      {"VirtualDub.Open(\"a\",0,0", "expected \",\" or \")\" behind an argument, but the line ends"},
      {"VirtualDub.Open(\"a,0,0);", "expected a quote at the end of the text, but the line ends"},
      {"VirtualDub.Open(\"a\\b\",0,0);",
       "expected a second backslash, as every backslash stands twice, but found \"b\",0,0);\""},
      {"VirtualDub.Open(\"a\",0,0); x", "expected the end of the line, but found \"x\""},
      {"VirtualDub.Open(a,0,0);", "expected a number or a text in quotes, but found \"a,0,0);\""},
      {"VirtualDub.Open(\"a\",0);", "expected VirtualDub.Open(\"text\", number, number)"},
      {"VirtualDub.Open(\"\",0,0);", "expected the path of the film"},
      {"VirtualDub.Open(\"a\",1,0);", "expected 0,0 behind the path of the film"},
      {"(1);", "expected the name of a command, but found \"(1);\""},
      {"VirtualDub;", "expected \"(\" behind the name of the command, but found \";\""},
      {"VirtualDub.audio.SetMode(4294967296);", "expected a number of at most 32 bits, but found \"4294967296);\""},
      {"VirtualDub.audio.SetMode(2);", "expected the mode 0 (copied) or 1 (decoded)"},
      {"VirtualDub.audio.SetSource(2);", "expected the source 0 (no sound) or 1 (that of the film)"},
      {"VirtualDub.audio.SetConversion(999,0,0);", "expected a sample rate of 0 (as it is) or from 1000 to 192000 Hz"},
      {"VirtualDub.audio.SetConversion(8000,1,0);",
       "expected 0 behind the sample rate: bits and channels stay as they are"},
      {"VirtualDub.audio.SetConversion(8000);",
       "expected VirtualDub.audio.SetConversion(number, number, number) or "
       "VirtualDub.audio.SetConversion(number, number, number, number, number)"},
      {"VirtualDub.video.SetIVTC(1,0,-1,0);",
       "expected VirtualDub.video.SetIVTC(0,0,-1,0), the only values that can be had here"},
      {"VirtualDub.video.SetCompression(0x34363248,0,10000,0);",
       "expected 0x64697678, the codec XviD, which is the only one written here"},
      {"VirtualDub.video.SetRange(-1,0);", "expected the ms left out at the start and at the end, from 0 on"},
      {"VirtualDub.video.filters.Add(\"blur\");",
       "expected the filter \"subtitler\" or \"resize\", but found \"blur\""},
      {"VirtualDub.video.filters.instance[0].Config(1,\"a\",0,0);",
       "expected the number of a filter that was added before"},
      {"VirtualDub.video.filters.instance[-1].Config(1,\"a\",0,0);",
       "expected a number from 0 on in the brackets, but found \"].Config(1,\"a\",0,0);\""},
      {"VirtualDub.video.filters.Blur();",
       "the command \"VirtualDub.video.filters.Blur\" isn't known; expected one of VirtualDub.video.filters.Clear, "
       "VirtualDub.video.filters.Add"},
      {"VirtualDub.SaveAVI(\"a\");", "expected VirtualDub.Open before a file is written"},
  };
  for (const Case& c : cases) {
    const Script script = ReadScript("// first\r\n" + std::string(c.line) + "\r\n");
    ASSERT_TRUE(script.problem) << c.line;
    EXPECT_EQ(script.problem->line, 2);
    EXPECT_EQ(script.problem->problem, c.expected);
    EXPECT_TRUE(script.jobs.empty());
  }
}

TEST(RunnerScript, RefusesOneThatAsksForMoreThanAnybodyNeeds) {
  const std::string open = "VirtualDub.Open(\"a.avi\",0,0);\n";
  const auto repeated = [](int times, const std::string& line) {
    std::string lines;
    for (int i = 0; i < times; ++i) lines += line;
    return lines;
  };
  const Script files = ReadScript(open + repeated(40000, "VirtualDub.SaveWAV(\"a\");\n"));
  ASSERT_TRUE(files.problem);
  EXPECT_EQ(files.problem->problem, "expected at most 256 files written by one script");
  EXPECT_EQ(files.problem->line, 258);
  EXPECT_TRUE(files.jobs.empty());
  const Script filters = ReadScript(open + repeated(10000, "VirtualDub.video.filters.Add(\"resize\");\n") +
                                    repeated(10000, "VirtualDub.SaveWAV(\"a\");\n"));
  ASSERT_TRUE(filters.problem);
  EXPECT_EQ(filters.problem->problem, "expected at most 32 filters");
  EXPECT_EQ(filters.problem->line, 34);
  const Script name = ReadScript("VirtualDub.audio." + std::string(900000, 'x') + "();\n");
  ASSERT_TRUE(name.problem);
  EXPECT_LT(name.problem->problem.size(), 1000u);
}

TEST(RunnerScript, RefusesAFilmWhoseCodecOrFilterIsMissing) {
  const std::string open = "VirtualDub.Open(\"a\",0,0);\n";
  EXPECT_EQ(ReadScript(open + "VirtualDub.SaveAVI(\"b\");").problem->problem,
            "expected VirtualDub.video.SetCompression before the film is written");
  const std::string filtered =
      open + "VirtualDub.video.SetCompression(0x64697678,0,10000,0);\nVirtualDub.video.filters.Add(\"resize\");\n";
  EXPECT_EQ(ReadScript(filtered + "VirtualDub.SaveAVI(\"b\");").problem->problem,
            "expected Config of every filter before the film is written");
  EXPECT_EQ(ReadScript(filtered + "VirtualDub.video.filters.instance[0].Config(1,\"a\",0,0);").problem->problem,
            "expected Config(width, height, mode) for the filter \"resize\"");
  EXPECT_EQ(ReadScript(filtered + "VirtualDub.video.filters.instance[0].Config(0,10,0);").problem->problem,
            "expected a width and a height from 1 to 16384 pixels");
  EXPECT_EQ(ReadScript(filtered + "VirtualDub.video.filters.instance[0].Config(10,10,4);").problem->problem,
            "expected a mode from 0 to 3");
  EXPECT_FALSE(ReadScript(filtered + "VirtualDub.video.filters.Clear();\nVirtualDub.SaveAVI(\"b\");").problem);
}

TEST(RunnerScript, RefusesAScriptThatWritesNothing) {
  for (const char* bytes : {"", "\r\n", "VirtualDub.Open(\"a\",0,0);\r\nVirtualDub.Close();\r\n"}) {
    ASSERT_TRUE(ReadScript(bytes).problem);
    EXPECT_EQ(ReadScript(bytes).problem->problem,
              "the script writes no file; expected VirtualDub.SaveAVI or VirtualDub.SaveWAV");
  }
  EXPECT_EQ(ReadScript(std::string("a\0b", 3)).problem->problem, "the line holds a NUL character; expected text");
}

}  // namespace
}  // namespace cuewright
