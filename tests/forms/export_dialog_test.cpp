#include "forms/export_dialog.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct ExportTest : testing::ProgramFixture {
  ExportDialog& Dialog() { return program->exportDialog; }
  void Open(TextView id) {
    program->formats.CurrentFormatIndex = static_cast<std::uint8_t>(program->catalogue.IndexOf(id));
    Dialog().Open(false);
  }
  void Choose(TextView id) { Dialog().cboFormats.Choose(program->catalogue.IndexOf(id)); }
  /// Types a character into the rate; empty when it was swallowed, else what is typed.
  Text Typed(char16_t character, TextView into, int selected = 0) {
    Dialog().cmbFPS.SetText(into);
    Dialog().cmbFPS.NoteSelection(selected);
    KeyEvent key;
    key.character = character;
    key.code = character == 0 ? kKeyBackspace : character;
    Dialog().cmbFPS.TypeKey(key);
    return key.handled ? Text() : Text(1, key.character);
  }
};

/// A catalogue of the test's own, one format for each way of showing.
struct ExportProperties : ExportTest {
  ExportProperties() {
    const std::string ini =
        "[A]\r\nname=Alpha\r\nextension=aa,bb\r\ntimecode=ms\r\ntags=7\r\nheader=1\r\n"
        "[B]\r\nname=Beta\r\ntimecode=FF\r\ntags=8\r\n"
        "[C]\r\nname=Gamma\r\ntimecode=n/a\r\ntags=1\r\nheader=2\r\n"
        "[D]\r\nname=Delta\r\ntimecode=HH:MM:SS:FF\r\ntags=2\r\nheader=1x\r\n"
        "[E]\r\nname=Epsilon\r\ntimecode=hh:mm:ss,zzz\r\ntags=5\r\n"
        "[F]\r\nname=Zeta\r\n"
        "[G]\r\nname=Eta\r\ntags=99999999999\r\ntimecode=ff\r\n";
    catalogue.Load(ini, "<FormatsList>\r\nA\r\nB\r\nC\r\nD\r\nE\r\nF\r\nG\r\n</FormatsList>\r\n", program->encodings);
    dialog = std::make_unique<ExportDialog>(catalogue, formats, program->options, program->strings, boxes);
    formats.CurrentFormatIndex = static_cast<std::uint8_t>(catalogue.IndexOf(u"A"));
    dialog->Open(false);
  }
  void Show(TextView id) { dialog->cboFormats.Choose(catalogue.IndexOf(id)); }
  /// The images shown, as letters.
  std::string Tags() const {
    return std::string(dialog->imgBold.Visible() ? "b" : "") + (dialog->imgItalic.Visible() ? "i" : "") +
           (dialog->imgUnderline.Visible() ? "u" : "");
  }

  FormatCatalogue catalogue;
  FormatState formats;
  std::unique_ptr<ExportDialog> dialog;
};

using ExportOpening = ExportTest;
using ExportRate = ExportTest;
using ExportOk = ExportTest;

TEST_F(ExportOpening, APlainTextOpensOnSubRipWithItsOwnRowMarkedCurrent) {
  program->documentFiles.OpenSubtitleFile(folder.Write("a.txt", "one\r\ntwo\r\n"));
  ASSERT_EQ(program->formats.CurrentFormatIndex, 0);
  Dialog().Open(false);
  const auto& rows = Dialog().cboFormats.Items();
  EXPECT_EQ(rows[0], u"Plain text [TXT] (current)");
  EXPECT_EQ(Dialog().cboFormats.Index(), program->catalogue.IndexOf(u"SUBRIP"));
  EXPECT_EQ(Dialog().cboFormats.GetText(), u"SubRip [SRT]");
  EXPECT_EQ(program->formats.CurrentFormatIndex, program->catalogue.IndexOf(u"SUBRIP"));
}

TEST_F(ExportOpening, ListsEveryFormatOfTheCatalogue) {
  Open(u"SAMI");
  EXPECT_EQ(static_cast<int>(Dialog().cboFormats.Items().size()),
            program->catalogue.CountToWrite(program->options.manner));
  EXPECT_EQ(Dialog().lblTotal.GetText(),
            u"Total formats supported: " + Decimal(program->catalogue.CountToWrite(program->options.manner)));
  EXPECT_EQ(Dialog().cboFormats.GetText(), u"SAMI Captioning [SMI,SAMI] (current)");
  EXPECT_EQ(Dialog().Title(), u"Save as");
}

TEST_F(ExportOpening, TheRateIsThatInForceOrTheDefault) {
  Open(u"MICRODVD");
  EXPECT_EQ(Dialog().cmbFPS.GetText(), u"25");
  program->formats.CurrentFps = 23.976F;
  Dialog().Open(false);
  EXPECT_EQ(Dialog().cmbFPS.GetText(), u"23,976");
  program->formats.CurrentFps = 30;
  Dialog().Open(false);
  EXPECT_EQ(Dialog().cmbFPS.GetText(), u"30");
}

