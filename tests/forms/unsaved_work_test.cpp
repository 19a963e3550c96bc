// What becomes of a user's work when a document is about to go, in today's manner and in the classic one.

#include <sys/resource.h>

#include <csignal>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

/// For its life the disk takes only files of up to 500 bytes.
class FullDisk {
 public:
  FullDisk() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit full{500, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &full);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int);
};

struct UnsavedWork : ProgramFixture {
  bool Asks() {
    const std::size_t before = boxes.shown.size();
    boxes.answers = {BoxAnswer::Cancel};
    const bool mayGo = program->documentFiles.PromptForSave();
    EXPECT_EQ(mayGo, boxes.shown.size() == before);
    boxes.answers.clear();
    return boxes.shown.size() != before;
  }
  void ReleaseKeyInPane() {
    KeyEvent key;
    key.code = kKeyLeft;
    Window().txtSub.ReleaseKey(key);
  }
  void Type(const Text& text) {
    Window().txtSub.SetText(text);
    Window().txtSub.NoteEdited();
  }
  void Classic() { program->options.manner.SetClassic(true); }
  /// The export dialog is answered with this format.
  void ChooseFormat(TextView id) {
    chosen_ = program->exportDialog.Opened.ConnectScoped([this, id = Text(id)] {
      ExportDialog& dialog = program->exportDialog;
      dialog.cboFormats.Choose(program->catalogue.IndexOf(id));
      if (id == u"MICRODVD") dialog.cmbFPS.SetText(u"25");
      dialog.cmdOK.Click();
    });
  }

 private:
  Connection chosen_;
};

struct QuestionBeforeLoss : UnsavedWork {
  QuestionBeforeLoss() { program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3)); }
};

TEST_F(QuestionBeforeLoss, ComesNotForAFileThatWasOnlyOpened) { EXPECT_FALSE(Asks()); }

TEST_F(QuestionBeforeLoss, ComesNotForLooking) {
  ReleaseKeyInPane();
  EXPECT_FALSE(Asks());
  EXPECT_EQ(program->history.UndoSteps(), 0u);
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(QuestionBeforeLoss, ClassicComesForAKeyLetGoInThePane) {
  Classic();
  ReleaseKeyInPane();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesAfterAnAddedCaption) {
  boxes.lines = {u"a line more"};
  Window().mnuAddBelow.Click();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesAfterAnEditedOne) {
  boxes.lines = {u"another text"};
  Window().mnuEditSelected.Click();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesAfterAStyle) {
  Window().mnuItalic.Click();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesAfterRemoval) {
  Window().mnuRemove.Click();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ClassicComesNotAfterAStyle) {
  Classic();
  Window().mnuItalic.Click();
  EXPECT_FALSE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesNotOnceAllIsTakenBack) {
  Window().mnuItalic.Click();
  Window().mnuUndo.Click();
  EXPECT_FALSE(Asks());
  Window().mnuRedo.Click();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesNotForATextThatWasTypedBack) {
  Type(u"other words");
  events.now += 5000;
  EXPECT_TRUE(Asks());
  Type(u"line 1");
  EXPECT_FALSE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesNotForAnotherLineBreak) {
  Type(u"two\r\nlines");
  program->documentFiles.Save();
  Window().mnuSeparator[1].Click();
  EXPECT_EQ(List().At(1).text, u"two/nlines");
  EXPECT_FALSE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesForADocumentOfOneCaption) {
  program->documentFiles.OpenSubtitleFile(SubRip("one.srt", 1));
  EXPECT_FALSE(Asks());
  Type(u"my only line");
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesForLinesOfTheClipboardButNotForABlankDocument) {
  program->documentFiles.New();
  EXPECT_FALSE(Asks());
  desktop.clipboard = u"one\r\ntwo";
  program->documentFiles.NewFromClipboard();
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesNotBehindASaveAndAgainAfterTheNextChange) {
  Type(u"new words");
  program->documentFiles.Save();
  EXPECT_FALSE(Asks());
  Type(u"newer words");
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, ComesWhileCaptionsWereLeftOutOfTheFile) {
  List().ClearCaptionTiming(2, true);
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("a.srt").find("line 2"), std::string::npos);
  EXPECT_TRUE(Asks());
}

TEST_F(QuestionBeforeLoss, TheQuestionOfCaptionsWithoutTimesCanBeLeft) {
  const std::string before = folder.Read("a.srt");
  Type(u"a night's work");
  List().ClearCaptionTiming(2, true);
  boxes.answers = {BoxAnswer::Yes, BoxAnswer::Cancel};
  program->documentFiles.Close();
  EXPECT_EQ(boxes.shown.back().buttons, BoxButtons::YesNoCancel);
  EXPECT_TRUE(program->document.HasDocument());
  EXPECT_EQ(folder.Read("a.srt"), before);
}

