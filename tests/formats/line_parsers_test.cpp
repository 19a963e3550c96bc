#include "formats/line_parsers.h"

#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"
#include "tests/formats/reading_ways.h"
#include "tests/support/printers.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

/// Reads lines with a format of the shipped catalogue by name, in the classic manner.
Rows Read(TextView id, const std::string& lines, TextView fps = u"25") {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.ImportAs(id, CrLf(lines), fps);
  const bool nothing = rig.captions.Rows() == 2 && rig.captions.At(1) == Caption{};
  return nothing ? Rows{} : rig.Rows();
}

TEST(SubRipLines, ReadTheEndFromTheLast12CharactersWhenCoordinatesFollow) {
  const Rows rows = Read(u"SUBRIP", "1\n00:00:01,000 --> 00:00:02,000 X1:1 X2:2 Y1:3 Y2:4\ntext\n\n");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].start, 1000);
  EXPECT_NE(rows[0].end, 2000);
}

TEST(SubRipLines, IgnoreWhatStandsBetweenCaptions) {
  EXPECT_EQ(Read(u"SUBRIP", "words\n7\n\n1\n00:00:01,000 --> 00:00:02,000\none\ntwo\n\n\nstray\n"),
            (Rows{{1000, 2000, u"one|two"}}));
}

TEST(SubRipLines, AreCutOfBlanksOnly) {
  EXPECT_EQ(Read(u"SUBRIP", "  00:00:01,000 --> 00:00:02,000  \n  one  \n\ttwo\n   \n"),
            (Rows{{1000, 2000, u"one|\ttwo"}}));
}

TEST(SubRipLines, GlueCaptionsWithoutAnEmptyLineBetween) {
  EXPECT_EQ(Read(u"SUBRIP", "00:00:01,000 --> 00:00:02,000\none\n2\n00:00:03,000 --> 00:00:04,000\ntwo\n\n"),
            (Rows{{3000, 4000, u"one|2|two"}}));
}

TEST(SubRipLines, StoreNoCaptionOfBlanksOrTagsAlone) {
  EXPECT_EQ(Read(u"SUBRIP", "00:00:01,000 --> 00:00:02,000\n\n00:00:03,000 --> 00:00:04,000\n</i>\n\n"), Rows{});
}

TEST(SubRipLines, FlushTheLastCaptionWithoutAnEmptyLine) {
  EXPECT_EQ(Read(u"SUBRIP", "00:00:01,000 --> 00:00:02,000\nlast"), (Rows{{1000, 2000, u"last"}}));
}

TEST(SubRipLines, CountCharactersAndNotBytesUpToTheArrow) {
  // Eleven letters and an accent stand in front of the arrow of the first line.
  EXPECT_EQ(Read(u"SUBRIP", "\xC3\xA9_____: 1,0_ --> 00:00:02,000\nx\n\n"), (Rows{{0, 2000, u"x"}}));
}

struct TagRow {
  const char* text;
  TextView stored;
};

TEST(Tags, BecomeMarkersInFrontOfTheCaption) {
  for (const TagRow& row : {TagRow{"<i>one</i>", u"<i>one"},
                            {"one <i>two</i>", u"<i>one two"},
                            {"<I>one</I>", u"<i>one"},
                            {"<b><i>one</i></b>", u"<i><b>one"},
                            {"<u>a</u>", u"<u>a"},
                            {"a</i>", u"a"},
                            {"<font color=\"red\">a</font>", u"<font color=\"red\">a</font>"},
                            {"a < b", u"a < b"}}) {
    EXPECT_EQ(Read(u"SUBRIP", "00:00:01,000 --> 00:00:02,000\n" + std::string(row.text) + "\n\n"),
              (Rows{{1000, 2000, Text(row.stored)}}))
        << row.text;
  }
}

