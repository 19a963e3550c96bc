#include "core/journal.h"

#include <gtest/gtest.h>

#include "tests/support/fake_journal_store.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::FakeJournalStore;
using testing::ProgramFixture;

struct JournalInTheWindow : ProgramFixture {
  JournalInTheWindow() {
    journal = &store;
    Restart({});
    program->options.applyWhen = 1;
  }
  void Tick() {
    events.now += 200;
    if (Window().tmrJournal.Enabled()) Window().tmrJournal.Pass();
  }
  /// What a restart would find.
  std::vector<Caption> Kept() const {
    const JournalReading reading = ReadJournal(store.current);
    return reading.document ? reading.document->captions : std::vector<Caption>();
  }
  std::vector<Caption> All() {
    std::vector<Caption> all;
    for (Row row = 1; row < List().Rows(); ++row) all.push_back(List().At(row));
    return all;
  }
  /// The program dies, and another starts.
  void DieAndStart() {
    store.keptBytes = store.current;
    store.left = {{7, store.current, 5}};
    Restart({});
    program->options.applyWhen = 1;
    program->OnFirstActivation();
  }

  FakeJournalStore store;
};

TEST_F(JournalInTheWindow, BeginsWithTheFirstChangeAndFollowsEveryOther) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Tick();
  EXPECT_EQ(store.begun, 0);
  Window().mnuRemove.Click();
  EXPECT_EQ(store.begun, 0);  // not on the way of the command
  Tick();
  EXPECT_EQ(store.begun, 1);
  EXPECT_EQ(Kept(), All());
  List().SetCaptionEnd(2, 9999);
  boxes.lines = {u"new"};
  Window().mnuAddBelow.Click();
  EXPECT_NE(Kept(), All());
  Tick();
  EXPECT_EQ(Kept(), All());
  EXPECT_EQ(store.begun, 1);
  EXPECT_EQ(store.appended, 1);
  Window().mnuUndo.Click();
  Tick();
  EXPECT_EQ(Kept(), All());
}

TEST_F(JournalInTheWindow, FollowsWhatShapesAndRetimesCaptionsButNotWhatIsOnlyShown) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 6));
  List().SetRow(2, false);
  MainWindow& w = Window();
  for (MenuItem* item : {&w.mnuInsertAbove, &w.mnuInsertBelow, &w.mnuSplitAtCaret, &w.mnuJoinNext, &w.mnuDialogueNext,
                         &w.mnuDuplicate, &w.mnuMeetNext, &w.mnuSwapTexts}) {
    List().SetRow(4, false);
    item->Click();
    Tick();
    EXPECT_EQ(Kept(), All()) << item->Name();
  }
  const int appended = store.appended;
  w.mnuRetime.Click();
  program->retime.txtShift.SetText(u"3");
  program->retime.txtShift.NoteEdited();
  Tick();
  EXPECT_EQ(store.appended, appended);
  program->retime.cmdOK.Click();
  Tick();
  EXPECT_EQ(store.appended, appended + 1);
  EXPECT_EQ(Kept(), All());
}

TEST_F(JournalInTheWindow, RestsWhenThereIsNothingToWrite) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  for (int i = 0; i < 20; ++i) Tick();
  EXPECT_FALSE(Window().tmrJournal.Enabled());
  EXPECT_EQ(store.appended, 0);
  Window().mnuRemove.Click();
  EXPECT_TRUE(Window().tmrJournal.Enabled());
}

TEST_F(JournalInTheWindow, WritesACommandAsAWhole) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  const std::vector<Caption> before = All();
  {
    const EditScope scope(List(), EditKind::Rules);
    List().DeleteCaption(1);
    Tick();
    EXPECT_EQ(Kept(), before);
    List().DeleteCaption(1);
  }
  Tick();
  EXPECT_EQ(Kept(), All());
  // One that takes long is written in pieces.
  {
    const EditScope scope(List(), EditKind::Rules);
    List().DeleteCaption(1);
    for (int i = 0; i < 4; ++i) Tick();
    EXPECT_EQ(Kept(), All());
  }
}

TEST_F(JournalInTheWindow, IsRemovedByASaveByAnotherDocumentAndByTheEnd) {
  const Text path = SubRip("a.srt", 5);
  const auto change = [&] {
    Window().mnuRemove.Click();
    Tick();
    EXPECT_FALSE(store.current.empty());
  };
  program->documentFiles.OpenSubtitleFile(path);
  change();
  program->documentFiles.SaveDocument();
  EXPECT_TRUE(store.current.empty());
  change();
  program->documentFiles.OpenSubtitleFile(path);
  EXPECT_TRUE(store.current.empty());
  change();
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.New();
  EXPECT_TRUE(store.current.empty());
  program->documentFiles.OpenSubtitleFile(path);
  change();
  program->session.CloseDocuments();
  EXPECT_TRUE(store.current.empty());
  Tick();
  EXPECT_TRUE(store.current.empty());
}

