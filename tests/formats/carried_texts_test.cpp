#include "formats/carried_texts.h"

#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"

// What a file says of the looks of its text is carried into another format, and what that can't hold is counted.

namespace cuewright::testing {
namespace {

const std::string kSubRipFile =
    "1\n00:00:01,000 --> 00:00:02,000\nShe was <i>very</i> late\n\n"
    "2\n00:00:03,000 --> 00:00:04,000\n<i>All of it,\nboth lines</i>\n\n"
    "3\n00:00:05,000 --> 00:00:06,000\n<font color=\"#ff0000\">red</font> & a < b\n\n"
    "4\n00:00:07,000 --> 00:00:08,000\nplain\n";

std::string SavedAs(TextView format, Losses& lost) {
  FormatRig rig;
  rig.Open("a.srt", kSubRipFile);
  const std::string saved = rig.Save(format);
  lost = rig.exporter.Lost();
  return saved;
}

TEST(CarriedTexts, KeepStylesOfPartsInSubStation) {
  Losses lost;
  const std::string saved = SavedAs(u"ADVANCEDSSA", lost);
  EXPECT_NE(saved.find("She was {\\i1}very{\\i0} late\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("{\\i1}All of it,\\Nboth lines{\\i0}\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("{\\c&H0000FF&}red"), std::string::npos) << saved;
  EXPECT_FALSE(lost.Any());
}

TEST(CarriedTexts, AreEscapedWhereTheFormatAsksForIt) {
  Losses lost;
  const std::string saved = SavedAs(u"WEBVTT", lost);
  EXPECT_NE(saved.find("She was <i>very</i> late\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find(" &amp; a &lt; b\r\n"), std::string::npos) << saved;
}

TEST(CarriedTexts, CountWhatIsLost) {
  Losses lost;
  const std::string saved = SavedAs(u"YOUTUBESBV", lost);
  EXPECT_NE(saved.find("She was very late\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("red & a < b\r\n"), std::string::npos) << saved;
  EXPECT_GE(lost.Of(Loss::Italic), 1u);
  EXPECT_EQ(lost.Of(Loss::Colour), 1u);
  EXPECT_EQ(lost.Of(Loss::Karaoke), 0u);
}

TEST(CarriedTexts, KeepAndCountTheStyleOfAWholeCaption) {
  for (const auto& [format, marked, lost] :
       {std::tuple<TextView, std::string, std::size_t>{u"TTML", "<span tts:fontStyle=\"italic\">All of it", 0},
        {u"WEBVTT", "<i>All of it", 0},
        {u"MICRODVD", "{Y:i}All of it", 0},
        {u"YOUTUBESBV", "\nAll of it", 1},
        {u"TMPLAYER", "=All of it", 1}}) {
    FormatRig rig;
    rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\n<i>All of it,\nboth lines</i>\n\n");
    const int index = rig.catalogue.IndexOf(format);
    const FormatState before = rig.state;
    rig.state.CurrentFormatIndex = static_cast<std::uint8_t>(index);
    const Losses foreseen = rig.exporter.Foreseen(1);
    rig.state = before;
    const std::string saved = rig.Save(format);
    EXPECT_NE(saved.find(marked), std::string::npos) << saved;
    EXPECT_EQ(rig.exporter.Lost().Of(Loss::Italic), lost) << ToUtf8(format);
    EXPECT_EQ(foreseen.Of(Loss::Italic), lost) << ToUtf8(format);
  }
}

TEST(CarriedTexts, AreNotTouchedInTheClassicManner) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Open("a.srt", kSubRipFile);
  EXPECT_NE(rig.Save(u"WEBVTT").find("<font color=\"#ff0000\">red</font> & a < b\r\n"), std::string::npos);
  EXPECT_FALSE(rig.exporter.Lost().Any());
}

TEST(CarriedTexts, WhatHasNoFieldIsCounted) {
  for (const auto& [format, times, breaks] :
       {std::tuple<TextView, std::size_t, std::size_t>{u"PLAINTEXT", 4, 0}, {u"KARAOKELRC", 0, 1}, {u"SAMI", 0, 0}}) {
    FormatRig rig;
    rig.Open("a.srt", kSubRipFile);
    (void)rig.Save(format);
    EXPECT_EQ(rig.exporter.Lost().Of(Loss::Times), times) << ToUtf8(format);
    EXPECT_EQ(rig.exporter.Lost().Of(Loss::LineBreak), breaks) << ToUtf8(format);
  }
}

}  // namespace
}  // namespace cuewright::testing