/// The markers that a tag turns into, in a format of one line a caption.
Text Marked(const std::string& ini, const std::string& text) {
  FormatRig rig(
      "[OWN]\ntimecode=ff\nsample={00}{00}\nlbreak=|\n" + ini,
      "PLAINTEXT\nOWN\n</FORMATSLIST>\n---OWN FORMAT---\n{SubRepeat}\n{qxmStart}{qxmEnd}qxmCaption\n{/SubRepeat}\n"
      "---END FORMAT DEFINITION---\n");
  rig.ImportAs(u"OWN", "{25}{50}" + text + "\r\n");
  return rig.captions.At(1).text;
}

TEST(Tags, MarkByTheirLetters) {
  EXPECT_EQ(Marked("tags=1\ntagopen={y:b}\n", "{y:b}x"), u"<b>x");
  EXPECT_EQ(Marked("tags=7\ntagopen={y:b}\n", "{y:i}x"), u"<i>x");
  // A tag with a further such letter marks twice.
  EXPECT_EQ(Marked("tags=2\ntagopen=[bui]\n", "[iui]x"), u"<u><i>x");
}

TEST(Tags, LeaveTheClosingTagWhenItIsThreeDashes) {
  EXPECT_EQ(Marked("tags=1\ntagopen=[b]\ntagclose=---\n", "[b]x---y"), u"<b>x---y");
  EXPECT_EQ(Marked("tags=1\ntagopen=[b]\ntagclose=[/b]\n", "[b]x[/b]y"), u"<b>xy");
}

TEST(Tags, AreNotLookedForWithoutFlags) {
  EXPECT_EQ(Marked("tags=0\ntagopen=[b]\n", "[b]x<b>"), u"[b]x<b>");
  EXPECT_EQ(Marked("tags=4\ntagopen=[b]\n", "[b]x[u]"), u"<u>[b]x");
}

TEST(Tags, OfPlainMarkersGoToTheFrontOnce) { EXPECT_EQ(Marked("tags=1\ntagopen=[b]\n", "x<i>y</i><i>z"), u"<i>xyz"); }

TEST(DialogueLines, KeepTheCommasOfTheText) {
  EXPECT_EQ(
      Read(u"SUBSTATIONALPHA",
           "[Events]\nDialogue: Marked=0,0:00:01.50,0:00:02.25,Default,NTP,0,0,0,,one, two\\Nthree\\nfour\n"
           "Comment: 0,0:00:03.00,0:00:04.00,Default,NTP,0,0,0,,no\ndialogue: 0,0:00:03.00,0:00:04.00,,,,,,,no\n"),
      (Rows{{1500, 2250, u"one, two|three|four"}}));
}

TEST(DialogueLines, OfTooFewFieldsAreToldAndDropped) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.ImportAs(u"ADVANCEDSSA",
               "Dialogue: 0,0:00:01.50,0:00:02.25\r\nDialogue: 0,0:00:03.00,0:00:04.00,D,,0,0,0,,x\r\n");
  EXPECT_EQ(rig.Rows(), (Rows{{3000, 4000, u"x"}}));
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.ends_with(u"Error #9: Subscript out of range"));
}

TEST(DialogueLines, ReadTwoHourDigitsWrong) {
  EXPECT_EQ(Read(u"ADVANCEDSSA", "Dialogue: 0,00:00:01.00,0:00:02.00,D,,0,0,0,,x\n")[0].start, 0);
}

TEST(DialogueLines, ReadTwoHourDigitsWrongInTheClassicManner) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.ImportAs(u"ADVANCEDSSA", "Dialogue: 0,00:00:01.00,0:00:02.00,D,,0,0,0,,x\r\n");
  EXPECT_EQ(rig.Rows().at(0).start, 0);
}

TEST(TmPlayerLines, TakeStartTextAndEndFromTheRowDigits) {
  EXPECT_EQ(Read(u"TMPLAYER",
                 "00:00:01,1=one\n00:00:01,2=two\n00:00:03,1=\n00:00:03,2=\n"
                 "00:00:05,1=a|b\n00:00:05,2=\n00:00:06,1=\n"),
            (Rows{{1000, 3000, u"one|two"}, {5000, 6000, u"a|b"}}));
}

