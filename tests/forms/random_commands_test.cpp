#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "tests/support/fake_journal_store.h"
#include "tests/support/program_fixture.h"
#include "tests/support/snapshot.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;
using testing::Snapshot;

/// Runs commands picked at random, as a person at the keyboard would give them.
struct RandomCommands : ProgramFixture {
  RandomCommands() { journal = &store; }

  int Pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
  template <class Item>
  Item& One(std::initializer_list<Item*> items) {
    return *items.begin()[Pick(static_cast<int>(items.size()))];
  }
  Row AnyRow() { return Pick(List().Count()) + 1; }
  Text Words() {
    static const std::vector<Text> pieces = {u"one", u"Two", u" ",  u"| ",   u"|", u"- ", u"<b>",       u"<i>",
                                             u"www", u"été", u"/n", u"[br]", u"x", u"Ã©", u"long word", u"%1"};
    Text text;
    for (int i = Pick(7) + 1; i > 0; --i) {
      text += pieces[static_cast<std::size_t>(Pick(static_cast<int>(pieces.size())))];
    }
    return text;
  }
  Snapshot Now() { return testing::SnapshotOf(*program); }

  void Select() {
    const Row row = AnyRow();
    List().SetRow(row, Pick(2) == 0);
    if (Pick(2) == 0) program->grid.selection.ExtendTo(std::min(row + Pick(4), List().Rows() - 1));
    if (Pick(4) == 0) program->grid.selection.Toggle(AnyRow());
  }