TEST_F(JournalInTheWindow, ThatWasTakenAwayIsBegunAnew) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  store.lost = true;
  store.current.clear();
  Window().mnuRemove.Click();
  Tick();
  EXPECT_EQ(store.begun, 2);
  EXPECT_EQ(Kept(), All());
  EXPECT_FALSE(Window().lblNotice.GetText() == program->strings[Message::JournalFailed]);
}

TEST_F(JournalInTheWindow, StaysWhenASaveLeftCaptionsOut) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  List().SetCaptionStart(3, 0, false);
  Tick();
  boxes.answers = {BoxAnswer::No};
  Window().mnuSave.Click();
  Tick();
  EXPECT_EQ(Kept(), All());
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(JournalInTheWindow, BeginsWithASaveThatLeftCaptionsOutOfAnUnchangedDocument) {
  const Text path = folder.Write(
      "a.srt", "1\r\n00:00:01,000 --> 00:00:02,000\r\nx\r\n\r\n2\r\n00:00:00,000 --> 00:00:00,000\r\ny\r\n\r\n");
  program->documentFiles.OpenSubtitleFile(path);
  const std::vector<Caption> before = All();
  boxes.answers = {BoxAnswer::No};
  Window().mnuSave.Click();
  Tick();
  EXPECT_EQ(Kept(), before);
  EXPECT_EQ(before.size(), 2u);
}

TEST_F(JournalInTheWindow, StaysAfterACloseThatAskedNothing) {
  program->options.manner.SetClassic(true);
  // The question is not asked for so short a document, and not for captions that were added.
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  List().SetCaptionText(1, u"the last words");
  Window().mnuClose.Click();
  EXPECT_TRUE(boxes.shown.empty());
  ASSERT_EQ(store.kept.size(), 1u);
  EXPECT_EQ(ReadJournal(store.kept[0]).document->captions[0].text, u"the last words");
  program->documentFiles.New();
  boxes.lines = {u"one"};
  Window().mnuAddBottom.Click();
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  EXPECT_EQ(store.kept.size(), 1u) << "only those who asked may leave it";
  Window().mnuRemove.Click();
  program->document.DocModified = false;
  Window().mnuNew.Click();
  EXPECT_EQ(store.kept.size(), 2u);
}

TEST_F(JournalInTheWindow, GoesWithACloseOfWhatIsAsItsFile) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  Window().mnuUndo.Click();
  Tick();
  EXPECT_FALSE(store.current.empty());
  Window().mnuClose.Click();
  EXPECT_TRUE(store.kept.empty());
  EXPECT_TRUE(store.current.empty());
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  Window().mnuRemove.Click();
  Tick();
  boxes.answers = {BoxAnswer::No};
  Window().mnuClose.Click();
  EXPECT_TRUE(store.kept.empty());
  EXPECT_TRUE(store.current.empty());
}

TEST_F(JournalInTheWindow, KnowsASeparatorThatChangedNoCaption) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Window().mnuRemove.Click();
  Tick();
  Window().mnuSeparator[1].Click();
  Tick();
  EXPECT_EQ(ReadJournal(store.current).document->separator, u"/n");
}

TEST_F(JournalInTheWindow, TellsAFullDiskOnceAndGoesOnWhenThereIsRoom) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 9));
  Window().mnuRemove.Click();
  Tick();
  store.full = true;
  Window().mnuRemove.Click();
  Tick();
  Tick();
  EXPECT_TRUE(Window().lblNotice.Visible());
  EXPECT_NE(ToUtf8(Window().lblNotice.GetText()).find("Disk full"), std::string::npos);
  EXPECT_TRUE(boxes.shown.empty());
  Window().cmdNotice.Click();
  for (int i = 0; i < 60; ++i) Tick();
  EXPECT_FALSE(Window().lblNotice.Visible());
  Window().mnuRemove.Click();
  store.full = false;
  for (int i = 0; i < 30; ++i) Tick();
  EXPECT_EQ(Kept(), All());
}

