#include <gtest/gtest.h>

#include "formats/source/character_names.h"
#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr char kFull[] =
    "WEBVTT - a film\n"
    "Kind: captions\n"
    "\n"
    "REGION\n"
    "id:top\n"
    "\n"
    "STYLE\n"
    "::cue { color: red }\n"
    "\n"
    "NOTE one line\n"
    "\n"
    "first\n"
    "00:00:12.400 --> 00:00:15.200 align:start line:90%\n"
    "Good <i>evening</i>,\n"
    "Inspector.\n"
    "\n"
    "\n"
    "NOTE\n"
    "more lines\n"
    "than one\n"
    "\n"
    "00:16.000-->00:19.800\n"
    "<i>Nobody leaves</i>\n"
    "\n"
    "100:00:00.000 \t-->\t 123:00:01.500\n"
    "<v Ann>Salt &amp; pepper&nbsp;&lt; 3\n";

TEST(WebVtt, CuesAreReadAndAllElseIsLeft) {
  const SourceRig rig(u"WEBVTT", kFull);
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good <i>evening</i>,|Inspector."},
                              {16000, 19800, u"<i>Nobody leaves"},
                              {360000000, 442801500, u"<v Ann>Salt & pepper\u00A0< 3"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  EXPECT_EQ(rig.In(rig.Record(0).whole),
            "first\n00:00:12.400 --> 00:00:15.200 align:start line:90%\nGood <i>evening</i>,\nInspector.\n\n\n");
  EXPECT_TRUE(rig.Record(0).number.Empty());
  EXPECT_EQ(rig.In(rig.Record(1).start), "00:16.000");
  EXPECT_EQ(rig.In(rig.Record(2).end), "123:00:01.500");
}

TEST(WebVtt, AFieldChangesByItself) {
  const SourceRig rig(u"WEBVTT",
                      "WEBVTT\n\n00:59.999 --> 01:00.000 line:0\none\n\n00:01:02.000 --> 00:01:03.000\ntwo\n");
  EXPECT_EQ(rig.WithStart(0, 3599500),
            "WEBVTT\n\n59:59.500 --> 01:00.000 line:0\none\n\n00:01:02.000 --> 00:01:03.000\ntwo\n");
  EXPECT_EQ(rig.WithEnd(0, 3600000),
            "WEBVTT\n\n00:59.999 --> 01:00:00.000 line:0\none\n\n00:01:02.000 --> 00:01:03.000\ntwo\n");
  EXPECT_EQ(rig.WithText(0, u"<b>a|b & c"),
            "WEBVTT\n\n00:59.999 --> 01:00.000 line:0\n<b>a\nb &amp; c</b>\n\n00:01:02.000 --> 00:01:03.000\ntwo\n");
  EXPECT_EQ(rig.Without(0), "WEBVTT\n\n00:01:02.000 --> 00:01:03.000\ntwo\n");
  EXPECT_EQ(rig.WithNew(0, {61000, 62000, u"<i>new"}),
            "WEBVTT\n\n00:59.999 --> 01:00.000 line:0\none\n\n01:01.000 --> 01:02.000\n<i>new</i>\n\n"
            "00:01:02.000 --> 00:01:03.000\ntwo\n");
  rig.ExpectFieldsAreTheirOwn();
  SourceRig(u"WEBVTT", kFull).ExpectFieldsAreTheirOwn();
}

TEST(WebVtt, ACueWithoutTextMayGetOne) {
  const SourceRig roomy(u"WEBVTT", "WEBVTT\n\n00:01.000 --> 00:02.000 line:0\n\n\n00:03.000 --> 00:04.000\nb\n");
  EXPECT_EQ(roomy.WithText(0, u"a"), "WEBVTT\n\n00:01.000 --> 00:02.000 line:0\na\n\n00:03.000 --> 00:04.000\nb\n");
  const SourceRig tight(u"WEBVTT", "WEBVTT\n\n00:01.000 --> 00:02.000 line:0\n\n00:03.000 --> 00:04.000\nb\n");
  EXPECT_EQ(tight.Record(0).text.at, 0u);
  const Caption caption{1000, 2000, u"a"};
  const NewRecord anew{caption, 1, u"\n", tight.In(tight.Record(0).whole)};
  EXPECT_EQ(tight.Format().Record(anew, u"|"), u"00:01.000 --> 00:02.000 line:0\na\n\n");
}

TEST(WebVtt, LinesMayEndInAnyWay) {
  const Rows rows{{1000, 2000, u"a|b"}, {3000, 4000, u"c"}};
  for (const std::string end : {"\n", "\r\n", "\r", "\r\r\n"}) {
    std::string file;
    for (const std::string line :
         {"WEBVTT", "", "00:01.000 --> 00:02.000", "a", "b", "", "00:03.000 --> 00:04.000", "c"}) {
      file += line + end;
    }
    EXPECT_EQ(SourceRig(u"WEBVTT", file).Rows(), rows) << file;
  }
  EXPECT_EQ(SourceRig(u"WEBVTT", "WEBVTT\r\r00:01.000 --> 00:02.000\na\r\nb\r\n\n00:03.000 --> 00:04.000\rc").Rows(),
            rows);
}

TEST(WebVtt, NamesThatCountAreNumbers) {
  const SourceRig rig(u"WEBVTT",
                      "WEBVTT\n\n1\n00:01.000 --> 00:02.000\na\n\n2\n00:03.000 --> 00:04.000\nb\n\n"
                      "07\n00:05.000 --> 00:06.000\nc\n\n");
  EXPECT_EQ(rig.In(rig.Record(0).number), "1");
  EXPECT_EQ(rig.In(rig.Record(1).number), "2");
  EXPECT_TRUE(rig.Record(2).number.Empty());
  EXPECT_EQ(rig.WithNew(1, {4500, 4800, u"n"}),
            "WEBVTT\n\n1\n00:01.000 --> 00:02.000\na\n\n2\n00:03.000 --> 00:04.000\nb\n\n"
            "3\n00:04.500 --> 00:04.800\nn\n\n07\n00:05.000 --> 00:06.000\nc\n\n");
}

TEST(WebVtt, ATimeThatGoesOnIsNotCutOff) {
  const SourceRig rig(u"WEBVTT", "WEBVTT\n\n00:01.000 --> 00:02:200:9\na\n\n00:03.000 --> 00:04.000\nb\n");
  EXPECT_EQ(rig.Rows(), (Rows{{3000, 4000, u"b"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{3}));
}

TEST(WebVtt, SettingsMayTouchTheTime) {
  const std::string file = "WEBVTT\n\n00:01.000 --> 00:02.000line:0\na\n\n00:03.000 --> 00:0x.000\nb\n";
  const SourceRig rig(u"WEBVTT", file);
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{6}));
  EXPECT_EQ(rig.WithEnd(0, 2500), "WEBVTT\n\n00:01.000 --> 00:02.500line:0" + file.substr(file.find("\na\n")));
}

TEST(WebVtt, AnArrowBeginsACueWhereverItStands) {
  const SourceRig rig(
      u"WEBVTT",
      "WEBVTT\n00:01.000 --> 00:02.000\na\n00:03.000 --> 00:04.000\n\nNOTE x\n00:05.000 --> 00:06.000\nb\n"
      "see --> there\nlost\n\nwords\nalone\n\n00:xx --> 00:07.000\nlost\n\n00:08.000 --> 00:09.000\nc");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a"}, {3000, 4000, u""}, {5000, 6000, u"b"}, {8000, 9000, u"c"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{9, 12, 15}));
}

TEST(WebVtt, FilesWithoutCuesAndWithoutASignature) {
  EXPECT_TRUE(SourceRig(u"WEBVTT", "").Rows().empty());
  EXPECT_TRUE(SourceRig(u"WEBVTT", "WEBVTT").Rows().empty());
  EXPECT_EQ(SourceRig(u"WEBVTT", "\xEF\xBB\xBFWEBVTT\n\n00:01.000 --> 00:02.000\na").Rows(),
            (Rows{{1000, 2000, u"a"}}));
  EXPECT_EQ(SourceRig(u"WEBVTT", "00:01,5 --> 00:02.0004\na").Rows(), (Rows{{1500, 2000, u"a"}}));
}

TEST(WebVtt, NamesOfCharactersThatStandForAMarkStay) {
  for (const TextView text : {u"&lt;i&gt;", u"&amp;lt;", u"&amp;amp;x", u"&lt;/v a &amp; b&gt;"}) {
    Text decoded(text);
    DecodeNames(decoded);
    EXPECT_EQ(decoded.find(u'<'), Text::npos);
    EXPECT_EQ(EncodeNames(decoded), text);
  }
  struct Case {
    TextView file;
    TextView text;
  };
  constexpr Case kCases[] = {{u"I &lt;3 you", u"I <3 you"},
                             {u"a &lt; b &gt; c", u"a < b > c"},
                             {u"Tom &amp; Jerry", u"Tom & Jerry"},
                             {u"<c.x>a&nbsp;b</c>", u"<c.x>a\u00A0b</c>"},
                             {u"--&gt;", u"-->"},
                             {u"&lrm;&copy;", u"\u200E&copy;"}};
  for (const auto& [file, text] : kCases) {
    Text decoded(file);
    DecodeNames(decoded);
    EXPECT_EQ(decoded, text);
  }
  EXPECT_EQ(EncodeNames(u"a < b > c & <i>d</i> &lt;u&gt; <3"), u"a &lt; b &gt; c &amp; <i>d</i> &lt;u&gt; &lt;3");
  EXPECT_EQ(EncodeNames(u"a\u00A0b"), u"a\u00A0b");
  EXPECT_EQ(EncodeNames(u"a\u00A0b", true), u"a&nbsp;b");
}

}  // namespace
}  // namespace cuewright::testing
