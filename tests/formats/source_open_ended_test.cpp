#include <gtest/gtest.h>

#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

// A caption without an end lasts 250 ms a character up to 5 of them, 120 up to 15 and 50 beyond, or to the next start.

TEST(TmPlayer, EveryDialectIsRead) {
  const Rows rows{{12000, 15000, u"Good evening, Inspector, and all|of you behind the doors"}, {16000, 17000, u"Nobo"}};
  for (const std::string mark : {":", "="}) {
    for (const std::string hours : {"0", "00"}) {
      const std::string file = hours + ":00:12" + mark + "Good evening, Inspector, and all|of you behind the doors\n" +
                               hours + ":00:15" + mark + "\n\n" + hours + ":00:16" + mark + "Nobo\n";
      const SourceRig rig(u"TMPLAYERCOLON", file);
      EXPECT_EQ(rig.Rows(), rows);
      EXPECT_TRUE(rig.Blamed().empty());
      EXPECT_TRUE(rig.Format().WritesEnds());
      rig.ExpectFieldsAreTheirOwn();
      EXPECT_EQ(rig.WithNew(0, {15500, 15800, u"a|b"}),
                file.substr(0, file.find(hours + ":00:16")).substr(0, file.find("\n\n") + 1) + hours + ":00:16" + mark +
                    "a|b\n" + hours + ":00:16" + mark + "\n" + file.substr(file.find("\n\n") + 1));
    }
  }
}

TEST(TmPlayer, RowsOfATimeAreOneCaption) {
  const std::string file =
      "00:00:12,1=Good evening\n00:00:12,2=\n00:00:15,1=\n00:00:15,2=\n"
      "00:00:16,1=Nobody leaves\n00:00:16,2=until\n00:00:19,1=\n00:00:19,2=\n00:01:00,1=last\n";
  const SourceRig rig(u"TMPLAYER", file);
  EXPECT_EQ(rig.Rows(),
            (Rows{{12000, 15000, u"Good evening"}, {16000, 19000, u"Nobody leaves|until"}, {60000, 61000, u"last"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  EXPECT_TRUE(rig.Record(1).start.Empty());
  const Caption caption{16499, 18500, u"a|b"};
  EXPECT_EQ(rig.Format().Record({caption, 2, u"\n", rig.In(rig.Record(1).whole)}, u"|"),
            u"00:00:16,1=a\n00:00:16,2=b\n00:00:19,1=\n00:00:19,2=\n");
}

TEST(TmPlayer, AFileOfStartsAloneGetsNoEnds) {
  const SourceRig rig(u"TMPLAYERCOLON", "00:00:12:one\n00:00:13:two three four five six\nfree\n00:00:1x:no\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12000, 12750, u"one"}, {13000, 14150, u"two three four five six"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{3, 4}));
  EXPECT_FALSE(rig.Format().WritesEnds());
  EXPECT_TRUE(rig.Record(0).endIsReckoned);
  EXPECT_EQ(rig.WithNew(0, {12600, 12700, u"n"}),
            "00:00:12:one\n00:00:13:n\n00:00:13:two three four five six\nfree\n00:00:1x:no\n");
}

TEST(Lyrics, LinesRepeatsAndWordTimes) {
  const SourceRig rig(u"KARAOKELRC",
                      "[ti:A song]\n[offset:+500]\n\n[00:12.40][01:10.000]again and again\n[00:15.20]\n"
                      "[00:16.00]<00:16.00>one <00:16.50>two\n[75:00]end\nfree\n");
  EXPECT_EQ(rig.Rows(), (Rows{{11900, 14700, u"again and again"},
                              {69500, 71300, u"again and again"},
                              {15500, 16850, u"<00:16.00>one <00:16.50>two"},
                              {4499500, 4500250, u"end"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{8}));
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_EQ(rig.In(rig.Record(0).whole), "[00:12.40]");
  EXPECT_EQ(rig.Record(0).text.at, 0u);
  const Caption caption{11900, 13000, u"a|b"};
  EXPECT_EQ(rig.Format().Record({caption, 1, u"\n", rig.In(rig.Record(0).whole)}, u"|"),
            u"[00:12.40]a b\n[00:13.50]\n");
}

TEST(Lyrics, OlderProgramsHaveAColonInFrontOfTheHundredths) {
  const SourceRig rig(u"KARAOKELRC", "[ti:A song]\n[00:12:40]again\n[00:15:20]\n[75:00:05]end\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"again"}, {4500050, 4500800, u"end"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_EQ(rig.WithStart(1, 4512340), "[ti:A song]\n[00:12:40]again\n[00:15:20]\n[75:12:34]end\n");
}

TEST(Lyrics, ATimeWithoutWordsEndsWhatIsSeenThen) {
  const SourceRig rig(u"KARAOKELRC",
                      "[00:10.00][01:00.00]again and again\n[00:15.00]\n[00:20.00]once\n[00:25.00]\n[01:09.00]\n"
                      "[01:05.00]late\n");
  EXPECT_EQ(rig.Rows(), (Rows{{10000, 15000, u"again and again"},
                              {60000, 61800, u"again and again"},
                              {20000, 25000, u"once"},
                              {65000, 69000, u"late"}}));
  EXPECT_FALSE(rig.Record(2).endIsReckoned);
  EXPECT_TRUE(rig.Record(0).endIsReckoned);
  rig.ExpectFieldsAreTheirOwn();
}

TEST(QuickTime, UnitsBehindTheDotAreOfTheTimeScale) {
  const SourceRig rig(u"QUICKTIMETEXT",
                      "{QTtext}{font:Tahoma}\n{timeScale:30}\n[00:00:12.12]\nGood evening\n[00:00:15.06]\n\n"
                      "[00:00:16.00]{bold}Nobody\nleaves\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good evening"}, {16000, 16950, u"{bold}Nobody|leaves"}}));
  EXPECT_TRUE(rig.Blamed().empty());
  rig.ExpectFieldsAreTheirOwn();
  EXPECT_EQ(rig.Format().TimeField(59990, "00:00:12.12"), "00:01:00.00");
  const SourceRig plain(u"QUICKTIMETEXT", "{QTtext}\nwords\n[00:00:12.40]\none\n[00:00:15.200]\n");
  EXPECT_EQ(plain.Rows(), (Rows{{12400, 15200, u"one"}}));
  EXPECT_EQ(plain.Blamed(), (std::vector<int>{2}));
  EXPECT_EQ(plain.WithEnd(0, 15999), "{QTtext}\nwords\n[00:00:12.40]\none\n[00:00:15.999]\n");
  EXPECT_EQ(plain.WithNew(0, {16000, 17004, u"a|b"}),
            "{QTtext}\nwords\n[00:00:12.40]\none\n[00:00:15.200]\n[00:00:16.00]\na\nb\n[00:00:17.00]\n");
}

}  // namespace
}  // namespace cuewright::testing