TEST_F(JournalInTheWindow, WithoutTheInformationBarAFullDiskIsToldInABox) {
  Window().mnuInfoBar.Click();
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 9));
  store.full = true;
  Window().mnuRemove.Click();
  for (int i = 0; i < 60; ++i) Tick();
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(JournalInTheWindow, BeginsAnewWhenTheChangesOutgrowTheDocument) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  for (int i = 0; i < 12; ++i) {
    List().SetCaptionText(1, Text(300000, static_cast<char16_t>(u'a' + i)));
    Tick();
  }
  EXPECT_GT(store.begun, 1);
  EXPECT_EQ(Kept(), All());
}

using TheNextStart = JournalInTheWindow;

TEST_F(TheNextStart, OffersTheDocumentAndRestoresItAsItWas) {
  const Text path = SubRip("a.srt", 5);
  program->documentFiles.OpenSubtitleFile(path);
  List().SetRow(3, false);
  Window().mnuSeparator[1].Click();
  Window().mnuRemove.Click();
  List().SetCaptionText(2, u"two/nlines");
  Tick();
  const std::vector<Caption> before = All();
  boxes.answers = {BoxAnswer::Yes};
  DieAndStart();
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(
      LastBox(),
      "The program ended before the changes of this document were saved:\n\n" + ToUtf8(path) +
          "\n\nIt can be restored as it was on 2026-09-21 14:13:20, with 4 captions.\r\n\r\nThis is newer than the "
          "file itself, which was changed on at 1780000000000.\r\n\r\nPress YES to restore it, NO to throw the changes "
          "away, CANCEL to be asked again at the next start.");
  EXPECT_EQ(boxes.shown[0].buttons, BoxButtons::YesNoCancel);
  EXPECT_EQ(All(), before);
  EXPECT_EQ(program->document.SubtitlePath, path);
  EXPECT_TRUE(program->document.DocModified);
  EXPECT_EQ(program->options.lineSeparator, u"/n");
  EXPECT_EQ(List().Selected(), 3);
  EXPECT_EQ(program->catalogue.Identifier(program->formats.CurrentFormatIndex), kSubRip);
  EXPECT_TRUE(Window().mnuSave.Enabled());
  EXPECT_FALSE(Window().mnuUndo.Enabled());
  // The same journal goes on.
  EXPECT_EQ(store.adopted, 7);
  Window().mnuRemove.Click();
  Tick();
  EXPECT_EQ(Kept(), All());
  Window().mnuUndo.Click();
  EXPECT_TRUE(program->document.DocModified);
  program->documentFiles.SaveDocument();
  EXPECT_TRUE(store.current.empty());
}

TEST_F(TheNextStart, SavesARestoredFileWithTheBytesOfAllThatWasNotEdited) {
  const std::string head =
      "\xEF\xBB\xBF[Script Info]\n; a remark\nTitle: Dusk\nPlayResX: 1920\nPlayResY: 1080\n\n[V4+ Styles]\n"
      "Format: Name, Fontname, Fontsize, PrimaryColour, Bold\nStyle: Sign,Arial,48,&H00FFFFFF,0\n\n"
      "[Events]\nFormat: Layer, Start, End, Style, Name, Text\n";
  const std::string first = "Dialogue: 0,0:00:01.00,0:00:02.50,Sign,Ana,{\\pos(10,20)}One\n";
  const std::string between = "Comment: 0,0:00:02.00,0:00:02.10,Sign,,to be checked\n";
  const Text path = folder.Write("a.ass", head + first + between +
                                              "Dialogue: 3,0:00:03.00,0:00:04.00,Sign,,Two {\\i1}words{\\i0}\n"
                                              "\n[Fonts]\nfontname: a.ttf\n!!!!\n");
  program->documentFiles.OpenSubtitleFile(path);
  ASSERT_EQ(List().Rows(), 3);
  List().SetCaptionStart(2, 3210, false);
  Tick();
  boxes.answers = {BoxAnswer::Yes};
  DieAndStart();
  ASSERT_EQ(program->document.SubtitlePath, path);
  EXPECT_EQ(List().GetCaptionStart(2), 3210);
  EXPECT_TRUE(program->documentFiles.SaveDocument());
  EXPECT_EQ(folder.Read("a.ass"), head + first + between +
                                      "Dialogue: 3,0:00:03.21,0:00:04.00,Sign,,Two {\\i1}words{\\i0}\n"
                                      "\n[Fonts]\nfontname: a.ttf\n!!!!\n");
}

TEST_F(TheNextStart, RestoresADocumentWithoutAFile) {
  program->documentFiles.New();
  boxes.lines = {u"only one"};
  Window().mnuAddBottom.Click();
  Tick();
  boxes.answers = {BoxAnswer::Yes};
  DieAndStart();
  EXPECT_NE(LastBox().find("New subtitle"), std::string::npos);
  EXPECT_EQ(program->document.SubtitlePath, u"NEW");
  EXPECT_EQ(List().GetCaptionText(1), u"only one");
}

