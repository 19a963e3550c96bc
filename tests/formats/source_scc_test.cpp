#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"
#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr const char* kHead = "Scenarist_SCC V1.0\n\n";

/// A byte with its odd parity.
unsigned WithParity(unsigned byte) {
  unsigned bits = 0;
  for (unsigned rest = byte; rest != 0; rest >>= 1) bits += rest & 1;
  return bits % 2 == 0 ? byte | 0x80 : byte;
}

/// Words of letters.
std::string Letters(std::string letters) {
  if (letters.size() % 2 != 0) letters += '\0';
  std::string words;
  for (std::size_t i = 0; i < letters.size(); i += 2) {
    char word[8];
    std::snprintf(word, sizeof word, "%02x%02x ", WithParity(static_cast<unsigned char>(letters[i])),
                  WithParity(static_cast<unsigned char>(letters[i + 1])));
    words += word;
  }
  return words;
}

std::string Control(unsigned word) {
  char twice[16];
  const unsigned first = WithParity(word >> 8);
  const unsigned second = WithParity(word & 0xFF);
  std::snprintf(twice, sizeof twice, "%02x%02x %02x%02x ", first, second, first, second);
  return twice;
}

const std::string kLoad = Control(0x1420);
const std::string kClearHidden = Control(0x142E);
const std::string kClear = Control(0x142C);
const std::string kShow = Control(0x142F);
const std::string kRow15 = Control(0x1470);
const std::string kRow14 = Control(0x1450);
const std::string kRow1 = Control(0x1150);

/// Time of a frame by 30000/1001.
std::int32_t Frame(int frame) { return static_cast<std::int32_t>((frame * 1001 + 15) / 30); }

TEST(ClosedCaptions, WordsAreAsScenaristWritesThem) {
  EXPECT_EQ(kLoad, "9420 9420 ");
  EXPECT_EQ(kShow, "942f 942f ");
  EXPECT_EQ(kClearHidden, "94ae 94ae ");
  EXPECT_EQ(kRow15, "9470 9470 ");
}

