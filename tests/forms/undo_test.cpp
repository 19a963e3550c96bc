#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"
#include "tests/support/snapshot.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;
using testing::Snapshot;

struct UndoInTheWindow : ProgramFixture {
  Snapshot Now() { return testing::SnapshotOf(*program); }
  void Type(TextView text) {
    Window().txtSub.SetText(text);
    Window().txtSub.NoteEdited();
    KeyEvent key;
    Window().txtSub.ReleaseKey(key);
  }
  void At(double seconds) {
    player.position = seconds;
    program->capture.SamplePosition();
  }
  void Key(int code, bool down) {
    KeyEvent key;
    key.code = code;
    key.physical = static_cast<std::uint32_t>(code);
    if (down) {
      program->capture.OnKeyDown(key);
    } else {
      program->capture.OnKeyUp(key);
    }
  }
  std::string UndoText() { return ToUtf8(Window().mnuUndo.GetText()); }

  /// Runs a command, looks that it is one step of this name, and takes it back and forth.
  void ExpectOneStep(const std::string& name, const std::function<void()>& command) {
    const Snapshot before = Now();
    const Row row = List().Selected();
    const std::size_t steps = program->history.UndoSteps();
    command();
    const Snapshot after = Now();
    EXPECT_NE(before, after) << name;
    EXPECT_EQ(program->history.UndoSteps(), steps + 1) << name;
    EXPECT_EQ(UndoText(), "Undo: " + name);
    const Row rowAfter = List().Selected();
    Window().mnuUndo.Click();
    EXPECT_EQ(Now(), before) << name;
    EXPECT_EQ(List().Selected(), row) << name;
    EXPECT_EQ(List().CurrentRow(), row) << name;
    EXPECT_EQ(ToUtf8(Window().mnuRedo.GetText()), "Redo: " + name);
    Window().mnuRedo.Click();
    EXPECT_EQ(Now(), after) << name;
    EXPECT_EQ(List().Selected(), rowAfter) << name;
  }
};

TEST_F(UndoInTheWindow, IsOffWithoutADocumentAndWithoutAStep) {
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  EXPECT_EQ(UndoText(), "Undo");
  EXPECT_EQ(ToUtf8(Window().mnuRedo.GetText()), "Redo");
  Play(folder.Write("film.mkv", "x"));
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  List().DeleteCaption(1);
  EXPECT_TRUE(Window().mnuUndo.Enabled());
  program->session.CloseDocuments();
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  program->documentFiles.New();
  EXPECT_FALSE(Window().mnuUndo.Enabled());
}

TEST_F(UndoInTheWindow, EachCommandIsOneStepUnderItsName) {
  program->options.applyWhen = 1;
  program->options.limitDuration = 0;
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 30));
  Play(folder.Write("film.mkv", "x"));
  List().SetRow(4, false);
  ExpectOneStep("Time a caption", [&] {
    At(100);
    Key(66, true);
    At(101.5);
    Key(66, false);
  });
  ExpectOneStep("Insert New Caption", [&] {
    boxes.lines = {u"new"};
    Window().mnuAddBelow.Click();
  });
  ExpectOneStep("Insert New Caption", [&] {
    boxes.lines = {u"at the bottom"};
    Window().mnuAddBottom.Click();
  });
  List().SetRow(3, false);
  ExpectOneStep("Remove caption", [&] { Window().mnuRemove.Click(); });
  ExpectOneStep("Edit Caption", [&] {
    boxes.lines = {u"edited"};
    Window().mnuEditSelected.Click();
  });
  ExpectOneStep("Bold", [&] { Window().mnuBold.Click(); });
  ExpectOneStep("Italic", [&] { Window().mnuItalic.Click(); });
  ExpectOneStep("Underline", [&] { Window().mnuUnderline.Click(); });
  ExpectOneStep("Change times", [&] {
    Window().txtTime[0].SetText(u"00:00:07,000");
    Window().txtTime[1].SetText(u"00:00:02,000");
    KeyEvent enter;
    enter.code = kKeyEnter;
    Window().txtTime[0].PressKey(enter);
  });
  ExpectOneStep("Typing", [&] { Type(u"two\r\nlines"); });
  ExpectOneStep("Line separator", [&] { Window().mnuSeparator[1].Click(); });
  ExpectOneStep("Apply current rules", [&] {
    program->options.creditWords = u"line 2";
    Window().mnuRules.Click();
  });
  ExpectOneStep("Set delay", [&] {
    program->tools.delayDialog.Opened.Connect([&] {
      program->tools.delayDialog.sldSec.Move(2);
      program->tools.delayDialog.cmdApply.Click();
    });
    Window().mnuDelay.Click();
  });
  ExpectOneStep("Remove all timing", [&] {
    boxes.answers = {BoxAnswer::Yes};
    Window().mnuReset.Click();
  });
  List().SetRow(1, false);
  Window().mnuReplace.Click();
  ReplaceWindow& replace = program->tools.replaceWindow;
  replace.txtFind.SetText(u"line");
  replace.txtFind.NoteEdited();
  replace.txtReplace.SetText(u"row");
  ExpectOneStep("Replace", [&] { replace.cmdReplace.Click(); });
  ExpectOneStep("Replace all", [&] { replace.cmdReplaceAll.Click(); });
  boxes.lines = {u"Ã©tÃ©"};
  Window().mnuEditSelected.Click();
  ExpectOneStep("Convert from UTF-8", [&] {
    boxes.answers = {BoxAnswer::Yes};
    Window().mnuUTF8.Click();
  });
}

