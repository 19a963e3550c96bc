#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

const std::vector<Caption> kTwoCaptions = {{12400, 15200, u"Good evening, Inspector."},
                                           {16000, 19800, u"Nobody leaves this house|until the storm has passed."}};

TEST(SubRip, IsRecognisedAndRead) {
  FormatRig rig;
  const std::string file = CrLf(
      "1\n00:00:12,400 --> 00:00:15,200\nGood evening, Inspector.\n\n"
      "2\n00:00:16,000 --> 00:00:19,800\nNobody leaves this house\nuntil the storm has passed.\n\n");
  EXPECT_EQ(rig.Open("a.srt", file), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), kTwoCaptions);
  EXPECT_TRUE(rig.messages.shown.empty());
  EXPECT_EQ(rig.Save(u"SUBRIP"), file);
}

TEST(PlainText, IsTheLastResortOfATxtFile) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  EXPECT_EQ(rig.Open("a.txt", "  one \r\n\r\ntwo"), u"PLAINTEXT");
  EXPECT_EQ(rig.Rows(), (std::vector<Caption>{{0, 0, u"one"}, {0, 0, u"two"}}));
  EXPECT_EQ(rig.Save(u"PLAINTEXT"), "one\r\ntwo\r\n");
}

TEST(MicroDvd, AsksForTheFrameRate) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("a.sub", "{1}{1}25\r\n{25}{50}one|two\r\n{100}{150}{y:i}three\r\n"), u"MICRODVD");
  EXPECT_EQ(rig.Rows(), (std::vector<Caption>{{1000, 2000, u"one|two"}, {4000, 6000, u"<i>three"}}));
}

}  // namespace
}  // namespace cuewright::testing
