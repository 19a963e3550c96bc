#include <gtest/gtest.h>

#include "tests/formats/format_rig.h"
#include "tests/formats/source_rig.h"

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

/// What a block is to hold.
struct Block {
  std::string text;
  int number = 1;
  int extension = 0xFF;
  std::string start = std::string("\0\0\x0C\x0A", 4);  // 12.400
  std::string end = std::string("\0\0\x0F\x05", 4);    // 15.200
  int row = 20;
  int justification = 2;
  int comment = 0;
};

std::string Head(int blocks, int subtitles, const std::string& table = "00", char display = '1',
                 const std::string& code = "STL25.01") {
  std::string head = "850" + code + display + table + "0F";
  head.resize(1024, ' ');
  char counts[16];
  std::snprintf(counts, sizeof counts, "%05d%05d001", blocks, subtitles);
  head.replace(238, 13, counts);
  head.replace(253, 2, "23");
  return head;
}

std::string Bytes(const Block& block) {
  std::string bytes(16, '\0');
  bytes[1] = static_cast<char>(block.number & 0xFF);
  bytes[2] = static_cast<char>(block.number >> 8);
  bytes[3] = static_cast<char>(block.extension);
  bytes.replace(5, 4, block.start);
  bytes.replace(9, 4, block.end);
  bytes[13] = static_cast<char>(block.row);
  bytes[14] = static_cast<char>(block.justification);
  bytes[15] = static_cast<char>(block.comment);
  bytes += block.text;
  bytes.resize(128, '\x8F');
  return bytes;
}

Text TextIn(const std::string& field, const std::string& table = "00", char display = '1') {
  const SourceRig rig(u"EBUSTL", Head(1, 1, table, display) + Bytes({field}));
  return rig.Rows().empty() ? Text() : rig.Rows()[0].text;
}

TEST(EbuFile, TextsAndTimesAreRead) {
  const SourceRig rig(u"EBUSTL", Head(2, 2) + Bytes({"Good evening,\x8AInspector."}) +
                                     Bytes({"No.", 2, 0xFF, std::string("\1\0\0\0", 4), std::string("\1\0\1\x18", 4)}));
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"Good evening,|Inspector."}, {3600000, 3601960, u"No."}}));
  EXPECT_TRUE(rig.Blamed().empty());
}

TEST(EbuFile, TheRateIsThatOfTheHead) {
  const SourceRig rig(u"EBUSTL", Head(1, 1, "00", '1', "STL30.01") + Bytes({"x"}));
  EXPECT_EQ(rig.Rows(), (Rows{{12333, 15167, u"x"}}));
}

TEST(EbuFile, TimesCountFromTheStartOfTheProgramme) {
  std::string head = Head(1, 1);
  head.replace(256, 8, "10000000");
  const std::string start("\x0A\0\x0C\x0A", 4);
  const std::string end("\x0A\0\x0F\x05", 4);
  const SourceRig rig(u"EBUSTL", head + Bytes({"x", 1, 0xFF, start, end}));
  EXPECT_EQ(rig.Rows(), (Rows{{12400, 15200, u"x"}}));
  EXPECT_EQ(rig.WithStart(0, 13000), head + Bytes({"x", 1, 0xFF, std::string("\x0A\0\x0D\0", 4), end}));
  // The head may tell the tape's start though the captions count from 0.
  EXPECT_EQ(SourceRig(u"EBUSTL", head + Bytes({"x"})).Rows(), (Rows{{12400, 15200, u"x"}}));
}

TEST(EbuFile, LatinLettersHaveTheirAccentInFront) {
  EXPECT_EQ(TextIn("Caf\xC2"
                   "e \xC8"
                   "uber \xF8\xCA"
                   "A \xA4"
                   "5 \xCF"
                   "c\xCB"
                   "c"),
            u"Café über łÅ $5 čç");
}

TEST(EbuFile, OtherTablesArePartsOfIso8859) {
  EXPECT_EQ(TextIn("\xBF\xE0\xD8\xD2\xD5\xE2", "01"), u"Привет");
  EXPECT_EQ(TextIn("\xE3\xE5\xE9\xE1", "03"), u"γεια");
  EXPECT_EQ(TextIn("\xF9\xEC\xE5\xED", "04"), u"שלום");
}

