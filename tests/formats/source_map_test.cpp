#include "formats/source/source_map.h"

#include <gtest/gtest.h>

#include "tests/formats/catalogue_documents.h"
#include "tests/formats/format_rig.h"
#include "tests/support/printers.h"

// A file that was read is saved with the bytes it had, but for what was edited.

namespace cuewright::testing {
namespace {

using Rows = std::vector<Caption>;

constexpr const char* kOdd =
    "\xEF\xBB\xBF"
    "1\r\n00:00:01,000 --> 00:00:02,50\r\nHello <i>big</i> world\r\n\r\n"
    "3\r\n0:00:03.000-->0:00:04.000 X1:10 X2:20\r\n<i>All italic</i>\r\n\r\n\r\n"
    "00:00:05,000 --> 00:00:06,000\r\n{\\an8}Two \r\n lines\r\n\r\n"
    "5\r\n000:00:07,000 --> 00:00:08,000\r\nlast";

/// The file with each pair of texts exchanged; each must stand there once.
std::string Changed(std::string file, const std::vector<std::pair<std::string, std::string>>& changes) {
  for (const auto& [before, after] : changes) {
    const std::size_t at = file.find(before);
    EXPECT_NE(at, std::string::npos) << before;
    EXPECT_EQ(file.find(before, at + 1), std::string::npos) << before;
    file.replace(at, before.size(), after);
  }
  return file;
}

TEST(SourceMap, GivesAnUneditedFileBackByteForByte) {
  FormatRig rig;
  ASSERT_EQ(rig.Open("a.srt", kOdd), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2500, u"Hello <i>big</i> world"},
                              {3000, 4000, u"<i>All italic"},
                              {5000, 6000, u"{\\an8}Two|lines"},
                              {7000, 8000, u"last"}}));
  EXPECT_EQ(rig.Save(u"SUBRIP"), kOdd);
}

TEST(SourceMap, KeepsWhatStandsBehindTheEndOfATextOutOfTheCaptions) {
  for (const std::string& behind : {std::string("\x1A"), std::string("\r\n\x1A"), std::string("\r\n\0\0\0", 5)}) {
    FormatRig rig;
    ASSERT_EQ(rig.Open("a.srt", kOdd + behind), u"SUBRIP");
    EXPECT_EQ(rig.Rows().back(), (Caption{7000, 8000, u"last"}));
    EXPECT_EQ(rig.Save(u"SUBRIP"), kOdd + behind);
  }
}

TEST(SourceMap, FindsATranscriptBehindTheWholeOfItsText) {
  const std::string file = "{\"text\": \"" + std::string(9000, 'x') +
                           "\", \"segments\": {\"a\": {\"start\": 1.5, \"end\": 2, \"text\": \"one\"},\n"
                           "\"b\": {\"start\": 3.5, \"end\": 4, \"text\": \"two\"}}}\n";
  FormatRig rig;
  ASSERT_EQ(rig.Open("a.json", file), u"TRANSCRIPTJSON");
  EXPECT_EQ(rig.Rows(), (Rows{{1500, 2000, u"one"}, {3500, 4000, u"two"}}));
  // Values under names of their own are parted as they were.
  EXPECT_EQ(rig.Save(u"TRANSCRIPTJSON"), file);
  rig.captions.SetCaptionText(2, u"three");
  EXPECT_EQ(rig.Save(u"TRANSCRIPTJSON"), Changed(file, {{"two", "three"}}));
}

TEST(SourceMap, WritesAnEndThatTheFileDidNotTell) {
  const std::string sami =
      "<SAMI>\n<BODY>\n<SYNC Start=1000><P Class=A>one<P Class=B>un\n<SYNC Start=3000><P Class=A>two<P Class=B>deux\n"
      "</BODY></SAMI>\n";
  FormatRig rig;
  ASSERT_EQ(rig.Open("a.smi", sami, u"A"), u"SAMI");
  rig.captions.SetCaptionEnd(1, 2500);
  EXPECT_EQ(rig.Save(u"SAMI"), Changed(sami, {{"un\n", "un\n<SYNC Start=2500><P Class=A>&nbsp;\n"}}));
  rig.captions.SetCaptionEnd(1, 3000);
  EXPECT_EQ(rig.Save(u"SAMI"), sami);

  FormatRig frames;
  ASSERT_EQ(frames.Open("a.mpl", "[10][]one\n[40][60]two\n"), u"MPL2");
  frames.captions.SetCaptionEnd(1, 2500);
  EXPECT_EQ(frames.Save(u"MPL2"), "[10][25]one\n[40][60]two\n");
}

