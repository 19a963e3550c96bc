#include "forms/save_check.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct SaveCheckTest : testing::ProgramFixture {
  SaveCheckTest() {
    program->options.applyWhen = 1;
    chosen_ = program->exportDialog.Opened.ConnectScoped([this] {
      ExportDialog& dialog = program->exportDialog;
      if (!format.empty()) dialog.cboFormats.Choose(program->catalogue.IndexOf(format));
      for (std::size_t i = 0; i < dialog.cboEncoding.Items().size(); ++i) {
        if (!encoding.empty() && dialog.cboEncoding.Items()[i].ends_with(encoding)) {
          dialog.cboEncoding.Choose(static_cast<int>(i));
        }
      }
      if (dialog.cmbFPS.Enabled()) dialog.cmbFPS.SetText(u"25");
      dialog.cmdOK.Click();
    });
    asked = Dialog().Opened.ConnectScoped([this] {
      ++questions;
      saveOffered = Dialog().cmdSave.GetText();
      (agrees ? Dialog().cmdSave : Dialog().cmdCancel).Click();
    });
  }

  ListDialog& Dialog() { return program->saveCheck.dialog; }
  const Text& Shown() { return Dialog().txtList.GetText(); }
  bool SaveAs(const char* name) {
    dialogs.paths = {folder / name};
    return program->documentFiles.SaveAs();
  }
  void OpenStyled() {
    program->documentFiles.OpenSubtitleFile(
        folder.Write("a.srt",
                     "1\r\n00:00:01,000 --> 00:00:02,000\r\n{\\an8}<font color=\"#ff0000\">one</font> and\r\n\r\n"
                     "2\r\n00:00:03,000 --> 00:00:04,000\r\n{\\an8}two\r\n\r\n"));
  }
  void OpenWestern() {
    program->documentFiles.OpenSubtitleFile(
        folder.Write("w.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\ncaf\xE9\r\n\r\n"));
  }

  Text format;
  Text encoding;  ///< how its row ends; empty: the one that is offered
  bool agrees = false;
  int questions = 0;
  Text saveOffered;
  Connection asked;

 private:
  Connection chosen_;
};

using LossesBeforeSave = SaveCheckTest;
using LettersBeforeSave = SaveCheckTest;
using EncodingOfSave = SaveCheckTest;

TEST_F(LossesBeforeSave, AreListedWithTheirCountsAndCancelWritesNothing) {
  OpenStyled();
  format = u"TMPLAYER";
  EXPECT_FALSE(SaveAs("b.txt"));
  EXPECT_EQ(questions, 1);
  const Text name = program->catalogue.ReadIni(u"TMPLAYER", u"name", {});
  EXPECT_EQ(Shown(), name + u" can't hold colours; captions that lose them: 1\r\n" + name +
                         u" can't hold positions; captions that lose them: 2");
  EXPECT_EQ(Dialog().Title(), u"Save as");
  EXPECT_EQ(WithoutAccessKey(saveOffered), u"Save");
  EXPECT_FALSE(files.Exists(folder / "b.txt"));
  EXPECT_TRUE(dialogs.calls.empty());
  EXPECT_EQ(program->catalogue.Identifier(program->formats.CurrentFormatIndex), kSubRip);
  agrees = true;
  EXPECT_TRUE(SaveAs("b.txt"));
  EXPECT_NE(folder.Read("b.txt").find("one and"), std::string::npos);
}

TEST_F(LossesBeforeSave, EscapeIsCancel) {
  OpenStyled();
  format = u"TMPLAYER";
  asked = Dialog().Opened.ConnectScoped([this] { Dialog().Close(); });
  EXPECT_FALSE(SaveAs("b.txt"));
  EXPECT_FALSE(files.Exists(folder / "b.txt"));
}

