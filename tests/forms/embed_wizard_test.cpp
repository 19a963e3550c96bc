#include "forms/embed_wizard.h"

#include <gtest/gtest.h>

#include "tests/forms/wizard_rig.h"

namespace cuewright {
namespace {

using testing::FakeProcesses;

struct EmbedTest : testing::WizardRig {
  void OpenWizard() {
    Window().mnuEmbed.Click();
    ASSERT_TRUE(Embed().IsOpen());
  }
  void GoTo(int step) {
    while (Embed().Step() < step) {
      const int before = Embed().Step();
      Embed().cmdNext.Click();
      ASSERT_EQ(Embed().Step(), before + 1) << LastBox();
    }
  }
  std::vector<Text> Lines() { return Script("embedsub.vcf"); }
  Text Line(TextView start) {
    for (const Text& line : Lines()) {
      if (line.starts_with(start)) return line;
    }
    return {};
  }
  int PageShown() {
    int shown = -1;
    for (int i = 0; i < 4; ++i) {
      if (!Embed().picStep[static_cast<std::size_t>(i)].Visible()) continue;
      EXPECT_EQ(shown, -1);
      shown = i;
    }
    return shown;
  }
};

using EmbedDocument = EmbedTest;
using EmbedPages = EmbedTest;
using EmbedChecks = EmbedTest;
using EmbedScript = EmbedTest;
using EmbedRun = EmbedTest;

TEST_F(EmbedDocument, IsRefusedForEachReasonInItsOrder) {
  struct Case {
    const char16_t* subtitle;
    const char16_t* video;
    Message message;
  };
  for (const Case& c :
       {Case{u"", u"", Message::EmbedNeedsSubtitle}, Case{u"NEW", u"", Message::EmbedNeedsSsa},
        Case{u"/a.srt", u"", Message::EmbedNeedsSsa}, Case{u"/a.ssa", u"", Message::EmbedNeedsVideo},
        Case{u"/a.SSA", u"/a.mp3", Message::EmbedNeedsVideo}, Case{u"/a.ssa", u"/a.SND", Message::EmbedNeedsVideo},
        Case{u"/a.ssa", u"/a.wav", Message::EmbedNeedsVideo}, Case{u"/a.ssa", u"/a.aif", Message::EmbedNeedsVideo},
        Case{u"/a.ssa", u"/a.wma", Message::EmbedNeedsVideo},
        Case{u"/a.ssa", u"/a.mkv", Message::EmbedNeedsAviOrMpeg}}) {
    program->document.SubtitlePath = c.subtitle;
    program->document.VideoPath = c.video;
    boxes.shown.clear();
    Window().mnuEmbed.Click();
    EXPECT_FALSE(Embed().IsOpen());
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].text, Says(c.message));
    EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Warning);
    EXPECT_EQ(boxes.shown[0].title, u"Embed Subtitles");
  }
}

TEST_F(EmbedDocument, ANameThatEndsInAuIsRefusedAsSound) {
  OpenFiles("film.au");
  Window().mnuEmbed.Click();
  EXPECT_TRUE(Shows(Message::EmbedNeedsVideo));
}

TEST_F(EmbedDocument, ANameThatEndsInMpegPassesByItsLastThreeLetters) {
  OpenFiles("film.MPEG");
  OpenWizard();
}

TEST_F(EmbedDocument, ADocumentWhoseFileIsNoSsaCannotPass) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  program->document.VideoPath = folder.Write("film.avi", "film");
  Window().mnuEmbed.Click();
  EXPECT_TRUE(Shows(Message::EmbedNeedsSsa));
  EXPECT_FALSE(Embed().IsOpen());
}

TEST_F(EmbedDocument, AFileThatIsGoneIsToldWithBothPaths) {
  OpenFiles();
  files.Remove(program->document.VideoPath);
  Window().mnuEmbed.Click();
  EXPECT_EQ(boxes.shown.back().text,
            (folder / "film.avi") + u"\r\n" + (folder / "text.ssa") + u"\r\n\r\n" + Says(Message::EmbedFilesMissing));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
}

TEST_F(EmbedDocument, IsCheckedAgainAtEachPress) {
  OpenFiles();
  OpenWizard();
  files.Remove(program->document.SubtitlePath);
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 0);
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
}

