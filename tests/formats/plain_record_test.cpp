#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

// Lines that are their record to the letter are read by a shorter way. These are the lines beside it.

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

TEST(PlainRecord, TheSecondByteOfACharacterIsNoPartOfTheRecord) {
  FormatRig rig;
  rig.encodings = Encodings(932);
  // 83 7C is one character, so the first line lacks the record's end and its text is looked for below.
  rig.OpenClassic("a.sub", "1000||2000||\x83||\r\n3000||4000||\x83\x7C||\r\n");
  EXPECT_EQ(rig.Format(), u"PIPES");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"3000||4000||ポ||"}}));
}

TEST(PlainRecord, ALineWithoutTextLeavesItsTimesToTheNextText) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Open("a.sub", "{25}{50}\r\nbelow\r\n{100}{125}two\r\n");
  EXPECT_EQ(rig.Format(), u"MICRODVD");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"below"}, {4000, 5000, u"two"}}));
}

TEST(PlainRecord, WordsInFrontOfTheRecordAreSkipped) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Open("a.sub", "{25}{50}one\r\nnoise {75}{100}two\r\n");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"one"}, {3000, 4000, u"two"}}));
}

TEST(PlainRecord, LinesAsLongAsTheColumnsReachAreRead) {
  for (const std::size_t length : {200u, 243u, 244u, 245u, 246u}) {
    FormatRig rig;
    rig.options.manner.SetClassic(true);
    const std::string text(length, 'x');
    rig.Open("a.sub", "{25}{50}one\r\n{75}{100}" + text + "\r\n");
    SCOPED_TRACE(length);
    EXPECT_EQ(rig.Rows().front(), (Caption{1000, 2000, u"one"}));
    const bool fits = 9 + length + 1 <= 255;  // the line end behind the text must have a column
    EXPECT_EQ(rig.Rows().size(), fits ? 2u : 1u);
  }
}

TEST(PlainRecord, TextLinesWithAndWithoutDigitsJoin) {
  FormatRig rig;
  rig.Open("a.vtt", "WEBVTT\n\n00:00:01.000 --> 00:00:02.000\nof 7 ships\noff they go\nfar\n\n");
  EXPECT_EQ(rig.Format(), u"WEBVTT");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"of 7 ships|off they go|far"}}));
}

TEST(Sami, TimesAndBlanksAreReadHoweverTheyAreWritten) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Open("a.smi",
           "<SAMI>\r\n<BODY>\r\n<SYNC START=1000>\r\n<P CLASS=SUBTTL>\r\nbuy <br>now\r\n<sync start = 2000 >\r\n"
           "<P CLASS=OTHER> &NBSP;\r\n<SYNC START=3000>\r\n<P CLASS=SUBTTL>\r\nagain\r\n<SYNC START=4000>\r\n"
           "<P CLASS=SUBTTL>&nbsp;\r\n</BODY>\r\n");
  EXPECT_EQ(rig.Format(), u"SAMI");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"buy |now"}, {3000, 4000, u"again"}}));
}

}  // namespace
}  // namespace cuewright::testing
