#include <gtest/gtest.h>

#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr char kFull[] =
    "[Script Info]\r\n"
    "; a remark\r\n"
    "ScriptType: v4.00+\r\n"
    "PlayResX: 1920\r\n"
    "\r\n"
    "[V4+ Styles]\r\n"
    "Format: Name, Fontname, Fontsize\r\n"
    "Style: Default,Tahoma,24\r\n"
    "Style: Sign,Tahoma,30\r\n"
    "\r\n"
    "[Fonts]\r\n"
    "fontname: a_0.ttf\r\n"
    "[0123\\]\r\n"
    "Dialogue: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,data\r\n"
    "\r\n"
    "[Events]\r\n"
    "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\r\n"
    "Comment: 0,0:00:01.00,0:00:02.00,Default,,0,0,0,,not shown\r\n"
    "Dialogue: 12,0:00:12.40,0:00:15.20,Sign,Ann,0010,0,0,Scroll;1,Good evening, "
    "{\\pos(1,2)}Inspector\\N\\nyes\\hno\r\n"
    "Dialogue: 0,0:00:16.00,0:00:19.80,Default,,0,0,0,,{\\i1}Nobody leaves{\\i0}\r\n"
    "\r\n"
    "[Further Things]\r\n"
    "free words\r\n";

TEST(SubStation, CaptionsAreReadAndAllElseIsLeft) {
  const SourceRig rig(u"ADVANCEDSSA", kFull);
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good evening, {\\pos(1,2)}Inspector|\\nyes\u00A0no"},
                              {16000, 19800, u"<i>Nobody leaves"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  EXPECT_EQ(rig.In(rig.Record(1).whole),
            "Dialogue: 0,0:00:16.00,0:00:19.80,Default,,0,0,0,,{\\i1}Nobody leaves{\\i0}\r\n");
  rig.ExpectFieldsAreTheirOwn();
}

std::string Events(const std::string& lines) {
  return "[Events]\nFormat: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n" + lines;
}

TEST(SubStation, AFieldChangesByItself) {
  const std::string first = "Dialogue: 3,0:00:12.40,0:00:15.20,Sign,Ann,10,0,0,Fade,one\n";
  const SourceRig rig(u"ADVANCEDSSA", Events(first));
  EXPECT_EQ(rig.WithStart(0, 3599996), Events("Dialogue: 3,1:00:00.00,0:00:15.20,Sign,Ann,10,0,0,Fade,one\n"));
  EXPECT_EQ(rig.WithEnd(0, 45), Events("Dialogue: 3,0:00:12.40,0:00:00.05,Sign,Ann,10,0,0,Fade,one\n"));
  EXPECT_EQ(rig.WithText(0, u"<b><u>a, b|\u00A0c"),
            Events("Dialogue: 3,0:00:12.40,0:00:15.20,Sign,Ann,10,0,0,Fade,{\\b1\\u1}a, b\\N\\hc{\\b0\\u0}\n"));
  EXPECT_EQ(rig.WithText(0, u""), Events("Dialogue: 3,0:00:12.40,0:00:15.20,Sign,Ann,10,0,0,Fade,\n"));
  EXPECT_EQ(rig.Without(0), Events(""));
  EXPECT_EQ(rig.WithNew(0, {16000, 17000, u"new"}),
            Events(first + "Dialogue: 3,0:00:16.00,0:00:17.00,Default,,10,0,0,,new\n"));
}

TEST(SubStation, ANewRecordTakesAStyleThatTheFileHas) {
  const std::string styles = "[V4+ Styles]\nStyle: Sign,Tahoma,30\n\n";
  const SourceRig rig(u"ADVANCEDSSA", styles + Events("Dialogue: 0,0:00:12.40,0:00:15.20,Sign,,0,0,0,,one\n"));
  EXPECT_EQ(rig.WithNew(0, {16000, 17000, u"n"}),
            styles + Events("Dialogue: 0,0:00:12.40,0:00:15.20,Sign,,0,0,0,,one\n"
                            "Dialogue: 0,0:00:16.00,0:00:17.00,Sign,,0,0,0,,n\n"));
  const Caption caption{16000, 17000, u"n"};
  const auto fresh = MakeSourceFormat(u"SUBSTATIONALPHA");
  EXPECT_EQ(fresh->Record({caption, 1, u"\r\n", {}}, u"|"),
            u"Dialogue: Marked=0,0:00:16.00,0:00:17.00,Default,,0,0,0,,n\r\n");
}

TEST(SubStation, TheFormatLineOrdersTheFields) {
  const std::string file =
      "[Events]\nformat:End,Text,Start\nDialogue: 0:00:15.20,a,0:00:12.40\nDialogue: 0:00:19.80, b ,0:00:16.00 \n"
      "[V4+ Styles]\nFormat: Name, Fontname\n";
  const SourceRig rig(u"ADVANCEDSSA", file);
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"a"}, {16000, 19800, u" b "}}));
  rig.ExpectFieldsAreTheirOwn();
  const SourceRig old(u"SUBSTATIONALPHA",
                      "[Events]\nDialogue: Marked=0,0:00:12.40,00:00:15.20,Default,NTP,0000,0000,0000,!Effect,a,b\n");
  EXPECT_EQ(old.Rows(), (Rows{{12400, 15200, u"a,b"}}));
}

