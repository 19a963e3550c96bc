#include "forms/recent_files.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

#include "core/paths.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using Recents = testing::ProgramFixture;
using Dropping = testing::ProgramFixture;

TEST_F(Recents, TheSubmenuIsHiddenUntilAFileWasUsed) {
  EXPECT_FALSE(Window().mnuRecent.Visible());
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  EXPECT_TRUE(Window().mnuRecent.Visible());
  EXPECT_TRUE(Window().mnuRecentFile[0].Visible());
  EXPECT_FALSE(Window().mnuRecentFile[1].Visible());
}

TEST_F(Recents, TheNewestStandsInFrontAndOnce) {
  const Text first = SubRip("a.srt", 2);
  const Text film = folder.Write("film.mkv", "x");
  program->documentFiles.OpenSubtitleFile(first);
  program->playerBinding.LoadVideoFile(film);
  program->documentFiles.OpenSubtitleFile(first);
  EXPECT_EQ(Window().mnuRecentFile[0].GetText(), ShortenPath(first));
  EXPECT_EQ(Window().mnuRecentFile[1].GetText(), ShortenPath(film));
  EXPECT_FALSE(Window().mnuRecentFile[2].Visible());
}

/// Counts how often the settings file was replaced by a new one.
class WritesOfSettings {
 public:
  explicit WritesOfSettings(const std::filesystem::path& folder) : queue_(inotify_init1(IN_NONBLOCK)) {
    EXPECT_GE(inotify_add_watch(queue_, folder.c_str(), IN_MOVED_TO | IN_CLOSE_WRITE), 0);
  }
  WritesOfSettings(const WritesOfSettings&) = delete;
  WritesOfSettings& operator=(const WritesOfSettings&) = delete;
  ~WritesOfSettings() { close(queue_); }
  /// Since the last call.
  int Take() const {
    int writes = 0;
    alignas(inotify_event) std::array<char, 8192> buffer{};
    for (ssize_t size = read(queue_, buffer.data(), buffer.size()); size > 0;
         size = read(queue_, buffer.data(), buffer.size())) {
      for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
        if (event->len > 0 && std::string(event->name) == "settings.ini") ++writes;
        at += sizeof(inotify_event) + event->len;
      }
    }
    return writes;
  }

 private:
  int queue_;
};

TEST_F(Recents, OpeningAFileWritesTheSettingsOnce) {
  const Text subtitle = SubRip("a.srt", 2);
  const Text film = folder.Write("film.mkv", "x");
  const WritesOfSettings writes(folder.Path());
  program->documentFiles.OpenSubtitleFile(subtitle);
  EXPECT_EQ(writes.Take(), 1);
  program->playerBinding.LoadVideoFile(film);
  EXPECT_EQ(writes.Take(), 1);
  program->audio.OpenAudioFile(film, kAudioToPlayer);
  EXPECT_EQ(writes.Take(), 1);
  Restart({});
  EXPECT_EQ(program->recall.Path(u"TFileName"), subtitle);
  EXPECT_TRUE(program->window.mnuRecentFile[2].Visible());
}

TEST_F(Recents, OnlyTenAreKept) {
  for (int i = 0; i < 12; ++i) program->recentFiles.Add(FileKind::Subtitle, SubRip(std::to_string(i) + ".srt", 1));
  EXPECT_TRUE(Window().mnuRecentFile[9].Visible());
  EXPECT_TRUE(Window().mnuRecentFile[9].GetText().ends_with(u"/2.srt"));
}

TEST_F(Recents, ComeBackInTheNextRunWithoutFilesThatAreGone) {
  const Text gone = SubRip("gone.srt", 2);
  program->documentFiles.OpenSubtitleFile(gone);
  program->documentFiles.OpenSubtitleFile(SubRip("a&b.srt", 2));
  files.Remove(gone);
  Restart({});
  Window().mnuFile.OpenMenu();
  EXPECT_TRUE(Window().mnuRecent.Visible());
  EXPECT_TRUE(Window().mnuRecentFile[0].GetText().ends_with(u"/a&&b.srt"));
  EXPECT_FALSE(Window().mnuRecentFile[1].Visible());
}

