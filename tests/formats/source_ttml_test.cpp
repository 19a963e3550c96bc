#include <gtest/gtest.h>

#include "formats/source/ttml_time.h"
#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

const std::string kFull =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<tt:tt xmlns:tt=\"http://www.w3.org/ns/ttml\" xmlns:s='http://www.w3.org/ns/ttml#styling'\n"
    "    xmlns:ttp=\"http://www.w3.org/ns/ttml#parameter\" ttp:frameRate=\"30\" ttp:frameRateMultiplier=\"1000 "
    "1001\">\n"
    "<tt:head><!-- <tt:p begin=\"0s\" end=\"1s\">no</tt:p> --><tt:layout/></tt:head>\n"
    "<tt:body>\n"
    "  <tt:div>\n"
    "    <tt:p region='r1' end=\"00:00:15.200\" xml:id=\"p1\" begin = '00:00:12.400'>Good <tt:span "
    "s:color=\"red\">evening"
    "</tt:span>,<tt:br/>\n      Inspector &amp; all</tt:p>\n"
    "    <tt:p begin=\"16s\" dur=\"3.8s\"><tt:span s:fontStyle=\"italic\">Nobody\n leaves</tt:span></tt:p>\n"
    "    <tt:p/>\n"
    "    <tt:p begin=\"00:00:20:15\" end=\"00:00:21:00\" xml:space=\"preserve\">a\nb</tt:p><tt:p begin='22s' "
    "end='23s'/>\n"
    "    <tt:p>lost</tt:p>\n"
    "  </tt:div>\n"
    "</tt:body>\n"
    "</tt:tt>\n";

TEST(Ttml, ParagraphsOfEveryForm) {
  const SourceRig rig(u"TTML", kFull);
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good <tt:span s:color=\"red\">evening</tt:span>,|Inspector & all"},
                              {16000, 19800, u"<i>Nobody leaves"},
                              {20501, 21000, u"a|b"},
                              {22000, 23000, u""}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{14}));
  EXPECT_EQ(rig.In(rig.Record(0).start), "00:00:12.400");
  EXPECT_TRUE(rig.Record(1).end.Empty());
  EXPECT_EQ(rig.In(rig.Record(3).whole), "<tt:p begin='22s' end='23s'/>\n");
}

TEST(Ttml, AFieldChangesByItself) {
  const SourceRig rig(u"TTML", kFull);
  const auto replaced = [&](const std::string& from, const std::string& to) {
    std::string changed = kFull;
    return changed.replace(changed.find(from), from.size(), to);
  };
  EXPECT_EQ(rig.WithStart(0, 12000), replaced("00:00:12.400", "00:00:12.000"));
  EXPECT_EQ(rig.WithStart(1, 16250), replaced("16s", "16.25s"));
  EXPECT_EQ(rig.WithEnd(2, 22000), replaced("00:00:21:00", "00:00:22:00"));
  EXPECT_EQ(rig.WithText(1, u"<i>a|b < c"), replaced("Nobody\n leaves", "a<tt:br/>b &lt; c"));
  EXPECT_EQ(
      rig.WithNew(1, {19900, 20000, u"<b>n"}),
      replaced("    <tt:p/>",
               "    <tt:p begin=\"19.9s\" end=\"20s\"><tt:span s:fontWeight=\"bold\">n</tt:span></tt:p>\n    <tt:p/>"));
  const Caption caption{1000, 2000, u"n"};
  EXPECT_EQ(rig.Format().Record({caption, 1, u"\n", rig.In(rig.Record(0).whole)}, u"|"),
            u"    <tt:p begin=\"00:00:01.000\" end=\"00:00:02.000\" region=\"r1\">n</tt:p>\n");
}

