#include "forms/audio_wizard.h"

#include <gtest/gtest.h>

#include "tests/forms/wizard_rig.h"

namespace cuewright {
namespace {

using testing::FakeProcesses;

struct AudioWizardTest : testing::WizardRig {
  void OpenWizard() {
    Window().mnuAudioExtract.Click();
    ASSERT_TRUE(Audio().IsOpen()) << LastBox();
  }
  void GoTo(int step) {
    while (Audio().Step() < step) {
      const int before = Audio().Step();
      Audio().cmdNext.Click();
      ASSERT_EQ(Audio().Step(), before + 1) << LastBox();
    }
  }
  /// The tool writes the target and ends after so many looks at it.
  void ToolWrites(const std::string& bytes, int looks = 2) {
    processes.onStart = [this, bytes](FakeProcesses::Run& run) {
      run_ = &run;
      started_ = events.now;
      written_ = bytes;
    };
    events.onWaitMs = [this, looks](int) {
      if (run_ == nullptr || run_->status || ++looked_ < looks) return;
      folder.Write("film.wav", written_);
      run_->status = 0;
    };
  }
  std::vector<Text> Lines() { return Script("aext.vcf"); }
  std::vector<TaskLight> Lights() { return {Audio().LightOf(0), Audio().LightOf(1), Audio().LightOf(2)}; }