TEST_F(EmbedDocument, UnsavedChangesAreAskedAboutBeforeTheWizardOpens) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  OpenFiles();
  List().SetCaptionStart(1, 1500, false);
  boxes.answers = {BoxAnswer::Cancel};
  Window().mnuEmbed.Click();
  EXPECT_FALSE(Embed().IsOpen());
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(EmbedPages, OpenWithTheDesignedValues) {
  OpenFiles();
  folder.Write("run/embedsub.vcf", "of the last time");
  OpenWizard();
  EXPECT_EQ(PageShown(), 0);
  EXPECT_EQ(Embed().cmbFormat.GetText(), u"AVI (XviD)");
  EXPECT_EQ(Embed().cmbFormat.Items().size(), 1u);
  EXPECT_EQ(Embed().cmbResolution.GetText(), u"Use original");
  EXPECT_EQ(Embed().cmbResolution.Items().size(), 10u);
  EXPECT_EQ(Embed().cmbResolution.Items().back(), u"Custom size");
  EXPECT_EQ(Embed().cmbMode.Items(), (std::vector<Text>{u"Standard", u"Bilinear", u"Bicubic", u"Precise bilinear"}));
  EXPECT_EQ(Embed().cmbMode.Index(), 0);
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), folder / "app/vdrun/");
  EXPECT_EQ(Embed().txtSave.GetText(), folder / "film[sub].avi");
  EXPECT_EQ(Embed().cmdBack.GetText(), u"< Back");
  EXPECT_EQ(Embed().cmdNext.GetText(), u"Next >");
  EXPECT_FALSE(Embed().cmdBack.Enabled());
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::EmbedHint));
  EXPECT_EQ(Embed().sldPreview.Value(), 1);
  EXPECT_FALSE(Embed().sldPreview.Enabled());
  EXPECT_FALSE(files.Exists(folder / "run/embedsub.vcf"));
}

TEST_F(EmbedPages, OfAnyStoredFolderShowThatFolder) {
  OpenFiles();
  program->store.SaveSetting(kMainSection, u"VDPATH", u"/else/where/");
  OpenWizard();
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), u"/else/where/");
}

TEST_F(EmbedPages, CloseTheToolWindowsFirst) {
  OpenFiles();
  program->tools.findWindow.Show();
  OpenWizard();
  EXPECT_FALSE(program->tools.findWindow.Loaded());
}

TEST_F(EmbedPages, AResolutionFillsWidthAndHeight) {
  OpenFiles();
  OpenWizard();
  const std::pair<const char16_t*, const char16_t*> sizes[] = {{u"352", u"240"}, {u"352", u"288"}, {u"480", u"480"},
                                                               {u"480", u"576"}, {u"704", u"480"}, {u"704", u"576"},
                                                               {u"640", u"480"}, {u"1024", u"768"}};
  for (int i = 1; i <= 8; ++i) {
    Embed().cmbResolution.Choose(i);
    EXPECT_EQ(Embed().txtWidth.GetText(), sizes[i - 1].first);
    EXPECT_EQ(Embed().txtHeight.GetText(), sizes[i - 1].second);
    EXPECT_FALSE(Embed().txtWidth.Enabled());
    EXPECT_TRUE(Embed().cmbMode.Enabled());
    EXPECT_TRUE(Embed().imgMode.Visible());
  }
  Embed().cmbResolution.Choose(9);
  EXPECT_EQ(Embed().txtWidth.GetText(), u"1024");
  for (Control* control : std::initializer_list<Control*>{&Embed().txtWidth, &Embed().txtHeight, &Embed().lblSize,
                                                          &Embed().lblX, &Embed().lblMode, &Embed().cmbMode}) {
    EXPECT_TRUE(control->Enabled());
  }
  Embed().cmbResolution.Choose(0);
  EXPECT_EQ(Embed().txtWidth.GetText(), u"1024");
  EXPECT_FALSE(Embed().txtHeight.Enabled());
  EXPECT_FALSE(Embed().cmbMode.Enabled());
  EXPECT_FALSE(Embed().lblMode.Enabled());
  EXPECT_FALSE(Embed().imgMode.Visible());
}

TEST_F(EmbedPages, TheSizeBoxesLetDigitsTheTwoSignsBehindThemAndBackspaceThrough) {
  const auto dropped = [&](int code, char16_t character) {
    KeyEvent key;
    key.code = code;
    key.character = character;
    Embed().txtWidth.TypeKey(key);
    return key.handled;
  };
  for (const char16_t character : TextView(u"0123456789:;")) EXPECT_FALSE(dropped(character, character));
  for (const char16_t character : TextView(u"/<aZ -.\u0661")) EXPECT_TRUE(dropped(0, character));
  EXPECT_FALSE(dropped(kKeyBackspace, 0));
}

