#include <gtest/gtest.h>

#include "formats/source/sami_format.h"
#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

const std::string kHead =
    "<SAMI>\n<HEAD><STYLE><!-- .ENCC {Name:'English';} .FRCC {Name:'French';} --></STYLE></HEAD>\n<BODY>\n";

TEST(SamiSource, TextStandsWhereItWants) {
  const SourceRig rig(
      u"SAMI", kHead +
                   "<SYNC Start=12400><P Class=ENCC>Good <i>evening</i>,<br />Inspector &amp; all\n"
                   "<SYNC Start=15200><P Class=ENCC>&nbsp;\n"
                   "  <sync start = \"16000\" >\n    <p class='encc'>\n    <i>Nobody\n    leaves</i></p></sync>\n"
                   "<SYNC Start=17000><P>next\n"
                   "<SYNC Start=soon><P Class=ENCC>lost\n"
                   "</BODY>\n</SAMI>\n");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good <i>evening</i>,|Inspector & all"},
                              {16000, 17000, u"<i>Nobody leaves"},
                              {17000, 18000, u"next"}}));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{11}));
  EXPECT_EQ(rig.In(rig.Record(0).whole),
            "<SYNC Start=12400><P Class=ENCC>Good <i>evening</i>,<br />Inspector &amp; all\n"
            "<SYNC Start=15200><P Class=ENCC>&nbsp;\n");
  EXPECT_EQ(rig.In(rig.Record(1).start), "16000");
  EXPECT_TRUE(rig.Record(1).endIsReckoned);
}

TEST(SamiSource, WhatStandsInARemarkIsNotRead) {
  const SourceRig rig(u"SAMI", kHead +
                                   "<!-- <SYNC Start=1><P Class=ENCC>no -->\n<SYNC Start=1000><P Class=ENCC>a\n"
                                   "<SYNC Start=2000><P Class=ENCC>&nbsp;</BODY>\n<!-- open <SYNC Start=9>");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"a"}}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(SamiSource, AHardBlankMayLackItsSemicolon) {
  const SourceRig rig(u"SAMI",
                      kHead +
                          "<SYNC Start=1000><P Class=ENCC>a\n<SYNC Start=2000><P Class=ENCC>&nbsp\n"
                          "<SYNC Start=3000><P Class=ENCC>b&nbsp;&NBSP;\n<SYNC Start=4000><P Class=ENCC>&Nbsp;");
  EXPECT_EQ(rig.Rows().size(), 2u);
  EXPECT_EQ(rig.Rows().front(), (Caption{1000, 2000, u"a"}));
  EXPECT_EQ(rig.Rows().back().end, 4000);
}

TEST(SamiSource, AFieldChangesByItself) {
  const std::string file = kHead +
                           "<SYNC Start=12400><P Class=ENCC>one\n<SYNC Start=15200><P Class=ENCC>&nbsp;\n"
                           "<SYNC Start=16000><P Class=ENCC>two<br>three\n</BODY>\n</SAMI>\n";
  const SourceRig rig(u"SAMI", file);
  rig.ExpectFieldsAreTheirOwn();
  const auto replaced = [&](const std::string& from, const std::string& to) {
    std::string changed = file;
    return changed.replace(changed.find(from), from.size(), to);
  };
  EXPECT_EQ(rig.WithStart(0, 12000), replaced("12400", "12000"));
  EXPECT_EQ(rig.WithEnd(0, 15000), replaced("15200", "15000"));
  EXPECT_EQ(rig.WithText(1, u"<b>a < b|c"), replaced("two<br>three", "<b>a &lt; b<br>c</b>"));
  EXPECT_EQ(rig.WithNew(0, {15300, 15400, u"n"}),
            replaced("<SYNC Start=16000>",
                     "<SYNC Start=15300><P Class=ENCC>n\n<SYNC Start=15400><P Class=ENCC>&nbsp;\n<SYNC Start=16000>"));
  EXPECT_EQ(rig.Again(rig.Without(0)), (Rows{{16000, 17080, u"two|three"}}));
}

TEST(SamiSource, OneOfSeveralClassesIsRead) {
  const std::string file = kHead +
                           "<SYNC Start=1000><P Class=ENCC ID=Source>ANN<P Class=ENCC>one<P Class=FRCC>un\n"
                           "<SYNC Start=2000><P Class=FRCC>&nbsp;\n<SYNC Start=3000><P Class=ENCC>&nbsp;\n</BODY>\n";
  EXPECT_EQ(SamiClasses(file), (std::vector<Text>{u"ENCC", u"FRCC"}));
  EXPECT_EQ(SourceRig(u"SAMI", file).Rows(), (Rows{{1000, 3000, u"one"}}));
  SourceSettings settings;
  settings.captionClass = u"FRCC";
  const SourceRig french(u"SAMI", file, settings);
  EXPECT_EQ(french.Rows(), (Rows{{1000, 2000, u"un"}}));
  french.ExpectFieldsAreTheirOwn();
}

TEST(SamiSource, BrokenTagsAreNoTrouble) {
  for (const std::string bytes : {"", "<SYNC", "<SYNC Start=1", "<SYNC Start=1>", "<SYNC Start=1><P",
                                  "<SYNC Start=\"1><P>a", "<SYNC =><P>a", "</BODY><SYNC Start=1><P>a"}) {
    EXPECT_LE(SourceRig(u"SAMI", bytes).Rows().size(), 1u) << bytes;
  }
}

}  // namespace
}  // namespace cuewright::testing
