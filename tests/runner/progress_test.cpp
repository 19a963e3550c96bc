#include "runner/progress.h"

#include <gtest/gtest.h>

#include "runner/subtitle_text.h"

namespace cuewright {
namespace {

TEST(RunnerProgress, TellsTheTimeLeftOnceEnoughIsDone) {
  EXPECT_EQ(TimeLeft::Of(0.25, 10000), 30);
  EXPECT_EQ(TimeLeft::Of(1.0, 10000), 0);
  EXPECT_FALSE(TimeLeft::Of(0.5, 999));
  EXPECT_FALSE(TimeLeft::Of(0.001, 10000));
  EXPECT_FALSE(TimeLeft::Of({}, 10000));
}

TEST(RunnerProgress, WritesTimesAsClocksDo) {
  EXPECT_EQ(TimeLeftText(7), "0:07");
  EXPECT_EQ(TimeLeftText(754), "12:34");
  EXPECT_EQ(TimeLeftText(3723), "1:02:03");
  EXPECT_EQ(TimeLeftText(-1), "0:00");
}

TEST(RunnerProgress, NothingThatIsPrintedCanMoveATerminalsCursor) {
  EXPECT_EQ(Printable("a\x1b[2Jb\r\tc\x7f\nd", false), "a?[2Jb??c??d");
  EXPECT_EQ(Printable("a\nb", true), "a\nb");
  EXPECT_EQ(Printable("\xC3\xA9\xF0\x9F\x8E\xAC\xFF\xC2\x9B", false), "\xC3\xA9\xF0\x9F\x8E\xAC??");
}

TEST(RunnerProgress, LinesForTheWindowComeBackAsTheyWere) {
  const auto back = [](const WindowLine& line) {
    std::string text = FormatWindowLine(line);
    EXPECT_EQ(text.find('\n'), text.size() - 1);
    text.pop_back();
    return ReadWindowLine(text);
  };
  EXPECT_EQ(back({WindowLine::Kind::File, "/a b/c\n.avi", {}})->text, "/a b/c?.avi");
  EXPECT_EQ(back({WindowLine::Kind::Failure, "one\ntwo", {}})->text, "one\ntwo");
  EXPECT_EQ(back({WindowLine::Kind::Progress, "", {0.5, 42}})->progress.fraction, 0.5);
  EXPECT_EQ(back({WindowLine::Kind::Progress, "", {0.5, 42}})->progress.secondsLeft, 42);
  EXPECT_FALSE(back({WindowLine::Kind::Progress, "", {}})->progress.fraction);
  EXPECT_FALSE(back({WindowLine::Kind::Progress, "", {}})->progress.secondsLeft);
  for (const char* wrong : {"", "progress", "progress x 1", "progress 1", "progress 1x2", "other 1"}) {
    EXPECT_FALSE(ReadWindowLine(wrong)) << wrong;
  }
  EXPECT_EQ(ReadWindowLine("progress 5000 1")->progress.fraction, 1.0);
}

TEST(RunnerSubtitle, IsGivenInUtf8WhateverItIsIn) {
  const std::string head = "[V4 Styles]\nStyle: Default,Arial,20,1,2,3,4,0,0,1,2,0,2,1,1,1,0,";
  EXPECT_EQ(SubtitleInUtf8(head + "0\nD: \xE9\n", 1252), head + "0\nD: \xC3\xA9\n");
  EXPECT_EQ(SubtitleInUtf8(head + "0\nD: \xE9\n", 1251), head + "0\nD: \xD0\xB9\n");
  EXPECT_EQ(SubtitleInUtf8(head + "204\nD: \xE9\n", 1252), head + "204\nD: \xD0\xB9\n");
  EXPECT_EQ(SubtitleInUtf8(head + "204\nD: \xC3\xA9\n", 1252), head + "204\nD: \xC3\xA9\n");
  EXPECT_EQ(SubtitleInUtf8("\xEF\xBB\xBF"
                           "a\r\nb\r\n",
                           1252),
            "a\nb\n");
  EXPECT_EQ(SubtitleInUtf8(std::string("\xFF\xFE"
                                       "a\0\n\0\xE9\0",
                                       8),
                           1252),
            "a\n\xC3\xA9\n");
}

TEST(RunnerSubtitle, BeginsWithItsHeadOrIsNone) {
  EXPECT_EQ(WithPlainHead("[Script Info]\nTitle: a\n"), "[Script Info]\nTitle: a\n");
  EXPECT_EQ(WithPlainHead("\n\t [script INFO] \nTitle: a\n"), "[Script Info]\nTitle: a\n");
  EXPECT_EQ(WithPlainHead("[Script Info]"), "[Script Info]");
  for (const char* other :
       {"", "\n \n", "#EXTM3U\n", "; note\n[Script Info]\n", "[Script Info] x\n", "[V4 Styles]\n"}) {
    EXPECT_FALSE(WithPlainHead(other)) << other;
  }
}

TEST(RunnerSubtitle, TheFirstStyleTellsItsCharacterSet) {
  EXPECT_EQ(CodePageOfStyles("Style: a,b,c,128\r\nStyle: a,b,c,204\r\n"), 932);
  EXPECT_EQ(CodePageOfStyles("Comment\rStyle: a, 161\r"), 1253);
  EXPECT_EQ(CodePageOfStyles("Style: a,1\n"), 0);
  EXPECT_EQ(CodePageOfStyles("Style:\n"), 0);
  EXPECT_EQ(CodePageOfStyles("Style: a,99999999999999999999\n"), 0);
  EXPECT_EQ(CodePageOfStyles("Style: a,-1e300\n"), 0);
  EXPECT_EQ(CodePageOfStyles(""), 0);
}

}  // namespace
}  // namespace cuewright