TEST_F(Recents, AClickOpensTheFileAsWhatItWas) {
  const Text text = SubRip("a.srt", 2);
  const Text film = folder.Write("film.mkv", "x");
  program->documentFiles.OpenSubtitleFile(text);
  program->playerBinding.LoadVideoFile(film);
  program->session.CloseDocuments();
  Window().mnuRecentFile[1].Click();
  EXPECT_EQ(program->document.SubtitlePath, text);
  EXPECT_TRUE(program->document.VideoPath.empty());
  Window().mnuRecentFile[1].Click();
  EXPECT_EQ(program->document.VideoPath, film);
}

TEST_F(Recents, AClickAsksBeforeAModifiedDocumentGoes) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  program->documentFiles.OpenSubtitleFile(SubRip("b.srt", 3));
  List().SetCaptionStart(1, 1500, false);
  boxes.answers = {BoxAnswer::Cancel};
  Window().mnuRecentFile[1].Click();
  EXPECT_EQ(program->document.SubtitlePath, folder / "b.srt");
  EXPECT_EQ(boxes.shown.back().text, program->strings[Message::SaveChangesFirst]);
}

TEST_F(Recents, ClearingForgetsAllOfThemForGood) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  Window().mnuClearRecent.Click();
  EXPECT_FALSE(Window().mnuRecent.Visible());
  EXPECT_TRUE(Window().mnuTFileName.Visible());
  Restart({});
  Window().mnuFile.OpenMenu();
  EXPECT_FALSE(Window().mnuRecent.Visible());
}

TEST_F(Recents, DamagedEntriesAreLeftOut) {
  folder.Write("settings.ini",
               "[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\n[Brakemoor Works\\Recent]\nFile0=X/etc/"
               "hosts\nFile1=\nFile2=T\nFile3=T/etc/hosts\n");
  Restart({});
  Window().mnuFile.OpenMenu();
  EXPECT_EQ(Window().mnuRecentFile[0].GetText(), u"/etc/hosts");
  EXPECT_FALSE(Window().mnuRecentFile[1].Visible());
}

TEST(KindOfFile, IsReadBehindTheLastDotOfTheName) {
  EXPECT_EQ(KindOfFile(u"/a.b/film.one.MKV"), FileKind::Film);
  EXPECT_EQ(KindOfFile(u"/a/sound.Flac"), FileKind::Sound);
  EXPECT_EQ(KindOfFile(u"/a.mkv/notes"), FileKind::Subtitle);
  EXPECT_EQ(KindOfFile(u"/a/film.mkv.srt"), FileKind::Subtitle);
}

TEST_F(Dropping, AFilmAndATextOpenTogether) {
  const Text text = SubRip("a.srt", 2);
  const Text film = folder.Write("film.webm", "x");
  program->router.OpenDropped({text, film});
  EXPECT_EQ(program->document.SubtitlePath, text);
  EXPECT_EQ(program->document.VideoPath, film);
}

TEST_F(Dropping, OfSeveralTextsTheLastBecomesTheDocument) {
  program->router.OpenDropped({SubRip("a.srt", 2), SubRip("b.srt", 2)});
  EXPECT_EQ(program->document.SubtitlePath, folder / "b.srt");
}

TEST_F(Dropping, AModifiedDocumentIsAskedForFirst) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  List().SetCaptionStart(1, 1500, false);
  boxes.answers = {BoxAnswer::Cancel};
  program->router.OpenDropped({SubRip("b.srt", 2)});
  EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
  EXPECT_EQ(List().Rows(), 4);
}

TEST_F(Dropping, DuringALoadNothingIsTaken) {
  const Text other = SubRip("b.srt", 2);
  bool dropped = false;
  events.onYield = [&] {
    if (dropped) return;
    dropped = true;
    program->router.OpenDropped({other});
  };
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 300));
  EXPECT_TRUE(dropped);
  EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
  EXPECT_EQ(List().Rows(), 301);
}

}  // namespace
}  // namespace cuewright