TEST(EbuFile, CodesAreStylesAndColours) {
  EXPECT_EQ(TextIn("a \x80"
                   "b\x81 c"),
            u"a <i>b</i> c");
  EXPECT_EQ(TextIn("\x80"
                   "all of it\x81"),
            u"<i>all of it");
  EXPECT_EQ(TextIn("a \x82"
                   "b\x83"),
            u"a <u>b</u>");
  EXPECT_EQ(TextIn("\x0D\x0B\x0B\x03Yellow\x07white\x0A\x0A\x8A\x8A\x0D\x0B\x0Bwhite\x0A\x0A"),
            u"<font color=\"#ffff00\">Yellow</font> white|white");
}

TEST(EbuFile, ThePlaceIsReadFromRowAndJustification) {
  const auto text = [](int row, int justification) {
    Block block{"x"};
    block.row = row;
    block.justification = justification;
    return SourceRig(u"EBUSTL", Head(1, 1) + Bytes(block)).Rows().at(0).text;
  };
  EXPECT_EQ(text(20, 2), u"x");
  EXPECT_EQ(text(20, 0), u"x");
  EXPECT_EQ(text(2, 2), u"{\\an8}x");
  EXPECT_EQ(text(2, 1), u"{\\an7}x");
  EXPECT_EQ(text(11, 2), u"{\\an5}x");
  EXPECT_EQ(text(20, 3), u"{\\an3}x");
}

TEST(EbuFile, ExtensionBlocksAreJoinedAndOthersLeftOut) {
  Block comment{"not to be seen", 2};
  comment.comment = 1;
  const std::string long1(112, 'a');
  const SourceRig rig(u"EBUSTL", Head(5, 2) + Bytes({long1, 1, 0}) + Bytes({"data", 1, 0xFE}) + Bytes({"b", 1, 0xFF}) +
                                     Bytes(comment) + Bytes({"c", 3}));
  ASSERT_EQ(rig.Rows().size(), 2u);
  EXPECT_EQ(rig.Rows()[0].text, Text(112, u'a') + u"b");
  EXPECT_EQ(rig.Rows()[1].text, u"c");
}

TEST(EbuFile, BlocksThatDontCountOnAreCaptionsOfTheirOwn) {
  const SourceRig rig(u"EBUSTL", Head(3, 3) + Bytes({"a", 1, 0}) + Bytes({"b", 1, 0}) + Bytes({"c", 1, 1}));
  ASSERT_EQ(rig.Rows().size(), 2u);
  EXPECT_EQ(rig.Rows()[0].text, u"a");
  EXPECT_EQ(rig.Rows()[1].text, u"bc");
}

TEST(EbuFile, WhatIsNoTimeIsBlamedByItsBlock) {
  FormatRig rig;
  Block wrong{"x"};
  wrong.start = "\x63\x63\x63\x63";
  EXPECT_EQ(rig.Open("film.stl", Head(2, 2) + Bytes({"a"}) + Bytes(wrong) + "rest"), u"EBUSTL");
  EXPECT_EQ(rig.state.Source->LinesNotUnderstood(), (std::vector<std::size_t>{10, 11}));
}

class EbuSaving : public ::testing::Test {
 protected:
  void Open(const std::string& file) {
    file_ = file;
    ASSERT_EQ(rig_.Open("film.stl", file), u"EBUSTL");
    ASSERT_EQ(rig_.Save(u"EBUSTL"), file);
  }
  void Change(Row row, Caption caption) {
    caption.origin = rig_.captions.At(row).origin;
    rig_.captions.Replace(row, 1, {caption});
  }
  /// Places of the bytes that differ; the file must have kept its size.
  std::vector<std::size_t> Differences(const std::string& saved) const {
    EXPECT_EQ(saved.size(), file_.size());
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < saved.size() && i < file_.size(); ++i) {
      if (saved[i] != file_[i]) places.push_back(i);
    }
    return places;
  }

  FormatRig rig_;
  std::string file_;
};

