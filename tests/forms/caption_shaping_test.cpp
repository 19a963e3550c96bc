#include "forms/caption_shaping.h"

#include <random>

#include "tests/support/audio_bar_rig.h"

namespace cuewright {
namespace {

using Captions = std::vector<Caption>;

struct ShapingInTheWindow : testing::AudioBarRig {
  /// Five captions, from 1.1 to 1.9 s and so on, each "line N", in a film that stands at a place.
  void Open(double filmAt = 0) {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
    Play(folder.Write("film.mkv", "x"));
    player.position = filmAt;
  }
  Captions All() {
    Captions captions;
    for (Row row = 1; row < List().Rows(); ++row) captions.push_back(List().At(row));
    return captions;
  }
  /// Clicks an item, looks that it made one step of this name, and takes it back and forth.
  void ExpectOneStep(MenuItem& item, const std::string& name) {
    const Captions before = All();
    const Row row = List().Selected();
    const std::size_t steps = program->history.UndoSteps();
    item.Click();
    const Captions after = All();
    const Row rowAfter = List().Selected();
    EXPECT_NE(before, after) << name;
    EXPECT_EQ(program->history.UndoSteps(), steps + 1) << name;
    EXPECT_EQ(ToUtf8(Window().mnuUndo.GetText()), "Undo: " + name);
    EXPECT_TRUE(program->document.DocModified) << name;
    Window().mnuUndo.Click();
    EXPECT_EQ(All(), before) << name;
    EXPECT_EQ(List().Selected(), row) << name;
    Window().mnuRedo.Click();
    EXPECT_EQ(All(), after) << name;
    EXPECT_EQ(List().Selected(), rowAfter) << name;
    EXPECT_EQ(Window().txtSub.GetText(), List().GetSeenText(List().Selected(), true)) << name;
  }
  void ExpectNothing(MenuItem& item, TextView notice) {
    const Captions before = All();
    const std::size_t steps = program->history.UndoSteps();
    item.Click();
    EXPECT_EQ(All(), before);
    EXPECT_EQ(program->history.UndoSteps(), steps);
    EXPECT_EQ(Window().lblNotice.GetText(), notice);
  }
};

TEST_F(ShapingInTheWindow, InsertsBesideTheSelectedCaptionAndLetsItsTextBeTyped) {
  Open();
  std::string focused;
  const Connection watch = Window().FocusRequested.ConnectScoped([&](Control& control) { focused = control.Name(); });
  List().SetRow(2, false);
  ExpectOneStep(Window().mnuInsertBelow, "Insert New Caption");
  EXPECT_EQ(List().Selected(), 3);
  EXPECT_EQ(List().At(3), (Caption{2900, 3100, u""}));
  EXPECT_EQ(focused, "txtSub");
  List().SetRow(1, false);
  ExpectOneStep(Window().mnuInsertAbove, "Insert New Caption");
  EXPECT_EQ(List().Selected(), 1);
  EXPECT_EQ(List().At(1), (Caption{1, 1100, u""}));
  EXPECT_TRUE(boxes.asked.empty());
}

TEST_F(ShapingInTheWindow, InsertsWhereTheFilmStands) {
  Open(7.25);
  ExpectOneStep(Window().mnuInsertAtFilm, "Insert New Caption");
  EXPECT_EQ(List().Selected(), 6);
  EXPECT_EQ(List().At(6), (Caption{7250, 8750, u""}));
  player.position = 2.5;
  ExpectNothing(Window().mnuInsertAtFilm, u"There is no room for a caption at the film's position.");
}

TEST_F(ShapingInTheWindow, WithoutTheInformationBarABoxTells) {
  Open(2.5);
  program->options.infoBarOn = false;
  Window().mnuInsertAtFilm.Click();
  EXPECT_EQ(LastBox(), "There is no room for a caption at the film's position.");
}

TEST_F(ShapingInTheWindow, SplitsAtTheCaretOfThePane) {
  Open();
  List().Replace(2, 1, {{2100, 2900, u"one|two three"}});
  List().SetRow(2, false);
  ASSERT_EQ(Window().txtSub.GetText(), u"one\r\ntwo three");
  Window().txtSub.NoteSelection(8, 0);  // behind "two": a line end counts two
  ExpectOneStep(Window().mnuSplitAtCaret, "Split caption");
  EXPECT_EQ(List().Selected(), 2);
  EXPECT_EQ(List().At(2).text, u"one|two");
  EXPECT_EQ(List().At(3).text, u"three");
  EXPECT_EQ(List().At(2).end, List().At(3).start);
  EXPECT_EQ(List().At(3).end, 2900);
}

TEST_F(ShapingInTheWindow, ASplitFindsThePauseInTheSound) {
  Open();
  // Loud but for a tenth of a second.
  Load(Wave(2000, [](int column) { return column >= 260 && column < 270 ? 0 : 20000; }));
  List().SetRow(2, false);
  Window().txtSub.NoteSelection(4, 0);
  Window().mnuSplitAtCaret.Click();
  EXPECT_GE(List().At(2).end, 2620);
  EXPECT_LE(List().At(2).end, 2680);
  EXPECT_EQ(List().At(3).text, u"2");
}

TEST_F(ShapingInTheWindow, SplitsWhereTheFilmStands) {
  Open(2.4);
  List().SetRow(2, false);
  ExpectOneStep(Window().mnuSplitAtFilm, "Split caption");
  EXPECT_EQ(List().At(2), (Caption{2100, 2400, u"line"}));
  EXPECT_EQ(List().At(3), (Caption{2400, 2900, u"2"}));
  player.position = 9;
  ExpectNothing(Window().mnuSplitAtFilm, u"The film's position isn't within this caption.");
  player.position = 2.25;
  ExpectNothing(Window().mnuSplitAtFilm, u"This text is a single word.");
}

TEST_F(ShapingInTheWindow, AKeyCountsWhenItWentDown) {
  Open(9);
  List().SetRow(2, false);
  player.history = [](double instant) { return instant - 100; };
  Window().inputInstant = 102.4;
  Window().mnuSplitAtFilm.Click();
  Window().inputInstant.reset();
  EXPECT_EQ(List().TimesAt(2), (CaptionTimes{2100, 2400}));
}

TEST_F(ShapingInTheWindow, JoinsWithTheNextAndThePrevious) {
  Open();
  List().SetRow(2, false);
  ExpectOneStep(Window().mnuJoinNext, "Join caption");
  EXPECT_EQ(List().At(2), (Caption{2100, 3900, u"line 2|line 3"}));
  ExpectOneStep(Window().mnuJoinPrevious, "Join caption");
  EXPECT_EQ(List().Selected(), 1);
  EXPECT_EQ(List().At(1), (Caption{1100, 3900, u"line 1|line 2|line 3"}));
  ExpectNothing(Window().mnuJoinPrevious, u"There is no caption on that side.");
  List().SetRow(3, false);
  ExpectNothing(Window().mnuJoinNext, u"There is no caption on that side.");
}

TEST_F(ShapingInTheWindow, JoinsAsADialogue) {
  Open();
  List().SetRow(2, false);
  ExpectOneStep(Window().mnuDialogueNext, "Join caption");
  EXPECT_EQ(List().At(2), (Caption{2100, 3900, u"- line 2|- line 3"}));
  ExpectOneStep(Window().mnuDialoguePrevious, "Join caption");
  EXPECT_EQ(List().At(1), (Caption{1100, 3900, u"- line 1|- line 2|- line 3"}));
}

TEST_F(ShapingInTheWindow, DuplicatesMeetsAndSwaps) {
  Open();
  List().SetRow(2, false);
  ExpectOneStep(Window().mnuMeetNext, "End where the next starts");
  EXPECT_EQ(List().At(2), (Caption{2100, 3100, u"line 2"}));
  ExpectOneStep(Window().mnuSwapTexts, "Swap texts with the next");
  EXPECT_EQ(List().At(2), (Caption{2100, 3100, u"line 3"}));
  EXPECT_EQ(List().At(3), (Caption{3100, 3900, u"line 2"}));
  ExpectOneStep(Window().mnuDuplicate, "Duplicate caption");
  EXPECT_EQ(List().Selected(), 3);
  EXPECT_EQ(List().At(3), List().At(2));
  List().SetRow(6, false);
  ExpectNothing(Window().mnuMeetNext, u"This caption and the next one need times, the next one the later.");
  ExpectNothing(Window().mnuSwapTexts, u"There is no caption on that side.");
}

TEST_F(ShapingInTheWindow, IsOffWithoutADocumentAndHiddenInTheClassicManner) {
  EXPECT_FALSE(Window().mnuSplitAtCaret.Enabled());
  EXPECT_FALSE(Window().mnuRetime.Enabled());
  Open();
  EXPECT_TRUE(Window().mnuSplitAtCaret.Enabled());
  EXPECT_TRUE(Window().mnuSplit.Visible());
  EXPECT_TRUE(Window().mnuRetime.Visible());
  EXPECT_FALSE(Window().mnuAddBelow.Visible());
  program->options.manner.SetClassic(true);
  program->shaping.ShowItems();
  for (const MenuItem* item : {&Window().mnuInsertAbove, &Window().mnuSplit, &Window().mnuSplitAtCaret,
                               &Window().mnuJoinNext, &Window().mnuSwapTexts, &Window().mnuRetime}) {
    EXPECT_FALSE(item->Visible()) << item->Name();
  }
  EXPECT_TRUE(Window().mnuAddBelow.Visible());
}

/// What the program writes and reads again is what the list holds, whatever came before.
TEST_F(ShapingInTheWindow, WhatIsSavedIsWhatTheListHolds) {
  std::mt19937 random(16);
  const auto pick = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
  for (int round = 0; round < 8; ++round) {
    Open();
    for (int i = 0; i < 25; ++i) {
      MainWindow& w = Window();
      MenuItem* const items[] = {&w.mnuInsertAtFilm,     &w.mnuSplitAtCaret, &w.mnuSplitAtFilm,
                                 &w.mnuJoinNext,         &w.mnuJoinPrevious, &w.mnuDialogueNext,
                                 &w.mnuDialoguePrevious, &w.mnuDuplicate,    &w.mnuMeetNext,
                                 &w.mnuSwapTexts,        &w.mnuUndo,         &w.mnuRedo};
      List().SetRow(pick(List().Count()) + 1, false);
      Window().txtSub.NoteSelection(pick(static_cast<int>(Window().txtSub.GetText().size()) + 1), 0);
      player.position = pick(9000) / 1000.0;
      items[pick(static_cast<int>(std::size(items)))]->Click();
    }
    // A caption without a text is no record of this format.
    for (Row row = List().Rows() - 1; row > 0; --row) {
      if (List().At(row).text.empty()) List().DeleteCaption(row);
    }
    const Captions kept = All();
    ASSERT_TRUE(program->documentFiles.SaveDocument());
    program->session.CloseDocuments();
    program->documentFiles.OpenSubtitleFile(folder / "a.srt");
    EXPECT_EQ(All(), kept) << "round " << round;
  }
}

}  // namespace
}  // namespace cuewright
