#include "forms/voice_fitting.h"

#include <filesystem>

#include "forms/held_hand.h"
#include "tests/forms/voice_fitting_rig.h"
#include "voice/hand_exercise.h"

namespace cuewright {
namespace {

using testing::VoiceFittingTest;

TEST_F(VoiceFittingTest, ADocumentThatCameMeanwhileIsLeftAlone) {
  Window().mnuFitAll.Click();
  // The same file, read anew: its times are those that are being fitted.
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  EXPECT_FALSE(Window().tmrFit.Enabled());
  Hear(Samples());
  for (Row row = 1; row <= 4; ++row) EXPECT_EQ(StartOf(row), kStarts[row.Index()] + 210);
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(VoiceFittingTest, MovesAllCaptionsInOneStep) {
  Window().mnuFitAll.Click();
  ASSERT_EQ(processes.runs.size(), 1u);
  EXPECT_EQ(processes.runs.back()->program, u"ffmpeg");
  EXPECT_EQ(Told(), u"Looking for the voice in the film...");
  Hear(Samples());
  for (Row row = 1; row <= 4; ++row) {
    EXPECT_NEAR(StartOf(row).Count(), kStarts[row.Index()], 25);
    EXPECT_NEAR(program->list.GetCaptionEnd(row).Count(), kStarts[row.Index()] + kLength, 40);
  }
  EXPECT_EQ(Told(), u"Captions fitted to the voice: 4; doubtful: 0.");
  EXPECT_TRUE(program->document.DocModified);
  Window().mnuUndo.Click();
  for (Row row = 1; row <= 4; ++row) EXPECT_EQ(StartOf(row), kStarts[row.Index()] + 210);
}

TEST_F(VoiceFittingTest, MovesTheSelectionAloneAndReadsTheFilmOnce) {
  program->list.SetRow(2, false);
  Window().mnuFit.Click();
  Hear(Samples());
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_NEAR(StartOf(2).Count(), kStarts[1], 25);
  program->list.SetRow(3, false);
  Window().mnuFit.Click();
  WaitForSearch();
  EXPECT_EQ(processes.runs.size(), 1u);
  EXPECT_NEAR(StartOf(3).Count(), kStarts[2], 25);
}

TEST_F(VoiceFittingTest, WhatWasChangedMeanwhileStays) {
  Window().mnuFitAll.Click();
  program->list.SetCaptionStart(3, 12500, false);
  Hear(Samples());
  EXPECT_EQ(StartOf(3), 12500);
  EXPECT_NEAR(StartOf(4).Count(), kStarts[3], 25);
}

TEST_F(VoiceFittingTest, NothingMovesInSilenceAndThatIsTold) {
  Window().mnuFitAll.Click();
  Hear(std::string(2 * 24 * kSamplesASecond, '\0'));
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_EQ(Told(), u"Nothing was moved: the film is silent.");
  EXPECT_FALSE(Window().mnuUndo.Enabled() && StartOf(1) != kStarts[0] + 210);
}

TEST_F(VoiceFittingTest, AStillCentreIsReadAgainWithAllChannels) {
  processes.said = "5.1\n";
  Window().mnuFitAll.Click();
  const auto takesCentre = [&] {
    return std::ranges::any_of(processes.runs.back()->arguments,
                               [](const Text& a) { return a.find(u"c0=FC") != Text::npos; });
  };
  EXPECT_TRUE(takesCentre());
  processes.onStart = [](auto& run) { run.output = Samples(), run.status = 0; };
  Hear(std::string(2 * 24 * kSamplesASecond, '\0'));
  ASSERT_EQ(processes.runs.size(), 2U);
  EXPECT_FALSE(takesCentre());
  EXPECT_NEAR(StartOf(4).Count(), kStarts[3], 25);
}

TEST_F(VoiceFittingTest, NobodyWaitsWhileTheFilmIsAskedAbout) {
  processes.slowProbe = true;
  Window().mnuFitAll.Click();
  Window().tmrFit.Pass();
  EXPECT_TRUE(processes.runs.empty());
  EXPECT_TRUE(Window().tmrFit.Enabled());
  processes.probe.status = 0;
  Window().tmrFit.Pass();
  ASSERT_EQ(processes.runs.size(), 1U);
  Hear(Samples());
  EXPECT_NEAR(StartOf(4).Count(), kStarts[3], 25);
}

TEST_F(VoiceFittingTest, ADecoderThatIsMissingBehindItsQuestionIsTold) {
  processes.slowProbe = true;
  Window().mnuFitAll.Click();
  processes.missing = true;
  processes.probe.status = 0;
  Window().tmrFit.Pass();
  EXPECT_FALSE(Window().tmrFit.Enabled());
  EXPECT_NE(Told().find(u"film.mkv"), Text::npos) << ToUtf8(Told());
}

TEST_F(VoiceFittingTest, AFilmThatCantBeReadIsTold) {
  Window().mnuFitAll.Click();
  Hear({}, 1);
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_NE(Told().find(u"film.mkv"), Text::npos) << ToUtf8(Told());
}

TEST_F(VoiceFittingTest, AnotherFilmEndsTheSearch) {
  Window().mnuFitAll.Click();
  Play(folder.Write("other.mkv", "x"));
  Window().tmrFit.Pass();
  EXPECT_FALSE(Window().tmrFit.Enabled());
  EXPECT_TRUE(processes.runs.back()->gone);
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
}

TEST_F(VoiceFittingTest, TheClassicMannerHasNoneOfIt) {
  EXPECT_TRUE(Window().mnuFit.Visible());
  program->options.manner.SetClassic(true);
  program->fitting.ShowItems();
  EXPECT_FALSE(Window().mnuFit.Visible());
  EXPECT_FALSE(Window().mnuFitAll.Visible());
}

TEST_F(VoiceFittingTest, MovedCaptionsBearAMarkThatUndoTakesAway) {
  Window().mnuFitAll.Click();
  Hear(Samples());
  EXPECT_EQ(program->grid.MoveOf(2), RowMoves::Kind::Sure);
  const Text words = program->grid.Remarks(2);
  EXPECT_NE(words.find(u"start -2"), Text::npos) << ToUtf8(words);
  EXPECT_NE(program->grid.SpokenCaption(2).find(words), Text::npos);
  Window().mnuUndo.Click();
  EXPECT_EQ(program->grid.MoveOf(2), RowMoves::Kind::None);
  EXPECT_EQ(program->grid.Remarks(2), u"");
  Window().mnuRedo.Click();
  EXPECT_EQ(program->grid.MoveOf(2), RowMoves::Kind::Sure);
}

TEST_F(VoiceFittingTest, OneCommandTakesTheMovesOfTheSelectedCaptionsBack) {
  Window().mnuFitAll.Click();
  Hear(Samples());
  program->list.SetRow(2, false);
  Window().mnuTakeFitBack.Click();
  EXPECT_EQ(StartOf(2), kStarts[1] + 210);
  EXPECT_NEAR(StartOf(3).Count(), kStarts[2], 25);
  Window().mnuTakeFitBack.Click();
  EXPECT_EQ(Told(), u"No selected caption was fitted.");
  Window().mnuUndo.Click();
  EXPECT_NEAR(StartOf(2).Count(), kStarts[1], 25);
}

TEST_F(VoiceFittingTest, MarksGoWithTheirCaptions) {
  Window().mnuFitAll.Click();
  Hear(Samples());
  program->list.AddCaption(0, 0, u"New", 1);
  EXPECT_EQ(program->grid.MoveOf(1), RowMoves::Kind::None);
  EXPECT_EQ(program->grid.MoveOf(5), RowMoves::Kind::Sure);
  program->list.DeleteCaption(1);
  EXPECT_EQ(program->grid.MoveOf(4), RowMoves::Kind::Sure);
  EXPECT_EQ(program->grid.MoveOf(5), RowMoves::Kind::None);
}

TEST_F(VoiceFittingTest, TheNextDoubtfulOneIsShownAndHeardAgainAndAgain) {
  Window().mnuNextDoubtful.Click();
  EXPECT_EQ(Told(), u"No fit is doubtful.");
  FitMove move;
  move.row = 3;
  move.before = program->list.TimesAt(3);
  move.mark.held = move.before;
  move.mark.fitted = {move.before.start - 100, move.before.end};
  move.mark.startConfidence = 0.3;
  move.mark.endConfidence = 0.9;
  ASSERT_EQ(program->fitMarks.Move({move}, 0), 1);
  EXPECT_EQ(program->grid.MoveOf(3), RowMoves::Kind::Doubtful);
  Window().mnuNextDoubtful.Click();
  EXPECT_EQ(program->list.Selected(), 3);
  EXPECT_NEAR(player.position, (kStarts[2] + 110 - 200) / 1000.0, 0.001);
  player.position = 14;
  Window().tmrStretch.Pass();
  EXPECT_NEAR(player.position, (kStarts[2] + 110 - 200) / 1000.0, 0.001);
}

TEST_F(VoiceFittingTest, TheTableThatTheAudioBarKeptIsTakenInsteadOfTheFilm) {
  SoundTable kept;
  SoundMeasurer measurer(kept, kSamplesASecond);
  SampleBytes bytes;
  measurer.Add(bytes.Take(Samples()));
  measurer.Finish();
  const Text path = sounds.PathFor(folder / "film.mkv", player.AudioTrack());
  std::filesystem::create_directories(ToUtf8(folder / "cache"));
  files.WritePrivate(SoundTableBeside(path), kept.Bytes());
  Window().mnuFitAll.Click();
  WaitForSearch();
  EXPECT_TRUE(processes.runs.empty());
  EXPECT_NEAR(StartOf(1).Count(), kStarts[0], 25);
}

TEST_F(VoiceFittingTest, TheHandIsTypedForTheMouseApart) {
  Window().mnuHand.Click();
  HandWindow& window = program->hand;
  window.cboHand.Choose(1);
  window.txtPress.SetText(u"240");
  window.txtRelease.SetText(u"-30");
  window.cmdOK.Click();
  EXPECT_EQ(program->options.hand, 1);
  EXPECT_EQ(program->options.pressLate[1], 240);
  EXPECT_EQ(program->options.releaseLate[1], -30);
  EXPECT_EQ(program->options.pressLate[0], 0);
}

TEST_F(VoiceFittingTest, TheExerciseMeasuresTheHand) {
  processes.missing = true;
  program->folders.TempFolder = folder / "";
  program->hand.Show();
  program->hand.cmdExercise.Click();
  ASSERT_EQ(program->list.Rows(), 21);
  player.state = kPlayerPlaying;
  const HandExercise truth = MakeHandExercise(nullptr, u"en");
  for (Row row = 1; row <= 20; ++row) {
    const CaptionTimes said = truth.truth[row.Index()];
    const int spread = row.Number() % 2 == 0 ? 20 : -20;
    player.position = (said.start + 250 + spread).Seconds();
    Window().tmrTime.Pass();
    program->capture.StartCaption(false, false);
    player.position = (said.end + 140 + spread).Seconds();
    Window().tmrTime.Pass();
    program->capture.EndCaption();
  }
  EXPECT_NEAR(program->options.pressLate[0], 250, 21);
  EXPECT_NEAR(program->options.releaseLate[0], 140, 21);
  EXPECT_NEAR(program->options.pressSpread[0], 30, 31);
  EXPECT_TRUE(program->hand.Loaded());
  Window().tmrRelease.Pass();
  EXPECT_EQ(program->list.GetCaptionStart(1), truth.truth[0].start + 230);
}

TEST_F(VoiceFittingTest, TimesFromTheSoundWantALanguage) {
  Window().mnuTimesFromSound.Click();
  EXPECT_EQ(Told(), u"Choose the language of the film in Hand and voice first.");
}

TEST_F(VoiceFittingTest, TimesFromTheSoundAreGivenUpByTheSameCommand) {
  program->options.fitLanguage = u"en";
  Window().mnuTimesFromSound.Click();
  ASSERT_TRUE(Window().tmrTimesFromSound.Enabled());
  EXPECT_EQ(Window().mnuTimesFromSound.GetText(), u"Stop looking for times");
  Window().mnuTimesFromSound.Click();
  EXPECT_FALSE(Window().tmrTimesFromSound.Enabled());
  EXPECT_EQ(StartOf(1), kStarts[0] + 210);
  EXPECT_EQ(Window().mnuTimesFromSound.GetText(), u"Times from the sound");
}

TEST_F(VoiceFittingTest, LinesWithTimesAreOneStepAndDoubtfulOnesAreMarked) {
  program->fitMarks.TakeLines(
      {{1000, 2000, 0.9, false}, {3000, 4000, 0.8, true}, {5000, 6000, 1, false}, {7000, 8000, 1, false}});
  EXPECT_EQ(program->list.TimesAt(2), (CaptionTimes{3000, 4000}));
  EXPECT_EQ(program->grid.MoveOf(1), RowMoves::Kind::Sure);
  EXPECT_EQ(program->grid.MoveOf(2), RowMoves::Kind::Doubtful);
  EXPECT_EQ(program->grid.Remarks(2), u"Times from the sound, doubtful (59 %)");
  Window().mnuUndo.Click();
  EXPECT_EQ(StartOf(2), kStarts[1] + 210);
}

TEST_F(VoiceFittingTest, FitsThatAreThrownAwayTeachTheHandNothing) {
  program->documentFiles.OpenSubtitleFile(SubRip("many.srt", 25));
  std::vector<FitMove> moves;
  for (Row row = 1; row <= 25; ++row) moves.push_back(KeptFit(row));
  ASSERT_EQ(program->fitMarks.Move(moves, 0), 25);
  KeepHandTimes(program->options, 0, {170, 0, 110, 0});
  boxes.answers = {BoxAnswer::No};
  Window().mnuClose.Click();
  EXPECT_EQ(program->options.pressLate[0], 170) << "what was thrown away tells nothing";
}

TEST_F(VoiceFittingTest, FitsOfADocumentThatWasSavedTeachTheHandOnce) {
  program->documentFiles.OpenSubtitleFile(SubRip("many.srt", 25));
  std::vector<FitMove> moves;
  for (Row row = 1; row <= 25; ++row) moves.push_back(KeptFit(row));
  ASSERT_EQ(program->fitMarks.Move(moves, 0), 25);
  Window().mnuSave.Click();
  KeepHandTimes(program->options, 0, {170, 0, 110, 0});
  Window().mnuClose.Click();
  EXPECT_EQ(program->options.pressLate[0], 110);
  EXPECT_EQ(program->options.releaseLate[0], 80);
}

TEST(HandExercise, HasTwentyTonesWhereNobodySpeaks) {
  const HandExercise exercise = MakeHandExercise(nullptr, u"en");
  ASSERT_EQ(exercise.truth.size(), 20u);
  EXPECT_FALSE(exercise.spoken);
  EXPECT_TRUE(exercise.wave.starts_with("RIFF"));
  for (std::size_t place = 1; place < exercise.truth.size(); ++place) {
    EXPECT_GE(exercise.truth[place].start - exercise.truth[place - 1].end, 900);
    EXPECT_GE(exercise.truth[place].end - exercise.truth[place].start, 700);
  }
}

}  // namespace
}  // namespace cuewright