TEST_F(LossesBeforeSave, AreNotAskedAboutWhereNothingIsLost) {
  OpenStyled();
  const std::string before = folder.Read("a.srt");
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("a.srt"), before);
  EXPECT_TRUE(SaveAs("same.srt"));
  EXPECT_EQ(folder.Read("same.srt"), before);
  format = u"ADVANCEDSSA";
  EXPECT_TRUE(SaveAs("b.ass"));
  program->documentFiles.OpenSubtitleFile(SubRip("plain.srt", 2));
  format = u"TMPLAYER";
  EXPECT_TRUE(SaveAs("c.txt"));
  EXPECT_EQ(questions, 0);
}

TEST_F(LossesBeforeSave, AreNotAskedAboutInTheClassicManner) {
  program->options.manner.SetClassic(true);
  OpenStyled();
  format = u"TMPLAYER";
  EXPECT_TRUE(SaveAs("b.txt"));
  EXPECT_EQ(questions, 0);
}

TEST_F(EncodingOfSave, IsTheFilesOwnUnlessAnotherIsChosen) {
  OpenWestern();
  EXPECT_TRUE(SaveAs("same.srt"));
  EXPECT_EQ(folder.Read("same.srt"), folder.Read("w.srt"));
  encoding = u"UTF-16LE (BOM)";
  EXPECT_TRUE(SaveAs("wide.srt"));
  EXPECT_EQ(folder.Read("wide.srt").substr(0, 4), std::string("\xFF\xFE"
                                                              "1\0",
                                                              4));
  EXPECT_EQ(Window().lblNotice.GetText(), u"Saved as SubRip, UTF-16LE (BOM)");
  // It stays that of the document.
  encoding.clear();
  EXPECT_TRUE(SaveAs("wide2.srt"));
  EXPECT_EQ(folder.Read("wide2.srt"), folder.Read("wide.srt"));
  encoding = u"ibm-850";
  EXPECT_TRUE(SaveAs("dos.srt"));
  EXPECT_NE(folder.Read("dos.srt").find("caf\x82\r\n"), std::string::npos);
}

TEST_F(EncodingOfSave, IsOfferedByRegionWithUtf8First) {
  OpenWestern();
  ExportDialog& dialog = program->exportDialog;
  SaveAs("x.srt");
  const std::vector<Text>& rows = dialog.cboEncoding.Items();
  ASSERT_GT(rows.size(), 50u);
  EXPECT_EQ(rows[0], u"UTF-8");
  EXPECT_EQ(rows[1], u"UTF-8 (BOM)");
  EXPECT_EQ(dialog.cboEncoding.GetText(), u"Western European: windows-1252");
  EXPECT_EQ(dialog.cboEncoding.SpokenName(), u"Encoding");
  EXPECT_EQ(std::ranges::count(rows, Text(u"Cyrillic: KOI8-R")), 1);
  EXPECT_EQ(std::ranges::count(rows, Text(u"Korean: Johab")), 1);
}

TEST_F(EncodingOfSave, IsUtf8ForFormatsWhoseRulesAskForIt) {
  OpenWestern();
  format = u"WEBVTT";
  EXPECT_TRUE(SaveAs("b.vtt"));
  EXPECT_NE(folder.Read("b.vtt").find("caf\xC3\xA9"), std::string::npos);
  EXPECT_EQ(program->formats.Encoding, DocumentEncoding());
  OpenWestern();
  encoding = u"windows-1252";
  EXPECT_TRUE(SaveAs("c.vtt"));
  EXPECT_NE(folder.Read("c.vtt").find("caf\xE9"), std::string::npos);
}