  void Shape() {
    MainWindow& w = Window();
    w.txtSub.NoteSelection(Pick(static_cast<int>(w.txtSub.GetText().size()) + 1), 0);
    One({&w.mnuInsertAbove, &w.mnuInsertBelow, &w.mnuInsertAtFilm, &w.mnuSplitAtCaret, &w.mnuSplitAtFilm,
         &w.mnuJoinNext, &w.mnuJoinPrevious, &w.mnuDialogueNext, &w.mnuDialoguePrevious, &w.mnuDuplicate,
         &w.mnuMeetNext, &w.mnuSwapTexts})
        .Click();
  }
  /// What acts on all that is selected.
  void ChangeSelected() {
    MainWindow& w = Window();
    boxes.lines = {Pick(2) == 0 ? u"1.25" : u"-0.5"};
    One({&w.mnuCut, &w.mnuCopy, &w.mnuPaste, &w.mnuRemove, &w.mnuShift, &w.mnuJoinSelected, &w.mnuUpperCase,
         &w.mnuLowerCase, &w.mnuSentenceCase, &w.mnuMoveUp, &w.mnuMoveDown, &w.mnuSortByStart, &w.mnuBold, &w.mnuItalic,
         &w.mnuUnderline})
        .Click();
  }
  /// What moves a caption's times by the film.
  void MoveTimes() {
    MainWindow& w = Window();
    player.position = Pick(60000) / 1000.0;
    One({&w.mnuStartHere, &w.mnuEndHere, &w.mnuPushFromHere, &w.mnuStartEarlier, &w.mnuStartLater, &w.mnuEndEarlier,
         &w.mnuEndLater, &w.mnuStartMuchEarlier, &w.mnuStartMuchLater, &w.mnuEndMuchEarlier, &w.mnuEndMuchLater})
        .Click();
  }
  void Propose() {
    ProposalsDialog& dialog = program->proposals.dialog;
    const Connection opened = dialog.Opened.ConnectScoped([&] {
      const int rows = static_cast<int>(dialog.lstProposals.Rows().size());
      if (rows > 0 && Pick(2) == 0) dialog.lstProposals.Tick(Pick(rows));
      (Pick(4) == 0 ? dialog.cmdCancel : dialog.cmdApply).Click();
      dialog.Close();
    });
    One({&Window().mnuBreakLines, &Window().mnuClean}).Click();
  }
  void Check() {
    Window().mnuCheck.Click();
    CheckWindow& check = program->checkWindow;
    const int rows = static_cast<int>(check.lstFindings.Rows().size());
    if (rows > 0) {
      check.lstFindings.Choose(Pick(rows));
      if (check.cmdFix.Enabled()) check.cmdFix.Click();
    }
    check.Close();
  }
  void Type() {
    Window().txtSub.SetText(ReplaceAll(Words(), u"|", u"\r\n"));
    Window().txtSub.NoteEdited();
    KeyEvent key;
    Window().txtSub.ReleaseKey(key);
  }
  void TypeTimes() {
    Window().txtTime[0].SetText(u"00:00:1" + Decimal(Pick(10)) + u",000");
    Window().txtTime[1].SetText(u"00:00:0" + Decimal(Pick(3)) + u",000");
    KeyEvent enter;
    enter.code = kKeyEnter;
    Window().txtTime[0].PressKey(enter);
  }
  void Delay() {
    DelayDialog& delay = program->tools.delayDialog;
    const Connection opened = delay.Opened.ConnectScoped([&] {
      delay.sldSec.Move(Pick(20) - 10);
      boxes.answers = {BoxAnswer::Yes};
      delay.cmdApply.Click();
      delay.Close();
      boxes.answers.clear();
    });
    Window().mnuDelay.Click();
  }
  void Replace() {
    Window().mnuReplace.Click();
    ReplaceWindow& replace = program->tools.replaceWindow;
    replace.txtFind.SetText(Pick(3) == 0 ? Text(u"(\\w)(\\w)") : Words());
    replace.txtFind.NoteEdited();
    replace.txtReplace.SetText(Pick(3) == 0 ? Text(u"$2$1") : Words());
    if (Pick(2) == 0) replace.chkEntire.Click();
    if (Pick(2) == 0) replace.chkCase.Click();
    if (Pick(2) == 0) replace.chkRegex.Click();
    if (Pick(2) == 0) replace.chkSelected.Click();
    (Pick(2) == 0 ? replace.cmdReplace : replace.cmdReplaceAll).Click();
  }
  void Retime() {
    Window().mnuRetime.Click();
    program->retime.txtShift.SetText(Decimal(Pick(5)));
    program->retime.txtShift.NoteEdited();
    if (Pick(2) == 0) program->retime.cboDirection.Choose(1);
    if (Pick(2) == 0) program->retime.optFromHere.Click();
    (Pick(3) == 0 ? program->retime.cmdCancel : program->retime.cmdOK).Click();
  }
  void Hold(bool down) {
    KeyEvent key;
    key.code = 'B';
    key.physical = 'B';
    program->capture.SamplePosition();
    down ? program->capture.OnKeyDown(key) : program->capture.OnKeyUp(key);
  }
  void Capture() {
    player.position = Pick(100000) / 1000.0;
    Hold(true);
    player.position += Pick(4000) / 1000.0;
    Hold(false);
  }
  void Add() {
    boxes.lines = {Words()};
    One({&Window().mnuAddBelow, &Window().mnuAddBottom, &Window().mnuEditSelected}).Click();
  }
  void Append() {
    if (Pick(4) != 0) return;
    dialogs.paths = {appended};
    Window().mnuAppend.Click();
    dialogs.paths.clear();
  }
  void Convert() {
    boxes.lines = {u"/"};
    boxes.answers = {BoxAnswer::Yes};
    if (Pick(2) == 0) return Window().mnuUTF8.Click();
    Window().mnuSeparator[static_cast<std::size_t>(Pick(4))].Click();
  }
  void Reset() {
    if (Pick(5) != 0) return;
    boxes.answers = {BoxAnswer::Yes};
    Window().mnuReset.Click();
  }

  void Run() {
    using Command = void (RandomCommands::*)();
    static constexpr Command kCommands[] = {&RandomCommands::Add,
                                            &RandomCommands::Type,
                                            &RandomCommands::Type,
                                            &RandomCommands::TypeTimes,
                                            &RandomCommands::Convert,
                                            &RandomCommands::Delay,
                                            &RandomCommands::Reset,
                                            &RandomCommands::Replace,
                                            &RandomCommands::Replace,
                                            &RandomCommands::Append,
                                            &RandomCommands::Shape,
                                            &RandomCommands::Shape,
                                            &RandomCommands::Shape,
                                            &RandomCommands::Retime,
                                            &RandomCommands::ChangeSelected,
                                            &RandomCommands::ChangeSelected,
                                            &RandomCommands::MoveTimes,
                                            &RandomCommands::Propose,
                                            &RandomCommands::ChangeSelected,
                                            &RandomCommands::Capture,
                                            &RandomCommands::Capture,
                                            &RandomCommands::Check,
                                            &RandomCommands::RunRules};
    boxes.shown.clear();
    boxes.answers.clear();
    if (Pick(2) == 0) Select();
    events.now += Pick(2000);
    (this->*kCommands[Pick(static_cast<int>(std::size(kCommands)))])();
    // What was pasted again and again would make each later command slower.
    while (List().Rows() > kMostRows) Window().mnuUndo.Click();
  }
  void RunRules() { Window().mnuRules.Click(); }