TEST_F(ExportOpening, IsReadFromTheRightWhereTheLanguageIs) {
  Dialog().Open(true);
  EXPECT_TRUE(Dialog().RightToLeft());
}

TEST_F(ExportProperties, MillisecondsAreATime) {
  Show(u"A");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"Time");
  EXPECT_EQ(dialog->lblTimecode2.GetText(), u"Milliseconds");
  EXPECT_FALSE(dialog->cmbFPS.Enabled());
  EXPECT_FALSE(dialog->lblFPS.Enabled());
}

TEST_F(ExportProperties, AFormatWithoutATimecodeCountsMilliseconds) {
  Show(u"F");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"Time");
  EXPECT_EQ(dialog->lblTimecode2.GetText(), u"Milliseconds");
  EXPECT_EQ(dialog->lblHeader2.GetText(), u"&No");
  EXPECT_EQ(Tags(), "");
  EXPECT_FALSE(dialog->lblTags.Enabled());
  EXPECT_EQ(dialog->cboFormats.GetText(), u"Zeta []");
}

TEST_F(ExportProperties, FramesNeedARate) {
  Show(u"B");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"FPS (Frames)");
  EXPECT_EQ(dialog->lblTimecode2.GetText(), u"N/A");
  EXPECT_TRUE(dialog->cmbFPS.Enabled());
  EXPECT_TRUE(dialog->lblFPS.Enabled());
}

TEST_F(ExportProperties, ATextWithoutTimesShowsNeither) {
  Show(u"C");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"n/a");
  EXPECT_EQ(dialog->lblTimecode2.GetText(), u"n/a");
}

TEST_F(ExportProperties, ATemplateIsShownAndNeedsARateWithFrames) {
  Show(u"D");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"Time+FPS");
  EXPECT_EQ(dialog->lblTimecode2.GetText(), u"hh:mm:ss:ff");
  EXPECT_TRUE(dialog->cmbFPS.Enabled());
  Show(u"E");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"Time");
  EXPECT_EQ(dialog->lblTimecode2.GetText(), u"hh:mm:ss,zzz");
  EXPECT_FALSE(dialog->cmbFPS.Enabled());
}

TEST_F(ExportProperties, OnlyAHeaderOf1CanBeConfigured) {
  for (const auto& [id, has] : {std::pair{u"A", true}, {u"B", false}, {u"C", false}, {u"D", true}}) {
    Show(id);
    EXPECT_EQ(dialog->lblHeader2.GetText(), has ? u"&Yes" : u"&No") << ToUtf8(id);
    EXPECT_EQ(dialog->cmdConfigure.Enabled(), has) << ToUtf8(id);
  }
}

TEST_F(ExportProperties, TagsShowTheFormattingThatAFormatCarries) {
  for (const auto& [id, tags] :
       {std::pair{u"A", "biu"}, {u"C", "b"}, {u"D", "i"}, {u"E", "bu"}, {u"F", ""}, {u"B", "iu"}}) {
    Show(id);
    EXPECT_EQ(Tags(), tags) << ToUtf8(id);
    EXPECT_EQ(dialog->lblTags.Enabled(), *tags != '\0') << ToUtf8(id);
  }
}

TEST_F(ExportProperties, AFailureLeavesTheRemainingOnesAsTheyWere) {
  Show(u"D");
  Show(u"G");
  EXPECT_EQ(dialog->lblMode2.GetText(), u"FPS (Frames)");
  EXPECT_EQ(dialog->lblHeader2.GetText(), u"&No");
  EXPECT_EQ(Tags(), "i");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ExportRate, AnythingButANumberFrom1To240IsRefusedForFrames) {
  for (const TextView text :
       {TextView(u"0,5"), TextView(u"240,5"), TextView(u""), TextView(u"abc"), TextView(u"25x")}) {
    Open(u"MICRODVD");
    program->formats.CurrentFps = 24;
    Dialog().cmbFPS.SetText(text);
    Dialog().cmdOK.Click();
    EXPECT_FALSE(Dialog().Result());
    EXPECT_EQ(LastBox(), "The frame rate must be a number from 1 to 240, such as 25 or 23.976.");
    EXPECT_EQ(program->formats.CurrentFps, 24);
  }
}

TEST_F(ExportRate, FractionsOfTelevisionAreMeantExactly) {
  Open(u"MICRODVD");
  Dialog().cmbFPS.SetText(u"59,94");
  Dialog().cmdOK.Click();
  EXPECT_TRUE(Dialog().Result());
  EXPECT_EQ(program->formats.CurrentFps.Numerator(), 60000);
  EXPECT_EQ(program->formats.CurrentFps.Denominator(), 1001);
}

TEST_F(ExportOpening, TheRateOfTheFilmIsOffered) {
  program->formats.FilmFps = 29.97;
  Open(u"MICRODVD");
  EXPECT_EQ(Dialog().cmbFPS.GetText(), u"29,97");
  program->options.manner.SetClassic(true);
  Dialog().Open(false);
  EXPECT_EQ(Dialog().cmbFPS.GetText(), u"25");
}

