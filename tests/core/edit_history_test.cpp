#include "core/edit_history.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/runtime_error.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

struct HistoryTest : ::testing::Test {
  HistoryTest() { Open({{1000, 2000, u"one"}, {3000, 4000, u"two"}, {5000, 6000, u"three"}}); }

  void Open(std::vector<Caption> captions) {
    list.Replace(1, list.Count(), std::move(captions));
    list.SetRow(1, false);
    modified = false;
    history.Begin(DocumentBaseline::File);
  }
  std::vector<Caption> All() const {
    std::vector<Caption> all;
    for (Row row = 1; row < list.Rows(); ++row) all.push_back(list.At(row));
    return all;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  EditHistory history{list, modified};
};

using History = HistoryTest;

TEST_F(History, TakesARemovalBackAndDoesItAgain) {
  const auto before = All();
  list.SetRow(2, false);
  list.DeleteCaption(2);
  const auto after = All();
  EXPECT_EQ(history.UndoKind(), EditKind::Remove);
  list.SetRow(1, false);
  history.Undo();
  EXPECT_EQ(All(), before);
  EXPECT_EQ(list.Selected(), 2);
  EXPECT_EQ(list.CurrentRow(), 2);
  EXPECT_EQ(history.UndoKind(), std::nullopt);
  EXPECT_EQ(history.RedoKind(), EditKind::Remove);
  history.Redo();
  EXPECT_EQ(All(), after);
  EXPECT_EQ(list.Selected(), 2);
}

TEST_F(History, HasNothingToDoAtItsEnds) {
  const auto before = All();
  history.Undo();
  history.Redo();
  EXPECT_EQ(All(), before);
}

TEST_F(History, MakesOneStepOfAScopeHoweverManyChangesAreInIt) {
  const auto before = All();
  {
    const EditScope scope(list, EditKind::Delay);
    for (Row row = 1; row < list.Rows(); ++row) {
      const EditScope inner(list, EditKind::SetTimes);
      list.SetCaptionStart(row, list.GetCaptionStart(row) + 5, false);
      list.SetCaptionEnd(row, list.GetCaptionEnd(row) + 5);
    }
    list.SetCaptionText(2, u"a");
    list.SetCaptionStart(2, 7, false);
    list.DeleteCaption(1);
    list.SetCaptionText(1, u"b");
    list.AddCaption(1, 2, u"new", 1);
  }
  const auto after = All();
  EXPECT_EQ(history.UndoSteps(), 1u);
  EXPECT_EQ(history.UndoKind(), EditKind::Delay);
  for (int i = 0; i < 3; ++i) {
    history.Undo();
    EXPECT_EQ(All(), before);
    history.Redo();
    EXPECT_EQ(All(), after);
  }
}

TEST_F(History, KeepsNoStepForAScopeThatChangedNothing) {
  {
    const EditScope scope(list, EditKind::Rules);
    list.SetModified();
    list.SetRow(2, false);
  }
  EXPECT_EQ(history.UndoSteps(), 0u);
}

TEST_F(History, JoinsCommandsOfOneNumberAndNoOthers) {
  const auto type = [&](TextView text, std::uint64_t number) {
    const EditScope scope(list, EditKind::Typing, number);
    list.SetCaptionText(1, text);
  };
  type(u"a", 1);
  type(u"ab", 1);
  type(u"abc", 1);
  EXPECT_EQ(history.UndoSteps(), 1u);
  type(u"abcd", 2);
  EXPECT_EQ(history.UndoSteps(), 2u);
  history.Undo();
  EXPECT_EQ(list.GetCaptionText(1), u"abc");
  // Taken back, it isn't joined any more.
  type(u"abcx", 1);
  EXPECT_EQ(history.UndoSteps(), 2u);
  EXPECT_EQ(history.RedoSteps(), 0u);
  history.Undo();
  history.Undo();
  EXPECT_EQ(list.GetCaptionText(1), u"one");
}

TEST_F(History, ASaveEndsWhatIsJoined) {
  const auto type = [&](TextView text) {
    const EditScope scope(list, EditKind::Typing, 1);
    list.SetCaptionText(1, text);
    list.SetModified();
  };
  type(u"a");
  modified = false;
  history.MarkSaved(true);
  type(u"ab");
  EXPECT_EQ(history.UndoSteps(), 2u);
  history.Undo();
  EXPECT_EQ(list.GetCaptionText(1), u"a");
  EXPECT_FALSE(modified);
}

TEST_F(History, ANewCommandDropsWhatCouldBeDoneAgain) {
  list.DeleteCaption(1);
  history.Undo();
  list.DeleteCaption(3);
  EXPECT_EQ(history.RedoSteps(), 0u);
  EXPECT_EQ(history.UndoSteps(), 1u);
}

TEST_F(History, ClearsTheModifiedFlagInTheSavedStateAlone) {
  list.SetCaptionEnd(1, 2500);
  list.SetCaptionEnd(1, 2600);
  EXPECT_TRUE(modified);
  history.Undo();
  EXPECT_TRUE(modified);
  history.Undo();
  EXPECT_FALSE(modified);
  history.Redo();
  EXPECT_TRUE(modified);
  modified = false;
  history.MarkSaved(true);
  history.Undo();
  EXPECT_TRUE(modified);
  history.Redo();
  EXPECT_FALSE(modified);
}

TEST_F(History, RaisesNoFlagForACommandThatRaisedNone) {
  list.SetCaptionText(1, u"x");
  EXPECT_FALSE(modified);
  history.Undo();
  EXPECT_FALSE(modified);
  history.Redo();
  EXPECT_FALSE(modified);
}

TEST_F(History, TheSavedStateIsOutOfReachOnceItsBranchIsGone) {
  list.SetCaptionEnd(1, 2500);
  history.MarkSaved(true);
  modified = false;
  history.Undo();
  EXPECT_TRUE(modified);
  list.SetCaptionEnd(1, 2700);
  history.Undo();
  EXPECT_TRUE(modified);
  history.Redo();
  EXPECT_TRUE(modified);
}

TEST_F(History, ANewDocumentHasNoSavedState) {
  history.Begin(DocumentBaseline::None);
  list.SetCaptionEnd(1, 2500);
  history.Undo();
  EXPECT_TRUE(modified);
}

TEST_F(History, KeepsNothingWithoutADocument) {
  history.End();
  list.DeleteCaption(1);
  EXPECT_EQ(history.UndoSteps(), 0u);
  history.Begin(DocumentBaseline::File);
  list.DeleteCaption(1);
  EXPECT_EQ(history.UndoSteps(), 1u);
}

TEST_F(History, BringsTheSeparatorBack) {
  const Connection follow =
      history.SeparatorRestored.ConnectScoped([&](const Text& separator) { options.lineSeparator = separator; });
  {
    const EditScope scope(list, EditKind::Separator);
    options.lineSeparator = u"/n";
  }
  EXPECT_EQ(history.UndoSteps(), 1u);
  history.Undo();
  EXPECT_EQ(options.lineSeparator, u"|");
  history.Redo();
  EXPECT_EQ(options.lineSeparator, u"/n");
}

TEST_F(History, WaitsWhileTheListIsDisabledOrACommandRuns) {
  list.DeleteCaption(1);
  list.SetEnabled(false);
  history.Undo();
  EXPECT_EQ(history.UndoSteps(), 1u);
  list.SetEnabled(true);
  {
    const EditScope scope(list, EditKind::Rules);
    history.Undo();
  }
  EXPECT_EQ(history.UndoSteps(), 1u);
}

TEST_F(History, GrowsWithWhatChangedAndNotWithTheDocument) {
  std::vector<Caption> captions(30000, Caption{1000, 2000, Text(200, u'x')});
  Open(captions);
  list.SetCaptionEnd(5, 3000);
  EXPECT_LT(history.Bytes(), 2000u);
  list.SetCaptionText(7, u"short");
  EXPECT_LT(history.Bytes(), 4000u);
  // A delay keeps times and no texts.
  {
    const EditScope scope(list, EditKind::Delay);
    for (Row row = 1; row < list.Rows(); ++row) {
      list.SetCaptionStart(row, 1500, false);
      list.SetCaptionEnd(row, 2500);
    }
  }
  EXPECT_LT(history.Bytes(), 30000u * sizeof(CaptionTimes) * 2 + 5000u);
  history.Undo();
  EXPECT_EQ(list.At(30000), captions.back());
}

TEST_F(History, TypingInOneGoKeepsTheTextBeforeItAlone) {
  for (int i = 0; i < 1000; ++i) {
    const EditScope scope(list, EditKind::Typing, 1);
    list.SetCaptionText(1, Text(static_cast<std::size_t>(i + 1), u'x'));
  }
  EXPECT_EQ(history.UndoSteps(), 1u);
  EXPECT_LT(history.Bytes(), 2000u);
}

/// A list that has somebody who fails in front of the history.
struct FailingListener : HistoryTest {
  static void Fail() { throw RuntimeError{5, u"no"}; }

