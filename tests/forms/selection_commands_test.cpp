#include "forms/selection_commands.h"

#include <random>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using Rows = std::vector<Row>;

struct SelectionCommandsTest : testing::ProgramFixture {
  SelectionCommandsTest() { Open(6); }

  void Open(int captions) { program->documentFiles.OpenSubtitleFile(SubRip("a.srt", captions)); }
  Selection& Hand() { return program->grid.selection; }
  void Select(Row first, Row last) {
    Hand().Only(first);
    Hand().ExtendTo(last);
  }
  /// The texts of all rows with a blank between.
  std::string Texts() {
    std::string all;
    for (Row row = 1; row < List().Rows(); ++row) {
      all += (all.empty() ? "" : " ") + ToUtf8(ReplaceAll(List().At(row).text, u"line ", u""));
    }
    return all;
  }
  /// A click is one step, and undo gives back what was there and what was selected.
  void ClickAndTakeBack(MenuItem& item, const std::string& wanted) {
    const std::string before = Texts();
    const Rows selected = Hand().Rows();
    const std::size_t steps = program->history.UndoSteps();
    item.Click();
    EXPECT_EQ(Texts(), wanted) << item.Name();
    EXPECT_EQ(program->history.UndoSteps(), steps + 1) << item.Name();
    const Rows after = Hand().Rows();
    Window().mnuUndo.Click();
    EXPECT_EQ(Texts(), before) << item.Name();
    EXPECT_EQ(Hand().Rows(), selected) << item.Name();
    Window().mnuRedo.Click();
    EXPECT_EQ(Texts(), wanted) << item.Name();
    EXPECT_EQ(Hand().Rows(), after) << item.Name();
    Window().mnuUndo.Click();
  }
};

using ManyRows = SelectionCommandsTest;

TEST_F(ManyRows, AreRemovedInOneStep) {
  Select(2, 4);
  ClickAndTakeBack(Window().mnuRemove, "1 5 6");
  Hand().Only(1);
  Hand().Toggle(3);
  Hand().Toggle(6);
  ClickAndTakeBack(Window().mnuRemove, "2 4 5");
  Window().mnuSelectAll.Click();
  EXPECT_EQ(Hand().Count(), 6);
  ClickAndTakeBack(Window().mnuRemove, "");
  EXPECT_EQ(ToUtf8(Window().mnuRedo.GetText()), "Redo: Remove caption");
}

TEST_F(ManyRows, GoToAnotherWindowWithTimesAndStyles) {
  List().SetCaptionText(2, u"<i>a</i> b|second \\ line");
  Hand().Only(2);
  Hand().Toggle(4);
  Window().mnuCopy.Click();
  EXPECT_EQ(desktop.clipboard, u"a b\nsecond \\ line\n\nline 4\n");
  ClickAndTakeBack(Window().mnuCut, "1 3 5 6");
  Hand().Only(6);
  Window().mnuPaste.Click();
  EXPECT_EQ(Hand().Rows(), (Rows{7, 8}));
  EXPECT_EQ(List().At(7), (Caption{2100, 2900, u"<i>a</i> b|second \\ line"}));
  EXPECT_EQ(List().At(8), (Caption{4100, 4900, u"line 4"}));
  EXPECT_EQ(ToUtf8(Window().mnuUndo.GetText()), "Undo: Paste");
  Window().mnuUndo.Click();
  EXPECT_EQ(List().Rows(), 7);
}

TEST_F(ManyRows, OfAWindowWithOtherMarksBecomeThoseOfTheDocument) {
  desktop.clipboardCaptions = "cuewright captions 1 substation\n1000\t2000\t{\\\\i1}one{\\\\i0} two\\nthree\n";
  desktop.clipboard = u"one two";
  Hand().Only(1);
  Window().mnuPaste.Click();
  EXPECT_EQ(List().At(2), (Caption{1000, 2000, u"<i>one</i> two|three"}));
}

TEST_F(ManyRows, ComeFromTheTextOfOtherProgramsWithoutTimes) {
  desktop.clipboard = u"one\r\n two \n\nthree\n";
  Window().mnuPaste.Click();
  EXPECT_EQ(Texts(), "1 one|two three 2 3 4 5 6");
  EXPECT_EQ(List().GetCaptionStart(2), 0);
  Window().mnuUndo.Click();
  desktop.clipboard = u"one\ntwo";
  Window().mnuPaste.Click();
  EXPECT_EQ(Texts(), "1 one two 2 3 4 5 6");
  Window().mnuUndo.Click();
  desktop.clipboard = u"";
  Window().mnuPaste.Click();
  EXPECT_EQ(Texts(), "1 2 3 4 5 6");
}

TEST_F(ManyRows, ThatDontFitAreRefused) {
  for (int i = 0; i < kMaxRow; ++i) desktop.clipboard += u"l\n";
  Window().mnuPaste.Click();
  EXPECT_EQ(List().Rows(), 7);
  EXPECT_NE(LastBox().find("32772"), std::string::npos) << LastBox();
}

