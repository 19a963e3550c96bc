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
  program->options.manner.SetClassic(true);
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

constexpr const char* kTwoLinesTooMany =
    "1\r\n00:00:01,100 --> 00:00:01,900\r\none\r\n\r\n"
    "2\r\n00:00:x2,100 --> 00:00:02,900\r\nlost\r\n";

TEST_F(Notice, ALoadTellsTheLinesThatWereNotUnderstoodAndShowsThem) {
  const Text path = folder.Write("a.srt", kTwoLinesTooMany);
  program->documentFiles.OpenSubtitleFile(path);
  EXPECT_EQ(Shown(), u"Read as SubRip, UTF-8 \u00B7 2 lines of the file were not understood");
  EXPECT_TRUE(Window().cmdShowLines.Visible());
  EXPECT_EQ(Window().cmdShowLines.GetText(), u"Show");
  EXPECT_EQ(Window().cmdShowLines.SpokenName(), u"Show the lines that were not understood");
  Window().cmdShowLines.Click();
  ListDialog& dialog = program->linesReport.dialog;
  ASSERT_TRUE(dialog.IsOpen());
  EXPECT_EQ(dialog.Title(), u"Lines that were not understood");
  EXPECT_NE(dialog.lblTop.GetText().find(u"a.srt"), Text::npos);
  EXPECT_EQ(dialog.txtList.GetText(), u"Line 6: 00:00:x2,100 --> 00:00:02,900\r\nLine 7: lost");
  EXPECT_FALSE(dialog.cmdSave.Visible());
  dialog.cmdCancel.Click();
  EXPECT_FALSE(dialog.IsOpen());
  program->documentFiles.OpenSubtitleFile(SubRip("b.srt", 2));
  EXPECT_EQ(Shown(), u"Read as SubRip, UTF-8");
  EXPECT_FALSE(Window().cmdShowLines.Visible());
}

TEST_F(Notice, BesideFindingsTheButtonOfTheLinesSaysWhatItShows) {
  program->documentFiles.OpenSubtitleFile(folder.Write("a.srt", kTwoLinesTooMany));
  program->notices.TellFindings(2);
  EXPECT_NE(Shown().find(u"not understood \u00B7 2 findings"), Text::npos);
  EXPECT_EQ(Window().cmdShowLines.GetText(), u"Show lines");
  EXPECT_EQ(Window().cmdShowFindings.GetText(), u"Show");
  Window().cmdNotice.Click();
  EXPECT_FALSE(Window().cmdShowLines.Visible());
}

TEST_F(Notice, InTheClassicMannerNoLinesAreTold) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(folder.Write("a.srt", kTwoLinesTooMany));
  EXPECT_EQ(Shown().find(u"understood"), Text::npos);
  EXPECT_FALSE(Window().cmdShowLines.Visible());
}

TEST_F(Notice, LongListsOfLinesAndLongLinesAreCutShort) {
  std::string text = "{1}{1}25\r\n{25}{50}one\r\n";
  for (int i = 0; i < 1500; ++i) text += std::string(300, 'z') + "\r\n";
  for (int i = 0; i < 4000; ++i) text += "{75}{100}two\r\n";
  program->documentFiles.OpenSubtitleFile(folder.Write("a.sub", text));
  EXPECT_EQ(program->linesReport.Count(), 1500);
  program->linesReport.Show();
  const std::vector<Text> rows = Split(program->linesReport.dialog.txtList.GetText(), kLineEnd);
  ASSERT_EQ(rows.size(), 1001u);
  EXPECT_EQ(rows.back(), u"and 500 more lines");
  EXPECT_EQ(rows[0], u"Line 3: " + Text(100, u'z') + u'\u2026');
  EXPECT_EQ(rows[999], u"Line 1002: " + Text(100, u'z') + u'\u2026');
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