TEST_F(EmbedPages, ASizeIsBroughtIntoItsLimitsWhenTheBoxLosesTheFocus) {
  for (const auto& [typed, left] : std::initializer_list<std::pair<const char16_t*, const char16_t*>>{
           {u"31", u"32"}, {u"32", u"32"}, {u"2048", u"2048"}, {u"2049", u"2048"}, {u"", u"32"}, {u"12:3;", u"123"}}) {
    Embed().txtHeight.SetText(typed);
    Embed().txtHeight.LoseFocus();
    EXPECT_EQ(Embed().txtHeight.GetText(), left);
  }
  Embed().txtHeight.SetText(u"640");
  Embed().txtHeight.TakeFocus();
  EXPECT_EQ(Embed().txtHeight.SelStart(), 0);
  EXPECT_EQ(Embed().txtHeight.SelLength(), 3);
}

TEST_F(EmbedPages, PreviewCountsWholeMinutesOfTheFilm) {
  OpenFiles();
  OpenWizard();
  Embed().chkPreview.Click();
  EXPECT_TRUE(Embed().sldPreview.Enabled());
  EXPECT_TRUE(Embed().lblPreview.Enabled());
  EXPECT_EQ(Embed().sldPreview.Max(), 5);
  EXPECT_EQ(Embed().lblPreview.GetText(), u"1 minute");
  Embed().sldPreview.Move(5);
  EXPECT_EQ(Embed().lblPreview.GetText(), u"5 minutes");
  Embed().chkPreview.Click();
  EXPECT_FALSE(Embed().sldPreview.Enabled());
}

TEST_F(EmbedPages, PreviewNeedsTwoMinutesOfFilm) {
  OpenFiles();
  OpenWizard();
  player.duration = 119.9;
  Embed().chkPreview.Click();
  EXPECT_TRUE(Shows(Message::VideoTooShort));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
  EXPECT_FALSE(Embed().chkPreview.Value());
  player.duration = 0;
  Embed().chkPreview.Click();
  EXPECT_TRUE(Shows(Message::LengthUnknown));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_FALSE(Embed().chkPreview.Value());
  EXPECT_FALSE(Embed().sldPreview.Enabled());
  player.duration = 120;
  Embed().chkPreview.Click();
  EXPECT_EQ(Embed().sldPreview.Max(), 2);
}

TEST_F(EmbedPages, HintsFollowThePointer) {
  OpenFiles();
  OpenWizard();
  const std::pair<const char*, Message> hints[] = {
      {"imgFormat", Message::OutputFormatHint},         {"imgRes", Message::OutputResolutionHint},
      {"cmbResolution", Message::OutputResolutionHint}, {"imgMode", Message::FilterModeHint},
      {"imgPreview", Message::EmbedPreviewHint},        {"imgSave", Message::OutputFileNameHint},
      {"imgVD", Message::VirtualDubFolderHint},         {"cmdBrowseVD", Message::VirtualDubFolderHint},
      {"cmdConfigure", Message::ConfigureCodecHint},    {"cmdCancel", Message::CloseDialogHint},
      {"txtWidth", Message::OutputWidthHint},           {"txtHeight", Message::OutputHeightHint}};
  for (const auto& [control, message] : hints) {
    Embed().Find(control)->Hover();
    EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(message)) << control;
  }
  Embed().Hover();
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::EmbedHint));
  Embed().ShowEmbedDetails(u"");
  EXPECT_FALSE(Embed().details.lblDetailsTitle.Visible());
  EXPECT_FALSE(Embed().details.fraDetails.Visible());
  Embed().ShowEmbedDetails(u"word");
  EXPECT_TRUE(Embed().details.lblDetailsTitle.Visible());
  EXPECT_TRUE(Embed().details.fraDetails.Visible());
}

TEST_F(EmbedPages, EachStepHasItsHint) {
  OpenFiles();
  OpenWizard();
  GoTo(1);
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::VirtualDubFolderHint));
  GoTo(2);
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::OutputFileNameHint));
  GoTo(3);
  EXPECT_EQ(Embed().details.lblDetails.GetText(),
            Says(Message::FilesWillBeClosed) + u"\r\n\r\n" + Says(Message::OkBeginsProcess));
}

TEST_F(EmbedPages, LinksOpenTheirPages) {
  OpenFiles();
  OpenWizard();
  Embed().lblDownload.Click();
  Embed().lblConvert.Click();
  Embed().imgConfigure.Click();
  program->options.language = u"SPANISH";
  Embed().imgConfigure.Click();
  EXPECT_EQ(desktop.opened,
            (std::vector<Text>{Text(kWebSite) + u"/en/downloads.php?cid=14", Text(kWebSite) + u"/en/guides.php",
                               Text(kWebSite) + u"/go.php?id=9", Text(kWebSite) + u"/go.php?es=1&id=9"}));
}