  void Open(unsigned seed) {
    random.seed(seed);
    Restart({});
    program->options.applyWhen = static_cast<std::uint8_t>(seed % 3);
    path = SubRip("a.srt", 20);
    program->documentFiles.OpenSubtitleFile(path);
    appended = SubRip("b.srt", 2);
    Play(folder.Write("film.mkv", "x"));
  }
  void WriteJournal() {
    events.now += 200;
    if (Window().tmrJournal.Enabled()) Window().tmrJournal.Pass();
  }
  /// The file that a save writes.
  std::string Saved() {
    boxes.answers.assign(4, BoxAnswer::Yes);
    program->documentFiles.SaveDocument();
    boxes.answers.clear();
    return files.Read(path, 1 << 22);
  }
  void TakeAllBack() {
    while (Window().mnuUndo.Enabled()) Window().mnuUndo.Click();
  }
  void DoAllAgain() {
    while (Window().mnuRedo.Enabled()) Window().mnuRedo.Click();
  }

  /// A document that is as its file has it needs no journal.
  void ExpectJournalIsList(const Snapshot& inFile) {
    WriteJournal();
    const JournalReading reading = ReadJournal(store.current);
    ASSERT_EQ(reading.document ? reading.document->captions : inFile.captions, Now().captions);
  }
  /// A mixture of commands, a look at list and undo after each, and at the journal now and then.
  void ExpectEachIsAStep() {
    std::vector<Snapshot> states = {Now()};
    for (int i = 0; i < kCommandsASeed; ++i) {
      Run();
      // A step back or forward in between, as people do.
      if (Pick(6) == 0) One({&Window().mnuUndo, &Window().mnuRedo}).Click();
      const std::size_t at = program->history.UndoSteps();
      if (program->history.RedoSteps() == 0) states.resize(std::min(at, states.size()));
      // A command may have run and been taken back within `Run`.
      ASSERT_LE(at, states.size()) << "command " << i;
      if (at == states.size()) states.push_back(Now());
      ASSERT_EQ(Now(), states[at]) << "command " << i;
      if (i % 20 == 0) {
        ASSERT_NO_FATAL_FAILURE(ExpectJournalIsList(states.front()));
      }
    }
  }
  /// The file goes back with the list, and the journal brings both.
  void ExpectFileFollows(const std::string& original) {
    DoAllAgain();
    const Snapshot last = Now();
    const std::string saved = Saved();
    TakeAllBack();
    ASSERT_EQ(Saved(), original);
    DoAllAgain();
    ASSERT_EQ(Now(), last);
    WriteJournal();
    const std::string left = store.current;
    ASSERT_EQ(Saved(), saved);
    // The program dies before that save, and the next start gives back what was not saved.
    folder.Write("a.srt", original);
    store.left = {{7, left, 5}};
    store.keptBytes = left;
    Restart({});
    boxes.answers = {BoxAnswer::Yes};
    program->OnFirstActivation();
    boxes.answers.clear();
    ASSERT_EQ(Now(), last);
    ASSERT_EQ(Saved(), saved);
  }

  static constexpr int kMostRows = 80;
  static constexpr int kCommandsASeed = 200;

  testing::FakeJournalStore store;
  std::mt19937 random;
  Text path;
  Text appended;
};

TEST_F(RandomCommands, ListUndoJournalAndFileAgreeWhateverIsDone) {
  // Each is 200 commands.
  const char* const wanted = std::getenv("CUEWRIGHT_RANDOM_SEEDS");
  const unsigned seeds = wanted ? static_cast<unsigned>(std::stoul(wanted)) : 40;
  ASSERT_GT(seeds, 0u);
  for (unsigned seed = 1; seed <= seeds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Open(seed);
    const Snapshot first = Now();
    const std::string original = files.Read(path, 1 << 22);
    ASSERT_NO_FATAL_FAILURE(ExpectEachIsAStep());
    ASSERT_NO_FATAL_FAILURE(ExpectFileFollows(original));
  }
}

}  // namespace
}  // namespace cuewright