TEST_F(TheNextStart, SaysWhichOfJournalAndFileIsNewer) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  store.fileChanged = 1800000000000;
  DieAndStart();
  EXPECT_NE(LastBox().find("The file itself is newer: it was changed after that, on at 1800000000000."),
            std::string::npos);
  store.left = {{8, store.keptBytes, 5}};
  store.fileChanged.reset();
  Restart({});
  program->OnFirstActivation();
  EXPECT_NE(LastBox().find("The file itself isn't there any more."), std::string::npos);
}

TEST_F(TheNextStart, LeavesWhatItCannotReadAndTellsItOnce) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  std::string version = store.current;
  version[6] = '2';
  std::string damaged = store.current;
  damaged[30] = static_cast<char>(damaged[30] + 1);
  const std::string cut = store.current.substr(0, 40);
  store.left = {{1, version, 9, u"/j/version"},
                {2, damaged, 8, u"/j/damaged"},
                {3, {}, 7, u"/j/locked", RuntimeError{kErrorPathFileAccess, u"no access"}},
                {4, cut, 6, u"/j/cut"},
                {5, version, 5, u"/j/told", {}, true}};
  Restart({});
  program->OnFirstActivation();
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_NE(LastBox().find("/j/version\r\nIt was written by another version of the program."), std::string::npos);
  EXPECT_NE(LastBox().find("/j/damaged\r\nIt is damaged."), std::string::npos);
  EXPECT_NE(LastBox().find("/j/locked\r\nno access"), std::string::npos);
  EXPECT_EQ(LastBox().find("/j/told"), std::string::npos);
  EXPECT_EQ(LastBox().find("/j/cut"), std::string::npos);
  EXPECT_EQ(store.discarded, std::vector<int>{4});
  EXPECT_EQ(store.leftTold, (std::vector<int>{1, 2, 5}));
  EXPECT_EQ(store.leftAgain, std::vector<int>{3});
}

TEST_F(TheNextStart, ThrowsTheJournalAwayOnNoAndKeepsItOnCancel) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  boxes.answers = {BoxAnswer::No};
  DieAndStart();
  EXPECT_EQ(store.discarded, std::vector<int>{7});
  EXPECT_FALSE(program->document.HasDocument());
  store.left = {{8, store.keptBytes, 5}};
  boxes.answers = {BoxAnswer::Cancel};
  Restart({});
  program->OnFirstActivation();
  EXPECT_EQ(store.leftAgain, std::vector<int>{8});
  EXPECT_FALSE(program->document.HasDocument());
}

TEST_F(TheNextStart, LeavesTheOthersOnceOneIsTakenAndDropsWhatHoldsNothing) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 5));
  Window().mnuRemove.Click();
  Tick();
  const std::string good = store.current;
  store.left = {{1, "", 9}, {2, good, 8}, {3, good, 7}};
  store.keptBytes = good;
  boxes.answers = {BoxAnswer::Yes};
  boxes.shown.clear();
  Restart({});
  program->OnFirstActivation();
  EXPECT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(store.discarded, std::vector<int>{1});
  EXPECT_EQ(store.adopted, 2);
  EXPECT_EQ(store.leftAgain, std::vector<int>{3});
}

TEST_F(TheNextStart, DoesNotPutTheTextOfItsCommandLineOverARestoredDocument) {
  const Text path = SubRip("a.srt", 5);
  program->documentFiles.OpenSubtitleFile(path);
  Window().mnuRemove.Click();
  Tick();
  store.keptBytes = store.current;
  store.left = {{7, store.current, 5}};
  const Text other = SubRip("other.srt", 9);
  boxes.answers = {BoxAnswer::Yes};
  Restart(other);
  program->OnFirstActivation();
  EXPECT_EQ(program->document.SubtitlePath, path);
  // A film is opened beside it, whatever dots are in its path.
  store.left = {{9, store.keptBytes, 5}};
  boxes.answers = {BoxAnswer::Yes};
  const Text film = folder.Write("my.film.mkv", "x");
  Restart(film);
  program->OnFirstActivation();
  EXPECT_EQ(program->document.SubtitlePath, path);
  EXPECT_EQ(program->document.VideoPath, film);
  store.left = {{8, store.keptBytes, 5}};
  boxes.answers = {BoxAnswer::No};
  Restart(other);
  program->OnFirstActivation();
  EXPECT_EQ(program->document.SubtitlePath, other);
}

}  // namespace
}  // namespace cuewright