TEST(TmPlayerLines, ThatBeginWithZeroTimeAreDroppedInAnEmptyList) {
  EXPECT_EQ(Read(u"TMPLAYER", "00:00:00,1=first\n00:00:01,1=one\n00:00:02,1=\n"), (Rows{{1000, 2000, u"one"}}));
}

TEST(TmPlayerLines, ThatBeginWithZeroTimeAreReadWhenAppending) {
  FormatRig rig;
  rig.Fill({{1, 2, u"a"}, {3, 4, u"b"}});
  rig.ImportAs(u"TMPLAYER", "00:00:00,1=first\r\n00:00:02,1=\r\n", u"25", Loading::Append);
  EXPECT_EQ(rig.captions.At(3), (Caption{0, 2000, u"first"}));
}

TEST(TmPlayerLines, WithoutAnEqualsSignAtCharacter11AreIgnored) {
  EXPECT_EQ(Read(u"TMPLAYER", "0:00:01,1=no\n00:00:01,1=yes\nwords\n00:00:02,1=\n"), (Rows{{1000, 2000, u"yes"}}));
}

const std::string kSamiHead = "<SAMI>\n<Head>\n</Head>\n<BODY>\n";

TEST(SamiLines, TakeOneLineOfTextBetweenTwoTimes) {
  EXPECT_EQ(
      Read(u"SAMI", kSamiHead + "<SYNC START=1000>\n<P Class=SUBTTL>\none<br>two\n<SYNC START=2000>\n<P>&nbsp;\n"),
      (Rows{{1000, 2000, u"one|two"}}));
}

TEST(SamiLines, AreNotParsedBeforeABodyInUpperCase) {
  const std::string caption = "<SYNC START=1000>\ntext\n<SYNC START=2000>\n<P>&nbsp;\n";
  EXPECT_EQ(Read(u"SAMI", "<body>\n" + caption), Rows{});
  EXPECT_EQ(Read(u"SAMI", "<BODY>\n" + caption), (Rows{{1000, 2000, u"text"}}));
}

TEST(SamiLines, LoseACaptionThatIsClosedOnItsTimingLine) {
  EXPECT_EQ(
      Read(u"SAMI", kSamiHead + "<SYNC START=1000>\none\n<SYNC START=2000><P>&nbsp;\n<SYNC START=3000>\ntwo\n<SYNC "
                                "START=4000>\n<P>&nbsp;\n"),
      (Rows{{3000, 4000, u"two"}}));
}

TEST(SamiLines, KeepFourTagsAndRemoveEveryOther) {
  const auto text = [](const std::string& line) {
    const Rows rows = Read(u"SAMI", kSamiHead + "<SYNC START=1000>\n" + line + "\n<SYNC START=2000>\n<P>&nbsp;\n");
    return rows.empty() ? Text() : rows[0].text;
  };
  EXPECT_EQ(text("<P Class=X>one<br>two</P>"), u"one|two");
  EXPECT_EQ(text("<font a><i>one</i></font>"), u"<i>one");
  EXPECT_EQ(text("<BR>one"), u"one") << "the kept tags are in lower case";
  EXPECT_EQ(text("a #b# c"), u"<b>a  c") << "a hidden tag in the file comes back as one";
  EXPECT_EQ(text("a > b <x> c < d"), u"a > b  c < d");
  EXPECT_EQ(text("<a<b>c>d"), u"d") << "a kept tag is no bracket inside a stretch";
  EXPECT_EQ(text("<a<c>d>e"), u"d>e") << "a stretch runs to the next bracket";
  EXPECT_EQ(text("<x>1<<x>x>2"), u"12") << "further copies go with the first, and what they leave is looked at again";
}

TEST(SpruceLines, BeginBehindTheColumnLine) {
  const std::string data = "0001\t\t00:00:01:00\t00:00:02:00\tone\n";
  EXPECT_EQ(Read(u"SPRUCEDVDMAESTRO", data), Rows{});
  EXPECT_EQ(Read(u"SPRUCEDVDMAESTRO", "SP_NUMBER\tSTART\t\tEND\t\tFILE_NAME\nColor\t(0 1 2 3)\n" + data),
            (Rows{{1000, 2000, u"one"}}));
}

