#include "tests/support/embed_rig.h"

namespace cuewright {
namespace {

using EmbedScript = testing::EmbedRig;
using EmbedRun = testing::EmbedRig;

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
