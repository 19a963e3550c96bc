#include "ui/program_windows.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSet>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "tests/support/program_fixture.h"
#include "ui/elided_label.h"
#include "ui/qt_text.h"
#include "ui/start_view.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

constexpr int kTextColumn = static_cast<int>(ListColumn::Words);

/// The main window on the toolkit, with a player of the test's own.
struct WindowTest : ProgramFixture {
  WindowTest() {
    LoadIcons();
    auto* surface = new QWidget;
    surface->setObjectName("WMP");
    view = MakeMainWindow(*program, surface);
    view->ShowStarted({1000, 700, false});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    view->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
  }
  ~WindowTest() override {
    view.reset();
    program.reset();
  }

  template <class Widget>
  Widget* Find(const char* name) {
    auto* found = view->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QTableView* Table() { return Find<QTableView>("grdSubs"); }
  void Timed(int captions) {
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", captions));
    Play(folder.Write("film.mkv", "x"));
    Table()->setFocus();
  }
  void At(double seconds) {
    player.position = seconds;
    program->capture.SamplePosition();
  }

  std::unique_ptr<MainWindowView> view;
};

using MainWindowSmoke = WindowTest;
using MainWindowKeys = WindowTest;
using MainWindowMouse = WindowTest;
using MainWindowList = WindowTest;

TEST_F(MainWindowSmoke, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  QSet<QString> widgets;
  for (const QObject* object : view->findChildren<QObject*>()) widgets << object->objectName();
  for (const Control* control : program->window.Controls()) {
    EXPECT_TRUE(widgets.contains(QString::fromStdString(control->Name()))) << control->Name();
  }
  // What isn't a control: the list, the picture, the overlay, the bar of menu items, and the parts that the toolkit
  // names itself.
  const QSet<QString> others = {"grdSubs", "WMP", "frmSub", "mnuRclick", "tlbMain"};
  for (const QWidget* widget : view->findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    if (name.isEmpty() || name.startsWith("qt_") || name.endsWith("Menu") || others.contains(name)) continue;
    EXPECT_NE(program->window.Find(name.toStdString()), nullptr) << name.toStdString();
  }
}

TEST_F(MainWindowSmoke, EveryControlThatAPersonUsesHasAnAccessibleName) {
  for (QWidget* widget : view->findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().isEmpty() ||
        widget->objectName().startsWith("qt_") || widget->objectName() == "WMP") {
      continue;
    }
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
  }
}

TEST_F(MainWindowSmoke, TheMenusStandInTheirOrder) {
  QStringList titles;
  for (const QAction* action : view->menuBar()->actions()) titles << action->text();
  EXPECT_EQ(titles, (QStringList{"&File", "&Edit", "F&ormat", "&View", "F&ilm", "&Tools", "&Settings", "&Help"}));
  EXPECT_FALSE(view->findChild<QAction*>("mnuSave")->isEnabled());
}

TEST_F(MainWindowSmoke, F10OpensTheFirstMenu) {
  view->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
  QTest::keyClick(view.get(), Qt::Key_F10);
  const QAction* first = view->menuBar()->actions().front();
  ASSERT_TRUE(QTest::qWaitFor([&] { return first->menu()->isVisible(); }));
  EXPECT_EQ(view->menuBar()->activeAction(), first);
  first->menu()->close();
}

TEST_F(MainWindowSmoke, LabelsAndButtonsFollowTheForm) {
  program->window.lblTextFile.SetText(u"changed");
  EXPECT_EQ(Find<QLabel>("lblTextFile")->text(), "changed");
  program->window.cmdApply.SetUnderlined(true);
  EXPECT_TRUE(Find<QAbstractButton>("cmdApply")->font().underline());
  program->window.cmdCancel.SetVisible(true);
  EXPECT_TRUE(Find<QAbstractButton>("cmdCancel")->isVisible());
}