TEST_F(EmbedPages, TheDrawingMovesTheWindow) {
  int moved = 0;
  Embed().DragRequested.Connect([&] { ++moved; });
  Embed().imgDrag.PressMouse({MouseButton::Right, 1, 1});
  EXPECT_EQ(moved, 0);
  Embed().imgDrag.PressMouse({MouseButton::Left, 1, 1});
  EXPECT_EQ(moved, 1);
}

TEST_F(EmbedPages, GoForwardAndBack) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  EXPECT_EQ(PageShown(), 3);
  EXPECT_EQ(Embed().cmdNext.GetText(), u"&OK");
  EXPECT_EQ(Embed().lblTop2.GetText(), Says(Message::ReadyToBegin));
  Embed().cmdBack.Click();
  EXPECT_EQ(PageShown(), 2);
  EXPECT_EQ(Embed().cmdNext.GetText(), u"Next >");
  EXPECT_EQ(Embed().lblTop2.GetText(), Says(Message::OutputFileSettings));
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::OutputFileNameHint));
  Embed().cmdBack.Click();
  EXPECT_TRUE(Embed().cmdBack.Enabled());
  Embed().cmdBack.Click();
  EXPECT_FALSE(Embed().cmdBack.Enabled());
  EXPECT_EQ(PageShown(), 0);
  Embed().cmdCancel.Click();
  EXPECT_FALSE(Embed().IsOpen());
}

TEST_F(EmbedChecks, WithoutAnEncoderTheFirstPageStays) {
  encoders = " V....D libx264              H.264\n";
  OpenFiles();
  OpenWizard();
  boxes.answers = {BoxAnswer::No};
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 0);
  EXPECT_TRUE(Shows(Message::XvidNotFound));
  EXPECT_EQ(LastTitle(), u"Embed Subtitles");
  EXPECT_TRUE(desktop.opened.empty());
  boxes.answers = {BoxAnswer::Yes};
  Embed().cmdConfigure.Click();
  EXPECT_EQ(desktop.opened.back(), Text(kWebSite) + u"/en/downloads.php?cid=10");
  encoders = " V..... mpeg4                MPEG-4 part 2\n";
  GoTo(1);
}

TEST_F(EmbedChecks, ConfigureAsksForTheQualityAndStoresIt) {
  OpenFiles();
  OpenWizard();
  boxes.lines = {u"2"};
  Embed().cmdConfigure.Click();
  EXPECT_EQ(boxes.asked.back().initial, u"4");
  EXPECT_EQ(boxes.asked.back().title, Says(Message::ConfigureCodec));
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDQUANT", u""), u"2");
  boxes.lines = {u"99"};
  Embed().cmdConfigure.Click();
  EXPECT_EQ(boxes.asked.back().initial, u"2");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDQUANT", u""), u"31");
  Embed().cmdConfigure.Click();  // cancelled
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDQUANT", u""), u"31");
}

TEST_F(EmbedChecks, UnderWineTheCodecIsALibraryOfItsSystem) {
  OpenFiles();
  std::filesystem::create_directories(folder.Path() / "vd");
  folder.Write("vd/virtualdub.EXE", "x");
  program->store.SaveSetting(kMainSection, u"VDPATH", folder / "vd/");
  program->folders.SystemFolder = folder / "system/";
  OpenWizard();
  Embed().cmdNext.Click();
  EXPECT_TRUE(Shows(Message::XvidNotFound));
  std::filesystem::create_directories(folder.Path() / "system");
  folder.Write("system/xvidvfw.dll", "x");
  Embed().cmdConfigure.Click();
  ASSERT_NE(Tool(), nullptr);
  EXPECT_EQ(Tool()->program, u"wine");
  EXPECT_EQ(Tool()->arguments.front(), u"rundll32.exe");
  EXPECT_EQ(Tool()->arguments.back(), u"Z:" + ReplaceAll(folder / "system/xvidvfw.dll", u"/", u"\\") + u",Configure");
  GoTo(1);
}

