#include "forms/reopening.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct ReopeningTest : testing::ProgramFixture {
  ReopeningTest() {
    program->options.applyWhen = 1;
    asked_ = Dialog().Opened.ConnectScoped([this] {
      ++opened;
      shownFirst = Dialog().txtPreview.GetText();
      for (std::size_t i = 0; i < Dialog().cboEncoding.Items().size(); ++i) {
        if (Dialog().cboEncoding.Items()[i].ends_with(encoding)) Dialog().cboEncoding.Choose(static_cast<int>(i));
      }
      shown = Dialog().txtPreview.GetText();
      (agrees ? Dialog().cmdOK : Dialog().cmdCancel).Click();
    });
  }
  ReopenDialog& Dialog() { return program->reopening.dialog; }
  /// A word of Russian in windows-1251.
  void OpenRussian() {
    path = folder.Write("r.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\n\xC4\xE0\r\n\r\n");
    program->documentFiles.OpenSubtitleFile(path);
  }

  Text path;
  Text encoding = u"windows-1251";
  bool agrees = true;
  int opened = 0;
  Text shownFirst;
  Text shown;

 private:
  Connection asked_;
};

using ReopenAs = ReopeningTest;

TEST_F(ReopenAs, ReadsTheFileInTheChosenEncoding) {
  OpenRussian();
  ASSERT_EQ(List().GetCaptionText(1), u"\u00C4\u00E0");
  Window().mnuReopen.Click();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(shownFirst, u"1\r\n00:00:01,000 --> 00:00:02,000\r\n\u00C4\u00E0\r\n");
  EXPECT_EQ(shown, u"1\r\n00:00:01,000 --> 00:00:02,000\r\n\u0414\u0430\r\n");
  EXPECT_EQ(List().GetCaptionText(1), u"\u0414\u0430");
  EXPECT_EQ(Window().lblNotice.GetText(), u"Read as SubRip, windows-1251");
  EXPECT_FALSE(program->document.DocModified);
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  // It is saved as it was read.
  const std::string before = folder.Read("r.srt");
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("r.srt"), before);
  List().SetCaptionText(1, u"\u041D\u0435\u0442");
  program->documentFiles.Save();
  EXPECT_NE(folder.Read("r.srt").find("\xCD\xE5\xF2\r\n"), std::string::npos);
  // The next file is read as it looks.
  program->documentFiles.OpenSubtitleFile(SubRip("b.srt", 1));
  EXPECT_EQ(program->formats.Encoding.codePage, kCodePageUtf8);
}

TEST_F(ReopenAs, CancelLeavesTheDocument) {
  OpenRussian();
  agrees = false;
  Window().mnuReopen.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"\u00C4\u00E0");
  EXPECT_EQ(program->document.SubtitlePath, path);
}

TEST_F(ReopenAs, AsksAboutUnsavedChangesFirst) {
  OpenRussian();
  List().SetCaptionText(1, u"changed");
  boxes.answers = {BoxAnswer::Cancel};
  Window().mnuReopen.Click();
  EXPECT_EQ(opened, 0);
  EXPECT_EQ(List().GetCaptionText(1), u"changed");
  boxes.answers = {BoxAnswer::No};
  Window().mnuReopen.Click();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(List().GetCaptionText(1), u"\u0414\u0430");
}

TEST_F(ReopenAs, AnEncodingInWhichTheFileHasNoFormatLeavesTheDocument) {
  OpenRussian();
  encoding = u"UTF-16LE";
  Window().mnuReopen.Click();
  EXPECT_FALSE(boxes.shown.empty());
  EXPECT_EQ(program->document.SubtitlePath, path);
  EXPECT_EQ(List().GetCaptionText(1), u"\u00C4\u00E0");
  EXPECT_EQ(program->formats.Encoding.codePage, 1252);
  EXPECT_EQ(program->catalogue.Identifier(program->formats.CurrentFormatIndex), kSubRip);
  const std::string before = folder.Read("r.srt");
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("r.srt"), before);
}

TEST_F(ReopenAs, IsThereForAFileAlone) {
  const auto enabled = [&] {
    Window().mnuFile.OpenMenu();
    return Window().mnuReopen.Enabled() && Window().mnuReopen.Visible();
  };
  EXPECT_FALSE(enabled());
  program->documentFiles.New();
  EXPECT_FALSE(enabled());
  Window().mnuReopen.Click();
  EXPECT_EQ(opened, 0);
  OpenRussian();
  EXPECT_TRUE(enabled());
  program->options.manner.SetClassic(true);
  EXPECT_FALSE(enabled());
}

}  // namespace
}  // namespace cuewright