TEST_F(QuestionBeforeLoss, ClassicThatQuestionHasTwoAnswers) {
  Classic();
  List().ClearCaptionTiming(2, true);
  program->documentFiles.Save();
  EXPECT_EQ(boxes.shown.back().buttons, BoxButtons::YesNo);
  EXPECT_EQ(folder.Read("a.srt").find("line 2"), std::string::npos);
}

TEST_F(QuestionBeforeLoss, ComesWhereAPlainTextLeftTheTimesOut) {
  Type(u"a night's work");
  ChooseFormat(u"PLAINTEXT");
  dialogs.paths = {folder / "copy.txt"};
  Text told;
  program->saveCheck.dialog.Opened.Connect([&] {
    told = program->saveCheck.dialog.txtList.GetText();
    program->saveCheck.dialog.cmdSave.Click();
  });
  EXPECT_TRUE(program->documentFiles.SaveAs());
  EXPECT_EQ(ToUtf8(told), "Plain text can't hold times; captions that lose them: 3");
  EXPECT_NE(folder.Read("copy.txt").find("a night's work"), std::string::npos);
  EXPECT_TRUE(Asks());
}

struct YesToTheQuestion : QuestionBeforeLoss {
  YesToTheQuestion() { Type(u"a night's work"); }
};

TEST_F(YesToTheQuestion, SavesAndCloses) {
  boxes.answers = {BoxAnswer::Yes};
  program->documentFiles.Close();
  EXPECT_NE(folder.Read("a.srt").find("a night's work"), std::string::npos);
  EXPECT_FALSE(program->document.HasDocument());
}

TEST_F(YesToTheQuestion, KeepsTheDocumentOpenWhenTheDiskIsFull) {
  program->documentFiles.OpenSubtitleFile(SubRip("long.srt", 50));
  Type(u"a night's work");
  const std::string before = folder.Read("long.srt");
  boxes.answers = {BoxAnswer::Yes};
  {
    const FullDisk full;
    program->documentFiles.Close();
  }
  EXPECT_EQ(program->document.SubtitlePath, folder / "long.srt");
  EXPECT_EQ(List().At(1).text, u"a night's work");
  EXPECT_EQ(folder.Read("long.srt"), before);
  EXPECT_TRUE(Asks());
}

TEST_F(YesToTheQuestion, ClassicClosesThoughTheDiskIsFull) {
  Classic();
  program->documentFiles.OpenSubtitleFile(SubRip("long.srt", 50));
  Type(u"a night's work");
  boxes.answers = {BoxAnswer::Yes};
  const FullDisk full;
  program->documentFiles.Close();
  EXPECT_FALSE(program->document.HasDocument());
}

TEST_F(YesToTheQuestion, KeepsTheDocumentOpenWhenTheDialogIsLeft) {
  program->documentFiles.New();
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.New();
  Type(u"my first line");
  ChooseFormat(u"SUBRIP");
  boxes.answers = {BoxAnswer::Yes};
  dialogs.paths = {u""};
  program->documentFiles.Close();
  EXPECT_TRUE(program->document.HasDocument());
  EXPECT_EQ(List().At(1).text, u"my first line");
}

TEST_F(YesToTheQuestion, NeverWritesOverAPlainText) {
  const Text text = folder.Write("lines.txt", "one\r\ntwo\r\n");
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.OpenText();
  program->documentFiles.OpenSubtitleFile(text);
  ASSERT_EQ(program->formats.CurrentFormatIndex, 0);
  List().SetCaptionStart(1, 1000, false);
  List().SetCaptionEnd(1, 2000);
  boxes.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
  ChooseFormat(u"SUBRIP");
  dialogs.paths = {folder / "lines.srt"};
  program->documentFiles.Close();
  EXPECT_EQ(folder.Read("lines.txt"), "one\r\ntwo\r\n");
  EXPECT_EQ(folder.Read("lines.srt").rfind("1\r\n00:00:01,000 --> 00:00:02,000\r\none\r\n", 0), 0u)
      << LastBox() << folder.Read("lines.srt");
}

TEST_F(YesToTheQuestion, ClassicWritesOverAPlainText) {
  Classic();
  program->documentFiles.OpenSubtitleFile(folder.Write("lines.txt", "one\r\ntwo\r\n"));
  List().SetCaptionText(1, u"changed");
  List().SetCaptionStart(1, 1000, false);
  boxes.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
  program->documentFiles.Close();
  EXPECT_EQ(folder.Read("lines.txt"), "changed\r\ntwo\r\n");
}