TEST_F(ManyRows, GetAStyleUnlessAllHaveIt) {
  List().ToggleMarker(3, u"<b>");
  Select(2, 4);
  ClickAndTakeBack(Window().mnuBold, "1 <b>2 <b>3 <b>4 5 6");
  Window().mnuBold.Click();
  EXPECT_TRUE(Window().mnuBold.Checked());
  ClickAndTakeBack(Window().mnuBold, "1 2 3 4 5 6");
}

TEST_F(ManyRows, ChangeTheirLettersAndKeepTheirMarks) {
  List().SetCaptionText(2, u"<i>Who</i> IS it?|me.");
  Select(1, 2);
  ClickAndTakeBack(Window().mnuUpperCase, "LINE 1 <i>WHO</i> IS IT?|ME. 3 4 5 6");
  ClickAndTakeBack(Window().mnuSentenceCase, "Line 1 <i>Who</i> is it?|Me. 3 4 5 6");
  ClickAndTakeBack(Window().mnuLowerCase, "1 <i>who</i> is it?|me. 3 4 5 6");
  Window().mnuUpperCase.Click();
  EXPECT_EQ(Window().txtSub.GetText(), u"WHO IS IT?\r\nME.") << "the pane shows it";
}

TEST_F(ManyRows, MoveTogetherAndStopAtTheEnds) {
  Select(3, 4);
  ClickAndTakeBack(Window().mnuMoveUp, "1 3 4 2 5 6");
  ClickAndTakeBack(Window().mnuMoveDown, "1 2 5 3 4 6");
  Window().mnuMoveUp.Click();
  Window().mnuMoveUp.Click();
  EXPECT_EQ(Texts(), "3 4 1 2 5 6");
  EXPECT_EQ(Hand().Rows(), (Rows{1, 2}));
  const std::size_t steps = program->history.UndoSteps();
  Window().mnuMoveUp.Click();
  EXPECT_EQ(program->history.UndoSteps(), steps);
  Hand().Toggle(4);
  Hand().Toggle(6);
  Window().mnuMoveUp.Click();
  EXPECT_EQ(Texts(), "3 4 2 1 6 5");
  EXPECT_EQ(Hand().Rows(), (Rows{1, 2, 3, 5}));
}

TEST_F(ManyRows, AreSortedByTheirStarts) {
  List().SetCaptionStart(2, 6500, true);
  List().SetCaptionStart(3, 0, true);
  Hand().Only(2);
  ClickAndTakeBack(Window().mnuSortByStart, "1 4 5 6 2 3");
  Window().mnuSortByStart.Click();
  EXPECT_EQ(Hand().Rows(), Rows{5}) << "the selection goes with its caption";
  const std::size_t steps = program->history.UndoSteps();
  Window().mnuSortByStart.Click();
  EXPECT_EQ(program->history.UndoSteps(), steps) << "nothing is left to sort";
  Window().mnuUndo.Click();
  Select(1, 2);
  Window().mnuSortByStart.Click();
  EXPECT_EQ(Texts(), "1 2 3 4 5 6") << "of several selected ones these alone";
}

TEST_F(ManyRows, AreShiftedByATime) {
  struct Case {
    Text typed;
    std::int32_t start;
  };
  Select(2, 3);
  const Case cases[] = {{u"1.5", 3600},   {u"+1,5", 3600},  {u"-0.25", 1850}, {u"00:00:02,000", 4100},
                        {u"1:00", 62100}, {u"-1:00:00", 1}, {u" 2 ", 4100},   {u".5", 2600}};
  for (const Case& one : cases) {
    boxes.lines = {one.typed};
    Window().mnuShift.Click();
    EXPECT_EQ(List().GetCaptionStart(2), one.start) << ToUtf8(one.typed);
    EXPECT_EQ(List().GetCaptionStart(3) - List().GetCaptionStart(2), 1000);
    EXPECT_EQ(List().GetCaptionEnd(2) - List().GetCaptionStart(2), 800);
    EXPECT_EQ(List().GetCaptionStart(4), 4100);
    Window().mnuUndo.Click();
    EXPECT_EQ(List().GetCaptionStart(2), 2100);
  }
  for (const char16_t* typed : {u"one", u"1.2.3", u"1:2:3:4", u"-", u".", u"1.5:00", u"999999999"}) {
    boxes.lines = {typed};
    Window().mnuShift.Click();
    EXPECT_EQ(List().GetCaptionStart(2), 2100) << ToUtf8(typed);
    EXPECT_NE(LastBox().find("is no time"), std::string::npos);
  }
}

TEST_F(ManyRows, ShiftedLeaveUntimedOnesAlone) {
  List().ClearCaptionTiming(2, true);
  Select(1, 3);
  boxes.lines = {u"1"};
  Window().mnuShift.Click();
  EXPECT_EQ(List().TimesAt(1), (CaptionTimes{2100, 2900}));
  EXPECT_EQ(List().TimesAt(2), CaptionTimes{});
  EXPECT_EQ(List().TimesAt(3), (CaptionTimes{4100, 4900}));
}