TEST_F(MainWindowList, ShowsTheRowsAsTheyAreStoredInTheClassicManner) {
  program->options.manner.SetClassic(true);
  Timed(30);
  auto* model = Table()->model();
  EXPECT_EQ(model->rowCount(), 30);
  EXPECT_EQ(model->columnCount(), 4);
  EXPECT_EQ(model->index(1, 0).data().toString(), "2");
  EXPECT_EQ(model->index(1, 1).data().toString(), "2100");
  EXPECT_EQ(model->index(1, 2).data().toString(), "2900");
  EXPECT_EQ(model->headerData(3, Qt::Horizontal).toString(), "Text");
  List().ToggleMarker(2, u"<b>");
  EXPECT_TRUE(model->index(1, 3).data(Qt::BackgroundRole).isValid());
  EXPECT_FALSE(model->index(2, 3).data(Qt::BackgroundRole).isValid());
}

TEST_F(MainWindowList, ShowsTimesThatAreNotTakenYetInAnotherColour) {
  Timed(3);
  auto* model = Table()->model();
  program->retime.Show();
  program->retime.optFromHere.Click();
  program->retime.txtShift.SetText(u"10");
  program->retime.txtShift.NoteEdited();
  EXPECT_EQ(model->index(0, 1).data().toString(), "0:00:11.100");
  EXPECT_EQ(model->index(0, 2).data().toString(), "0:00:11.900");
  EXPECT_TRUE(model->index(0, 1).data(Qt::ForegroundRole).isValid());
  EXPECT_FALSE(model->index(0, kTextColumn).data(Qt::ForegroundRole).isValid());
  program->retime.Close();
  EXPECT_EQ(model->index(0, 1).data().toString(), "0:00:01.100");
  EXPECT_FALSE(model->index(0, 1).data(Qt::ForegroundRole).isValid());
}