TEST(SourceMap, ChangesTheFieldsThatWereEditedAlone) {
  FormatRig rig;
  rig.Open("a.srt", kOdd);
  rig.captions.SetCaptionStart(2, 3100, false);
  rig.captions.SetCaptionEnd(1, 2600);
  rig.captions.SetCaptionText(4, u"other|words");
  EXPECT_EQ(rig.Save(u"SUBRIP"), Changed(kOdd, {{"0:00:03.000-->", "0:00:03.100-->"},
                                                {"00:00:02,50", "00:00:02,60"},
                                                {"last", "other\r\nwords"}}));
}

TEST(SourceMap, LengthensAFractionThatIsTooShort) {
  FormatRig rig;
  rig.Open("a.srt", kOdd);
  rig.captions.SetCaptionEnd(1, 2605);
  EXPECT_EQ(rig.Save(u"SUBRIP"), Changed(kOdd, {{"00:00:02,50", "00:00:02,605"}}));
}

TEST(SourceMap, MovesNumbersOnBehindWhatCameOrWent) {
  FormatRig rig;
  rig.Open("a.srt", kOdd);
  rig.captions.DeleteCaption(1);
  EXPECT_EQ(rig.Save(u"SUBRIP"), "\xEF\xBB\xBF" + Changed(std::string(kOdd).substr(std::string(kOdd).find("3\r\n0:")),
                                                          {{"3\r\n0:", "2\r\n0:"}, {"\r\n5\r\n", "\r\n4\r\n"}}));
  rig.Open("a.srt", kOdd);
  rig.captions.AddCaption(2600, 2900, u"<b>new|one", 2);
  EXPECT_EQ(rig.Save(u"SUBRIP"),
            Changed(kOdd, {{"3\r\n0:", "2\r\n00:00:02,600 --> 00:00:02,900\r\n<b>new\r\none</b>\r\n\r\n4\r\n0:"},
                           {"\r\n5\r\n", "\r\n6\r\n"}}));
  rig.Open("a.srt", kOdd);
  rig.captions.AddCaption(9000, 9500, u"end", 0);
  EXPECT_EQ(rig.Save(u"SUBRIP"), kOdd + std::string("\r\n\r\n5\r\n00:00:09,000 --> 00:00:09,500\r\nend\r\n\r\n"));
}

TEST(SourceMap, KeepsWhatIsNotUnderstoodAndTellsItsLines) {
  const std::string file =
      "junk\n1\n00:00:01,000 --> 00:00:02,000\none\n\n2\n00:00:x3,000 --> 00:00:04,000\nlost\n\n"
      "3\n00:00:05,000 --> 00:00:06,000\nthree\n";
  FormatRig rig;
  ASSERT_EQ(rig.Open("a.srt", file), u"SUBRIP");
  EXPECT_EQ(rig.Rows(), (Rows{{1000, 2000, u"one"}, {5000, 6000, u"three"}}));
  EXPECT_EQ(rig.state.Source->LinesNotUnderstood(), (std::vector<std::size_t>{1, 7, 8}));
  rig.captions.SetCaptionText(2, u"four");
  EXPECT_EQ(rig.Save(u"SUBRIP"), Changed(file, {{"three", "four"}}));
}

TEST(SourceMap, IsWrittenInAnotherEncodingAsAWhole) {
  FormatRig rig;
  rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\ncaf\xE9\n\n2\n00:00:03,000 --> 00:00:04,000\nx\n");
  rig.captions.SetCaptionText(2, u"\u65E5\u672C");
  EXPECT_EQ(
      rig.Save(u"SUBRIP"),
      "1\n00:00:01,000 --> 00:00:02,000\ncaf\xC3\xA9\n\n2\n00:00:03,000 --> 00:00:04,000\n\xE6\x97\xA5\xE6\x9C\xAC\n");
  EXPECT_EQ(rig.savedAsUtf8, (std::vector<int>{1252}));
}

