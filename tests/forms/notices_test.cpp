#include "forms/notices.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct NoticeTest : testing::ProgramFixture {
  Text Shown() { return Window().lblNotice.Visible() ? Window().lblNotice.GetText() : Text(); }
};

using Notice = NoticeTest;

TEST_F(Notice, ALoadTellsFormatAndEncoding) {
  EXPECT_EQ(Shown(), u"");
  program->documentFiles.OpenSubtitleFile(
      folder.Write("a.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nCaf\xE9\r\n\r\n"));
  EXPECT_EQ(Shown(), u"Read as SubRip, windows-1252");
  program->documentFiles.OpenSubtitleFile(folder.Write("b.srt",
                                                       "\xEF\xBB\xBF"
                                                       "1\r\n00:00:01,000 --> 00:00:02,000\r\nCaf\xC3\xA9\r\n\r\n"));
  EXPECT_EQ(Shown(), u"Read as SubRip, UTF-8 (BOM)");
}

TEST_F(Notice, ASaveTellsWhatItWrote) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  program->documentFiles.SaveDocument();
  EXPECT_EQ(Shown(), u"Saved as SubRip, UTF-8");
}

TEST_F(Notice, AFailedSaveTellsNothing) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  program->document.SubtitlePath = folder / "gone/a.srt";
  program->documentFiles.SaveDocument();
  EXPECT_EQ(Shown(), u"");
  EXPECT_FALSE(boxes.shown.empty());
}

TEST_F(Notice, WithTheBarOffASaveInAnotherEncodingIsToldInABox) {
  program->documentFiles.OpenSubtitleFile(
      folder.Write("a.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nCaf\xE9\r\n\r\n"));
  Window().mnuInfoBar.Click();
  List().SetCaptionText(1, u"\u4E2D");
  program->documentFiles.SaveDocument();
  EXPECT_NE(LastBox().find("Saved as UTF-8: windows-1252 lacks a character of the text"), std::string::npos);
}

TEST_F(Notice, GoesWithTheDocumentOrByItsButton) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  Window().cmdNotice.Click();
  EXPECT_EQ(Shown(), u"");
  EXPECT_FALSE(Window().cmdNotice.Visible());
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  EXPECT_NE(Shown(), u"");
  program->documentFiles.Close();
  EXPECT_EQ(Shown(), u"");
}

TEST_F(Notice, IsToldAnewInAnotherLanguage) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  program->messageCatalogue.AddBlock("902\tLe\u00EDdo como %1, %2\n905\tCerrar\n", 1);
  program->ChangeLanguage(1);
  EXPECT_EQ(Shown(), u"Le\u00EDdo como SubRip, UTF-8");
  EXPECT_EQ(Window().cmdNotice.ToolTip(), u"Cerrar");
}

TEST(EncodingName, NamesTheUsualOnes) {
  EXPECT_EQ(EncodingName({65001, false}), u"UTF-8");
  EXPECT_EQ(EncodingName({65001, true}), u"UTF-8 (BOM)");
  EXPECT_EQ(EncodingName({1200, true}), u"UTF-16LE (BOM)");
  EXPECT_EQ(EncodingName({1201, false}), u"UTF-16BE");
  EXPECT_EQ(EncodingName({1250, false}), u"windows-1250");
}

}  // namespace
}  // namespace cuewright