  CaptionList failing{options, modified};
  Connection spliced = failing.Spliced.ConnectScoped([](const Splice&) { Fail(); });
  Connection began = failing.CommandBegan.ConnectScoped([](EditKind, std::uint64_t) { Fail(); });
  Connection ended = failing.CommandEnded.ConnectScoped([] { Fail(); });
  EditHistory its{failing, modified};

  FailingListener() { its.Begin(DocumentBaseline::File); }
  void Change() {
    const EditScope scope(failing, EditKind::Change);
    failing.Replace(failing.Rows(), 0, {{7000, 8000, u"four"}});
  }
};

TEST_F(FailingListener, AChangeThatOneFailsAtIsKeptByTheHistory) {
  began.Disconnect();
  ended.Disconnect();
  const Row rows = failing.Rows();
  EXPECT_THROW(Change(), RuntimeError);
  EXPECT_EQ(failing.Rows(), rows + 1);
  EXPECT_FALSE(failing.InCommand());
  EXPECT_EQ(its.UndoSteps(), 1u);
  EXPECT_THROW(its.Undo(), RuntimeError);
  EXPECT_EQ(failing.Rows(), rows);
  EXPECT_EQ(its.UndoSteps(), 0u);
  spliced.Disconnect();
  its.Redo();
  EXPECT_EQ(failing.At(rows), (Caption{7000, 8000, u"four"}));
  its.Undo();
  EXPECT_EQ(failing.Rows(), rows);
}

TEST_F(FailingListener, ACommandWhoseBeginningFailsIsNone) {
  spliced.Disconnect();
  ended.Disconnect();
  const Row rows = failing.Rows();
  EXPECT_THROW(Change(), RuntimeError);
  EXPECT_EQ(failing.Rows(), rows);
  EXPECT_FALSE(failing.InCommand());
  began.Disconnect();
  Change();
  EXPECT_EQ(its.UndoSteps(), 1u);
}

TEST_F(FailingListener, ACommandWhoseEndFailsIsAStep) {
  spliced.Disconnect();
  began.Disconnect();
  EXPECT_THROW(Change(), RuntimeError);
  EXPECT_FALSE(failing.InCommand());
  EXPECT_EQ(its.UndoSteps(), 1u);
}

TEST_F(FailingListener, AnExceptionOnItsWayIsNotReplaced) {
  spliced.Disconnect();
  began.Disconnect();
  const auto failInside = [&] {
    const EditScope scope(failing, EditKind::Change);
    throw std::logic_error("inside");
  };
  EXPECT_THROW(failInside(), std::logic_error);
  EXPECT_FALSE(failing.InCommand());
}

}  // namespace
}  // namespace cuewright