const std::string kTwo = Head(2, 2) + Bytes({"\x0D\x0B\x0BGood evening.\x0A\x0A"}) +
                         Bytes({"\x0D\x0B\x0B"
                                "caf\xC2"
                                "e\x0A\x0A",
                                2, 0xFF, std::string("\0\0\x14\0", 4), std::string("\0\0\x16\0", 4)});

TEST_F(EbuSaving, AMovedTimeChangesItsFieldAlone) {
  Open(kTwo);
  std::array times = {CaptionTimes{20040, 22000}};
  rig_.captions.Retime(2, times);
  EXPECT_EQ(Differences(rig_.Save(u"EBUSTL")), (std::vector<std::size_t>{1024 + 128 + 8}));
}

TEST_F(EbuSaving, AChangedTextChangesItsFieldAlone) {
  Open(kTwo);
  Change(2, {20000, 22000, u"cafés"});
  const std::string saved = rig_.Save(u"EBUSTL");
  const std::vector<std::size_t> places = Differences(saved);
  ASSERT_FALSE(places.empty());
  EXPECT_GE(places.front(), 1024u + 128 + 16);
  EXPECT_EQ(saved.substr(1024 + 128 + 16, 11),
            "\x0D\x0B\x0B"
            "caf\xC2"
            "es\x0A\x0A");
  EXPECT_EQ(rig_.state.Encoding, DocumentEncoding());
}

TEST_F(EbuSaving, ALongTextTakesMoreBlocksAndTheHeadCountsThem) {
  Open(kTwo);
  const Text text = Text(100, u'a') + u"|" + Text(30, u'b');
  Change(1, {12400, 15200, text});
  const std::string saved = rig_.Save(u"EBUSTL");
  EXPECT_EQ(saved.size(), file_.size() + 128);
  EXPECT_EQ(saved.substr(238, 10), "0000300002");
  FormatRig again;
  again.Open("again.stl", saved);
  EXPECT_EQ(again.Rows(), (Rows{{12400, 15200, text}, {20000, 22000, u"café"}}));
}

TEST_F(EbuSaving, CaptionsThatComeAndGoMoveTheNumbers) {
  Open(kTwo);
  rig_.captions.Replace(2, 0, {{16000, 18000, u"<i>{\\an8}new"}});
  const std::string saved = rig_.Save(u"EBUSTL");
  EXPECT_EQ(saved.substr(238, 10), "0000300003");
  EXPECT_EQ(saved.substr(0, 238), file_.substr(0, 238));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(saved[1024 + 128 * i + 1], static_cast<char>(i + 1));
  FormatRig again;
  again.Open("again.stl", saved);
  EXPECT_EQ(again.Rows(),
            (Rows{{12400, 15200, u"Good evening."}, {16000, 18000, u"<i>{\\an8}new"}, {20000, 22000, u"café"}}));
  rig_.captions.Replace(2, 1, {});
  EXPECT_EQ(rig_.Save(u"EBUSTL"), file_);
}

TEST_F(EbuSaving, LettersThatTheTableLacksAreTold) {
  Open(kTwo);
  Change(1, {12400, 15200, u"東"});
  rig_.messages.shown.clear();
  (void)rig_.Save(u"EBUSTL");
  ASSERT_EQ(rig_.messages.shown.size(), 1u);
  EXPECT_NE(rig_.messages.shown[0].text.find(u"lacks letters"), Text::npos);
}

TEST_F(EbuSaving, AnotherFormatGetsTheTextAsUtf8) {
  Open(kTwo);
  EXPECT_NE(rig_.Save(u"SUBRIP").find("caf\xC3\xA9"), std::string::npos);
}

TEST_F(EbuSaving, NoOtherTextIsWrittenAsSuchAFile) {
  rig_.Fill({{1000, 2000, u"x"}});
  EXPECT_EQ(rig_.Save(u"EBUSTL"), "");
  ASSERT_EQ(rig_.messages.shown.size(), 1u);
}

}  // namespace
}  // namespace cuewright::testing