TEST_F(ManyRows, AreJoinedWithTheTimesOfAll) {
  List().SetCaptionText(3, u"<i>in italics");
  Select(2, 3);
  ClickAndTakeBack(Window().mnuJoinSelected, "1 2|<i>in italics</i> 4 5 6");
  Window().mnuJoinSelected.Click();
  EXPECT_EQ(List().TimesAt(2), (CaptionTimes{2100, 3900}));
  const std::size_t steps = program->history.UndoSteps();
  Window().mnuJoinSelected.Click();
  EXPECT_EQ(program->history.UndoSteps(), steps) << "one alone has nothing to join";
}

TEST_F(ManyRows, AreNotThereInTheClassicManner) {
  EXPECT_TRUE(Window().mnuSelectAll.Visible());
  program->options.manner.SetClassic(true);
  program->dialogs.OpenSettings();
  program->dialogs.settings.Close();
  EXPECT_FALSE(Window().mnuSelectAll.Visible());
  EXPECT_FALSE(Window().mnuListColumns.Visible());
  Select(2, 4);
  EXPECT_EQ(Hand().Rows(), Rows{4});
  Window().mnuRemove.Click();
  EXPECT_EQ(Texts(), "1 2 3 5 6");
}

TEST_F(ManyRows, StaySelectedUnderTheListsMenu) {
  Select(2, 4);
  // The second row below the heading.
  program->commands.OnListRightDown(20 * 2 + 5);
  EXPECT_EQ(Hand().Count(), 3);
  EXPECT_EQ(List().Selected(), 2);
  program->commands.OnListRightDown(20 * 6 + 5);
  EXPECT_EQ(Hand().Rows(), Rows{6});
}

// Whatever is done to whichever rows, all of it can be taken back and done again.
TEST_F(ManyRows, AnyMixtureOfCommandsIsTakenBackWhole) {
  std::mt19937 random(11);
  const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  const auto all = [&] {
    std::vector<Caption> rows;
    for (Row row = 1; row < List().Rows(); ++row) rows.push_back(List().At(row));
    return rows;
  };
  MainWindow& w = Window();
  const std::vector<MenuItem*> items = {&w.mnuCut,    &w.mnuCopy,         &w.mnuPaste,       &w.mnuRemove,
                                        &w.mnuShift,  &w.mnuJoinSelected, &w.mnuUpperCase,   &w.mnuSentenceCase,
                                        &w.mnuMoveUp, &w.mnuMoveDown,     &w.mnuSortByStart, &w.mnuBold,
                                        &w.mnuItalic, &w.mnuUnderline,    &w.mnuPaste};
  const std::vector<Caption> first = all();
  for (int step = 0; step < 3000; ++step) {
    const Row one = 1 + pick(List().Count());
    const Row other = std::min(one + pick(4), List().Rows() - 1);
    Select(one, other);
    if (pick(3) == 0) Hand().Toggle(1 + pick(List().Count()));
    boxes.lines = {pick(2) == 0 ? u"1.25" : u"-0.5"};
    MenuItem& item = *items[static_cast<std::size_t>(pick(static_cast<int>(items.size())))];
    if (List().Rows() > 60 && (&item == &w.mnuPaste)) continue;
    item.Click();
    ASSERT_GE(Hand().Count(), 1) << item.Name();
    ASSERT_LT(program->list.SelectedRows().Last(), List().Rows()) << item.Name();
    if (pick(5) == 0) w.mnuUndo.Click();
    if (pick(9) == 0) w.mnuRedo.Click();
  }
  const std::vector<Caption> last = all();
  while (w.mnuUndo.Enabled()) w.mnuUndo.Click();
  EXPECT_EQ(all(), first);
  while (w.mnuRedo.Enabled()) w.mnuRedo.Click();
  EXPECT_EQ(all(), last);
}

TEST(ClipboardCaptions, BytesThatNobodyWroteAreNoCaptions) {
  for (const char* bytes :
       {"", "cuewright captions 1 ", "cuewright captions 1 subrip\n", "cuewright captions 1 what\n1\t2\tx\n",
        "cuewright captions 2 subrip\n1\t2\tx\n", "cuewright captions 1 subrip\n1\t2\tx",
        "cuewright captions 1 subrip\nx\t2\tx\n", "cuewright captions 1 subrip\n1 2 x\n",
        "cuewright captions 1 subrip\n99999999999\t2\tx\n"}) {
    EXPECT_FALSE(ReadCaptions(bytes)) << bytes;
  }
  const ClipboardCaptions given{{{1, -2, u"a\\n\nb\t\u00e9"}, {0, 0, u""}}, MarkKind::Sami};
  const auto read = ReadCaptions(WriteCaptions(given));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->captions, given.captions);
  EXPECT_EQ(read->marks, given.marks);
}

}  // namespace
}  // namespace cuewright
