#include "ui/caption_table.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHeaderView>
#include <QImage>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <map>

#include "tests/support/program_fixture.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

using Rows = std::vector<Row>;

/// Findings of the test's own.
class SomeFindings final : public RowFindings {
 public:
  bool Any(Row row) const override { return reasons.contains(row); }
  Text Reasons(Row row) const override { return reasons.at(row); }

  std::map<Row, Text> reasons;
};

struct TableTest : testing::ProgramFixture {
  TableTest() {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 200));
    table = std::make_unique<CaptionTable>(program->list, program->grid, program->commands, menu, nullptr);
    table->resize(700, 400);
    table->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(table.get()));
    table->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(table.get()));
    table->setFocus();
    connections.push_back(table->Columns().Arranged.ConnectScoped(
        [this](const ColumnOrder& columns) { program->listView.Arrange(columns); }));
  }
  ~TableTest() override { table.reset(); }

  void ClickRow(Row row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(table->viewport(), Qt::LeftButton, keys, Center(row));
  }
  QPoint Center(Row row) const {
    return table->visualRect(table->model()->index((row - 1).Number(), table->model()->columnCount() - 1)).center();
  }
  void Key(int key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(table.get(), Qt::Key(key), keys); }
  Rows Selected() const { return program->grid.selection.Rows(); }
  /// What the view paints as selected; it is what the list has.
  Rows Painted() const {
    Rows rows;
    for (const QModelIndex& index : table->selectionModel()->selectedRows()) rows.push_back(index.row() + 1);
    std::ranges::sort(rows);
    return rows;
  }
  QString Cell(Row row, ListColumn column) const {
    return table->model()->index((row - 1).Number(), static_cast<int>(column)).data().toString();
  }
  QImage Picture() const {
    QImage image(table->viewport()->size(), QImage::Format_RGB32);
    table->viewport()->render(&image);
    return image;
  }
  QImage PictureOf(Row row) const {
    const QRect first = table->visualRect(table->model()->index((row - 1).Number(), 0));
    return Picture().copy(0, first.top(), table->viewport()->width(), first.height());
  }

  QMenu menu;
  std::unique_ptr<CaptionTable> table;
  std::vector<Connection> connections;
};

using ListHand = TableTest;
using ListLooks = TableTest;

TEST_F(ListHand, TheMouseTakesOneAStretchAndOneMore) {
  ClickRow(2);
  EXPECT_EQ(Painted(), Rows{2});
  ClickRow(5, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), (Rows{2, 3, 4, 5}));
  EXPECT_EQ(Painted(), Selected());
  ClickRow(3, Qt::ControlModifier);
  EXPECT_EQ(Painted(), (Rows{2, 4, 5}));
  EXPECT_EQ(List().Selected(), 3);
  ClickRow(7, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Painted(), (Rows{2, 3, 4, 5, 6, 7}));
  ClickRow(4);
  EXPECT_EQ(Painted(), Rows{4});
  EXPECT_EQ(Window().txtSub.GetText(), u"line 4");
}

TEST_F(ListHand, ADragTakesWhatItPasses) {
  QTest::mousePress(table->viewport(), Qt::LeftButton, {}, Center(2));
  QMouseEvent move(QEvent::MouseMove, Center(6), table->viewport()->mapToGlobal(Center(6)), Qt::NoButton,
                   Qt::LeftButton, {});
  QCoreApplication::sendEvent(table->viewport(), &move);
  QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, Center(6));
  EXPECT_EQ(Painted(), (Rows{2, 3, 4, 5, 6}));
}

