#include "formats/headers.h"

#include <gtest/gtest.h>

#include "core/product.h"
#include "tests/formats/format_rig.h"

namespace cuewright::testing {
namespace {

/// The lines of a header.
std::vector<Text> Lines(TextView identifier, const FakeSettings& settings = {}, std::int16_t charset = 0) {
  return Split(BuildBuiltInHeader(identifier, settings, charset), kLineEnd);
}

TEST(BuiltInHeader, OfDvdSubtitleHasItsDefaults) {
  EXPECT_EQ(Lines(u"DVDSUBTITLE"),
            (std::vector<Text>{u"{HEAD", u"DISCID=", u"DVDTITLE=", u"CODEPAGE=1250", u"FORMAT=ASCII", u"LANG=EN",
                               u"TITLE=1", u"ORIGINAL=ORIGINAL", u"AUTHOR=", u"WEB=" + Text(kWebSite),
                               u"INFO=Created with Tessaly Cuewright", u"LICENSE=", u"}"}));
}

TEST(BuiltInHeader, OfDvdSubtitleTakesItsOptions) {
  FakeSettings settings;
  for (const TextView key : {TextView(u"discid"), TextView(u"dvdtitle"), TextView(u"lang"), TextView(u"author"),
                             TextView(u"web"), TextView(u"info"), TextView(u"license")}) {
    settings.values[{u"Cuewright\\DVDSUBTITLE", Text(key)}] = u"<" + Text(key) + u">";
  }
  EXPECT_EQ(Lines(u"DVDSUBTITLE", settings),
            (std::vector<Text>{u"{HEAD", u"DISCID=<discid>", u"DVDTITLE=<dvdtitle>", u"CODEPAGE=1250", u"FORMAT=ASCII",
                               u"LANG=<lang>", u"TITLE=1", u"ORIGINAL=ORIGINAL", u"AUTHOR=<author>", u"WEB=<web>",
                               u"INFO=<info>", u"LICENSE=<license>", u"}"}));
}

TEST(BuiltInHeader, OfDvdSubtitleNamesItsCodePageWhateverTheUsersCharacterSet) {
  const std::vector<Text> lines = Lines(u"DVDSUBTITLE", {}, 204);
  EXPECT_EQ(lines[3], u"CODEPAGE=1250");
  EXPECT_EQ(lines[4], u"FORMAT=ASCII");
}

TEST(BuiltInHeader, OfSamiHasItsDefaults) {
  EXPECT_EQ(
      Lines(u"SAMI"),
      (std::vector<Text>{u"<SAMI>", u"<Head>", u"   <STYLE TYPE=\"Text/css\">", u"   <!--",
                         u"      P {margin-left: 28pt; margin-right: 28pt; font-size: 18pt;",
                         u"      text-align: center; font-family: Tahoma; color: #FFFF00; background-color: #000000;}",
                         u"      .SUBTTL {Name: 'Subtitles'; Lang: en-US; SAMIType: CC;}", u"   -->", u"   </Style>",
                         u"</Head>", u"<BODY>"}));
}

TEST(BuiltInHeader, OfSamiPutsBoldInFrontOfItalic) {
  FakeSettings settings;
  settings.values[{u"Cuewright\\SAMI", u"bold"}] = u"1";
  settings.values[{u"Cuewright\\SAMI", u"italic"}] = u"1";
  EXPECT_EQ(Lines(u"SAMI", settings)[5],
            u"      text-align: center; font-family: Tahoma; font-weight: bold; font-style: italic; color: #FFFF00; "
            u"background-color: #000000;}");
}

TEST(BuiltInHeader, OfSamiTakesTheNumberOneAloneForBold) {
  FakeSettings settings;
  settings.values[{u"Cuewright\\SAMI", u"bold"}] = u"255";
  EXPECT_EQ(Lines(u"SAMI", settings)[5].find(u"bold"), Text::npos);
}

TEST(BuiltInHeader, OfSamiWritesStyleInTwoCases) {
  EXPECT_EQ(Lines(u"SAMI")[2], u"   <STYLE TYPE=\"Text/css\">");
  EXPECT_EQ(Lines(u"SAMI")[8], u"   </Style>");
}

TEST(BuiltInHeader, OfSubStationHasItsDefaults) {
  const std::vector<Text> lines = Lines(u"SUBSTATIONALPHA", {}, 238);
  ASSERT_EQ(lines.size(), 13u);
  EXPECT_EQ(lines[0], u"[Script Info]");
  EXPECT_EQ(lines[1], u"; Subtitle script generated with Tessaly Cuewright");
  EXPECT_EQ(lines[2], u"; " + Text(kWebSite) + u"/cuewright.php");
  EXPECT_EQ(lines[3], u"Title: <untitled>");
  EXPECT_EQ(lines[4], u"Original Script: <unknown>");
  EXPECT_EQ(lines[5], u"ScriptType: v4.00");
  EXPECT_EQ(lines[6], u"");
  EXPECT_EQ(lines[7], u"[V4 Styles]");
  EXPECT_EQ(
      lines[8],
      u"Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, TertiaryColour, BackColour, Bold, Italic, "
      u"BorderStyle, Outline, Shadow, Alignment, MarginL, MarginR, MarginV, AlphaLevel, Encoding");
  EXPECT_EQ(lines[9], u"Style: Default,Tahoma,28,65535,65535,65535,0,0,0,1,1,1,2,30,30,30,0,238");
  EXPECT_EQ(lines[10], u"");
  EXPECT_EQ(lines[11], u"[Events]");
  EXPECT_EQ(lines[12], u"Format: Marked, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text");
}

TEST(BuiltInHeader, OfSubStationUsesOneColorThreeTimesAndNoBlankBehindCommas) {
  FakeSettings settings;
  int number = 1;
  for (const TextView key :
       {TextView(u"fontname"), TextView(u"fontsize"), TextView(u"primarycolour"), TextView(u"backcolour"),
        TextView(u"bold"), TextView(u"italic"), TextView(u"borderstyle"), TextView(u"outline"), TextView(u"shadow"),
        TextView(u"alignment"), TextView(u"marginl"), TextView(u"marginr"), TextView(u"marginv")}) {
    settings.values[{u"Cuewright\\SUBSTATIONALPHA", Text(key)}] = u"v" + Decimal(number++);
  }
  EXPECT_EQ(Lines(u"SUBSTATIONALPHA", settings)[9],
            u"Style: Default,v1,v2,v3,v3,v3,v4,v5,v6,v7,v8,v9,v10,v11,v12,v13,0,0");
}

TEST(BuiltInHeader, IsEmptyForAnyOtherFormat) {
  for (const TextView id : {TextView(u"ADVANCEDSSA"), TextView(u"SUBRIP"), TextView(u"")}) {
    EXPECT_EQ(BuildBuiltInHeader(id, FakeSettings(), 0), u"");
  }
}

}  // namespace
}  // namespace cuewright::testing
