#include "forms/film_pairing.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

struct FilmsAndTheirTexts : ProgramFixture {
  void Tick() { Window().tmrPairs.Pass(); }
  void Open(const Text& text) {
    program->documentFiles.OpenSubtitleFile(text);
    Tick();
  }
  void PlayAndLook(const Text& film) {
    Play(film);
    Tick();
  }
};

TEST_F(FilmsAndTheirTexts, AFilmOpensTheSubtitleOfItsName) {
  SubRip("film.en.srt", 1);
  const Text own = SubRip("film.srt", 3);
  SubRip("filmstar.srt", 2);
  folder.Write("film.txt", "no subtitle");
  PlayAndLook(folder.Write("film.mkv", "x"));
  EXPECT_EQ(program->document.SubtitlePath, own);
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FilmsAndTheirTexts, OneWithItsLanguageInItsNameDoesAsWell) {
  const Text text = SubRip("film.en.srt", 2);
  PlayAndLook(folder.Write("film.mkv", "x"));
  EXPECT_EQ(program->document.SubtitlePath, text);
}

TEST_F(FilmsAndTheirTexts, ADocumentThatIsOpenStays) {
  const Text open = SubRip("open.srt", 2);
  Open(open);
  SubRip("film.srt", 3);
  PlayAndLook(folder.Write("film.mkv", "x"));
  EXPECT_EQ(program->document.SubtitlePath, open);
}

TEST_F(FilmsAndTheirTexts, ASubtitleOffersTheFilmOfItsName) {
  const Text film = folder.Write("film.mkv", "x");
  boxes.answers = {BoxAnswer::Yes};
  Open(SubRip("film.de.srt", 2));
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(LastBox(), "The film film.mkv belongs to this subtitle. Do you want to open it, too?");
  EXPECT_EQ(player.url, film);
}

TEST_F(FilmsAndTheirTexts, ANoLeavesTheSubtitleAloneAndIsNotAskedAgain) {
  folder.Write("film.mkv", "x");
  boxes.answers = {BoxAnswer::No};
  Open(SubRip("film.srt", 2));
  Tick();
  EXPECT_EQ(boxes.shown.size(), 1u);
  EXPECT_FALSE(program->document.HasVideo());
}

TEST_F(FilmsAndTheirTexts, WhatWasOpenTogetherComesBackAtItsPosition) {
  const Text film = folder.Write("one.mkv", "x");
  const Text text = SubRip("two.srt", 2);
  Open(text);
  PlayAndLook(film);
  player.position = 61.25;
  program->session.Leave(false);
  program->session.CloseDocuments();
  Tick();
  player.position = 0;
  PlayAndLook(film);
  EXPECT_EQ(program->document.SubtitlePath, text);
  EXPECT_DOUBLE_EQ(player.position, 61.25);
  // The other way round as well.
  program->session.CloseDocuments();
  player.position = 0;
  Tick();
  boxes.answers = {BoxAnswer::Yes};
  Open(text);
  EXPECT_EQ(program->document.VideoPath, film);
}

TEST_F(FilmsAndTheirTexts, ClearingTheListOfRecentFilesForgetsThem) {
  const Text film = folder.Write("one.mkv", "x");
  Open(SubRip("two.srt", 2));
  PlayAndLook(film);
  program->session.Leave(false);
  program->session.CloseDocuments();
  Window().mnuClearRecent.Click();
  Tick();
  PlayAndLook(film);
  EXPECT_FALSE(program->document.HasDocument());
}

TEST_F(FilmsAndTheirTexts, TheClassicMannerPairsNothing) {
  program->options.manner.SetClassic(true);
  SubRip("film.srt", 3);
  PlayAndLook(folder.Write("film.mkv", "x"));
  EXPECT_FALSE(program->document.HasDocument());
}

}  // namespace
}  // namespace cuewright