TEST_F(EmbedChecks, AFolderWithoutTheToolIsNotTakenOver) {
  OpenFiles();
  OpenWizard();
  std::filesystem::create_directories(folder.Path() / "empty");
  pickers.folders = {folder / "empty"};
  boxes.answers = {BoxAnswer::Yes};
  Embed().cmdBrowseVD.Click();
  EXPECT_EQ(pickers.prompts.back(), Says(Message::SelectVirtualDubFolder));
  EXPECT_TRUE(Shows(Message::VirtualDubNotFound));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
  EXPECT_EQ(desktop.opened.back(), Text(kWebSite) + u"/en/downloads.php?cid=14");
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), folder / "app/vdrun/");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDPATH", u"none"), u"none");
}

TEST_F(EmbedChecks, NoChoiceOfAFolderChangesNothing) {
  OpenFiles();
  OpenWizard();
  for (const char16_t* chosen : {u"", u"/"}) {
    pickers.folders = {chosen};
    Embed().cmdBrowseVD.Click();
    EXPECT_TRUE(boxes.shown.empty());
  }
}

TEST_F(EmbedChecks, AFolderWithoutTheFilterIsNotTakenOver) {
  OpenFiles();
  OpenWizard();
  std::filesystem::create_directories(folder.Path() / "vd/plugins");
  folder.Write("vd/VirtualDub.exe", "x");
  pickers.folders = {folder / "vd", folder / "vd"};
  boxes.answers = {BoxAnswer::Yes};
  Embed().cmdBrowseVD.Click();
  EXPECT_EQ(boxes.shown.back().text, Fill(Says(Message::SubtitlerNotFound), folder / "vd/plugins/subtitler.vdf"));
  EXPECT_EQ(desktop.opened.back(), Text(kWebSite) + u"/en/downloads.php?cid=18");
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), folder / "app/vdrun/");
  folder.Write("vd/plugins/subtitler.vdf", "x");
  Embed().cmdBrowseVD.Click();
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), folder / "vd/");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDPATH", u""), folder / "vd/");
}

TEST_F(EmbedChecks, ForTheRunnerTheFilterIsWhatFfmpegHas) {
  OpenFiles();
  OpenWizard();
  filters = " .. scale  V->V  Scale\n";
  pickers.folders = {folder / "app/vdrun", folder / "app/vdrun"};
  boxes.answers = {BoxAnswer::No};
  Embed().cmdBrowseVD.Click();
  EXPECT_EQ(boxes.shown.back().text, Fill(Says(Message::SubtitlerNotFound), u"FFmpeg: libass"));
  EXPECT_TRUE(desktop.opened.empty());
  filters = " .. subtitles  V->V  Render\n";
  Embed().cmdBrowseVD.Click();
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDPATH", u""), folder / "app/vdrun/");
}

TEST_F(EmbedChecks, TheSecondPageNeedsAFolderWithATool) {
  OpenFiles();
  OpenWizard();
  GoTo(1);
  Embed().txtVirtualdub.SetText(u"");
  Embed().cmdNext.Click();
  EXPECT_TRUE(Shows(Message::SpecifyLocation));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
  Embed().txtVirtualdub.SetText(u"/no/where/");
  Embed().cmdNext.Click();
  EXPECT_EQ(boxes.shown.back().text, ReplaceFirst(Says(Message::ProgramNotFound), u"%FN", u"/no/where/VirtualDub.exe"));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_EQ(Embed().Step(), 1);
  Embed().txtVirtualdub.SetText(folder / "app/vdrun");  // without the separator
  GoTo(2);
}

TEST_F(EmbedChecks, AnExistingTargetIsAskedAboutOnce) {
  OpenFiles();
  folder.Write("film[sub].avi", "old");
  OpenWizard();
  GoTo(2);
  boxes.answers = {BoxAnswer::No};
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 2);
  EXPECT_EQ(boxes.shown.back().text, Fill(Says(Message::ReplaceExisting), folder / "film[sub].avi"));
  EXPECT_EQ(LastTitle(), u"Save as");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
  boxes.answers = {BoxAnswer::Yes};
  GoTo(3);
  EXPECT_TRUE(files.Exists(folder / "film[sub].avi"));
}

TEST_F(EmbedChecks, ANameThatIsTypedBehindTheDialogIsAskedAbout) {
  OpenFiles();
  folder.Write("other.avi", "old");
  folder.Write("third.avi", "old");
  OpenWizard();
  GoTo(2);
  dialogs.paths = {folder / "other.avi"};
  Embed().cmdSave.Click();
  Embed().txtSave.SetText(folder / "third.avi");
  boxes.answers = {BoxAnswer::No};
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 2);
  EXPECT_EQ(boxes.shown.back().text, Fill(Says(Message::ReplaceExisting), folder / "third.avi"));
}

