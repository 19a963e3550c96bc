#include "audio/film_sound.h"

#include <algorithm>
#include <fstream>

#include "tests/support/program_fixture.h"
#include "tests/support/wave_pictures.h"

namespace cuewright {
namespace {

using testing::FakeProcesses;
using testing::ProgramFixture;

struct FilmSoundTest : ProgramFixture {
  FilmSoundTest() {
    film = folder.Write("film.mkv", "x");
    Play(film);
    player.duration = 200;
    player.audioTrack = 1;
  }

  FakeProcesses::Run& Run() { return *processes.runs.back(); }
  /// What the decoder was told to write.
  Text Unfinished() {
    const auto file = std::find_if(Run().arguments.rbegin(), Run().arguments.rend(),
                                   [](const Text& word) { return word.starts_with(u"file:"); });
    return file->substr(5);
  }
  /// A tick of both timers: the second one reads the wave.
  void Poll() {
    Window().tmrFilmSound.Pass();
    Window().tmrWaveDetail.Pass();
  }
  /// The decoder writes so many bytes more of its wave, which has 24,000 samples a second.
  void Write(std::size_t bytes, char value) {
    const std::string header(
        "RIFF\xFF\xFF\xFF\xFFWAVEfmt \x10\0\0\0\1\0\1\0\xC0\x5D\0\0\x80\xBB\0\0\2\0\x10\0data\xFF\xFF\xFF\xFF", 44);
    const bool begun = files.Exists(Unfinished());
    std::ofstream(ToUtf8(Unfinished()), std::ios::binary | std::ios::app)
        << (begun ? "" : header) << std::string(bytes, value);
    for (int tick = 0; tick < 4; ++tick) Poll();
  }
  static std::string WaveOf(const std::string& second) {
    const std::string header(
        "RIFF\xA4\xBB\0\0WAVEfmt \x10\0\0\0\1\0\1\0\xC0\x5D\0\0\x80\xBB\0\0\2\0\x10\0data\x80\xBB\0\0", 44);
    return header + second;
  }
  /// The decoder writes a second of silence, or of what else is said, and ends.
  void Decode(int status = 0, const std::string& second = std::string(kSecond, '\0')) {
    std::ofstream(ToUtf8(Unfinished()), std::ios::binary) << WaveOf(second);
    Run().status = status;
    for (int tick = 0; tick < 3; ++tick) Poll();
  }
  static std::string Tone() {
    std::string tone;
    for (std::size_t i = 0; i < kSecond / 2; ++i) tone += {'\0', i % 24 < 12 ? '\x10' : '\xF0'};
    return tone;
  }
  Text Progress() { return Window().lblWave.Visible() ? Window().lblWave.GetText() : u""; }