TEST_F(ExportRate, AnythingBelow15OrAbove30IsRefusedForFramesInTheClassicManner) {
  program->options.manner.SetClassic(true);
  for (const TextView text : {TextView(u"14"), TextView(u"31"), TextView(u""), TextView(u"14,99"), TextView(u"abc")}) {
    Open(u"MICRODVD");
    program->formats.CurrentFps = 24;
    Dialog().cmbFPS.SetText(text);
    Control* focused = nullptr;
    const Connection watch = Dialog().FocusRequested.ConnectScoped([&](Control& control) { focused = &control; });
    Dialog().cmdOK.Click();
    EXPECT_FALSE(Dialog().Result());
    EXPECT_TRUE(Dialog().IsOpen());
    EXPECT_EQ(LastBox(), "The value entered is invalid. Please enter a value between 15 and 30.");
    EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
    EXPECT_EQ(boxes.shown.back().title, u"Source video FPS");
    EXPECT_EQ(focused, &Dialog().cmbFPS);
    EXPECT_EQ(program->formats.CurrentFps, 24);
  }
}

TEST_F(ExportRate, FourteenIsAcceptedAndIgnoredForAnyOtherFormat) {
  Open(u"SUBRIP");
  program->formats.CurrentFps = 24;
  Dialog().cmbFPS.SetText(u"14");
  Dialog().cmdOK.Click();
  EXPECT_TRUE(Dialog().Result());
  EXPECT_EQ(program->formats.CurrentFps, 0);
}

TEST_F(ExportRate, ThirtyWithDecimalsPasses) {
  Open(u"MICRODVD");
  Dialog().cmbFPS.SetText(u"30,5");
  Dialog().cmdOK.Click();
  EXPECT_TRUE(Dialog().Result());
  EXPECT_EQ(program->formats.CurrentFps, 30.5F);
}

TEST_F(ExportRate, TheCommaIsTheDecimalSign) {
  Open(u"MICRODVD");
  Dialog().cmbFPS.SetText(u"29,97");
  Dialog().cmdOK.Click();
  EXPECT_EQ(program->formats.CurrentFps, 29.97F);
}

TEST_F(ExportRate, KeysAreFiltered) {
  Open(u"MICRODVD");
  EXPECT_EQ(Typed(u'.', u"23"), u",");
  EXPECT_EQ(Typed(u',', u"23"), u",");
  EXPECT_EQ(Typed(u',', u"23,9"), u"");
  EXPECT_EQ(Typed(u'.', u"23,9"), u"");
  EXPECT_EQ(Typed(u'7', u"2"), u"7");
  EXPECT_EQ(Typed(u'a', u"2"), u"");
  EXPECT_EQ(Typed(u'-', u"2"), u"");
  // Two characters behind the digits pass as well.
  EXPECT_EQ(Typed(u':', u"2"), u":");
  EXPECT_EQ(Typed(u';', u"2"), u";");
  EXPECT_EQ(Typed(u'<', u"2"), u"");
}

TEST_F(ExportRate, ALongTextTakesNoFurtherKeyUnlessSomeOfItIsSelected) {
  Open(u"MICRODVD");
  EXPECT_EQ(Typed(u'7', u"23,97"), u"7");
  EXPECT_EQ(Typed(u'7', u"23,976"), u"");
  EXPECT_EQ(Typed(u'7', u"23,976", 2), u"7");
  Dialog().cmbFPS.SetText(u"23,976");
  KeyEvent back;
  back.code = kKeyBackspace;
  Dialog().cmbFPS.TypeKey(back);
  EXPECT_FALSE(back.handled);
}

TEST_F(ExportOk, TakesTheChosenFormat) {
  Open(u"SUBRIP");
  Choose(u"SAMI");
  Dialog().cmdOK.Click();
  EXPECT_TRUE(Dialog().Result());
  EXPECT_EQ(program->formats.CurrentFormatIndex, program->catalogue.IndexOf(u"SAMI"));
  EXPECT_FALSE(Dialog().IsOpen());
}

TEST_F(ExportOk, CancelAndTheFrameKeepTheFormat) {
  for (const bool frame : {false, true}) {
    Open(u"SUBRIP");
    Choose(u"SAMI");
    if (frame) {
      Dialog().Close();
    } else {
      Dialog().cmdCancel.Click();
    }
    EXPECT_FALSE(Dialog().Result());
    EXPECT_EQ(program->formats.CurrentFormatIndex, program->catalogue.IndexOf(u"SUBRIP"));
  }
}

TEST_F(ExportOk, ConfigureOpensTheSettingsOfTheChosenFormat) {
  Open(u"SUBRIP");
  Choose(u"SAMI");
  int shown = -1;
  program->dialogs.format.Opened.Connect([&] {
    shown = program->formats.SettingsFormatIndex;
    EXPECT_TRUE(program->dialogs.format.sami.picSami.Visible());
    program->dialogs.format.Close();
  });
  Dialog().cmdConfigure.Click();
  EXPECT_EQ(shown, program->catalogue.IndexOf(u"SAMI"));
  EXPECT_EQ(program->formats.SettingsFormatIndex, 0);
}

}  // namespace
}  // namespace cuewright
