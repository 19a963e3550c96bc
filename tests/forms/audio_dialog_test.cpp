#include "forms/audio_dialog.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct AudioDialogTest : ProgramFixture {
  AudioDialog& Dialog() { return program->audio.dialog; }
  void Open(const char16_t* stored = nullptr) {
    if (stored != nullptr) program->store.SaveSetting(kMainSection, u"AUDIOMODE", stored);
    Dialog().Open(false);
  }
  std::string Formats() { return ToUtf8(Dialog().lblFormats.GetText()); }
  Text Stored() { return program->store.GetSetting(kMainSection, u"AUDIOMODE", u"none"); }
  /// The dialog will be answered with these boxes and OK.
  void Answer(bool bar, bool toPlayer) {
    program->audio.dialog.Opened.Connect([this, bar, toPlayer] {
      Dialog().chkAudio.SetValue(!bar);
      Dialog().chkAudio.Click();
      Dialog().chkPlayer.SetValue(!toPlayer);
      Dialog().chkPlayer.Click();
      Dialog().cmdOK.Click();
    });
  }
};

using AudioSource = AudioDialogTest;
using AudioOpening = AudioDialogTest;

TEST_F(AudioSource, OpensWithTheChoiceOfTheLastTime) {
  struct Case {
    const char16_t* stored;
    bool bar, toPlayer, ok;
    const char* formats;
  };
  for (const Case& c : {Case{nullptr, true, false, true, "WAV (PCM)"}, Case{u"1", true, false, true, "WAV (PCM)"},
                        Case{u"2", false, true, true, "WAV, MP3, SND, AU, AIF, WMA"},
                        Case{u"3", true, true, true, "WAV (PCM)"}, Case{u"7", false, false, false, "N/A"}}) {
    Open(c.stored);
    EXPECT_EQ(Dialog().chkAudio.Value(), c.bar);
    EXPECT_EQ(Dialog().chkPlayer.Value(), c.toPlayer);
    EXPECT_EQ(Dialog().cmdOK.Enabled(), c.ok);
    EXPECT_EQ(Formats(), std::string("Audio formats supported: \r\n") + c.formats);
  }
  EXPECT_EQ(Dialog().Title(), u"Open audio file");
}

TEST_F(AudioSource, AStoredZeroOpensInTheDesignedState) {
  Open(u"0");
  EXPECT_FALSE(Dialog().chkAudio.Value());
  EXPECT_FALSE(Dialog().chkPlayer.Value());
  EXPECT_FALSE(Dialog().cmdOK.Enabled());
  EXPECT_EQ(Formats(), "Audio formats supported: \r\nN/A");
}

TEST_F(AudioSource, WithBothBoxesClearedOkIsNotAvailable) {
  Open(u"1");
  Dialog().chkAudio.Click();
  EXPECT_FALSE(Dialog().cmdOK.Enabled());
  EXPECT_EQ(Formats(), "Audio formats supported: \r\nN/A");
  Dialog().cmdOK.Click();
  EXPECT_EQ(Dialog().AudioLoadMode(), 0);
  EXPECT_TRUE(Dialog().IsOpen());
  Dialog().chkPlayer.Click();
  Dialog().cmdOK.Click();
  EXPECT_EQ(Dialog().AudioLoadMode(), 2);
  EXPECT_EQ(Stored(), u"2");
}

TEST_F(AudioSource, CancelChoosesAndStoresNothing) {
  Open();
  Dialog().chkPlayer.Click();
  Dialog().cmdCancel.Click();
  EXPECT_EQ(Dialog().AudioLoadMode(), 0);
  EXPECT_EQ(Stored(), u"none");
  EXPECT_FALSE(Dialog().IsOpen());
}

TEST_F(AudioOpening, TheFilterFollowsTheChoice) {
  Answer(true, false);
  Window().mnuOpenWav.Click();
  EXPECT_EQ(dialogs.calls.back().filter, u"PCM wave files (wav)|*.wav|");
  EXPECT_EQ(dialogs.calls.back().title, u"Open audio file");
  Answer(false, true);
  Window().mnuOpenWav.Click();
  EXPECT_EQ(dialogs.calls.back().filter,
            u"Supported audio formats (wav,mp3,snd,au,aif,wma)|*.wav;*.snd;*.au;*.aif;*.wma;*.mp3|");
  Answer(true, true);
  Window().mnuOpenWav.Click();
  EXPECT_EQ(dialogs.calls.back().filter, u"PCM wave files (wav)|*.wav|");
}

TEST_F(AudioOpening, ACancelledChoiceAsksForNoFile) {
  Window().mnuOpenWav.Click();
  Window().mnuAFileName.Click();
  EXPECT_TRUE(dialogs.calls.empty());
}

TEST_F(AudioOpening, TheToolWindowsCloseFirst) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Window().mnuFind.Click();
  ASSERT_TRUE(program->tools.findWindow.Loaded());
  Window().mnuOpenWav.Click();
  EXPECT_FALSE(program->tools.findWindow.Loaded());
}

TEST_F(AudioOpening, AFileForThePlayerOpensThereAlone) {
  Answer(false, true);
  dialogs.paths = {folder.Write("a.mp3", "x")};
  Window().mnuOpenWav.Click();
  EXPECT_EQ(player.url, folder / "a.mp3");
  EXPECT_TRUE(player.enabled);
  EXPECT_TRUE(program->document.WavePath.empty());
  EXPECT_TRUE(Window().mnuAFileName.Visible());
  EXPECT_EQ(program->recall.Path(u"AFileName"), folder / "a.mp3");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(AudioOpening, AFileForBothGoesToBoth) {
  Answer(true, true);
  dialogs.paths = {folder.Write("a.wav", "no wave")};
  Window().mnuOpenWav.Click();
  EXPECT_EQ(player.url, folder / "a.wav");
  EXPECT_EQ(LastBox(), "Failed to load selected wave file. Only uncompressed PCM WAV files are supported.");
}

TEST_F(AudioOpening, TheLastFileOpensWithoutAFileDialog) {
  folder.Write("a.mp3", "x");
  program->store.SaveSetting(kMainSection, u"AFileName", folder / "a.mp3");
  Answer(false, true);
  Window().mnuAFileName.Click();
  EXPECT_TRUE(dialogs.calls.empty());
  EXPECT_EQ(player.url, folder / "a.mp3");
}

TEST_F(AudioOpening, AMissingFileIsTold) {
  program->audio.OpenAudioFile(folder / "gone.wav", kAudioToBar);
  EXPECT_EQ(LastBox(), ToUtf8(u"The file " + (folder / "gone.wav") + u" was not found."));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_EQ(program->recall.Path(u"AFileName"), u"");
}

TEST_F(AudioOpening, AnAudioFileOfTheCommandLineGoesToThePlayer) {
  Restart(folder.Write("a.mp3", "x"));
  program->OnFirstActivation();
  EXPECT_EQ(player.url, folder / "a.mp3");
  EXPECT_EQ(program->recall.Path(u"AFileName"), folder / "a.mp3");
}

}  // namespace
}  // namespace cuewright
