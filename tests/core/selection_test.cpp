#include "core/selection.h"

#include <gtest/gtest.h>

#include "core/edit_history.h"
#include "tests/support/printers.h"

namespace cuewright {
namespace {

using Rows = std::vector<Row>;

struct SelectionTest : ::testing::Test {
  SelectionTest() {
    std::vector<Caption> captions;
    for (int i = 1; i <= 9; ++i) captions.push_back({i * 1000, i * 1000 + 900, Decimal(i)});
    list.Replace(1, 1, std::move(captions));
    list.SetRow(1, false);
    history.Begin(DocumentBaseline::File);
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  EditHistory history{list, modified};
  Selection selection{list};
};

using RowsOfTheHand = SelectionTest;

TEST_F(RowsOfTheHand, AreOneStretchOrOneMore) {
  selection.Only(3);
  EXPECT_EQ(selection.Rows(), Rows{3});
  selection.ExtendTo(6);
  EXPECT_EQ(selection.Rows(), (Rows{3, 4, 5, 6}));
  EXPECT_EQ(selection.Current(), 6);
  // The stretch is drawn anew from where it began.
  selection.ExtendTo(2);
  EXPECT_EQ(selection.Rows(), (Rows{2, 3}));
  selection.Toggle(8);
  EXPECT_EQ(selection.Rows(), (Rows{2, 3, 8}));
  selection.AddTo(6);
  EXPECT_EQ(selection.Rows(), (Rows{2, 3, 6, 7, 8}));
  selection.Toggle(7);
  EXPECT_EQ(selection.Rows(), (Rows{2, 3, 6, 8}));
  selection.Only(99);
  EXPECT_EQ(selection.Count(), 4);
  list.MoveSelection(7);
  EXPECT_EQ(selection.Rows(), Rows{7});
}

TEST_F(RowsOfTheHand, StayWhileTheCurrentRowMoves) {
  selection.All();
  EXPECT_EQ(selection.Count(), 9);
  EXPECT_EQ(selection.Current(), 1);
  selection.MoveCurrent(4);
  EXPECT_EQ(selection.Count(), 9);
  EXPECT_EQ(list.CurrentRow(), 4);
  // A row that is shown anew is no choice of it.
  list.SetRow(4, false);
  EXPECT_EQ(selection.Count(), 9);
  list.SetRow(5, false);
  EXPECT_EQ(selection.Rows(), Rows{5});
  selection.Toggle(5);
  EXPECT_EQ(selection.Rows(), Rows{5}) << "there is always one";
}

TEST_F(RowsOfTheHand, GoWithTheirCaptions) {
  selection.Only(4);
  selection.ExtendTo(6);
  list.AddCaption(0, 0, u"new", 2);
  EXPECT_EQ(selection.Rows(), (Rows{5, 6, 7}));
  list.Replace(1, 5, {});
  EXPECT_EQ(selection.Rows(), (Rows{1, 2}));
  list.Reset();
  EXPECT_EQ(selection.Rows(), Rows{1});
}

TEST_F(RowsOfTheHand, ComeBackWithUndo) {
  selection.Only(2);
  selection.ExtendTo(4);
  {
    const EditScope scope(list, EditKind::Remove);
    list.Replace(2, 3, {});
    list.SetRow(2, false);
  }
  EXPECT_EQ(selection.Rows(), Rows{2});
  list.SetRow(5, false);
  history.Undo();
  EXPECT_EQ(selection.Rows(), (Rows{2, 3, 4}));
  EXPECT_EQ(selection.Current(), 4);
  history.Redo();
  EXPECT_EQ(selection.Rows(), Rows{2});
}

TEST_F(RowsOfTheHand, AreOneAtATimeInTheClassicManner) {
  options.manner.SetClassic(true);
  selection.Only(3);
  selection.ExtendTo(6);
  EXPECT_EQ(selection.Rows(), Rows{6});
  selection.Toggle(2);
  EXPECT_EQ(selection.Rows(), Rows{2});
  selection.All();
  EXPECT_EQ(selection.Rows(), Rows{2});
}

}  // namespace
}  // namespace cuewright