TEST_F(MainWindowKeys, CaptionsAreShapedFromThePane) {
  Timed(4);
  List().SetRow(2, false);
  auto* pane = Find<QPlainTextEdit>("txtSub");
  pane->setFocus();
  QTest::keyClick(pane, Qt::Key_End);
  QTest::keyClick(pane, Qt::Key_Left);
  QTest::keyClick(pane, Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(List().GetCaptionText(2), u"line");
  EXPECT_EQ(List().GetCaptionText(3), u"2");
  QTest::keyClick(pane, Qt::Key_J, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(List().GetCaptionText(2), u"line|2");
  QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(List().GetCaptionText(2), u"line 2");
  EXPECT_EQ(pane->toPlainText(), "line 2");
  QTest::keyClick(pane, Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(List().GetCaptionEnd(2), 3100);
  QTest::keyClick(pane, Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(List().GetCaptionText(3), u"line 2");
  QTest::keyClick(pane, Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(List().GetCaptionText(4), u"line 2");
}

TEST_F(MainWindowKeys, ANewCaptionIsTypedInThePaneAtOnce) {
  Timed(4);
  List().SetRow(2, false);
  QTest::keyClick(Table(), Qt::Key_Insert, Qt::AltModifier);
  auto* pane = Find<QPlainTextEdit>("txtSub");
  EXPECT_TRUE(pane->hasFocus());
  QTest::keyClicks(pane, "new");
  EXPECT_EQ(List().GetCaptionText(3), u"new");
  QTest::keyClick(pane, Qt::Key_Insert, Qt::AltModifier | Qt::ShiftModifier);
  EXPECT_EQ(List().GetCaptionText(4), u"new");
  EXPECT_EQ(List().Selected(), 3);
}

TEST_F(MainWindowKeys, TheClassicMannerHasNoneOfThem) {
  program->options.manner.SetClassic(true);
  program->shaping.ShowItems();
  Timed(4);
  for (const Qt::Key key : {Qt::Key_D, Qt::Key_L}) QTest::keyClick(Table(), key, Qt::ControlModifier);
  for (const Qt::Key key : {Qt::Key_J, Qt::Key_K, Qt::Key_T}) {
    QTest::keyClick(Table(), key, Qt::ControlModifier | Qt::ShiftModifier);
  }
  EXPECT_EQ(List().Rows(), 5);
  EXPECT_EQ(List().GetCaptionEnd(1), 1900);
  EXPECT_FALSE(program->retime.Loaded());
}

TEST_F(MainWindowList, RowsComeAndGoWithTheList) {
  Timed(5);
  List().AddCaption(1, 2, u"new", 1);
  EXPECT_EQ(Table()->model()->rowCount(), 6);
  EXPECT_EQ(Table()->model()->index(0, kTextColumn).data().toString(), "new");
  List().DeleteCaption(1);
  List().DeleteCaption(1);
  EXPECT_EQ(Table()->model()->rowCount(), 4);
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.Close();
  EXPECT_EQ(Table()->model()->columnCount(), 1);
  EXPECT_EQ(Table()->model()->index(0, 0).data().toString(), "No text or subtitle file loaded.");
}

TEST_F(MainWindowList, ArrowKeysMoveTheSelection) {
  Timed(5);
  QTest::keyClick(Table(), Qt::Key_Down);
  EXPECT_EQ(List().Selected(), 2);
  EXPECT_EQ(program->window.txtSub.GetText(), u"line 2");
  QTest::keyClick(Table(), Qt::Key_Delete);
  EXPECT_EQ(List().Rows(), 5);
}

TEST_F(MainWindowList, TheSelectedRowStaysInViewDuringCaptioning) {
  Timed(200);
  for (int row = 1; row < 60; ++row) {
    At(row);
    QTest::keyPress(Table(), Qt::Key_B);
    At(row + 0.5);
    QTest::keyRelease(Table(), Qt::Key_B);
  }
  EXPECT_EQ(List().Selected(), 60);
  const QRect row = Table()->visualRect(Table()->model()->index(59, 0));
  EXPECT_TRUE(Table()->viewport()->rect().contains(row.center()));
}

TEST_F(MainWindowKeys, AShortcutKeyHoldsAndItsReleaseEnds) {
  Timed(3);
  At(10);
  QTest::keyPress(Table(), Qt::Key_B);
  EXPECT_TRUE(program->capture.Capturing());
  At(11);
  QTest::keyRelease(Table(), Qt::Key_B);
  EXPECT_EQ(List().At(1), (Caption{10000, 11000, u"line 1"}));
}

TEST_F(MainWindowKeys, AKeyPressedInAnOpenMenuIsTheMenus) {
  Timed(3);
  At(10);
  view->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
  QTest::keyClick(view.get(), Qt::Key_F10);
  QMenu* menu = view->menuBar()->actions().front()->menu();
  ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
  // The menu hands a key that none of its items has to the bar.
  QTest::keyPress(menu, Qt::Key_B);
  EXPECT_FALSE(program->capture.Capturing());
  menu->close();
}

TEST_F(MainWindowKeys, AKeyTypedInTheTextPaneGoesIntoTheText) {
  Timed(3);
  auto* pane = Find<QPlainTextEdit>("txtSub");
  pane->setFocus();
  pane->moveCursor(QTextCursor::End);
  QTest::keyClick(pane, Qt::Key_B);
  EXPECT_FALSE(program->capture.Capturing());
  EXPECT_EQ(List().GetCaptionText(1), u"line 1b");
  QTest::keyClick(pane, Qt::Key_Return);
  EXPECT_EQ(List().GetCaptionText(1), u"line 1b");
  QTest::keyClick(pane, Qt::Key_X);
  EXPECT_EQ(List().GetCaptionText(1), u"line 1b|x");
}

TEST_F(MainWindowKeys, TheTimeBoxTakesDigitsAndStepsOverTheSeparators) {
  Timed(3);
  auto* box = Find<QLineEdit>("txtTime(0)");
  box->setFocus();
  QTest::keyClick(box, Qt::Key_Home);
  for (const char digit : {'0', '1', '0', '2', '0', '3', '4', '5', '6'}) QTest::keyClick(box, digit);
  EXPECT_EQ(box->text(), "01:02:03,456");
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(List().GetCaptionStart(1), 3723456);
}

TEST_F(MainWindowKeys, ALetterOfAnotherScriptActsByItsKey) {
  Timed(3);
  // The key B of a Russian layout: its own letter, the key's number as both window systems tell it.
  QKeyEvent down(QEvent::KeyPress, 0x0418, Qt::NoModifier, 49 + 7, 0, 0, QString(QChar(0x0438)));
  QApplication::sendEvent(Table(), &down);
  EXPECT_TRUE(program->capture.Capturing());
}

TEST_F(MainWindowMouse, ApplyIsHeldByTheLeftButton) {
  Timed(3);
  auto* apply = Find<QAbstractButton>("cmdApply");
  ASSERT_TRUE(apply->isEnabled());
  At(20);
  QTest::mousePress(apply, Qt::LeftButton);
  At(21);
  QTest::mouseRelease(apply, Qt::LeftButton);
  EXPECT_EQ(List().At(1), (Caption{20000, 21000, u"line 1"}));
}

TEST_F(MainWindowMouse, AReleaseReachesAButtonThatAPauseHasDisabled) {
  Timed(3);
  auto* apply = Find<QAbstractButton>("cmdApply");
  At(20);
  QTest::mousePress(apply, Qt::LeftButton);
  player.position = 22;
  player.Pause();
  ASSERT_FALSE(apply->isEnabled());
  QTest::mouseRelease(apply, Qt::LeftButton);
  EXPECT_EQ(List().At(1), (Caption{20000, 22000, u"line 1"}));
  EXPECT_FALSE(program->capture.Capturing());
}

/// Space on what has the focus; what it sets going has ended then.
void PressSpace(QWidget& window) {
  QWidget* holder = window.focusWidget();
  QTest::keyClick(holder != nullptr ? holder : &window, Qt::Key_Space);
  QCoreApplication::processEvents();
}

TEST_F(MainWindowKeys, SpaceGoesOnFromStartToNextToEndAndToStartAgain) {
  Timed(4);
  program->capture.SelectMode(CaptionMode::Manual);
  auto* apply = Find<QAbstractButton>("cmdApply");
  const auto hasFocus = [&] { return view->focusWidget()->objectName().toStdString(); };
  apply->setFocus();
  for (int round = 0; round < 2; ++round) {
    List().SetRow(1, true);
    const int base = 20 + 100 * round;
    At(base);
    PressSpace(*view);  // Start
    ASSERT_EQ(hasFocus(), "cmdNext");
    At(base + 1);
    PressSpace(*view);
    ASSERT_EQ(hasFocus(), "cmdNext") << "Next goes on with the caption behind it";
    At(base + 2);
    PressSpace(*view);
    ASSERT_EQ(hasFocus(), "cmdNext");
    At(base + 3);
    PressSpace(*view);
    ASSERT_EQ(hasFocus(), "cmdEnd") << "the last caption has no next one";
    At(base + 4);
    PressSpace(*view);
    ASSERT_EQ(hasFocus(), "cmdApply");
    const int ms = base * 1000;
    for (Row row = 1; row <= 4; ++row) {
      EXPECT_EQ(List().GetCaptionStart(row), ms + (row.Number() - 1) * 1000) << round;
      EXPECT_EQ(List().GetCaptionEnd(row), ms + row.Number() * 1000) << round;
    }
  }
}

TEST_F(MainWindowKeys, ApplyHasTheFocusAgainAfterAPauseAndAfterTheLimit) {
  Timed(4);
  auto* apply = Find<QAbstractButton>("cmdApply");
  apply->setFocus();
  player.Pause();
  QCoreApplication::processEvents();
  ASSERT_FALSE(apply->isEnabled());
  EXPECT_EQ(view->focusWidget(), nullptr) << "no other control gets what is meant for the button";
  player.Play();
  QCoreApplication::processEvents();
  EXPECT_EQ(view->focusWidget(), apply);
  program->options.applyWhen = 2;  // captions end by themselves
  for (const int second : {20, 40}) {
    At(second);
    const Row row = List().Selected();
    PressSpace(*view);
    ASSERT_FALSE(apply->isEnabled());
    At(second + 15);
    program->window.tmrLimit.Pass();
    QCoreApplication::processEvents();
    EXPECT_EQ(List().GetCaptionStart(row), second * 1000);
    ASSERT_EQ(view->focusWidget(), apply);
  }
}

TEST_F(MainWindowKeys, AButtonThatIsEnabledAgainTakesNoFocusFromWhatTheUserChoseMeanwhile) {
  Timed(4);
  Find<QAbstractButton>("cmdApply")->setFocus();
  player.Pause();
  QCoreApplication::processEvents();
  Table()->setFocus();
  player.Play();
  QCoreApplication::processEvents();
  EXPECT_EQ(view->focusWidget(), Table());
}

TEST_F(MainWindowMouse, AnOptionChangesTheMode) {
  Timed(3);
  QTest::mouseClick(Find<QAbstractButton>("optManual"), Qt::LeftButton, {}, QPoint(10, 8));
  EXPECT_EQ(program->capture.Mode(), CaptionMode::Manual);
  EXPECT_EQ(Find<QAbstractButton>("cmdApply")->text(), "Start");
  EXPECT_TRUE(Find<QAbstractButton>("optManual")->isChecked());
  EXPECT_FALSE(Find<QAbstractButton>("optPress")->isChecked());
}

TEST_F(MainWindowMouse, AClickInTheListSelectsTheRow) {
  Timed(5);
  QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {},
                    Table()->visualRect(Table()->model()->index(2, 1)).center());
  EXPECT_EQ(List().Selected(), 3);
}

using MainWindowAccess = WindowTest;

/// What a screen reader would do to a widget.
void Do(QWidget* widget, const QString& action) {
  QAccessible::queryAccessibleInterface(widget)->actionInterface()->doAction(action);
}

TEST_F(MainWindowAccess, RadioButtonsAreSuchAndChoose) {
  Timed(3);
  for (const char* name : {"optPress", "optManual", "optPreview"}) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(Find<QWidget>(name))->role(), QAccessible::RadioButton) << name;
  }
  Do(Find<QWidget>("optManual"), QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(program->capture.Mode(), CaptionMode::Manual);
  EXPECT_TRUE(Find<QAbstractButton>("optManual")->isChecked());
  EXPECT_FALSE(Find<QAbstractButton>("optPress")->isChecked());
  program->capture.SelectMode(CaptionMode::PressAndHold);
  EXPECT_FALSE(Find<QAbstractButton>("optManual")->isChecked());
  EXPECT_TRUE(Find<QAbstractButton>("optPress")->isChecked());
  // A press on the one that is chosen leaves it so.
  QTest::mouseClick(Find<QAbstractButton>("optPress"), Qt::LeftButton, {}, QPoint(10, 8));
  EXPECT_TRUE(Find<QAbstractButton>("optPress")->isChecked());
  EXPECT_EQ(program->capture.Mode(), CaptionMode::PressAndHold);
}

TEST_F(MainWindowAccess, ARowIsReadOutByItsFirstCellAndCanBeSelected) {
  Timed(5);
  program->grid.SetFindings(nullptr);
  QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(Table())->tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Name), "2, 2.1 to 2.9 seconds, line 2");
  EXPECT_EQ(table->cellAt(1, kTextColumn)->text(QAccessible::Name), "line 2");
  EXPECT_TRUE(table->selectRow(3));
  QCoreApplication::processEvents();
  EXPECT_EQ(List().Selected(), 4);
  EXPECT_EQ(table->selectedRows(), QList<int>{3});
  EXPECT_EQ(program->window.txtSub.GetText(), u"line 4");
}

TEST_F(MainWindowAccess, TheMenuKeyAndShiftF10OpenTheMenuOfTheList) {
  Timed(300);
  auto* menu = view->findChild<QMenu*>("mnuRclick");
  const auto expectMenu = [&] {
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
    EXPECT_TRUE(Table()->viewport()->rect().contains(Table()->viewport()->mapFromGlobal(menu->pos())));
    menu->close();
  };
  List().SetRow(250, false);  // out of view
  QTest::keyClick(Table(), Qt::Key_F10, Qt::ShiftModifier);
  expectMenu();
  EXPECT_EQ(List().Selected(), 250);
  QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(0, 0), Table()->mapToGlobal(QPoint(0, 0)));
  QCoreApplication::sendEvent(Table(), &byKey);
  expectMenu();
  EXPECT_EQ(List().Selected(), 250);
}