TEST(SpruceLines, TakeOverFromScenaristAtTheFirstDataLine) {
  FormatRig rig;
  rig.ImportAs(u"SONICSCENARIST",
               "Directory\t.\r\n0001\t\t00:00:01:00\t00:00:02:00\tone\r\n0002\t\t00:00:03:12\t00:00:04:00\ttwo\r\n");
  EXPECT_EQ(rig.Format(), u"SPRUCEDVDMAESTRO");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"one"}, {3480, 4000, u"two"}}));
  EXPECT_EQ(rig.state.SettingsFormatIndex, rig.state.CurrentFormatIndex);
}

TEST(EncoreLines, StoreTheCaptionAtTheNextTimingLine) {
  EXPECT_EQ(Read(u"ADOBEENCORE", "00:00:01:00 00:00:02:00 one\ntwo\n\n00:00:03:00 00:00:04:12 three\n"),
            (Rows{{1000, 2000, u"one|two"}, {3000, 4480, u"three"}}));
}

TEST(EncoreLines, KeepTheTextOfBeforeWhenATimingLineBringsNone) {
  EXPECT_EQ(Read(u"ADOBEENCORE", "00:00:01:00 00:00:02:00 one\n00:00:03:00 00:00:04:00\ntwo\n"),
            (Rows{{1000, 2000, u"one"}, {3000, 4000, u"one|two"}}));
}

TEST(EncoreLines, PutTheSeparatorInFrontOfAFirstTextLine) {
  EXPECT_EQ(Read(u"ADOBEENCORE", "00:00:01:00 00:00:02:00\none\n"), (Rows{{1000, 2000, u"|one"}}));
}

TEST(UleadLines, DropTheClosingMarker) {
  EXPECT_EQ(
      Read(u"UDVDWORKSHOP20", "#0 00;00;01;00 00;00;02;00\none\n#1 00;00;03;00 00;00;04;00\ntwo\n#Subtitle text end\n"),
      (Rows{{1000, 2000, u"one"}, {3000, 4000, u"two"}}));
}

// A run of plain SubRip lines is read in another way than single ones; both give the same.

TEST(SubRipRuns, ReadWhatSingleLinesRead) {
  const std::vector<std::string> choice = {"",
                                           "",
                                           "",
                                           "1",
                                           "00:00:01,000 --> 00:00:02,000",
                                           "00:00:03,500 --> 00:00:04,250",
                                           "text",
                                           "ASCII text of some more than sixteen bytes",
                                           "\xC3\xA9t\xC3\xA9 accents in here",
                                           " blanks around ",
                                           "<i>tagged</i>",
                                           "00:00:05,000 --> 00:00:06,000 X1:10",
                                           "12 --> 13",
                                           "0\xC3\xA9:00:01,00 --> 00:00:02,000",
                                           "   ",
                                           "00:00:01.000 --> 00:00:02.000 ",
                                           std::string(700, 'x') + "\xC3\xA9" + std::string(700, 'y'),

                                           "123456789",
                                           "\xFF\xFE odd",
                                           "no UTF-8 \xC3"};
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  std::uint32_t state = 7;
  const auto next = [&](std::size_t below) {
    return static_cast<std::size_t>((state = state * 1664525u + 1013904223u) >> 16) % below;
  };
  for (int round = 0; round < 200; ++round) {
    const std::string end = round % 3 == 0 ? "\n" : round % 3 == 1 ? "\r\n" : "\r";
    std::string content = "00:00:01,000 --> 00:00:02,000" + end + "first" + end + end;
    for (int i = 0; i < 200; ++i) content += choice[next(choice.size() - (round % 2 == 0 ? 0 : 2))] + end;
    rig.ImportAs(u"SUBRIP", content);
    const LinesOf lines{u"SUBRIP", TextFile::Auto(content, rig.encodings), true};
    ASSERT_EQ(rig.Rows(), ReadLines(Way::ParserAlone, rig.loader, rig.options.lineSeparator, lines)) << round;
  }
}

}  // namespace
}  // namespace cuewright::testing
