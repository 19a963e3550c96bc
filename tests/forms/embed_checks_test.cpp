#include "tests/support/embed_rig.h"

namespace cuewright {
namespace {

using testing::FakeProcesses;

using EmbedChecks = testing::EmbedRig;

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

}  // namespace
}  // namespace cuewright