TEST_F(MainWindowAccess, EveryItemOfAMenuHasALetterOfItsOwn) {
  Timed(3);
  std::function<void(QMenu*)> look = [&](QMenu* menu) {
    QMetaObject::invokeMethod(menu, "aboutToShow");
    QSet<QString> letters;
    for (const QAction* action : menu->actions()) {
      if (action->isSeparator() || !action->isVisible()) continue;
      const QString letter = QKeySequence::mnemonic(action->text()).toString();
      EXPECT_FALSE(letter.isEmpty()) << action->text().toStdString();
      EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
      letters << letter;
      if (action->menu() != nullptr) look(action->menu());
    }
  };
  for (const QAction* top : view->menuBar()->actions()) look(top->menu());
  look(view->findChild<QMenu*>("mnuRclick"));
}

TEST_F(MainWindowAccess, WithoutADocumentTheFocusIsNotOnTheDivider) {
  const QWidget* divider = Find<QWidget>("imgSize");
  ASSERT_NE(view->focusWidget(), nullptr);
  EXPECT_NE(view->focusWidget(), divider);
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(view->focusWidget())->text(QAccessible::Name).isEmpty());
  Timed(3);
  EXPECT_EQ(view->focusWidget(), Table());
  program->session.CloseDocuments();
  EXPECT_NE(view->focusWidget(), divider);
}

