// What makes the main window at home on the desktop: drops, the divider, the columns, names for assistive programs.

#include <gtest/gtest.h>

#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

#include "tests/support/program_fixture.h"
#include "ui/elided_label.h"
#include "ui/program_windows.h"
#include "ui/qt_text.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

struct HomeTest : testing::ProgramFixture {
  HomeTest() { Show(); }
  ~HomeTest() override {
    view.reset();
    program.reset();
  }
  void Show() {
    LoadIcons();
    auto* surface = new QWidget;
    surface->setObjectName("WMP");
    view = MakeMainWindow(*program, surface);
    view->ShowStarted({1000, 700, false});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
  }
  void ShowAgain() {
    view->close();
    view.reset();
    Restart({});
    Show();
  }
  void Drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.get(), &enter);
    accepted = enter.isAccepted();
    if (!accepted) return;
    QDropEvent drop({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view.get(), &drop);
    QCoreApplication::processEvents();
  }
  template <class Widget>
  Widget* Find(const char* name) {
    auto* found = view->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  int DividerAt() { return Find<QWidget>("imgSize")->x(); }

  std::unique_ptr<MainWindowView> view;
  bool accepted = false;
};

using Drops = HomeTest;
using Divider = HomeTest;
using Columns = HomeTest;
using Bars = HomeTest;
using Names = HomeTest;
using Strip = HomeTest;

TEST_F(Drops, AFileWithBlanksAndSignsInItsNameOpens) {
  const Text path = SubRip("a b%20c;$(d).srt", 2);
  Drop({QUrl::fromLocalFile(ToQt(path))});
  EXPECT_TRUE(accepted);
  EXPECT_EQ(program->document.SubtitlePath, path);
}

TEST_F(Drops, AnAddressOfTheWebIsRefused) {
  Drop({QUrl("https://example.org/a.srt")});
  EXPECT_FALSE(accepted);
  EXPECT_TRUE(program->document.SubtitlePath.empty());
}

TEST_F(Drops, TheTextPaneLeavesFilesToTheWindow) { EXPECT_FALSE(Find<QWidget>("txtSub")->acceptDrops()); }

TEST_F(Divider, TheArrowKeysMoveIt) {
  QWidget* divider = Find<QWidget>("imgSize");
  divider->setFocus();
  const int before = DividerAt();
  QTest::keyClick(divider, Qt::Key_Right);
  QTest::keyClick(divider, Qt::Key_Right);
  EXPECT_EQ(DividerAt(), before + 16);
  QTest::keyClick(divider, Qt::Key_Left);
  EXPECT_EQ(DividerAt(), before + 8);
  EXPECT_NE(divider->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(Divider, TheListHasTheKeyboardOnceThereIsADocument) {
  view->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  EXPECT_EQ(view->focusWidget(), Find<QTableView>("grdSubs"));
}

TEST_F(Divider, ComesBackInTheNextRun) {
  QWidget* divider = Find<QWidget>("imgSize");
  divider->setFocus();
  for (int i = 0; i < 5; ++i) QTest::keyClick(divider, Qt::Key_Right);
  const int moved = DividerAt();
  ShowAgain();
  EXPECT_EQ(DividerAt(), moved);
}

TEST_F(Columns, WhatTheUserDrewStaysWhenTheWindowChangesAndInTheNextRun) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  auto* table = Find<QTableView>("grdSubs");
  table->horizontalHeader()->resizeSection(1, 90);
  table->horizontalHeader()->moveSection(5, 1);
  view->resize(1000, 650);
  EXPECT_NEAR(table->columnWidth(1), 90, 1);
  ShowAgain();
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  table = Find<QTableView>("grdSubs");
  EXPECT_NEAR(table->columnWidth(1), 90, 1);
  EXPECT_EQ(table->horizontalHeader()->logicalIndex(1), 5);
}

TEST_F(Columns, KeepTheirShareInTheClassicManner) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  auto* table = Find<QTableView>("grdSubs");
  EXPECT_EQ(table->model()->columnCount(), 4);
  const int own = table->columnWidth(1);
  table->horizontalHeader()->resizeSection(1, 90);
  view->resize(1000, 650);
  EXPECT_NEAR(table->columnWidth(1), 90, 1);
  emit table->horizontalHeader()->sectionHandleDoubleClicked(1);
  EXPECT_EQ(table->columnWidth(1), own);
}

TEST_F(Columns, ADoubleClickOnAnEdgeGivesThemBack) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  auto* table = Find<QTableView>("grdSubs");
  const int own = table->columnWidth(1);
  table->horizontalHeader()->resizeSection(1, own + 40);
  EXPECT_NE(table->columnWidth(1), own);
  emit table->horizontalHeader()->sectionHandleDoubleClicked(1);
  EXPECT_EQ(table->columnWidth(1), own);
}

TEST_F(Bars, ComeAndGoByTheViewMenuAndLeaveTheirRoom) {
  auto* bar = Find<QToolBar>("tlbMain");
  ASSERT_TRUE(bar->isVisible());
  EXPECT_EQ(bar->accessibleName(), "Tool bar");
  const int list = Find<QWidget>("grdSubs")->height();
  Window().mnuToolBar.Click();
  EXPECT_FALSE(bar->isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QWidget>("grdSubs")->height() > list; }));
  Window().mnuToolBar.Click();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QWidget>("grdSubs")->height() == list; }));
}