  static constexpr std::size_t kSecond = 48000;  // bytes
  Text film;
};

TEST_F(FilmSoundTest, IsReadByItselfWhenTheBarIsOn) {
  Window().tmrTime.Pass();
  EXPECT_TRUE(processes.runs.empty());
  Window().mnuAudioBar.Click();
  Window().tmrTime.Pass();
  ASSERT_EQ(processes.runs.size(), 1u);
  Decode(1);
  EXPECT_TRUE(boxes.shown.empty());  // nobody has asked
  Window().tmrTime.Pass();
  EXPECT_EQ(processes.runs.size(), 1u);
  // Another film is another matter, but not in the classic manner.
  program->options.manner.SetClassic(true);
  Play(folder.Write("other.mkv", "y"));
  Window().tmrTime.Pass();
  EXPECT_EQ(processes.runs.size(), 1u);
  program->options.manner.SetClassic(false);
  Window().tmrTime.Pass();
  EXPECT_EQ(processes.runs.size(), 2u);
}

TEST_F(FilmSoundTest, TheToolBarOffersItWithAFilmAlone) {
  EXPECT_TRUE(Window().mnuFilmSound.Enabled());
  Restart({});
  EXPECT_FALSE(Window().mnuFilmSound.Enabled());
  Play(folder.Write("film.mkv", "x"));
  EXPECT_TRUE(Window().mnuFilmSound.Enabled());
}

TEST_F(FilmSoundTest, OnePassGivesPeaksAndWhatTheSoundIsMadeOf) {
  processes.said = "5.1(side)\n";
  Window().mnuFilmSound.Click();
  EXPECT_EQ(
      std::ranges::count_if(Run().arguments, [](const Text& a) { return a.find(u"pan=mono|c0=FC") != Text::npos; }), 1);
  Decode(0, Tone());
  const WaveDetails& details = program->waveDetails;
  EXPECT_FALSE(details.Reading());
  EXPECT_EQ(details.Table().Steps(), 100u);
  EXPECT_EQ(details.Peaks().Length(), 1000);
  // The next time the table is there with the wave.
  const Text wave = program->document.WavePath;
  EXPECT_TRUE(files.Exists(wave + u".bands"));
  program->audioBar.Forget();
  EXPECT_EQ(details.Table().Steps(), 0u);
  Window().mnuFilmSound.Click();
  EXPECT_EQ(details.Table().Steps(), 100u);
  EXPECT_EQ(processes.runs.size(), 1u);
}

TEST_F(FilmSoundTest, ACentreThatIsStillAllThroughIsNoVoice) {
  processes.said = "5.1(side)\n";
  Window().mnuFilmSound.Click();
  const auto takesCentre = [&] {
    return std::ranges::any_of(Run().arguments, [](const Text& a) { return a.find(u"c0=FC") != Text::npos; });
  };
  EXPECT_TRUE(takesCentre());
  const Text first = Unfinished();
  Decode();
  ASSERT_EQ(processes.runs.size(), 2U);
  EXPECT_FALSE(takesCentre());
  EXPECT_TRUE(program->filmSound.Running());
  EXPECT_EQ(program->waveDetails.Peaks().Length(), 0);
  EXPECT_EQ(Progress(), u"Reading the sound of the film... 0 %");
  Decode(0, Tone());
  EXPECT_FALSE(program->filmSound.Running());
  EXPECT_EQ(processes.runs.size(), 2U);
  EXPECT_FALSE(files.Exists(first));
  EXPECT_GT(program->waveDetails.Table().Db(50, 4), 50);
  EXPECT_TRUE(files.Exists(program->document.WavePath + u".bands"));
}

TEST_F(FilmSoundTest, TheWindowGoesOnWhileTheFilmIsAskedAbout) {
  processes.said = "5.1(side)\n";
  processes.slowProbe = true;
  Window().mnuFilmSound.Click();
  Poll();
  EXPECT_TRUE(program->filmSound.Running());
  EXPECT_TRUE(processes.runs.empty());
  EXPECT_EQ(Progress(), u"Reading the sound of the film... 0 %");
  EXPECT_TRUE(Window().cmdStopSound.Visible());
  EXPECT_FALSE(Window().mnuOpenWav.Enabled());
  Window().cmdStopSound.Click();
  EXPECT_TRUE(processes.probe.gone);
  EXPECT_FALSE(program->filmSound.Running());
  EXPECT_EQ(Progress(), u"");

  Window().mnuFilmSound.Click();
  processes.probe.status = 0;
  Poll();
  ASSERT_EQ(processes.runs.size(), 1U);
  EXPECT_TRUE(std::ranges::any_of(Run().arguments, [](const Text& a) { return a.find(u"c0=FC") != Text::npos; }));
  Decode(0, Tone());
  EXPECT_EQ(program->waveDetails.Table().Steps(), 100U);
}

TEST_F(FilmSoundTest, ADecoderThatIsMissingBehindItsQuestionIsTold) {
  processes.slowProbe = true;
  Window().mnuFilmSound.Click();
  processes.missing = true;
  processes.probe.status = 0;
  Poll();
  EXPECT_EQ(LastBox(), "The sound of " + ToUtf8(film) + " could not be read.");
  EXPECT_FALSE(program->filmSound.Running());
  EXPECT_EQ(Progress(), u"");
  EXPECT_TRUE(Window().mnuOpenWav.Enabled());
}

TEST_F(FilmSoundTest, AStillCentreWhoseFilmCannotBeReadAgainIsAFailure) {
  processes.said = "5.1(side)\n";
  Window().mnuFilmSound.Click();
  processes.missing = true;
  Decode();
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_FALSE(program->filmSound.Running());
  EXPECT_FALSE(files.Exists(Unfinished()));
}

TEST_F(FilmSoundTest, ThePeaksComeWhileTheDecoderStillWrites) {
  Window().mnuFilmSound.Click();
  Write(kSecond / 2, '\1');
  EXPECT_EQ(program->waveDetails.Peaks().Length(), 500);
  Window().cmdStopSound.Click();
  EXPECT_EQ(program->waveDetails.Peaks().Length(), 0);
}

TEST_F(FilmSoundTest, DecodesTheTrackThatPlaysIntoTheUsersCache) {
  Window().mnuFilmSound.Click();
  ASSERT_EQ(processes.runs.size(), 1u);
  EXPECT_EQ(Run().program, u"ffmpeg");
  const std::vector<Text>& given = Run().arguments;
  const auto behind = [&](TextView option) { return *(std::find(given.begin(), given.end(), option) + 1); };
  EXPECT_EQ(behind(u"-i"), u"file:" + film);
  EXPECT_TRUE(behind(u"-filter_complex").starts_with(u"[0:1]"));
  EXPECT_EQ(behind(u"-c:a"), u"pcm_s16le");
  EXPECT_TRUE(Unfinished().starts_with(folder / "cache/"));
  EXPECT_EQ(Progress(), u"Reading the sound of the film... 0 %");
  EXPECT_TRUE(Window().cmdStopSound.Visible());
  EXPECT_TRUE(Window().picBoard.Visible());
  EXPECT_FALSE(Window().mnuOpenWav.Enabled());
}

TEST_F(FilmSoundTest, TellsHowFarItIs) {
  Window().mnuFilmSound.Click();
  Write(50 * kSecond - 48, '\0');
  EXPECT_EQ(Progress(), u"Reading the sound of the film... 24 %");
  Write(48, '\0');
  EXPECT_EQ(Progress(), u"Reading the sound of the film... 25 %");
  player.duration = 0;
  Write(20 * kSecond, '\0');
  EXPECT_EQ(Progress(), u"Reading the sound of the film... 70 s");
}

TEST_F(FilmSoundTest, AWaveThatTheDecoderCouldNotEndIsAFailureWhateverItsStatus) {
  Window().mnuFilmSound.Click();
  Run().errors = "Error writing trailer of x.part: No space left on device\n";
  Decode(0);
  EXPECT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(program->document.WavePath, u"");
  EXPECT_FALSE(std::filesystem::exists(ToUtf8(Unfinished())));
}

TEST_F(FilmSoundTest, TheWaveGoesToTheAudioBarAndIsThereAtOnceTheNextTime) {
  Window().mnuFilmSound.Click();
  Decode();
  EXPECT_TRUE(boxes.shown.empty());
  const Text wave = program->document.WavePath;
  EXPECT_TRUE(wave.starts_with(folder / "cache/"));
  EXPECT_EQ(program->audioBar.Peaks().Columns(), 99);  // the last bytes are never looked at
  EXPECT_EQ(Progress(), u"");
  EXPECT_FALSE(Window().cmdStopSound.Visible());
  EXPECT_TRUE(Window().mnuOpenWav.Enabled());
  EXPECT_FALSE(Window().mnuAFileName.Visible());  // the cache is nothing to offer
  program->audioBar.Forget();
  Window().mnuFilmSound.Click();
  EXPECT_EQ(processes.runs.size(), 1u);
  EXPECT_EQ(program->document.WavePath, wave);
}

TEST_F(FilmSoundTest, TheMarksOfTheCurrentCaptionStandInTheWave) {
  program->documentFiles.OpenSubtitleFile(folder.Write("a.srt", "1\r\n00:00:00,200 --> 00:00:00,500\r\na\r\n\r\n"));
  testing::PixelView view;
  program->audioBar.SetView(&view);
  Window().mnuFilmSound.Click();
  Decode();
  EXPECT_TRUE(program->audioBar.Marks().captionShown);
  EXPECT_EQ(program->audioBar.Marks().start, 20);
  program->audioBar.SetView(nullptr);
}

TEST_F(FilmSoundTest, AnotherTrackOrAChangedFilmIsDecodedAgain) {
  Window().mnuFilmSound.Click();
  Decode();
  player.audioTrack = 2;
  Window().mnuFilmSound.Click();
  EXPECT_EQ(processes.runs.size(), 2u);
  Decode();
  folder.Write("film.mkv", "changed");
  Window().mnuFilmSound.Click();
  EXPECT_EQ(processes.runs.size(), 3u);
}

TEST_F(FilmSoundTest, CanBeStopped) {
  Window().mnuFilmSound.Click();
  const Text unfinished = Unfinished();
  folder.Write("cache/" + ToUtf8(unfinished.substr(unfinished.rfind(u'/') + 1)), "half");
  Window().cmdStopSound.Click();
  EXPECT_TRUE(Run().gone);
  EXPECT_FALSE(files.Exists(unfinished));
  EXPECT_FALSE(Window().tmrFilmSound.Enabled());
  EXPECT_EQ(Progress(), u"");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(program->document.WavePath.empty());
}

TEST_F(FilmSoundTest, AWaveThatWasOpenStaysWhenTheFilmsIsGivenUp) {
  const Text wave = folder.Write("a.wav", WaveOf(Tone()));
  program->audioBar.LoadWaveFile(wave, false);
  const auto shown = [&] {
    for (int tick = 0; tick < 3; ++tick) Window().tmrWaveDetail.Pass();
    return program->waveDetails.Peaks().Length();
  };
  ASSERT_EQ(shown(), 1000);
  Window().mnuFilmSound.Click();
  Window().cmdStopSound.Click();
  EXPECT_EQ(program->document.WavePath, wave);
  EXPECT_EQ(shown(), 1000);
  processes.missing = true;
  Window().mnuFilmSound.Click();
  EXPECT_EQ(shown(), 1000);
}

TEST_F(FilmSoundTest, EndsWithItsFilm) {
  Window().mnuFilmSound.Click();
  program->session.CloseDocuments();
  EXPECT_TRUE(Run().gone);
  Play(film);
  Window().mnuFilmSound.Click();
  Play(folder.Write("other.mkv", "y"));
  Poll();
  EXPECT_TRUE(Run().gone);
  EXPECT_FALSE(program->filmSound.Running());
}

TEST_F(FilmSoundTest, AFailureIsToldAndLeavesNothing) {
  Window().mnuFilmSound.Click();
  Decode(1);
  EXPECT_EQ(LastBox(), "The sound of " + ToUtf8(film) + " could not be read.");
  EXPECT_FALSE(files.Exists(Unfinished()));
  processes.missing = true;
  Window().mnuFilmSound.Click();
  EXPECT_EQ(boxes.shown.size(), 2u);
  EXPECT_FALSE(program->filmSound.Running());
}

TEST_F(FilmSoundTest, IsOfferedWhileAFilmIsOpen) {
  Window().mnuFile.OpenMenu();
  EXPECT_TRUE(Window().mnuFilmSound.Enabled());
  Window().mnuFilmSound.Click();
  Window().mnuFile.OpenMenu();
  EXPECT_FALSE(Window().mnuFilmSound.Enabled());
  program->session.CloseDocuments();
  Window().mnuFile.OpenMenu();
  EXPECT_FALSE(Window().mnuFilmSound.Enabled());
}

TEST_F(FilmSoundTest, TheStoreIsEmptiedOnlyWhenTheUserSaysYes) {
  Window().mnuFilmSound.Click();
  Decode();
  const Text wave = program->document.WavePath;
  folder.Write("cache/other.txt", "not ours");
  boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
  Window().mnuEmptySounds.Click();
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].buttons, BoxButtons::YesNo);
  EXPECT_TRUE(files.Exists(wave));
  Window().mnuEmptySounds.Click();
  EXPECT_FALSE(files.Exists(wave));
  EXPECT_TRUE(files.Exists(folder / "cache/other.txt"));
}

}  // namespace
}  // namespace cuewright