TEST_F(MainWindowSmoke, ALongNameIsShortenedInItsMiddle) {
  const QString path = "/home/user/" + QString(300, 'x') + "/end.srt";
  program->window.lblTextFile.SetText(FromQt(path));
  const auto* label = static_cast<const ElidedLabel*>(Find<QLabel>("lblTextFile"));
  EXPECT_EQ(label->text(), path);
  EXPECT_TRUE(label->ShownText().startsWith("/home/user/"));
  EXPECT_TRUE(label->ShownText().endsWith("/end.srt"));
  EXPECT_TRUE(label->ShownText().contains(QChar(0x2026)));
  EXPECT_LE(label->fontMetrics().horizontalAdvance(label->ShownText()), label->width());
  EXPECT_EQ(view->width(), 1000);
}

TEST_F(MainWindowSmoke, ALongNameDoesNotStretchTheMenu) {
  program->documentFiles.OpenSubtitleFile(SubRip("begin " + std::string(200, 'x') + " end.srt", 2));
  QMenu* file = view->menuBar()->actions().front()->menu();
  QMetaObject::invokeMethod(file, "aboutToShow");
  const QString shown = view->findChild<QAction*>("mnuTFileName")->text().remove('&');
  EXPECT_TRUE(shown.startsWith("/.../begin xxx")) << shown.toStdString();
  EXPECT_TRUE(shown.endsWith("xxx end.srt")) << shown.toStdString();
  EXPECT_TRUE(shown.contains(QChar(0x2026)));
  EXPECT_LE(shown.size(), 61);
}