TEST(ClosedCaptions, APopOnCaptionIsSeenFromItsEndToTheErasing) {
  // 4 words of control, 2 of place, 2 of letters: the memories change places at the ninth word.
  const SourceRig rig(u"SCC", kHead + std::string("00:00:01:00\t") + kLoad + kClearHidden + kRow15 + Letters("Rain") +
                                  kShow + "\n\n00:00:03:00\t" + kClear + "\n");
  EXPECT_EQ(rig.Rows(), (Rows{{Frame(38), Frame(90), u"Rain"}}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(ClosedCaptions, TheNextCaptionEndsTheOneBeforeIt) {
  const SourceRig rig(u"SCC", kHead + std::string("00:00:01:00\t") + kLoad + kRow14 + Letters("It is") + kRow15 +
                                  Letters("raining.") + kShow + "\n\n00:00:02:00\t" + kLoad + kRow15 + Letters("No.") +
                                  kShow + "\n\n00:00:03:00\t" + kClear + "\n");
  EXPECT_EQ(rig.Rows(), (Rows{{Frame(30 + 13), Frame(60 + 6), u"It is|raining."}, {Frame(60 + 6), Frame(90), u"No."}}));
}

TEST(ClosedCaptions, StylesColoursAndThePlaceAreRead) {
  const auto text = [](const std::string& words) {
    const SourceRig rig(
        u"SCC", kHead + std::string("00:00:01:00\t") + kLoad + words + kShow + "\n00:00:03:00\t" + kClear + "\n");
    return rig.Rows().empty() ? Text() : rig.Rows()[0].text;
  };
  EXPECT_EQ(text(kRow1 + Letters("Up")), u"{\\an8}Up");
  EXPECT_EQ(text(Control(0x146E) + Letters("all")), u"<i>all");
  EXPECT_EQ(text(kRow15 + Letters("a") + Control(0x112E) + Letters("b") + Control(0x1120) + Letters("c")),
            u"a <i>b</i> c");
  EXPECT_EQ(text(kRow15 + Letters("a") + Control(0x1121) + Letters("b")), u"a <u>b</u>");
  EXPECT_EQ(text(Control(0x1468) + Letters("red")), u"<font color=\"#ff0000\">red</font>");
  // An indent of four columns and two tabs beyond are blanks in front.
  EXPECT_EQ(text(Control(0x1472) + Control(0x1722) + Letters("in")), u"in");
}

TEST(ClosedCaptions, LettersOfTheOtherSetsAreRead) {
  const auto text = [](const std::string& words) {
    const SourceRig rig(
        u"SCC", kHead + std::string("00:00:01:00\t") + kLoad + kRow15 + words + kShow + "\n00:00:03:00\t" + kClear);
    return rig.Rows().empty() ? Text() : rig.Rows()[0].text;
  };
  EXPECT_EQ(text(Letters("\x2A\x5C\x5E\x5F\x60\x7B\x7D\x7E")), u"áéíóúçÑñ");
  EXPECT_EQ(text(Control(0x1137) + Control(0x1138)), u"♪à");
  // An extended letter takes the place of the plain one in front of it.
  EXPECT_EQ(text(Letters("E") + Control(0x1221) + Letters("a") + Control(0x1331)), u"Éä");
  EXPECT_EQ(text(Letters("ab") + Control(0x1421) + Letters("c")), u"ac");
}

TEST(ClosedCaptions, AControlWordSentThriceCountsTwice) {
  const std::string once = "94a1 ";
  const SourceRig rig(u"SCC", kHead + std::string("00:00:01:00\t") + kLoad + kRow15 + Letters("abcd") + once + once +
                                  once + kShow + "\n00:00:03:00\t" + kClear);
  EXPECT_EQ(rig.Rows().at(0).text, u"ab");
}

TEST(ClosedCaptions, EachLineThatRollsUpIsACaption) {
  const std::string roll = Control(0x1425);
  const std::string carriage = Control(0x142D);
  const SourceRig rig(u"SCC", kHead + std::string("00:00:01:00\t") + roll + carriage + kRow15 + Letters("one") +
                                  "\n00:00:02:00\t" + roll + carriage + kRow15 + Letters("two") + "\n00:00:03:00\t" +
                                  kClear + "\n");
  EXPECT_EQ(rig.Rows(), (Rows{{Frame(36), Frame(62), u"one"}, {Frame(66), Frame(90), u"two"}}));
}

TEST(ClosedCaptions, PaintedCaptionsAreSeenFromTheirFirstLetter) {
  const std::string paint = Control(0x1429);
  const SourceRig rig(u"SCC", kHead + std::string("00:00:01:00\t") + paint + kRow15 + Letters("one") +
                                  "\n00:00:02:00\t" + kClear + "\n");
  EXPECT_EQ(rig.Rows(), (Rows{{Frame(34), Frame(60), u"one"}}));
}

TEST(ClosedCaptions, DropFrameTimesLeaveNumbersOut) {
  const auto start = [](const std::string& time) {
    const SourceRig rig(u"SCC", kHead + time + "\t" + Control(0x1429) + kRow15 + Letters("x") + "\n");
    return rig.Rows().at(0).start;
  };
  EXPECT_EQ(start("01:00:00:00"), Frame(108000 + 4));
  EXPECT_EQ(start("01:00:00;00"), Frame(108000 - 108 + 4));
  EXPECT_EQ(start("00:01:00;02"), Frame(1800 + 4));
}

TEST(ClosedCaptions, TheOtherChannelIsLeftOut) {
  const SourceRig rig(u"SCC", kHead + std::string("00:00:01:00\t") + kLoad + kRow15 + Letters("one") + Control(0x1C20) +
                                  Control(0x1C70) + Letters("two") + kShow + "\n00:00:03:00\t" + kClear + "\n");
  ASSERT_EQ(rig.Rows().size(), 1u);
  EXPECT_EQ(rig.Rows()[0].text, u"one");
}

TEST(ClosedCaptions, WhatIsNoCaptionIsBlamed) {
  const SourceRig rig(u"SCC", kHead + std::string("words\n00:00:01:00\t94zz 9420\n00:61:00:00\t9420\n"));
  EXPECT_EQ(rig.Blamed(), (std::vector<int>{3, 4, 5}));
  EXPECT_TRUE(rig.Rows().empty());
}

TEST(ClosedCaptions, AFileIsOpenedAndSavedAsItIsButNotEdited) {
  const std::string file = kHead + std::string("00:00:01:00\t") + kLoad + kRow15 + Letters("Rain") + kShow +
                           "\r\n\r\n00:00:03:00\t" + kClear + "\r\n";
  FormatRig rig;
  EXPECT_EQ(rig.Open("film.scc", file), u"SCC");
  EXPECT_EQ(rig.captions.Rows(), 2);
  EXPECT_EQ(rig.Save(u"SCC"), file);
  rig.captions.Replace(1, 0, {{0, 500, u"new"}});
  rig.messages.shown.clear();
  EXPECT_EQ(rig.Save(u"SCC", {}, "other"), "");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text,
            u"Files of the format Scenarist closed captions can only be read. Save the text in another format.");
  EXPECT_NE(rig.Save(u"SUBRIP").find("new"), std::string::npos);
}

}  // namespace
}  // namespace cuewright::testing