TEST(SubStation, WhatIsNoEventIsBlamed) {
  const SourceRig rig(u"ADVANCEDSSA", Events("Dialogue: 0,0:00:12.40,0:00:15.20\nfree words\n; remark\n\nComment: x\n"
                                             "Dialogue: 0,soon,0:00:15.20,Default,,0,0,0,,a\n"));
  EXPECT_TRUE(rig.Rows().empty());
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{3, 4, 8}));
}

TEST(SubStation, ATimeThatGoesOnIsNotCutOff) {
  for (const std::string time : {"0:00:xx.40", "0:00:12:40", "0:00:12.40x"}) {
    const SourceRig rig(u"ADVANCEDSSA", "[Events]\nFormat: Start, End, Text\nDialogue: " + time + ",0:00:15.20,a\n" +
                                            "Dialogue: 0:00:16.00,0:00:19.80,b\n");
    EXPECT_EQ(rig.Rows(), (Rows{{16000, 19800, u"b"}})) << time;
    EXPECT_EQ(rig.Blamed(), (std::vector<int>{3})) << time;
  }
}

TEST(SubStation, OverridesThatDoMoreStay) {
  struct Case {
    std::string file;
    TextView list;
  };
  const Case cases[] = {{"{\\i1\\b1}a{\\b0\\i0}", u"<b><i>a"},
                        {"{\\i1}{\\an8}a", u"<i>{\\an8}a"},
                        {"{\\an8}{\\i1}a", u"{\\an8}{\\i1}a"},
                        {"{\\i1}a{\\i0} b", u"{\\i1}a{\\i0} b"},
                        {"{\\i1}a{\\r} b", u"{\\i1}a{\\r} b"},
                        {"{\\i1\\b1}a{\\b0}", u"{\\i1\\b1}a{\\b0}"},
                        {"{\\b700}a", u"{\\b700}a"},
                        {"{note}a\\", u"{note}a\\"},
                        {"{\\k20}la{\\k30}la", u"{\\k20}la{\\k30}la"}};
  for (const auto& [file, list] : cases) {
    const SourceRig rig(u"ADVANCEDSSA", Events("Dialogue: 0,0:00:12.40,0:00:15.20,Default,,0,0,0,," + file));
    ASSERT_EQ(rig.Rows().size(), 1u);
    EXPECT_EQ(rig.Rows()[0].text, list);
  }
  const SourceRig open(u"ADVANCEDSSA", Events("Dialogue: 0,0:00:12.40,0:00:15.20,Default,,0,0,0,,{\\u1}a"));
  open.ExpectFieldsAreTheirOwn();
}

}  // namespace
}  // namespace cuewright::testing