TEST_F(MainWindowSmoke, TheTitleShowsEverySignOfAName) {
  program->documentFiles.OpenSubtitleFile(SubRip("a[*]b.srt", 3));
  EXPECT_TRUE(view->windowTitle().startsWith("a[*][*]b.srt - "));  // the toolkit's way to write that sign
}

TEST_F(MainWindowMouse, EveryVisibleRowCanBeClickedAndDoubleClicked) {
  Timed(300);
  program->grid.SetTopRow(100);
  QWidget* viewport = Table()->viewport();
  const int rowHeight = Table()->verticalHeader()->defaultSectionSize();
  // The lowest row may stand there in part.
  for (int y = rowHeight / 2; y < viewport->height(); y += rowHeight) {
    const QPoint at(40, y);
    const Row row = Table()->indexAt(at).row() + 1;
    ASSERT_GT(row, 0);
    player.position = 0;
    QTest::mouseClick(viewport, Qt::LeftButton, {}, at);
    EXPECT_EQ(List().Selected(), row);
    EXPECT_EQ(program->grid.TopRow(), 100) << "after a click on row " << row;
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, at);
    EXPECT_EQ(List().Selected(), row);
    EXPECT_NEAR(player.position, List().GetCaptionStart(row).Seconds(), 0.2) << "of row " << row;
    EXPECT_EQ(program->grid.TopRow(), 100) << "after a double click on row " << row;
  }
}