TEST(SourceMap, IsOfNoUseInTheClassicManner) {
  FormatRig rig;
  rig.options.manner.SetClassic(true);
  rig.Open("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nx\n");
  EXPECT_EQ(rig.Save(u"SUBRIP"), "1\r\n00:00:01,000 --> 00:00:02,000\r\nx\r\n\r\n");
}

/// Every format of the catalogue, with files that it wrote itself.
class EveryFormat : public ::testing::TestWithParam<int> {
 protected:
  /// Opens the format's file of a document; false where that can't be done.
  bool Open(const SampleDocument& document) {
    id_ = rig_.catalogue.Identifier(GetParam());
    const std::string name = ToUtf8(id_);
    if (TakenForAnother(name, document.name) || NotReadWhole(name, document.name)) return false;
    rig_.Fill(document.rows);
    rate_ = RateOf(rig_.catalogue, id_);
    file_ = rig_.Save(id_, rate_, "written.txt");
    rig_.messages.lines.assign(1, u"25");
    rig_.TakeTheBestFormat();
    rig_.importer.DetectFormat(rig_.path, Loading::NewDocument);
    rig_.messages.lines.clear();
    return rig_.Format() == id_;
  }
  std::string SaveAgain() { return rig_.Save(id_, rate_, "again.txt"); }
  /// What the saved file gives when it is opened.
  Rows Reopened() {
    SaveAgain();
    rig_.messages.lines.assign(1, u"25");
    rig_.TakeTheBestFormat();
    rig_.importer.DetectFormat(rig_.path, Loading::NewDocument);
    rig_.messages.lines.clear();
    return rig_.Rows();
  }

  FormatRig rig_;
  Text id_;
  FrameRate rate_;
  std::string file_;
};

TEST_P(EveryFormat, GivesAnUneditedFileBackAndUnderstandsAllOfIt) {
  for (const SampleDocument& document : Documents()) {
    if (!Open(document)) continue;
    SCOPED_TRACE(ToUtf8(id_) + ", " + document.name);
    ASSERT_NE(rig_.state.Source, nullptr);
    EXPECT_EQ(rig_.state.Source->Pieces().size(), rig_.Rows().size());
    EXPECT_EQ(rig_.state.Source->LinesNotUnderstood(), std::vector<std::size_t>());
    EXPECT_EQ(SaveAgain(), file_);
  }
}

TEST_P(EveryFormat, ReadsBackWhatWasEdited) {
  for (const SampleDocument& document : Documents()) {
    if (!Open(document) || rig_.Rows().size() < 3) continue;
    SCOPED_TRACE(ToUtf8(id_) + ", " + document.name);
    rig_.captions.SetCaptionText(2, u"quite another text");
    Rows expected = rig_.Rows();
    EXPECT_EQ(Reopened(), expected) << "a text";
    Open(document);
    rig_.captions.DeleteCaption(2);
    expected = rig_.Rows();
    EXPECT_EQ(Reopened(), expected) << "a caption went";
    Open(document);
    const Caption first = rig_.captions.At(1);
    rig_.captions.Replace(1, 1, {});
    rig_.captions.Replace(1, 0, {{first.start, first.end, first.text, 0}});
    expected = rig_.Rows();
    EXPECT_EQ(Reopened(), expected) << "a caption came";
    Open(document);
    CaptionTimes moved{rig_.captions.At(3).start + 1000, rig_.captions.At(3).end + 3000};
    rig_.captions.Retime(3, {&moved, 1});
    expected = Carried(rig_.catalogue, id_, {document.name, rig_.Rows()}, true);
    EXPECT_EQ(Reopened(), expected) << "times";
  }
}

INSTANTIATE_TEST_SUITE_P(Shipped, EveryFormat, ::testing::Range(1, 76), [](const auto& format) {
  FormatRig rig;
  return ToUtf8(rig.catalogue.Identifier(format.param));
});

}  // namespace
}  // namespace cuewright::testing