TEST_F(UndoInTheWindow, ADialogLeftWithoutAChangeIsNoStep) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  boxes.lines = {u"line 1"};
  Window().mnuEditSelected.Click();
  EXPECT_EQ(boxes.asked.size(), 1u);
  EXPECT_FALSE(Window().mnuUndo.Enabled());
}

TEST_F(UndoInTheWindow, AnAppendedFileIsOneStep) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Play(folder.Write("film.mkv", "x"));
  player.duration = 100;
  dialogs.paths.push_back(SubRip("b.srt", 2));
  ExpectOneStep("Append subtitle", [&] { Window().mnuAppend.Click(); });
}

TEST_F(UndoInTheWindow, TheClipboardsLinesAreOneStep) {
  program->documentFiles.New();
  desktop.clipboard = u"one\ntwo\nthree";
  Window().mnuNewClip.Click();
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(UndoText(), "Undo: New from Clipboard");
  Window().mnuUndo.Click();
  EXPECT_EQ(List().Rows(), 2);
  EXPECT_EQ(List().At(1), Caption{});
}

TEST_F(UndoInTheWindow, TypingIsOneStepAPause) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Type(u"a");
  events.now += 1000;
  Type(u"ab");
  EXPECT_EQ(program->history.UndoSteps(), 1u);
  events.now += 1001;
  Type(u"abc");
  EXPECT_EQ(program->history.UndoSteps(), 2u);
  List().SetRow(2, false);
  Type(u"other");
  EXPECT_EQ(program->history.UndoSteps(), 3u);
  Window().mnuUndo.Click();
  Window().mnuUndo.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"ab");
  EXPECT_EQ(Window().txtSub.GetText(), u"ab");
  Window().mnuUndo.Click();
  EXPECT_EQ(Window().txtSub.GetText(), u"line 1");
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(UndoInTheWindow, DuringACaptureTakesItsStartBackAndNoEndComesBehind) {
  program->options.applyWhen = 1;
  program->options.limitDuration = 0;
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Play(folder.Write("film.mkv", "x"));
  At(50);
  Key(66, true);
  EXPECT_EQ(List().GetCaptionStart(1), 50000);
  Window().mnuUndo.Click();
  EXPECT_FALSE(program->capture.Capturing());
  At(52);
  Key(66, false);
  EXPECT_EQ(List().At(1), (Caption{1100, 1900, u"line 1"}));
}

TEST_F(UndoInTheWindow, OfACaptureLeavesNoEndThatTheNextOneCouldJoin) {
  program->options.applyWhen = 1;
  program->options.limitDuration = 0;
  program->options.autoJoin = 1;
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Play(folder.Write("film.mkv", "x"));
  const auto captured = [&](double from, double to) {
    List().SetRow(1, false);
    At(from);
    Key(66, true);
    At(to);
    Key(66, false);
    return List().At(1);
  };
  EXPECT_EQ(captured(50, 52), (Caption{50000, 52000, u"line 1"}));
  ASSERT_EQ(program->capture.PriorCaptionEnd(), 52000);
  Window().mnuUndo.Click();
  EXPECT_EQ(program->capture.PriorCaptionEnd(), std::nullopt);
  EXPECT_EQ(captured(52.1, 54), (Caption{52100, 54000, u"line 1"}));
  Window().mnuUndo.Click();
  Window().mnuRedo.Click();
  EXPECT_EQ(List().At(1), (Caption{52100, 54000, u"line 1"}));
  EXPECT_EQ(program->capture.PriorCaptionEnd(), std::nullopt);
  EXPECT_EQ(captured(54.1, 56), (Caption{54100, 56000, u"line 1"}));
}

TEST_F(UndoInTheWindow, OfTheSeparatorBringsItBackInTheMenuAndInTheStore) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Window().mnuSeparator[2].Click();
  EXPECT_TRUE(Window().mnuSeparator[2].Checked());
  Window().mnuUndo.Click();
  EXPECT_TRUE(Window().mnuSeparator[0].Checked());
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"LBREAK", u""), u"|");
}

TEST_F(UndoInTheWindow, BackToTheSavedStateNeedsNoSaving) {
  program->options.applyWhen = 1;
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  EXPECT_TRUE(program->document.DocModified);
  Window().mnuUndo.Click();
  EXPECT_FALSE(program->document.DocModified);
  Window().mnuRedo.Click();
  program->documentFiles.SaveDocument();
  EXPECT_FALSE(program->document.DocModified);
  Window().mnuUndo.Click();
  EXPECT_TRUE(program->document.DocModified);
  Window().mnuRedo.Click();
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(UndoInTheWindow, TheRulesOfTheLoadCanBeTakenBack) {
  program->options.changeOnLoad = true;
  program->documentFiles.OpenSubtitleFile(folder.Write("three.srt",
                                                       "1\r\n00:00:01,000 --> 00:00:03,000\r\naa\r\nbb\r\ncc\r\n\r\n"
                                                       "2\r\n00:00:05,000 --> 00:00:06,000\r\nx\r\n\r\n"));
  EXPECT_EQ(UndoText(), "Undo: Apply current rules");
  Window().mnuUndo.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"aa|bb|cc");
  EXPECT_FALSE(Window().mnuUndo.Enabled());
}

TEST_F(UndoInTheWindow, SpeaksTheLanguageInForce) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Window().mnuRemove.Click();
  program->messageCatalogue.AddBlock("13\tEliminar subtítulo\n942\tDeshacer: %1\n", 1);
  program->ChangeLanguage(1);
  EXPECT_EQ(UndoText(), "Deshacer: Eliminar subtítulo");
}

}  // namespace
}  // namespace cuewright