TEST_F(EncodingOfSave, IsDeclaredByXml) {
  OpenWestern();
  format = u"TTML";
  EXPECT_TRUE(SaveAs("b.xml"));
  EXPECT_TRUE(folder.Read("b.xml").starts_with("<?xml version=\"1.0\" encoding=\"utf-8\"?>"));
  OpenWestern();
  encoding = u"windows-1252";
  EXPECT_TRUE(SaveAs("c.xml"));
  EXPECT_TRUE(folder.Read("c.xml").starts_with("<?xml version=\"1.0\" encoding=\"windows-1252\"?>"));
  // What it says is what it is read in, and a save in another encoding says that one.
  program->documentFiles.OpenSubtitleFile(folder / "c.xml");
  EXPECT_EQ(List().GetCaptionText(1), u"caf\u00E9");
  EXPECT_EQ(program->formats.Encoding.codePage, 1252);
  const std::string before = folder.Read("c.xml");
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("c.xml"), before);
  encoding = u"ISO-8859-15";
  EXPECT_TRUE(SaveAs("d.xml"));
  EXPECT_EQ(folder.Read("d.xml"),
            "<?xml version=\"1.0\" encoding=\"ISO-8859-15\"?>" + before.substr(before.find("?>") + 2));
}

TEST_F(EncodingOfSave, StaysWhenTheSaveComesToNothing) {
  OpenWestern();
  encoding = u"KOI8-R";
  dialogs.paths = {};
  EXPECT_FALSE(program->documentFiles.SaveAs());
  EXPECT_EQ(program->formats.Encoding.codePage, 1252);
}

TEST_F(EncodingOfSave, IsNotOfferedInTheClassicManner) {
  program->options.manner.SetClassic(true);
  OpenWestern();
  format = u"WEBVTT";
  EXPECT_TRUE(SaveAs("b.vtt"));
  EXPECT_FALSE(program->exportDialog.cboEncoding.Visible());
  EXPECT_NE(folder.Read("b.vtt").find("caf\xE9"), std::string::npos);
}

TEST_F(LettersBeforeSave, ThatTheEncodingLacksAreShownWithTheirLines) {
  OpenWestern();
  List().SetCaptionText(1, u"caf\u00E9|\u0416 and \u6F22, \u0416");
  const std::string before = folder.Read("w.srt");
  program->documentFiles.Save();
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(Shown(), u"Caption 1, line 2: \u0416 \u6F22");
  EXPECT_TRUE(Dialog().lblTop.GetText().starts_with(u"windows-1252 lacks letters"));
  EXPECT_EQ(WithoutAccessKey(saveOffered), u"Save in UTF-8");
  EXPECT_EQ(folder.Read("w.srt"), before);
  EXPECT_TRUE(program->history.Differs());
  agrees = true;
  program->documentFiles.Save();
  EXPECT_NE(folder.Read("w.srt").find("caf\xC3\xA9\r\n\xD0\x96 and"), std::string::npos);
  EXPECT_EQ(Window().lblNotice.GetText(), u"Saved as SubRip, UTF-8");
  program->documentFiles.Save();
  EXPECT_EQ(questions, 2);
}

TEST_F(LettersBeforeSave, AreLookedForInAllOfAFileThatGetsAnotherEncoding) {
  OpenWestern();
  encoding = u"KOI8-R";
  EXPECT_FALSE(SaveAs("b.srt"));
  EXPECT_EQ(Shown(), u"Caption 1, line 1: \u00E9");
  EXPECT_FALSE(files.Exists(folder / "b.srt"));
  EXPECT_EQ(program->formats.Encoding.codePage, 1252);
  EXPECT_EQ(program->document.SubtitlePath, folder / "w.srt");
  agrees = true;
  EXPECT_TRUE(SaveAs("b.srt"));
  EXPECT_NE(folder.Read("b.srt").find("caf\xC3\xA9"), std::string::npos);
}

TEST_F(LettersBeforeSave, InTheClassicMannerUtf8IsWrittenWithoutAQuestion) {
  program->options.manner.SetClassic(true);
  OpenWestern();
  List().SetCaptionText(1, u"\u6F22");
  program->documentFiles.Save();
  EXPECT_EQ(questions, 0);
  EXPECT_EQ(Window().lblNotice.GetText(), u"Saved as UTF-8: windows-1252 lacks a character of the text");
}

}  // namespace
}  // namespace cuewright
