#include <gtest/gtest.h>

#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

TEST(MicroDvd, FramesAreCountedByTheFilesOwnRate) {
  const SourceRig rig(
      u"MICRODVD",
      "{1}{1}23.976\r\n{DEFAULT}{}{C:$0000FF}\r\n{24000}{24100}{y:i}one\r\n\r\n{24200}{}{c:$0000ff}a|b\r\n"
      "{24240}{24300}{Y:b,u}c|d\r\nfree\r\n{24400}{24500}/slanted\r\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1001000, 1005171, u"<i>one"},
                              {1009342, 1011010, u"{c:$0000ff}a|b"},
                              {1011010, 1013513, u"<b><u>c|d"},
                              {1017683, 1021854, u"/slanted"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{7}));
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_TRUE(rig.Record(1).endIsReckoned);
}

TEST(MicroDvd, AFieldChangesByItself) {
  const SourceRig rig(u"MICRODVD", "{310}{380}one\n{400}{495}two\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"one"}, {16000, 19800, u"two"}}));
  EXPECT_EQ(rig.WithStart(0, 12420), "{311}{380}one\n{400}{495}two\n");
  EXPECT_EQ(rig.WithText(0, u"<i>a|b"), "{310}{380}{Y:i}a|b\n{400}{495}two\n");
  EXPECT_EQ(rig.WithNew(0, {15480, 15600, u"<b>n"}), "{310}{380}one\n{387}{390}{y:b}n\n{400}{495}two\n");
  EXPECT_EQ(rig.Without(0), "{400}{495}two\n");
}

TEST(MicroDvd, EveryFrameComesBackByEveryRate) {
  for (const std::string rate : {"23.976", "23.98", "25", "29.97", "30.000", "59,94", "12.5"}) {
    std::string file = "{1}{1}" + rate + "\n";
    for (int frame = 1; frame < 200000; frame += 997) file += "{" + std::to_string(frame) + "}{}x\n";
    const SourceRig rig(u"MICRODVD", file);
    ASSERT_EQ(rig.Rows().size(), 201u) << rate;
    for (std::size_t i = 0; i < rig.Rows().size(); ++i) {
      EXPECT_EQ(rig.Format().TimeField(rig.Rows()[i].start, ""), rig.In(rig.Record(i).start)) << rate;
    }
  }
}

TEST(Mpl2, TenthsOfASecond) {
  const SourceRig rig(u"MPL2", "[124][152]/Good evening\n[160][198]Nobody|/leaves\nno\n[5]x\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"<i>Good evening"}, {16000, 19800, u"Nobody|/leaves"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{3, 4}));
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_EQ(rig.WithEnd(0, 15260), "[124][153]/Good evening\n[160][198]Nobody|/leaves\nno\n[5]x\n");
  EXPECT_EQ(rig.WithText(1, u"<i>a|b"), "[124][152]/Good evening\n[160][198]/a|/b\nno\n[5]x\n");
}

TEST(Sbv, BlocksAreReadWhateverEndsThem) {
  const SourceRig rig(u"YOUTUBESBV",
                      "0:00:12.400,0:00:15.200\nGood evening,\nInspector.\n\n0:00:16.000,0:00:19.800\n"
                      "12:30:00.000,12:30:01.000\nNobody\n\nleaves\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good evening,|Inspector."},
                              {16000, 19800, u""},
                              {45000000, 45001000, u"Nobody||leaves"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_EQ(rig.WithNew(0, {15300, 15400, u"a|b"}),
            "0:00:12.400,0:00:15.200\nGood evening,\nInspector.\n\n0:00:15.300,0:00:15.400\na\nb\n\n"
            "0:00:16.000,0:00:19.800\n12:30:00.000,12:30:01.000\nNobody\n\nleaves\n");
}

TEST(SubViewer2, HeadersAndStylesAreLeft) {
  const SourceRig rig(u"SUBVIEWER2",
                      "[INFORMATION]\n[TITLE]x\n[END INFORMATION]\n[SUBTITLE]\n[COLF]&HFFFFFF,[SIZE]24\n"
                      "00:00:12.40,00:00:15.20\nGood[br]evening\n\n[COLF]&H00FFFF\n"
                      "00:00:16.000, 00:00:19.800\n[whispers] no\n\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good|evening"}, {16000, 19800, u"[whispers] no"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  rig.ExpectFieldsAreTheirOwn();
  const Caption caption{1000, 2995, u"a|b"};
  EXPECT_EQ(rig.Format().Record({caption, 1, u"\n", rig.In(rig.Record(0).whole)}, u"|"),
            u"00:00:01.00,00:00:03.00\na[br]b\n\n");
  EXPECT_EQ(rig.Format().Record({caption, 1, u"\n", rig.In(rig.Record(1).whole)}, u"|"),
            u"00:00:01.000, 00:00:02.995\na[br]b\n\n");
}

}  // namespace
}  // namespace cuewright::testing