TEST_F(ListHand, TheKeysDoTheSame) {
  Key(Qt::Key_Down);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Painted(), (Rows{2, 3, 4}));
  Key(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Painted(), (Rows{2, 3}));
  Key(Qt::Key_Down, Qt::ControlModifier);
  Key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(Painted(), (Rows{2, 3}));
  EXPECT_EQ(List().Selected(), 5);
  Key(Qt::Key_Space, Qt::ControlModifier);
  EXPECT_EQ(Painted(), (Rows{2, 3, 5}));
  Key(Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(program->grid.selection.Count(), 196);
  EXPECT_EQ(List().Selected(), 200);
  EXPECT_TRUE(table->viewport()->rect().contains(Center(200))) << "the row is in view";
  Key(Qt::Key_Home);
  EXPECT_EQ(Painted(), Rows{1});
  Key(Qt::Key_PageDown, Qt::ShiftModifier);
  EXPECT_GT(Painted().size(), 5u);
  Key(Qt::Key_Up);
  EXPECT_EQ(Painted().size(), 1u);
}

TEST_F(ListHand, WhatCommandsSelectIsPainted) {
  ClickRow(2);
  ClickRow(4, Qt::ShiftModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ(List().Rows(), 198);
  EXPECT_EQ(Painted(), Rows{2});
  Window().mnuUndo.Click();
  EXPECT_EQ(Painted(), (Rows{2, 3, 4}));
  Window().mnuSelectAll.Click();
  EXPECT_EQ(Painted().size(), 200u);
}

TEST_F(ListHand, TakesOneRowInTheClassicManner) {
  program->options.manner.SetClassic(true);
  program->grid.ShowAnew();
  ClickRow(2);
  ClickRow(5, Qt::ShiftModifier);
  EXPECT_EQ(Painted(), Rows{5});
  EXPECT_EQ(table->model()->columnCount(), 4);
  EXPECT_TRUE(table->showGrid());
}

TEST_F(ListLooks, SaysWhatIsAskedOfCaptions) {
  EXPECT_EQ(table->model()->columnCount(), 7);
  EXPECT_EQ(table->model()->headerData(4, Qt::Horizontal).toString(), "Gap");
  EXPECT_EQ(Cell(2, ListColumn::Start), "0:00:02.100");
  EXPECT_EQ(Cell(2, ListColumn::Duration), "0.800");
  EXPECT_EQ(Cell(2, ListColumn::Gap), "0.200");
  EXPECT_EQ(Cell(2, ListColumn::Speed), "7.5");
  Window().mnuListTime[1].Click();
  EXPECT_EQ(Cell(2, ListColumn::Start), "2100");
  EXPECT_TRUE(Window().mnuListTime[1].Checked());
  EXPECT_FALSE(table->showGrid());
}

TEST_F(ListLooks, TheColumnsAreAsTheUserArrangesThem) {
  QHeaderView& header = *table->horizontalHeader();
  Window().mnuListColumn[3].Click();
  EXPECT_TRUE(header.isSectionHidden(4));
  EXPECT_FALSE(Window().mnuListColumn[3].Checked());
  header.moveSection(header.visualIndex(5), 1);
  header.resizeSection(1, 123);
  EXPECT_EQ(program->options.listColumns, u"number,speed,start:123,end,duration,-gap,text");
  const int own = table->columnWidth(2);
  emit header.sectionHandleDoubleClicked(1);
  EXPECT_EQ(table->columnWidth(1), own);
  Window().mnuListColumn[3].Click();
  EXPECT_FALSE(header.isSectionHidden(4));
  // The text takes what the others leave.
  int all = 0;
  for (int section = 0; section < header.count(); ++section) all += header.sectionSize(section);
  EXPECT_EQ(all, table->viewport()->width());
}

TEST_F(ListLooks, ANarrowListKeepsRoomForTheText) {
  const QHeaderView& header = *table->horizontalHeader();
  const Text arranged = program->options.listColumns;
  const auto shown = [&](ListColumn column) { return !header.isSectionHidden(static_cast<int>(column)); };
  for (const auto& [width, gap, duration, speed, end] :
       std::initializer_list<std::tuple<int, bool, bool, bool, bool>>{{900, true, true, true, true},
                                                                      {640, false, true, true, true},
                                                                      {340, false, false, false, false},
                                                                      {900, true, true, true, true}}) {
    table->resize(width, 300);
    // A window manager may answer late, an earlier size in between.
    EXPECT_TRUE(QTest::qWaitFor([&] { return table->width() == width && shown(ListColumn::End) == end; })) << width;
    EXPECT_EQ(shown(ListColumn::Gap), gap) << width;
    EXPECT_EQ(shown(ListColumn::Duration), duration) << width;
    EXPECT_EQ(shown(ListColumn::Speed), speed) << width;
    EXPECT_EQ(shown(ListColumn::End), end) << width;
    EXPECT_TRUE(shown(ListColumn::Number) && shown(ListColumn::Start) && shown(ListColumn::Words)) << width;
    const int letters = width > 400 ? 28 : 18;
    EXPECT_GE(header.sectionSize(static_cast<int>(ListColumn::Words)),
              letters * table->fontMetrics().averageCharWidth())
        << width;
  }
  EXPECT_EQ(program->options.listColumns, arranged) << "what the user chose stays";
}

TEST_F(ListLooks, TheFirstColumnIsAsWideAsTheNumbersNeed) {
  const QHeaderView& header = *table->horizontalHeader();
  const auto width = [&] { return header.sectionSize(static_cast<int>(ListColumn::Number)); };
  const int usual = width();
  for (int i = List().Count(); i < 1001; ++i) List().AddCaption(0, 0, u"more", List().Rows());
  program->grid.ShowAnew();
  EXPECT_TRUE(QTest::qWaitFor([&] { return width() > usual; })) << usual;
}

TEST_F(ListLooks, FindingsAreSeenAndToldAndRead) {
  SomeFindings findings;
  program->grid.SetFindings(&findings);
  const QImage before = PictureOf(3);
  findings.reasons[3] = u"24 characters a second, at most 17\nthe gap is too short";
  program->grid.ShowRowsAnew(3, 3);
  EXPECT_NE(PictureOf(3), before);
  const QModelIndex cell = table->model()->index(2, 6);
  EXPECT_TRUE(cell.data(Qt::ToolTipRole).toString().startsWith("24 characters"));
  EXPECT_TRUE(table->model()
                  ->index(2, 0)
                  .data(Qt::AccessibleTextRole)
                  .toString()
                  .endsWith("; found: 24 characters a second, at most 17, the gap is too short"));
  EXPECT_FALSE(table->model()->index(3, 6).data(Qt::ToolTipRole).isValid());
  findings.reasons.clear();
  program->grid.ShowRowsAnew(3, 3);
  EXPECT_EQ(PictureOf(3), before);
  program->grid.SetFindings(nullptr);
}

TEST_F(ListLooks, TheCaptionOfTheFilmIsMarked) {
  program->document.VideoPath = u"film";
  Window().tmrTime.SetEnabled(true);
  const QImage before = PictureOf(4);
  program->sample.SetPlayerPosMs(4500);
  Window().tmrTime.Pass();
  EXPECT_EQ(program->grid.FilmRow(), 4);
  EXPECT_NE(PictureOf(4), before);
  program->sample.SetPlayerPosMs(4950);
  Window().tmrTime.Pass();
  EXPECT_EQ(program->grid.FilmRow(), 0);
  EXPECT_EQ(PictureOf(4), before);
}

TEST_F(ListLooks, UntimedRowsAndStylesLookOtherwise) {
  const QImage plain = PictureOf(5);
  List().SetCaptionText(5, u"<i>line 5");
  EXPECT_NE(PictureOf(5), plain);
  EXPECT_EQ(Cell(5, ListColumn::Words), "line 5");
  List().SetCaptionText(5, u"line|5");
  EXPECT_EQ(Cell(5, ListColumn::Words), QString("line ") + QChar(0x21b5) + " 5");
  List().SetCaptionText(5, u"line 5");
  EXPECT_EQ(PictureOf(5), plain);
  List().ClearCaptionTiming(5, true);
  EXPECT_NE(PictureOf(5), plain);
}

}  // namespace
}  // namespace cuewright