  FakeProcesses::Run* run_ = nullptr;
  int looked_ = 0;
  std::int64_t started_ = 0;
  std::string written_;
};

using AudioWizardEntry = AudioWizardTest;
using AudioWizardPages = AudioWizardTest;
using AudioWizardScript = AudioWizardTest;
using AudioWizardRun = AudioWizardTest;

constexpr TaskLight kGrey = TaskLight::Grey;
constexpr TaskLight kRed = TaskLight::Red;
constexpr TaskLight kYellow = TaskLight::Yellow;
constexpr TaskLight kGreen = TaskLight::Green;

TEST_F(AudioWizardEntry, NeedsAFilm) {
  Window().mnuAudioExtract.Click();
  EXPECT_TRUE(Shows(Message::ExtractionNeedsVideo));
  EXPECT_EQ(LastTitle(), u"Audio Extraction Wizard");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
}

TEST_F(AudioWizardEntry, NeedsAviOrMpeg) {
  OpenFiles("film.mkv");
  Window().mnuAudioExtract.Click();
  EXPECT_TRUE(Shows(Message::EmbedNeedsAviOrMpeg));
  EXPECT_EQ(LastTitle(), u"Audio Extraction Wizard");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_FALSE(Audio().IsOpen());
}

TEST_F(AudioWizardEntry, StopsThePlayerAndClosesTheToolWindows) {
  OpenFiles("film.mpeg");
  player.state = kPlayerPlaying;
  program->tools.findWindow.Show();
  OpenWizard();
  EXPECT_EQ(player.state, kPlayerStopped);
  EXPECT_FALSE(program->tools.findWindow.Loaded());
}

TEST_F(AudioWizardPages, OpenWithTheDesignedValues) {
  OpenFiles();
  OpenWizard();
  EXPECT_EQ(Audio().txtVirtualdub.GetText(), folder / "app/vdrun/");
  EXPECT_EQ(Audio().txtSave.GetText(), folder / "film.wav");
  EXPECT_EQ(Audio().cmdBack.GetText(), u"< Back");
  EXPECT_EQ(Audio().cmdNext.GetText(), u"Next >");
  EXPECT_FALSE(Audio().cmdBack.Enabled());
  EXPECT_TRUE(Audio().optWAV.Value());
  EXPECT_EQ(Audio().cmbSampleRate.Items(),
            (std::vector<Text>{u"Use original", u"8000", u"11025", u"16000", u"22050", u"44100", u"48000"}));
  EXPECT_EQ(Audio().cmbSampleRate.GetText(), u"Use original");
  EXPECT_TRUE(Audio().cmbSampleRate.Editable());
  EXPECT_EQ(Audio().PendingAudioFile(), u"");
  EXPECT_EQ(Lights(), (std::vector<TaskLight>{kGrey, kGrey, kGrey}));
  const std::pair<const char*, Message> texts[] = {
      {"lblStep1", Message::SelectAudioFormat},     {"lblStep1b", Message::LoadNeedsWav},
      {"lblStep2", Message::ChooseAudioSettings},   {"lblSampleRate", Message::SampleRate},
      {"lblStep2b", Message::SampleRateNote},       {"lblStep3", Message::ExtractionNeedsVirtualDub},
      {"lblStep3b", Message::DownloadPrograms},     {"lblStep4", Message::SelectAudioLocation},
      {"lblStep4b", Message::NextStartsExtraction}, {"lblStep5", Message::TasksAreExecuted},
      {"lblStep5b", Message::CloseToCancel},        {"lblTask(0)", Message::GeneratingScript},
      {"lblTask(1)", Message::ExtractingStream},    {"lblTask(2)", Message::CheckingAudio},
      {"chkClose", Message::CloseWhenDone},         {"optWAV", Message::WavUncompressed},
      {"optOriginal", Message::KeepSourceFormat},   {"chkAudioBar", Message::LoadOnAudioBar}};
  for (const auto& [name, message] : texts) EXPECT_EQ(Audio().Find(name)->GetText(), Says(message)) << name;
}

TEST_F(AudioWizardPages, TheFormatDecidesWhatFollows) {
  OpenFiles();
  OpenWizard();
  Audio().optOriginal.Click();
  EXPECT_FALSE(Audio().optWAV.Value());
  EXPECT_FALSE(Audio().chkAudioBar.Enabled());
  GoTo(1);
  EXPECT_FALSE(Audio().cmbSampleRate.Enabled());
  EXPECT_FALSE(Audio().lblSampleRate.Enabled());
  EXPECT_FALSE(Audio().lblStep2b.Visible());
  EXPECT_TRUE(Audio().cmdBack.Enabled());
  Audio().cmdBack.Click();
  EXPECT_FALSE(Audio().cmdBack.Enabled());
  Audio().optWAV.Click();
  EXPECT_TRUE(Audio().chkAudioBar.Enabled());
  GoTo(1);
  EXPECT_TRUE(Audio().cmbSampleRate.Enabled());
  EXPECT_TRUE(Audio().lblStep2b.Visible());
}

TEST_F(AudioWizardPages, TheToolPageNeedsATool) {
  OpenFiles();
  OpenWizard();
  GoTo(2);
  Audio().txtVirtualdub.SetText(u"");
  Audio().cmdNext.Click();
  EXPECT_TRUE(Shows(Message::SpecifyLocation));
  Audio().txtVirtualdub.SetText(u"/no/where/");
  Audio().cmdNext.Click();
  EXPECT_EQ(boxes.shown.back().text, ReplaceFirst(Says(Message::ProgramNotFound), u"%FN", u"/no/where/VirtualDub.exe"));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_EQ(Audio().Step(), 2);
}

TEST_F(AudioWizardPages, BrowsingAsksForNoFilter) {
  OpenFiles();
  OpenWizard();
  std::filesystem::create_directories(folder.Path() / "vd");
  pickers.folders = {folder / "vd", folder / "vd"};
  boxes.answers = {BoxAnswer::Yes};
  Audio().cmdBrowseVD.Click();
  EXPECT_TRUE(Shows(Message::VirtualDubNotFound));
  EXPECT_EQ(desktop.opened.back(), Text(kWebSite) + u"/en/downloads.php?cid=14");
  folder.Write("vd/virtualdub.exe", "x");
  Audio().cmdBrowseVD.Click();
  EXPECT_EQ(Audio().txtVirtualdub.GetText(), folder / "vd/");
  EXPECT_EQ(program->store.GetSetting(kMainSection, u"VDPATH", u""), folder / "vd/");
}

TEST_F(AudioWizardPages, BothWaysToTheDownloadOpenItsPage) {
  OpenFiles();
  OpenWizard();
  Audio().lblDownload.Click();
  Audio().imgGetVirtualDub.PressMouse({MouseButton::Left, 1, 1});
  EXPECT_EQ(desktop.opened, std::vector<Text>(2, Text(kWebSite) + u"/en/downloads.php?cid=14"));
}

TEST_F(AudioWizardPages, TheTargetIsAlwaysAWave) {
  OpenFiles();
  folder.Write("other.wav", "old");
  OpenWizard();
  Audio().optOriginal.Click();
  GoTo(3);
  dialogs.paths = {folder / "other.mp3", folder / "other.wav"};
  Audio().cmdSave.Click();
  Audio().cmdSave.Click();
  EXPECT_EQ(dialogs.calls.back().title, u"Save as");
  EXPECT_EQ(dialogs.calls.back().filter, u"WAVE audio (wav)|*.wav|");
  EXPECT_EQ(dialogs.calls.front().proposal, folder / "film.wav");
  EXPECT_EQ(Audio().txtSave.GetText(), folder / "other.wav");
  // The dialog has asked: the wizard doesn't, and leaves the file to the tool.
  processes.missing = true;
  GoTo(4);
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(folder.Read("other.wav"), "old");
}

TEST_F(AudioWizardPages, TheFilmItselfIsNoTargetByAnyOfItsNames) {
  OpenFiles();
  std::filesystem::create_symlink(folder.Bytes("film.avi"), folder.Bytes("link.wav"));
  std::filesystem::create_hard_link(folder.Bytes("film.avi"), folder.Bytes("same.wav"));
  std::filesystem::create_directory_symlink(folder.Path(), folder.Bytes("here"));
  OpenWizard();
  GoTo(3);
  for (const char* name : {"link.wav", "same.wav", "here/film.avi", "./film.avi"}) {
    boxes.shown.clear();
    Audio().txtSave.SetText(folder / name);
    boxes.answers = {BoxAnswer::Yes};
    Audio().cmdNext.Click();
    EXPECT_EQ(Audio().Step(), 3) << name;
    EXPECT_TRUE(Shows(Message::FilmIsNoTarget)) << name;
  }
  EXPECT_EQ(folder.Read("film.avi"), "film");
}

TEST_F(AudioWizardPages, TheFilmItselfIsNoTarget) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  Audio().txtSave.SetText(program->document.VideoPath);
  boxes.answers = {BoxAnswer::Yes};
  Audio().cmdNext.Click();
  EXPECT_EQ(Audio().Step(), 3);
  EXPECT_TRUE(Shows(Message::FilmIsNoTarget));
  EXPECT_EQ(folder.Read("film.avi"), "film");
}

TEST_F(AudioWizardPages, AConfirmedOverwriteKeepsTheOldFileForTheRunner) {
  OpenFiles();
  folder.Write("film.wav", "old");
  OpenWizard();
  GoTo(3);
  boxes.answers = {BoxAnswer::No};
  Audio().cmdNext.Click();
  EXPECT_EQ(boxes.shown.back().text, Fill(Says(Message::ReplaceExisting), folder / "film.wav"));
  EXPECT_EQ(LastTitle(), u"Save as");
  EXPECT_EQ(Audio().Step(), 3);
  EXPECT_TRUE(files.Exists(folder / "film.wav"));
  boxes.answers = {BoxAnswer::Yes};
  bool goneAtOnce = false;
  events.onWaitMs = [&](int ms) {
    if (ms == 2000) goneAtOnce = !files.Exists(folder / "film.wav");
  };
  processes.missing = true;
  GoTo(4);
  // The runner replaces it once the new one is whole.
  EXPECT_FALSE(goneAtOnce);
}

TEST_F(AudioWizardScript, ForAWaveAsksForSamples) {
  OpenFiles();
  OpenWizard();
  ToolWrites("wave");
  GoTo(4);
  EXPECT_EQ(Lines(), (std::vector<Text>{u"VirtualDub.Open(\"" + (folder / "film.avi") + u"\",0,0);",
                                        u"VirtualDub.audio.SetMode(1);",
                                        u"VirtualDub.SaveWAV(\"" + (folder / "film.wav") + u"\");"}));
  EXPECT_TRUE(folder.Read("run/aext.vcf").ends_with(");\r\n"));
}

TEST_F(AudioWizardScript, ASampleRateInTheRangeIsWritten) {
  struct Case {
    const char16_t* rate;
    bool written;
  };
  for (const Case& c : {Case{u"44100", true}, Case{u"Use original", false}, Case{u"8000", true}, Case{u"7999", false},
                        Case{u"48000", true}, Case{u"48001", false}, Case{u"96000", false}, Case{u"", false}}) {
    files.Remove(folder / "film.wav");
    run_ = nullptr;
    looked_ = 0;
    OpenFiles();
    OpenWizard();
    ToolWrites("wave");
    Audio().cmbSampleRate.SetText(c.rate);
    GoTo(4);
    const auto lines = Lines();
    ASSERT_EQ(lines.size(), c.written ? 4u : 3u) << ToUtf8(c.rate);
    if (c.written) {
      EXPECT_EQ(lines[2], u"VirtualDub.audio.SetConversion(" + Text(c.rate) + u",0,0);");
    }
    Audio().Close();
  }
}

TEST_F(AudioWizardScript, ForTheSourceFormatAsksForNothingAndHandsNothingOver) {
  OpenFiles();
  OpenWizard();
  Audio().optOriginal.Click();
  Audio().chkAudioBar.SetValue(true);
  Audio().cmbSampleRate.SetText(u"44100");
  ToolWrites("sound");
  GoTo(4);
  EXPECT_EQ(Lines(), (std::vector<Text>{u"VirtualDub.Open(\"" + (folder / "film.avi") + u"\",0,0);",
                                        u"VirtualDub.SaveWAV(\"" + (folder / "film.wav") + u"\");"}));
  EXPECT_EQ(Audio().lblStep5.GetText(), Says(Message::ExtractionComplete));
  EXPECT_EQ(Audio().PendingAudioFile(), u"");
}

TEST_F(AudioWizardScript, AFolderThatTheScriptCannotHoldIsGivenInShortForm) {
  std::filesystem::create_directories(folder.Path() / "my \"films\"");
  OpenFiles("my \"films\"/a b.avi");
  OpenWizard();
  processes.missing = true;
  GoTo(4);
  EXPECT_EQ(Lines().front(), u"VirtualDub.Open(\"" + (folder / "run/link1.avi") + u"\",0,0);");
  EXPECT_EQ(Lines().back(), u"VirtualDub.SaveWAV(\"" + (folder / "run/link1/a b.wav") + u"\");");
  EXPECT_EQ(std::filesystem::read_symlink(folder.Bytes("run/link1")).string(), folder.Bytes("my \"films\"/"));
}

TEST_F(AudioWizardScript, AFolderWithSpacesIsWrittenAsItIs) {
  std::filesystem::create_directories(folder.Path() / "my films");
  OpenFiles("my films/a b.avi");
  OpenWizard();
  processes.missing = true;
  GoTo(4);
  EXPECT_EQ(Lines().back(), u"VirtualDub.SaveWAV(\"" + (folder / "my films/a b.wav") + u"\");");
}

TEST_F(AudioWizardScript, UnderWineHasItsPathsWithSlashes) {
  OpenFiles();
  std::filesystem::create_directories(folder.Path() / "vd");
  folder.Write("vd/VirtualDub.exe", "x");
  program->store.SaveSetting(kMainSection, u"VDPATH", folder / "vd/");
  OpenWizard();
  ToolWrites("wave");
  GoTo(4);
  EXPECT_EQ(Lines().front(), u"VirtualDub.Open(\"Z:" + (folder / "film.avi") + u"\",0,0);");
  EXPECT_EQ(Tool()->program, u"wine");
}

TEST_F(AudioWizardScript, IsPrivateAndFollowsNoLinkAtItsPlace) {
  OpenFiles();
  OpenWizard();
  folder.Write("victim", "keep");
  std::filesystem::create_symlink(folder.Bytes("victim"), folder.Bytes("run/aext.vcf"));
  processes.missing = true;
  GoTo(4);
  EXPECT_EQ(folder.Read("victim"), "keep");
  const auto status = std::filesystem::symlink_status(folder.Bytes("run/aext.vcf"));
  EXPECT_TRUE(std::filesystem::is_regular_file(status));
  EXPECT_EQ(status.permissions(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(AudioWizardRun, GoesThroughItsTasksAndWaits) {
  OpenFiles();
  OpenWizard();
  ToolWrites("wave", 3);
  std::vector<std::vector<TaskLight>> seen;
  Audio().LightsChanged.Connect([&] {
    if (seen.empty() || seen.back() != Lights()) seen.push_back(Lights());
  });
  GoTo(4);
  EXPECT_EQ(seen, (std::vector<std::vector<TaskLight>>{{kYellow, kGrey, kGrey},
                                                       {kGreen, kGrey, kGrey},
                                                       {kGreen, kYellow, kGrey},
                                                       {kGreen, kGreen, kGrey},
                                                       {kGreen, kGreen, kYellow},
                                                       {kGreen, kGreen, kGreen}}));
  EXPECT_EQ(events.waits, (std::vector<int>{2000, 500, 500, 500, 3000}));
  EXPECT_EQ(run_->program, folder / "app/vdrun/vdrun");
  EXPECT_EQ(run_->arguments, (std::vector<Text>{u"/s", folder / "run/aext.vcf", u"/x"}));
  EXPECT_EQ(run_->options.variables, (std::vector<std::pair<Text, Text>>{{u"VDRUN_MINIMISED", u"1"}}));
  EXPECT_TRUE(run_->options.outlives);
  EXPECT_EQ(Audio().lblStep5.GetText(), Says(Message::ExtractionComplete));
  EXPECT_TRUE(Audio().lblStep5.Bold());
  EXPECT_EQ(Audio().lblStep5b.GetText(), Says(Message::ProcessCompleted) + u"\r\n\r\n" + (folder / "film.wav"));
  EXPECT_EQ(Audio().cmdNext.GetText(), u"Finish");
  EXPECT_FALSE(Audio().chkClose.Enabled());
  EXPECT_FALSE(Audio().cmdCancel.Enabled());
  EXPECT_FALSE(Audio().cmdBack.Enabled());
  EXPECT_TRUE(program->document.HasVideo());
  Audio().cmdNext.Click();
  EXPECT_FALSE(Audio().IsOpen());
}

TEST_F(AudioWizardRun, TheTaskInWorkIsBold) {
  OpenFiles();
  OpenWizard();
  std::vector<std::array<bool, 3>> bold;
  ToolWrites("wave");
  const auto wait = events.onWaitMs;
  events.onWaitMs = [&](int ms) {
    wait(ms);
    bold.push_back({Audio().lblTask[0].Bold(), Audio().lblTask[1].Bold(), Audio().lblTask[2].Bold()});
  };
  GoTo(4);
  ASSERT_GE(bold.size(), 3u);
  EXPECT_EQ(bold.front(), (std::array<bool, 3>{true, false, false}));
  EXPECT_EQ(bold[1], (std::array<bool, 3>{false, true, false}));
  EXPECT_EQ(bold.back(), (std::array<bool, 3>{false, false, true}));
  EXPECT_FALSE(Audio().lblTask[2].Bold());
}

TEST_F(AudioWizardRun, ClosesByItselfWhenAskedTo) {
  OpenFiles();
  OpenWizard();
  Audio().chkClose.Click();
  ToolWrites("wave");
  Audio().cmdNext.Click();
  Audio().cmdNext.Click();
  Audio().cmdNext.Click();
  Audio().cmdNext.Click();
  EXPECT_FALSE(Audio().IsOpen());
}

TEST_F(AudioWizardRun, HandsTheWaveToTheAudioBar) {
  OpenFiles();
  const std::string header("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x80\x3e\0\0\2\0\x10\0data\x80\x3e\0\0",
                           44);
  ToolWrites(header + std::string(16000, '\0'));
  program->audioWizard.Opened.Connect([&] {
    GoTo(4);
    EXPECT_EQ(Audio().PendingAudioFile(), folder / "film.wav");
    EXPECT_TRUE(program->document.WavePath.empty());
    Audio().cmdNext.Click();
  });
  Window().mnuAudioExtract.Click();
  EXPECT_EQ(program->document.WavePath, folder / "film.wav");
  EXPECT_EQ(program->recall.Path(u"AFileName"), folder / "film.wav");
  EXPECT_TRUE(boxes.shown.empty()) << LastBox();
}

TEST_F(AudioWizardRun, WithoutTheCheckHandsNothingOver) {
  OpenFiles();
  ToolWrites("wave");
  program->audioWizard.Opened.Connect([&] {
    Audio().chkAudioBar.Click();
    GoTo(4);
    Audio().cmdNext.Click();
  });
  Window().mnuAudioExtract.Click();
  EXPECT_TRUE(program->document.WavePath.empty());
}

TEST_F(AudioWizardRun, AToolThatDoesNotStartIsToldOnThePage) {
  OpenFiles();
  OpenWizard();
  processes.missing = true;
  GoTo(4);
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(Lights(), (std::vector<TaskLight>{kRed, kYellow, kGrey}));
  EXPECT_EQ(Audio().lblStep5.GetText(), Says(Message::ExtractionFailed));
  EXPECT_EQ(Audio().lblStep5b.GetText(), Says(Message::StartFailed) + u"\r\n" + (folder / "app/vdrun/vdrun"));
  EXPECT_EQ(Audio().lblTask[0].Color(), 192);
  EXPECT_FALSE(Audio().chkClose.Enabled());
  EXPECT_EQ(Audio().cmdNext.GetText(), u"Finish");
  Audio().cmdNext.Click();
  EXPECT_FALSE(Audio().IsOpen());
}

TEST_F(AudioWizardRun, AFileThatDoesNotComeIsToldOnThePage) {
  OpenFiles();
  OpenWizard();
  processes.onStart = [](FakeProcesses::Run& run) { run.status = 0; };
  GoTo(4);
  EXPECT_EQ(Lights(), (std::vector<TaskLight>{kGreen, kGreen, kRed}));
  EXPECT_EQ(Audio().lblStep5b.GetText(), Says(Message::CouldNotExtract));
  EXPECT_EQ(Audio().lblTask[2].Color(), 192);
  EXPECT_FALSE(Audio().lblTask[2].Bold());
  EXPECT_EQ(Audio().PendingAudioFile(), u"");
}

TEST_F(AudioWizardRun, AToolThatFailsKeepsItWaitingUntilTheUserClosesIt) {
  OpenFiles();
  OpenWizard();
  processes.onStart = [](FakeProcesses::Run& run) { run.status = 1; };
  int waits = 0;
  events.onWaitMs = [&](int ms) {
    if (ms == 500 && ++waits == 40) Audio().Close();
  };
  GoTo(3);
  Audio().cmdNext.Click();
  EXPECT_EQ(waits, 40);
  EXPECT_FALSE(Audio().IsOpen());
  EXPECT_EQ(Lights(), (std::vector<TaskLight>{kGreen, kYellow, kGrey}));
}

TEST_F(AudioWizardRun, ClosingTheWindowLeavesTheToolToItself) {
  OpenFiles();
  OpenWizard();
  processes.onStart = [this](FakeProcesses::Run& run) { run_ = &run; };
  events.onWaitMs = [&](int ms) {
    if (ms == 500) Audio().Close();
  };
  GoTo(3);
  Audio().cmdNext.Click();
  EXPECT_FALSE(Audio().IsOpen());
  EXPECT_TRUE(run_->gone);
  EXPECT_TRUE(run_->options.outlives);
  EXPECT_EQ(Audio().PendingAudioFile(), u"");
}

TEST_F(AudioWizardRun, LightsAreSetByTheirColors) {
  const std::pair<std::int32_t, TaskLight> colors[] = {
      {255, kRed}, {65280, kGreen}, {65535, kYellow}, {0, kGrey}, {1, kGrey}};
  for (const auto& [color, light] : colors) {
    Audio().SetTaskLight(1, color);
    EXPECT_EQ(Audio().LightOf(1), light);
  }
}

}  // namespace
}  // namespace cuewright