TEST_F(MainWindowMouse, LosingTheFocusEndsAHold) {
  Timed(3);
  At(10);
  QTest::keyPress(Table(), Qt::Key_B);
  At(10.7);
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_EQ(List().At(1), (Caption{10000, 10700, u"line 1"}));
}

TEST_F(MainWindowSmoke, TheMissingPlayerScreenBindsEveryControl) {
  view.reset();
  Restart({}, u"libmpv.so.2");
  StartView screen(program->start);
  screen.show();
  for (const Control* control : program->start.Controls()) {
    EXPECT_NE(screen.findChild<QWidget*>(QString::fromStdString(control->Name())), nullptr) << control->Name();
  }
  EXPECT_EQ(screen.findChild<QLabel*>("lblFile")->text(), "libmpv.so.2");
  bool ignored = false;
  program->start.cmdIgnore.Clicked.Connect([&] { ignored = true; });
  bool left = false;
  program->start.cmdExit.Clicked.Connect([&] { left = true; });
  QTest::mouseClick(screen.findChild<QAbstractButton*>("cmdIgnore"), Qt::LeftButton);
  EXPECT_TRUE(ignored);
  screen.close();
  EXPECT_FALSE(left);
  // Its close button is the way out.
  StartView another(program->start);
  another.show();
  another.close();
  EXPECT_TRUE(left);
}

TEST_F(MainWindowKeys, UndoAndRedoReachTheHistoryAlsoFromTheTextPane) {
  Timed(5);
  auto* pane = Find<QPlainTextEdit>("txtSub");
  pane->setFocus();
  pane->moveCursor(QTextCursor::End);
  QTest::keyClicks(pane, "abc");
  EXPECT_EQ(List().GetCaptionText(1), u"line 1abc");
  QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(List().GetCaptionText(1), u"line 1");
  EXPECT_EQ(pane->toPlainText(), "line 1");
  QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(List().GetCaptionText(1), u"line 1abc");
  QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClick(pane, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(List().GetCaptionText(1), u"line 1abc");
}

TEST_F(MainWindowKeys, UndoReachesTheHistoryFromATimeBoxAndFromTheList) {
  Timed(5);
  Table()->setFocus();
  QTest::keyClick(Table(), Qt::Key_Delete);
  EXPECT_EQ(List().Rows(), 5);
  auto* box = Find<QLineEdit>("txtTime(0)");
  box->setFocus();
  QTest::keyClicks(box, "11");
  QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(List().Rows(), 6);
  Table()->setFocus();
  QTest::keyClick(Table(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(List().Rows(), 5);
}

TEST_F(MainWindowList, ShowsWhatItMissedWhileItWasDisabledAndKeepsItsPlace) {
  Timed(300);
  program->grid.SetTopRow(100);
  const auto* model = Table()->model();
  List().SetEnabled(false);
  List().DeleteCaption(150);
  List().SetCaptionText(1, u"changed meanwhile");
  EXPECT_EQ(model->rowCount(), 300);
  List().SetEnabled(true);
  EXPECT_EQ(model->rowCount(), 299);
  EXPECT_EQ(model->index(0, kTextColumn).data().toString(), "changed meanwhile");
  EXPECT_EQ(program->grid.TopRow(), 100);
  EXPECT_EQ(Table()->verticalScrollBar()->value(), 99);
}

}  // namespace
}  // namespace cuewright