TEST_F(EmbedChecks, TheFilmItselfIsNoTarget) {
  OpenFiles();
  OpenWizard();
  GoTo(2);
  Embed().txtSave.SetText(program->document.VideoPath);
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 2);
  EXPECT_TRUE(Shows(Message::FilmIsNoTarget));
}

TEST_F(EmbedChecks, TheFilmItselfIsNoTargetByAnyOfItsNames) {
  OpenFiles();
  std::filesystem::create_symlink(folder.Bytes("film.avi"), folder.Bytes("link.avi"));
  OpenWizard();
  GoTo(2);
  Embed().txtSave.SetText(folder / "link.avi");
  boxes.answers = {BoxAnswer::Yes};
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 2);
  EXPECT_TRUE(Shows(Message::FilmIsNoTarget));
}

TEST_F(EmbedChecks, ASecondPressWhileTheFirstIsBusyDoesNothing) {
  OpenFiles();
  folder.Write("film[sub].avi", "old");
  OpenWizard();
  // FFmpeg takes its time to tell what it has, and the user presses again.
  const auto quick = processes.onStart;
  FakeProcesses::Run* slow = nullptr;
  processes.onStart = [&](FakeProcesses::Run& run) {
    quick(run);
    if (run.program == u"ffmpeg") {
      run.status.reset();
      slow = &run;
    }
  };
  events.onWaitMs = [&](int) {
    Embed().cmdNext.Click();
    EXPECT_EQ(Embed().Step(), 0);
    if (slow != nullptr) slow->status = 0;
  };
  Embed().cmdNext.Click();
  EXPECT_NE(slow, nullptr);
  EXPECT_EQ(Embed().Step(), 1);
}

TEST_F(EmbedChecks, TheSaveDialogHasAskedAlready) {
  OpenFiles();
  folder.Write("other.avi", "old");
  OpenWizard();
  GoTo(2);
  dialogs.paths = {folder / "other.mkv"};
  Embed().cmdSave.Click();
  EXPECT_EQ(dialogs.calls.back().title, u"Save as");
  EXPECT_EQ(dialogs.calls.back().filter, u"Video files (AVI)|*.avi|");
  EXPECT_EQ(dialogs.calls.back().proposal, folder / "film[sub].avi");
  EXPECT_EQ(dialogs.calls.back().folder, program->recall.LastFolder());
  EXPECT_EQ(Embed().txtSave.GetText(), folder / "other.avi");
  // It asked about another name than the one that is written.
  boxes.answers = {BoxAnswer::No};
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 2);
  EXPECT_EQ(boxes.shown.size(), 1u);
  dialogs.paths = {folder / "other.avi"};
  Embed().cmdSave.Click();
  GoTo(3);
  EXPECT_EQ(boxes.shown.size(), 1u);
  Embed().cmdBack.Click();
  Embed().cmdSave.Click();  // cancelled
  EXPECT_EQ(Embed().txtSave.GetText(), folder / "other.avi");
}

TEST_F(EmbedScript, HasTwentyTwoLinesForTheOriginalSize) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  ASSERT_EQ(Lines().size(), 22u);
  EXPECT_EQ(Lines().front(), u"VirtualDub.Open(\"" + (folder / "film.avi") + u"\",0,0);");
  EXPECT_EQ(Lines().back(), u"VirtualDub.Close();");
  EXPECT_EQ(Line(u"VirtualDub.video.filters.Add"), u"VirtualDub.video.filters.Add(\"subtitler\");");
  EXPECT_EQ(Line(u"VirtualDub.video.filters.instance[0]"),
            u"VirtualDub.video.filters.instance[0].Config(1, \"" + (folder / "text.ssa") + u"\", 0, 0);");
  EXPECT_EQ(Line(u"VirtualDub.SaveAVI"), u"VirtualDub.SaveAVI(\"" + (folder / "film[sub].avi") + u"\");");
  EXPECT_EQ(Line(u"VirtualDub.video.SetRange"), u"");
  EXPECT_TRUE(folder.Read("run/embedsub.vcf").ends_with("VirtualDub.Close();\r\n"));
}

TEST_F(EmbedScript, HasTwentyThreeLinesWithPreview) {
  OpenFiles();
  OpenWizard();
  Embed().chkPreview.Click();
  GoTo(3);
  EXPECT_EQ(Lines().size(), 23u);
  EXPECT_EQ(Line(u"VirtualDub.video.SetRange"), u"VirtualDub.video.SetRange(0,240000);");
}

