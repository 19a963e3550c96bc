#include <gtest/gtest.h>

#include <array>

#include "formats/further_formats.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

// The formats that the data files don't have.

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr const char* kMpl2 = "[124][152]/A night|of rain.\n[160][198]The end.\n";
constexpr const char* kTranscript =
    "{\"segments\": [\n"
    "  {\"start\": 12.4, \"end\": 15.2, \"text\": \" A night\"},\n"
    "  {\"start\": 16.0, \"end\": 19.8, \"text\": \" of rain.\"}\n"
    "]}\n";

TEST(FurtherFormats, StandBehindTheFilesOnesInTodaysMannerAlone) {
  const FormatRig rig;
  Manner manner;
  const int all = static_cast<int>(kFurtherFormats.size());
  EXPECT_EQ(rig.catalogue.CountToRead(manner), rig.catalogue.Count() + all);
  EXPECT_EQ(rig.catalogue.CountToWrite(manner), rig.catalogue.Count() + kFurtherFormatsWritten);
  manner.SetClassic(true);
  EXPECT_EQ(rig.catalogue.CountToRead(manner), rig.catalogue.Count());
  EXPECT_EQ(rig.catalogue.CountToWrite(manner), rig.catalogue.Count());
  for (int i = 0; i < all; ++i) {
    const Text id = rig.catalogue.Identifier(rig.catalogue.Count() + i);
    EXPECT_EQ(id, kFurtherFormats[static_cast<std::size_t>(i)]);
    EXPECT_NE(rig.catalogue.DisplayName(id), u"");
    EXPECT_NE(rig.catalogue.ReadIni(id, u"extension", u""), u"");
  }
}

TEST(FurtherFormats, WhatTheFilesSayOfAFormatCounts) {
  const FormatRig rig("[MPL2]\nname=Own\n", "<FORMATSLIST>\nPLAINTEXT\nMPL2\n</FORMATSLIST>\n");
  EXPECT_EQ(rig.catalogue.Count(), 2);
  EXPECT_EQ(rig.catalogue.IndexOf(u"MPL2"), 1);
  EXPECT_EQ(rig.catalogue.DisplayName(u"MPL2"), u"Own");
  EXPECT_FALSE(rig.catalogue.Block(u"MPL2").found);
}

TEST(FurtherFormats, Mpl2IsOpenedAndSavedAsItIs) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("film.txt", kMpl2), u"MPL2");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"/A night|of rain."}, {16000, 19800, u"The end."}}));
  EXPECT_EQ(rig.Save(u"MPL2"), kMpl2);
  std::array times = {CaptionTimes{16060, 19800}};
  rig.captions.Retime(2, times);
  EXPECT_EQ(rig.Save(u"MPL2"), "[124][152]/A night|of rain.\n[161][198]The end.\n");
}

TEST(FurtherFormats, TheClassicMannerKnowsNoneOfThem) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  EXPECT_EQ(rig.Open("film.sub", kMpl2), u"PLAINTEXT");
  rig.Fill({{1000, 2000, u"x"}});
  rig.messages.shown.clear();
  EXPECT_EQ(rig.Save(u"MPL2"), "");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text, u"Files of the format MPL2 can only be read. Save the text in another format.");
}

TEST(FurtherFormats, AnotherFilesCaptionsAreWrittenInMpl2) {
  FormatRig rig;
  rig.Open("film.srt", "1\n00:00:12,440 --> 00:00:15,260\n<i>A night</i>\n<b>of</b> rain.\n\n");
  EXPECT_EQ(rig.Save(u"MPL2"), "[124][153]/A night|of rain.\r\n");
  EXPECT_EQ(rig.exporter.Lost().Of(Loss::Bold), 1u);
  rig.Fill({{1000, 2000, u"<b><i>x|y"}, {3000, 4000, u" "}});
  EXPECT_EQ(rig.Save(u"MPL2"), "[10][20]\\/x|\\/y\r\n");
}

TEST(FurtherFormats, ATranscriptIsOpenedAndSavedAsItIs) {
  FormatRig rig;
  EXPECT_EQ(rig.Open("talk.json", kTranscript), u"TRANSCRIPTJSON");
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"A night"}, {16000, 19800, u"of rain."}}));
  EXPECT_EQ(rig.Save(u"TRANSCRIPTJSON"), kTranscript);
}

TEST(FurtherFormats, ATranscriptStaysAListWhateverComesOrGoes) {
  FormatRig rig;
  rig.Open("talk.json", kTranscript);
  rig.captions.Replace(1, 1, {});
  EXPECT_EQ(rig.Save(u"TRANSCRIPTJSON"),
            "{\"segments\": [\n  \n  {\"start\": 16.0, \"end\": 19.8, \"text\": \" of rain.\"}\n]}\n");
  rig.Open("talk.json", kTranscript);
  rig.captions.Replace(1, 0, {{1000, 2500, u"\"So\""}});
  rig.Open("again.json", rig.Save(u"TRANSCRIPTJSON"));
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2500, u"\"So\""}, {12400, 15200, u"A night"}, {16000, 19800, u"of rain."}}));
  EXPECT_TRUE(rig.state.Source->LinesNotUnderstood().empty());
}

TEST(FurtherFormats, AnotherFilesCaptionsAreWrittenAsATranscript) {
  FormatRig rig;
  rig.Fill({{1000, 2500, u"a|\"b\""}, {3000, 4000, u"c"}});
  const std::string written = rig.Save(u"TRANSCRIPTJSON");
  EXPECT_EQ(written,
            "{\"segments\": [\r\n{\"start\": 1.000, \"end\": 2.500, \"text\": \"a\\n\\\"b\\\"\"},\r\n"
            "{\"start\": 3.000, \"end\": 4.000, \"text\": \"c\"}\r\n]}\r\n");
  EXPECT_EQ(rig.Open("again.json", written), u"TRANSCRIPTJSON");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2500, u"a|\"b\""}, {3000, 4000, u"c"}}));
}

}  // namespace
}  // namespace cuewright::testing