TEST_F(Bars, TheToolBarsPicturesAreTheMenusItemsWithTheirKeys) {
  auto* bar = Find<QToolBar>("tlbMain");
  QStringList tips;
  for (const QAction* action : bar->actions()) {
    if (!action->isSeparator()) tips << action->toolTip();
  }
  EXPECT_EQ(
      tips.join("|").toStdString(),
      "Open text or subtitle (Ctrl+O)|Save (Ctrl+S)|Undo (Ctrl+Z)|Redo (Ctrl+Shift+Z)|Sound of the film in the Audio "
      "bar|Check subtitles (Shift+F8)|Retime (Ctrl+Shift+T)");
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Window().mnuRemove.Click();
  EXPECT_EQ(List().Rows(), 3);
  for (QAction* action : bar->actions()) {
    if (action->toolTip().startsWith("Undo")) action->trigger();
  }
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(Find<QLabel>("lblStatus")->text().section("     ", 0, 0), "3 captions");
}

TEST_F(Bars, TheButtonsThatTakeTimesNameTheirKeys) {
  EXPECT_EQ(Find<QWidget>("cmdApply")->accessibleDescription(), "B");
  EXPECT_EQ(Find<QWidget>("cmdNext")->accessibleDescription(), "N");
  EXPECT_EQ(Find<QWidget>("cmdEnd")->accessibleDescription(), "M");
  program->options.startKey = 'Q';
  QEvent front(QEvent::WindowActivate);
  QCoreApplication::sendEvent(Find<QWidget>("cmdApply"), &front);
  EXPECT_EQ(Find<QWidget>("cmdApply")->accessibleDescription(), "Q");
}

TEST_F(Names, AreInTheLanguageInForce) {
  EXPECT_EQ(Find<QWidget>("txtSub")->accessibleName(), "Text of the caption");
  program->messageCatalogue.AddBlock("908\tTexto\n909\tLista\n", 1);
  program->ChangeLanguage(1);
  EXPECT_EQ(Find<QWidget>("txtSub")->accessibleName(), "Texto");
  EXPECT_EQ(Find<QWidget>("grdSubs")->accessibleName(), "Lista");
}

TEST_F(Names, OfTheFilmsControlsAreTheirOwn) {
  const std::pair<const char*, const char*> wanted[] = {
      {"wmpPlay", "Play"}, {"wmpPause", "Pause"}, {"wmpStop", "Stop"}};
  for (const auto& [name, text] : wanted) (new QToolButton(Find<QWidget>("WMP")))->setObjectName(name);
  program->ChangeLanguage(0);
  for (const auto& [name, text] : wanted) EXPECT_EQ(Find<QWidget>(name)->accessibleName(), text);
}

TEST_F(Strip, ShowsAfterALoadAndGoesByItsButton) {
  EXPECT_FALSE(Find<QLabel>("lblNotice")->isVisible());
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  EXPECT_TRUE(Find<QLabel>("lblNotice")->isVisible());
  EXPECT_EQ(Find<QLabel>("lblNotice")->text(), "Read as SubRip, UTF-8");
  Find<QToolButton>("cmdNotice")->click();
  EXPECT_FALSE(Find<QLabel>("lblNotice")->isVisible());
}

TEST_F(Strip, OffersWhatTheRulesFoundAndTakesItBack) {
  program->documentFiles.OpenSubtitleFile(folder.Write("colliding.srt",
                                                       "1\r\n00:00:01,000 --> 00:00:03,000\r\nfirst one here\r\n\r\n"
                                                       "2\r\n00:00:02,500 --> 00:00:04,500\r\nsecond one\r\n\r\n"));
  EXPECT_TRUE(Find<QLabel>("lblNotice")->text().endsWith("1 finding"));
  EXPECT_TRUE(Find<QToolButton>("cmdShowFindings")->isVisible());
  EXPECT_FALSE(Find<QToolButton>("cmdUndoRules")->isVisible());
  Find<QToolButton>("cmdApplyFindings")->click();
  EXPECT_EQ(program->list.GetCaptionStart(2), 3000);
  EXPECT_FALSE(Find<QToolButton>("cmdApplyFindings")->isVisible());
  EXPECT_EQ(Find<QLabel>("lblNotice")->text(), "The rules changed 1 caption");
  Find<QToolButton>("cmdUndoRules")->click();
  EXPECT_EQ(program->list.GetCaptionStart(2), 2500);
  EXPECT_FALSE(Find<QLabel>("lblNotice")->isVisible());
}

TEST_F(Strip, ALongTextBesideAShortOneHasTheRoomThatIsLeft) {
  const auto wholly = [&](const char* name) {
    const auto* label = static_cast<ElidedLabel*>(Find<QLabel>(name));
    return label->ShownText() == label->text();
  };
  const QFontMetrics metrics = view->fontMetrics();
  // Both fit, but not into a half each.
  program->window.lblTextFile.SetText(u"Short");
  program->window.lblVideoFile.SetText(Text(600u / static_cast<unsigned>(metrics.horizontalAdvance(u'x')), u'x'));
  EXPECT_TRUE(QTest::qWaitFor([&] { return wholly("lblVideoFile") && wholly("lblTextFile"); }));
  // The longest path leaves the other one its name.
  program->window.lblVideoFile.SetText(Text(2000, u'x'));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !wholly("lblVideoFile") && wholly("lblTextFile"); }));
}

TEST_F(Strip, IsGoneWithTheInformationBar) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  program->window.mnuInfoBar.Click();
  EXPECT_FALSE(Find<QLabel>("lblNotice")->isVisible());
  program->window.mnuInfoBar.Click();
  EXPECT_TRUE(Find<QLabel>("lblNotice")->isVisible());
}

}  // namespace
}  // namespace cuewright