TEST_F(EmbedScript, APreviewOfTheFullLengthLeavesTheRestOfTheLastMinuteOut) {
  OpenFiles();
  player.duration = 330.9;
  OpenWizard();
  Embed().chkPreview.Click();
  Embed().sldPreview.Move(Embed().sldPreview.Max());
  GoTo(3);
  EXPECT_EQ(Line(u"VirtualDub.video.SetRange"), u"VirtualDub.video.SetRange(0,30000);");
}

TEST_F(EmbedScript, ResizesBehindTheSubtitlesForAnySizeOfItsOwn) {
  OpenFiles();
  OpenWizard();
  Embed().cmbResolution.Choose(9);
  Embed().txtWidth.SetText(u"7;");
  Embed().txtHeight.SetText(u"300");
  Embed().cmbMode.Choose(3);
  GoTo(3);
  ASSERT_EQ(Lines().size(), 24u);
  EXPECT_EQ(Lines()[20], u"VirtualDub.video.filters.Add(\"resize\");");
  EXPECT_EQ(Lines()[21], u"VirtualDub.video.filters.instance[1].Config(32,300,3);");
}

TEST_F(EmbedScript, DoublesTheBackslashesOfTheVideoAndTurnsThoseOfTheSubtitle) {
  OpenFiles();
  std::filesystem::create_directories(folder.Path() / "vd");
  folder.Write("vd/VIRTUALDUB.exe", "x");
  program->store.SaveSetting(kMainSection, u"VDPATH", folder / "vd/");
  program->folders.SystemFolder = folder / "vd/";
  folder.Write("vd/xvidvfw.dll", "x");
  OpenWizard();
  GoTo(3);
  const Text doubled = u"Z:" + ReplaceAll(folder / "", u"/", u"\\\\");
  EXPECT_EQ(Lines().front(), u"VirtualDub.Open(\"" + doubled + u"film.avi\",0,0);");
  EXPECT_EQ(Line(u"VirtualDub.SaveAVI"), u"VirtualDub.SaveAVI(\"" + doubled + u"film[sub].avi\");");
  EXPECT_EQ(Line(u"VirtualDub.video.filters.instance[0]"),
            u"VirtualDub.video.filters.instance[0].Config(1, \"Z:" + (folder / "text.ssa") + u"\", 0, 0);");
}

TEST_F(EmbedScript, IsWrittenAnewAtEachArrival) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  for (int i = 0; i < 3; ++i) Embed().cmdBack.Click();
  Embed().cmbResolution.Choose(1);
  GoTo(3);
  EXPECT_EQ(Line(u"VirtualDub.video.filters.instance[1]"), u"VirtualDub.video.filters.instance[1].Config(352,240,0);");
}

TEST_F(EmbedScript, NamesThatTheScriptCannotHoldGetPrivateLinks) {
  OpenFiles("fi\"lm\n\xFF.avi", "te\\xt'$(x);.ssa");
  OpenWizard();
  GoTo(3);
  const Text source = Lines().front();
  EXPECT_EQ(source, u"VirtualDub.Open(\"" + (folder / "run/link1.avi") + u"\",0,0);");
  EXPECT_EQ(std::filesystem::read_symlink(folder.Bytes("run/link1.avi")).string(), folder.Bytes("fi\"lm\n\xFF.avi"));
  EXPECT_EQ(std::filesystem::read_symlink(folder.Bytes("run/link1.ssa")).string(), folder.Bytes("te\\xt'$(x);.ssa"));
  EXPECT_EQ(Line(u"VirtualDub.SaveAVI"), u"VirtualDub.SaveAVI(\"" + (folder / "run/link2.avi") + u"\");");
}