struct SaveAsThoughtBetterOf : QuestionBeforeLoss {
  /// Save as with another format, left in the file dialog; then a plain save.
  std::string SavedAfterwards() {
    Type(u"changed");
    ChooseFormat(u"MICRODVD");
    dialogs.paths = {u""};
    program->documentFiles.SaveAs();
    program->documentFiles.Save();
    return folder.Read("a.srt");
  }
};

TEST_F(SaveAsThoughtBetterOf, LeavesFormatAndRateOfTheDocument) {
  const int format = program->formats.CurrentFormatIndex;
  const std::string saved = SavedAfterwards();
  EXPECT_EQ(program->formats.CurrentFormatIndex, format);
  EXPECT_EQ(program->formats.CurrentFps, 0);
  EXPECT_EQ(saved.rfind("1\r\n00:00:01,100 --> 00:00:01,900\r\nchanged\r\n", 0), 0u) << saved;
}

TEST_F(SaveAsThoughtBetterOf, ClassicWritesTheOtherFormatOverTheFile) {
  Classic();
  const std::string saved = SavedAfterwards();
  EXPECT_EQ(saved.rfind("{27}{47}changed", 0), 0u) << saved;
}

TEST_F(SaveAsThoughtBetterOf, AFileThatCantBeWrittenIsNotTheDocuments) {
  Type(u"changed");
  ChooseFormat(u"MICRODVD");
  dialogs.paths = {folder / "no such folder/b.sub"};
  program->documentFiles.SaveAs();
  EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
  EXPECT_EQ(program->recall.Path(u"TFileName"), folder / "a.srt");
  EXPECT_EQ(Window().lblTextFile.GetText(), u"Current subtitle file: a.srt");
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("a.srt").rfind("1\r\n00:00:01,100", 0), 0u);
}

struct WhileAFileIsRead : UnsavedWork {
  /// Opens a file; at the first event that comes through meanwhile `act` runs.
  template <class Act>
  void OpenAnd(Act&& act) {
    bool acted = false;
    events.onYield = [&] {
      if (std::exchange(acted, true)) return;
      act();
    };
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
    events.onYield = nullptr;
    EXPECT_TRUE(acted);
    EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
    EXPECT_EQ(List().Rows(), 4);
  }
};

TEST_F(WhileAFileIsRead, NoOtherDocumentBegins) {
  const Text other = SubRip("b.srt", 5);
  desktop.clipboard = u"one\r\ntwo";
  dialogs.paths = {other, other, other};
  OpenAnd([&] {
    program->documentFiles.New();
    program->documentFiles.NewFromClipboard();
    program->documentFiles.OpenText();
    program->router.OpenStartFile(other);
    program->router.OpenAs(FileKind::Subtitle, other);
    program->router.OpenDropped({other});
    program->documentFiles.Close();
  });
  EXPECT_EQ(dialogs.calls.size(), 0u);
}

TEST_F(WhileAFileIsRead, NeitherFilmNorSoundIsOpened) {
  const Text film = folder.Write("film.mkv", "x");
  dialogs.paths = {film};
  OpenAnd([&] {
    program->playerBinding.OpenVideo();
    program->router.OpenAs(FileKind::Film, film);
    program->router.OpenAs(FileKind::Sound, folder.Write("a.wav", "x"));
  });
  EXPECT_TRUE(player.urls.empty());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WhileAFileIsRead, NothingIsSavedAndNoCaptureBegins) {
  Play(folder.Write("film.mkv", "x"));
  ChooseFormat(u"SUBRIP");
  dialogs.paths = {folder / "b.srt"};
  OpenAnd([&] {
    program->documentFiles.SaveAs();
    program->capture.StartCaption(false, false);
    EXPECT_FALSE(program->capture.Capturing());
    EXPECT_FALSE(Window().mnuEdit.Enabled());
    EXPECT_FALSE(Window().mnuTools.Enabled());
  });
  EXPECT_FALSE(files.Exists(folder / "b.srt"));
  EXPECT_TRUE(Window().mnuEdit.Enabled());
  EXPECT_TRUE(Window().mnuTools.Enabled());
}

TEST_F(WhileAFileIsRead, TheEndOfASaveIsToldToo) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  int ended = 0;
  program->documentFiles.FileWorkEnded.Connect([&] {
    ++ended;
    EXPECT_FALSE(program->document.FileInWork);
  });
  program->documentFiles.Save();
  EXPECT_EQ(ended, 1);
}

TEST_F(WhileAFileIsRead, ItsEndIsTold) {
  int ended = 0;
  program->documentFiles.FileWorkEnded.Connect([&] { ++ended; });
  OpenAnd([&] { EXPECT_EQ(ended, 0); });
  EXPECT_EQ(ended, 1);
}

}  // namespace
}  // namespace cuewright