TEST(Ttml, TimesOfEveryForm) {
  struct Case {
    std::string_view time;
    std::int32_t ms;
  };
  constexpr Case kCases[] = {{"00:00:12.4", 12400}, {"00:00:12", 12000},     {"00:00:12:10", 12400}, {"1.5s", 1500},
                             {"90m", 5400000},      {"0.5h", 1800000},       {"310f", 12400},        {"124000t", 12400},
                             {"750ms", 750},        {"00:00:12:10.1", 12420}};
  const TtmlClock clock{25, 1, 2, 10000};
  for (const auto& [time, ms] : kCases) EXPECT_EQ(clock.TimeOf(time), ms) << time;
  for (const std::string_view time : {"", "x", "12", "12x", "00:00:12:", "1:2:3:4:5", "00:00:12.4x"}) {
    EXPECT_FALSE(clock.TimeOf(time)) << time;
  }
  EXPECT_EQ(clock.Like(59990, "00:00:12:10"), "00:01:00:00");
  EXPECT_EQ(clock.Like(12400, "1t"), "124000t");
  EXPECT_EQ(clock.Like(12420, "1f"), "311f");
  EXPECT_EQ(clock.Like(12400, "1.50s"), "12.40s");
  EXPECT_EQ(clock.Like(12404, "1s"), "12.404s");
  EXPECT_EQ(clock.Like(5400000, "1m"), "90m");
  EXPECT_EQ(clock.Like(1234, "5ms"), "1234ms");
  const TtmlClock ntsc{30000, 1001, 1, 0};
  for (std::int32_t frame = 0; frame < 30; ++frame) {
    const std::string time = "00:00:05:" + std::string(frame < 10 ? "0" : "") + std::to_string(frame);
    EXPECT_EQ(ntsc.Like(*ntsc.TimeOf(time), time), frame == 30 ? "" : time);
  }
}

TEST(Ttml, ABodyThatBeginsLaterMovesAll) {
  const std::string file = "<tt><body begin=\"10s\"><div><p begin=\"1s\" end=\"2s\">a</p></div></body></tt>";
  const SourceRig rig(u"TTML", file);
  EXPECT_EQ(rig.Rows(), (Rows{{11000, 12000, u"a"}}));
  rig.ExpectFieldsAreTheirOwn();
}

/// A file of these elements in its body.
std::string Bodied(const std::string& elements, const std::string& attributes = {}) {
  return "<tt" + attributes + "><body><div>\n" + elements + "</div></body></tt>";
}