TEST_F(EmbedScript, IsPrivateAndFollowsNoLinkAtItsPlace) {
  OpenFiles();
  OpenWizard();
  GoTo(2);
  const Text victim = folder.Write("victim", "keep");
  std::filesystem::create_symlink(folder.Bytes("victim"), folder.Bytes("run/embedsub.vcf"));
  GoTo(3);
  EXPECT_EQ(folder.Read("victim"), "keep");
  const auto status = std::filesystem::symlink_status(folder.Bytes("run/embedsub.vcf"));
  EXPECT_TRUE(std::filesystem::is_regular_file(status));
  EXPECT_EQ(status.permissions(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(EmbedScript, ShowsTheFilesAndForAviTheWarning) {
  OpenFiles();
  OpenWizard();
  bool working = false;
  events.onWaitMs = [&](int) { working = working || (desktop.busy && !Embed().cmdCancel.Enabled()); };
  GoTo(3);
  EXPECT_TRUE(working);
  EXPECT_FALSE(desktop.busy);
  EXPECT_TRUE(Embed().cmdCancel.Enabled());
  EXPECT_EQ(Embed().txtTFileName.GetText(), folder / "text.ssa");
  EXPECT_EQ(Embed().txtVFileName.GetText(), folder / "film.avi");
  EXPECT_EQ(events.waits.back(), 1000);
  for (const char* name : {"imgNotice", "lblNotice", "lblNote1", "lblNote2", "lblConvert"}) {
    EXPECT_TRUE(Embed().Find(name)->Visible()) << name;
  }
  EXPECT_EQ(Embed().lblNotice.GetText(), Says(Message::VbrWarning));
  EXPECT_EQ(Embed().lblNote1.GetText(), Says(Message::VbrWarningText));
  EXPECT_EQ(Embed().lblNote2.GetText(), Says(Message::VbrLinkText));
  EXPECT_EQ(Embed().lblConvert.GetText(), Says(Message::VbrGuide));
}

TEST_F(EmbedScript, HasNoWarningForMpeg) {
  OpenFiles("film.mpg");
  OpenWizard();
  GoTo(3);
  EXPECT_FALSE(Embed().imgNotice.Visible());
  EXPECT_FALSE(Embed().lblConvert.Visible());
}

TEST_F(EmbedRun, ClosesTheDocumentAndStartsTheTool) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  events.waits.clear();
  program->notices.Tell(Message::CloseNotice);
  Embed().cmdNext.Click();
  EXPECT_FALSE(program->notices.Shown()) << "how the file was read is no matter any more";
  ASSERT_NE(Tool(), nullptr);
  EXPECT_EQ(Tool()->program, folder / "app/vdrun/vdrun");
  EXPECT_EQ(Tool()->arguments, (std::vector<Text>{u"/s", folder / "run/embedsub.vcf", u"/x"}));
  EXPECT_EQ(Tool()->options.folder, folder / "app/vdrun/");
  EXPECT_TRUE(Tool()->options.outlives);
  EXPECT_EQ(events.waits, (std::vector<int>{1000, 1000}));
  EXPECT_FALSE(Embed().IsOpen());
  EXPECT_FALSE(desktop.busy);
  EXPECT_TRUE(program->document.SubtitlePath.empty());
  EXPECT_TRUE(program->document.VideoPath.empty());
  EXPECT_EQ(player.url, u"");
  EXPECT_FALSE(player.enabled);
  EXPECT_TRUE(files.Exists(folder / "run/embedsub.vcf"));
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EmbedRun, WithoutItsScriptStays) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  files.Remove(folder / "run/embedsub.vcf");
  Embed().cmdNext.Click();
  EXPECT_EQ(boxes.shown.back().text, u"Failed to create script file:\r\n\r\n" + (folder / "run/embedsub.vcf"));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_EQ(LastTitle(), u"Tessaly Cuewright");
  EXPECT_TRUE(Embed().IsOpen());
  EXPECT_TRUE(program->document.HasDocument());
}

TEST_F(EmbedRun, AToolThatDoesNotStartIsToldAndTheDocumentStaysClosed) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  processes.missing = true;
  // The list of encoders was asked for before.
  Embed().cmdNext.Click();
  EXPECT_EQ(boxes.shown.back().text, Says(Message::StartFailed) + u"\r\n\r\n" + (folder / "app/vdrun/vdrun"));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_FALSE(Embed().IsOpen());
  EXPECT_FALSE(program->document.HasDocument());
  EXPECT_FALSE(desktop.busy);
}

TEST_F(EmbedRun, UnderWineGetsThePathsInItsForm) {
  OpenFiles();
  std::filesystem::create_directories(folder.Path() / "vd");
  folder.Write("vd/VirtualDub.exe", "x");
  folder.Write("vd/xvidvfw.dll", "x");
  program->store.SaveSetting(kMainSection, u"VDPATH", folder / "vd/");
  program->folders.SystemFolder = folder / "vd/";
  OpenWizard();
  GoTo(3);
  Embed().cmdNext.Click();
  EXPECT_EQ(Tool()->program, u"wine");
  EXPECT_EQ(Tool()->arguments,
            (std::vector<Text>{folder / "vd/VirtualDub.exe", u"/s",
                               u"Z:" + ReplaceAll(folder / "run/embedsub.vcf", u"/", u"\\"), u"/x"}));
}

}  // namespace
}  // namespace cuewright