TEST(Ttml, ParagraphsHaveTheTimesOfWhatIsAroundThem) {
  const SourceRig rig(u"TTML",
                      Bodied("<div begin=\"10s\" end=\"12s\"><p>a</p><p begin=\"1s\">b</p><p end=\"1.5s\">c</p>"
                             "<p/></div>\n<div begin=\"20s\"><p begin=\"1s\" dur=\"2s\">d</p></div>\n"
                             "<p begin=\"30s\" end=\"31s\">e</p>\n"));
  EXPECT_EQ(rig.Rows(), (Rows{{10000, 12000, u"a"},
                              {11000, 12000, u"b"},
                              {10000, 11500, u"c"},
                              {21000, 23000, u"d"},
                              {30000, 31000, u"e"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_EQ(rig.Again(rig.WithOwn(0, {10500, 11000, u"n"}))[0], (Caption{10500, 11000, u"n"}));
  EXPECT_EQ(rig.Again(rig.WithNew(3, {25000, 26000, u"n"}))[4], (Caption{25000, 26000, u"n"}));
}

TEST(Ttml, SpansWithTimesAreCaptionsWhereTheirParagraphHasNone) {
  const SourceRig rig(u"TTML", Bodied("<p><span begin=\"1s\" end=\"2s\">a <span style=\"x\">b</span></span><br/>\n"
                                      "<span begin=\"3s\" dur=\"1s\">c</span></p>\n"
                                      "<p begin=\"5s\" end=\"9s\"><span begin=\"0s\">d</span> e</p>\n"));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a <span style=\"x\">b</span>"},
                              {3000, 4000, u"c"},
                              {5000, 9000, u"<span begin=\"0s\">d</span> e"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  EXPECT_EQ(rig.Again(rig.WithNew(0, {2100, 2200, u"n"}))[1], (Caption{2100, 2200, u"n"}));
  EXPECT_EQ(rig.Again(rig.WithOwn(1, {3100, 4200, u"n"}))[1], (Caption{3100, 4200, u"n"}));
}

TEST(Ttml, PartsOfASequenceFollowEachOther) {
  const SourceRig rig(u"TTML",
                      Bodied("<div begin=\"10s\" timeContainer=\"seq\"><p begin=\"1s\" dur=\"2s\">a</p>"
                             "<p dur=\"1s\">b</p><div><p begin=\"1s\" end=\"3s\">c</p></div><p end=\"1s\">d</p></div>"
                             "<p begin=\"1s\" end=\"2s\">e</p>"));
  EXPECT_EQ(
      rig.Rows(),
      (Rows{
          {11000, 13000, u"a"}, {13000, 14000, u"b"}, {15000, 17000, u"c"}, {17000, 18000, u"d"}, {1000, 2000, u"e"}}));
  // A caption that moves would take those behind it along.
  EXPECT_FALSE(rig.Format().WritesChanges());
}

TEST(Ttml, AnEndThatLacksIsTheNextBeginning) {
  const SourceRig rig(u"TTML", Bodied("<p begin=\"1s\">a caption that is long</p>\n<p begin=\"2s\">b</p>\n"
                                      "<p begin=\"9s\" end=\"10s\">c</p>\n<p begin=\"11s\">d</p>\n"));
  EXPECT_EQ(
      rig.Rows(),
      (Rows{{1000, 2000, u"a caption that is long"}, {2000, 2250, u"b"}, {9000, 10000, u"c"}, {11000, 11250, u"d"}}));
  EXPECT_EQ(rig.Again(rig.WithOwn(1, {2000, 5000, u"b"}))[1], (Caption{2000, 5000, u"b"}));
}

TEST(Ttml, TheRootSaysWhatBlanksMean) {
  const SourceRig rig(u"TTML", Bodied("<p begin=\"1s\" end=\"2s\">a  b</p>", " xml:space=\"preserve\""));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a  b"}}));
}

TEST(Ttml, VerbatimTextIsText) {
  const SourceRig rig(u"TTML", Bodied("<p begin=\"1s\" end=\"2s\">a<![CDATA[ & b</p> <b>]]></p>"));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a & b&lt;/p> &lt;b>"}}));
}

TEST(Ttml, AFileThatBreaksOffIsBlamed) {
  const SourceRig broken(u"TTML",
                         "<tt><body><div>\n<p begin=\"1s\" end=\"2s\">a</p>\n<p begin=\"3s\" end=\"4s\">b</div>");
  EXPECT_FALSE(broken.Blamed().empty());
  EXPECT_EQ(broken.Rows().front(), (Caption{1000, 2000, u"a"}));
  for (const std::string bytes :
       {"", "<", "<l T\r\n", "<tt", "<tt>", "<p begin='1s' end='2s'>a</p>", "<tt><body><p begin='1s' end='2s'"}) {
    EXPECT_FALSE(SourceRig(u"TTML", bytes).Blamed().empty()) << bytes;
  }
}

TEST(Ttml, WhatLooksLikeATagAndIsNoneIsPassedOver) {
  const SourceRig rig(u"TTML",
                      "<?xml version=\"1.0\"?><?note <tt> ?>\n<!-- <tt> -->\n"
                      "<!DOCTYPE tt [<!ENTITY a \"<p>\"> <!-- ' > --> <!ELEMENT tt (body)>]>\n"
                      "<tt><body><div><![CDATA[<p begin='8s' end='9s'>no</p>]]><?p <p> ?>"
                      "<p begin=\"1s\" end=\"2s\">a<!-- </p> --></p><set x='a>b'/></div></body></tt>\n<!-- end -->");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a<!-- </p> -->"}}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(Ttml, AParagraphThatIsBrokenIsBlamedAndThoseBehindItAreRead) {
  const SourceRig rig(u"TTML", Bodied("<p begin=\"1s\" end=\"2s\">a <span>b</p>\n"
                                      "<p begin=\"3s\" end=\"4s\">c</p>\n"));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a <span>b"}, {3000, 4000, u"c"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{2}));
}

TEST(Ttml, WhatStandsBehindTheRootIsBlamed) {
  const SourceRig rig(u"TTML", Bodied("<p begin=\"1s\" end=\"2s\">a</p>") + "\n<tt></tt>");
  EXPECT_EQ(rig.Rows().size(), 1u);
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{3}));
  EXPECT_EQ(SourceRig(u"TTML", "<tt><body></div></body></tt>").Blamed(), (std::vector<int>{1}));
}

TEST(Ttml, ElementsTooDeepAreLeftOut) {
  std::string open;
  std::string close;
  for (int i = 0; i < 150; ++i) {
    open += "<div>";
    close += "</div>";
  }
  const SourceRig rig(u"TTML",
                      Bodied(open + "<p begin=\"1s\" end=\"2s\">a</p>" + close + "<p begin=\"3s\" end=\"4s\">b</p>"));
  EXPECT_EQ(rig.Rows(), (Rows{{3000, 4000, u"b"}}));
}

TEST(Ttml, BlanksAroundTagsAreAsTheyAreSeen) {
  const SourceRig rig(u"TTML",
                      Bodied("<p begin=\"1s\" end=\"2s\">a <span x=\"y\"> b </span> c <br/><span x=\"y\"> d </span>"
                             " </p>"));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a <span x=\"y\">b </span>c|<span x=\"y\">d</span>"}}));
}

}  // namespace
}  // namespace cuewright::testing
