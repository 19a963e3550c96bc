#include "ui/program_windows.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QSlider>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include "tests/support/program_fixture.h"
#include "ui/delay_view.h"
#include "ui/help_key.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

/// A plain window with the tool windows over it.
struct ToolWindowsTest : ProgramFixture {
  ToolWindowsTest() {
    LoadIcons();
    AddToolWindows(windows, *program);
    owner.resize(800, 600);
    owner.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&owner));
    program->options.applyWhen = 1;
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 10));
  }

  QWidget* Find(const char* name) { return owner.findChild<QWidget*>(name); }

  /// Shows a form's window and compares controls and widgets by name, both ways.
  QWidget* Shown(ToolForm& form) {
    form.Show();
    QWidget* view = Find(form.Name().c_str());
    EXPECT_NE(view, nullptr);
    if (view == nullptr) return nullptr;
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view));
    for (const Control* control : form.Controls()) {
      // A timer is no widget, but an object of the window with its name all the same.
      EXPECT_NE(view->findChild<QObject*>(QString::fromStdString(control->Name())), nullptr) << control->Name();
    }
    for (const QWidget* widget : view->findChildren<QWidget*>()) {
      const std::string name = widget->objectName().toStdString();
      if (name.empty() || name.starts_with("qt_")) continue;
      EXPECT_NE(form.Find(name), nullptr) << name;
    }
    for (QWidget* widget : view->findChildren<QWidget*>()) {
      const QString name = widget->objectName();
      if (widget->focusPolicy() == Qt::NoFocus || name.isEmpty() || name.startsWith("qt_")) continue;
      EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
          << name.toStdString();
    }
    return view;
  }

  QWidget owner;
  HelpKey helpKey{program->help};
  Windows windows{owner};
};

TEST_F(ToolWindowsTest, TheReportHasAWidgetForEveryControl) {
  QWidget* view = Shown(program->reportWindow);
  ASSERT_NE(view, nullptr);
  EXPECT_FALSE(view->isModal());
  view->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view));
  EXPECT_TRUE(view->findChild<QPlainTextEdit*>("txtReport")->toPlainText().startsWith("Total lines automatically"));
  EXPECT_EQ(view->findChild<QLabel*>("lblTotal")->text(), "Total errors and warnings: 0");
}

TEST_F(ToolWindowsTest, AWindowClosedByItsFrameUnloadsItsForm) {
  QWidget* view = Shown(program->reportWindow);
  view->close();
  EXPECT_FALSE(program->reportWindow.Loaded());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Find("frmReport"), nullptr);
}

TEST_F(ToolWindowsTest, AButtonThatClosesItsWindowOutlivesItsClick) {
  QWidget* view = Shown(program->reportWindow);
  QTest::mouseClick(view->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
  EXPECT_FALSE(program->reportWindow.Loaded());
  EXPECT_EQ(Find("frmReport"), nullptr);
}

TEST_F(ToolWindowsTest, TheFindWindowHasAWidgetForEveryControlAndStandsOffTheOwnersCorner) {
  QWidget* view = Shown(program->tools.findWindow);
  ASSERT_NE(view, nullptr);
  // A window manager may count its frame in.
  const QPoint offset = view->pos() - owner.pos();
  EXPECT_NEAR(offset.x(), 256, 8);
  EXPECT_NEAR(offset.y(), 128, 32);
  auto* field = view->findChild<QLineEdit*>("txtFind");
  view->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view));
  EXPECT_TRUE(field->hasFocus());
  QTest::keyClicks(field, "line 7");
  QTest::keyClick(field, Qt::Key_Return);
  EXPECT_EQ(view->findChild<QLabel*>("lblInfo")->text(), "String found on line 7");
  EXPECT_TRUE(view->findChild<QWidget*>("imgInfo")->isVisible());
  QTest::keyClick(field, Qt::Key_Escape);
  EXPECT_FALSE(program->tools.findWindow.Loaded());
}

TEST_F(ToolWindowsTest, TheReplaceWindowHasAWidgetForEveryControl) {
  QWidget* view = Shown(program->tools.replaceWindow);
  ASSERT_NE(view, nullptr);
  QTest::keyClicks(view->findChild<QLineEdit*>("txtFind"), "line");
  QTest::keyClicks(view->findChild<QLineEdit*>("txtReplace"), "row");
  QTest::mouseClick(view->findChild<QPushButton*>("cmdReplaceAll"), Qt::LeftButton);
  EXPECT_EQ(List().GetCaptionText(10), u"row 10");
}

TEST_F(ToolWindowsTest, TheDelayDialogHasAWidgetForEveryControlAndItsBarsMove) {
  DelayDialog& form = program->tools.delayDialog;
  form.Open(1100, false);
  QTimer::singleShot(0, [&] {
    QWidget* view = Find("frmDelay");
    ASSERT_NE(view, nullptr);
    for (const Control* control : form.Controls()) {
      EXPECT_NE(view->findChild<QWidget*>(QString::fromStdString(control->Name())), nullptr) << control->Name();
    }
    for (QSlider* bar : view->findChildren<QSlider*>()) EXPECT_FALSE(bar->accessibleName().isEmpty());
    auto* bar = view->findChild<QSlider*>("sldSec");
    bar->setFocus();
    QTest::keyClick(bar, Qt::Key_Right);
    QTest::keyClick(bar, Qt::Key_Right);
    EXPECT_EQ(view->findChild<QLabel*>("lblSec")->text(), "2 seconds");
    QTest::mouseClick(view->findChild<QPushButton*>("cmdApply"), Qt::LeftButton);
  });
  DelayView(form, &owner).exec();
  EXPECT_EQ(List().GetCaptionStart(1), 3100);
  EXPECT_FALSE(form.IsOpen());
}

TEST_F(ToolWindowsTest, TheRetimeWindowHasAWidgetForEveryControlAndRetimesByKeys) {
  player.framesPerSecond = 25;
  QWidget* view = Shown(program->retime);
  ASSERT_NE(view, nullptr);
  EXPECT_FALSE(view->isModal());
  view->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(view));
  auto* amount = view->findChild<QLineEdit*>("txtShift");
  EXPECT_TRUE(amount->hasFocus());
  QTest::keyClicks(amount, "2.5");
  EXPECT_EQ(program->grid.ShownTimes(1).start, 3600);
  EXPECT_EQ(List().GetCaptionStart(1), 1100);
  QTest::keyClick(amount, Qt::Key_Return);
  EXPECT_FALSE(program->retime.Loaded());
  EXPECT_EQ(List().GetCaptionStart(1), 3600);
}

TEST_F(ToolWindowsTest, TheRetimeWindowShowsTheControlsOfTheChosenWayAlone) {
  QWidget* view = Shown(program->retime);
  ASSERT_NE(view, nullptr);
  const QSize size = view->size();
  for (const auto& [way, field] : {std::pair{"optRates", "cboFrom"}, std::pair{"optRatio", "txtRatio"},
                                   std::pair{"optPoints", "lstPoints"}, std::pair{"optSync", "lstSegments"}}) {
    view->findChild<QAbstractButton*>(way)->click();
    EXPECT_TRUE(view->findChild<QWidget*>(field)->isVisible()) << way;
    EXPECT_FALSE(view->findChild<QWidget*>("txtShift")->isVisible()) << way;
    QCoreApplication::processEvents();
    EXPECT_EQ(view->size(), size) << way;
  }
  QTest::keyClick(view, Qt::Key_Escape);
  EXPECT_FALSE(program->retime.Loaded());
}

TEST_F(ToolWindowsTest, TheHandsWindowHasAWidgetForEveryControlAndTakesWhatIsTyped) {
  QWidget* view = Shown(program->hand);
  ASSERT_NE(view, nullptr);
  auto* late = view->findChild<QLineEdit*>("txtPress");
  late->setFocus();
  late->selectAll();
  QTest::keyClicks(late, "230");
  QTest::keyClick(late, Qt::Key_Return);
  EXPECT_FALSE(program->hand.Loaded());
  EXPECT_EQ(program->options.pressLate[0], 230);
}

TEST_F(ToolWindowsTest, AReportOfManyEntriesReachesTheWidgetWhole) {
  for (int row = 1; row <= 3000; ++row) {
    program->ruleReport.AddRuleEntry(row, u"x", RuleKind::TooManyLines, 0, false);
  }
  QWidget* view = Shown(program->reportWindow);
  program->reportWindow.ShowDetailedReport();
  EXPECT_EQ(view->findChild<QPlainTextEdit*>("txtReport")->blockCount(), 5 + 3000 * 5 + 1);
}

TEST_F(ToolWindowsTest, TheHelpHasAWidgetForEveryControl) {
  program->help.OpenFor("frmDelay");
  QWidget* view = Shown(program->help);
  ASSERT_NE(view, nullptr);
  EXPECT_TRUE(view->findChild<QTextBrowser*>("picTopic")->toPlainText().startsWith("Set delay"));
  EXPECT_FALSE(view->findChild<QLabel*>("lblNotice")->isVisible());
}

TEST_F(ToolWindowsTest, ALinkOnAPageOfTheHelpLeadsOn) {
  program->help.OpenFor({});
  auto* page = owner.findChild<QTextBrowser*>("picTopic");
  ASSERT_NE(page, nullptr);
  page->anchorClicked(QUrl("find.html#replace"));
  EXPECT_TRUE(page->toPlainText().startsWith("Find and replace"));
  auto* back = owner.findChild<QPushButton*>("cmdBack");
  QTest::mouseClick(back, Qt::LeftButton);
  EXPECT_TRUE(page->toPlainText().startsWith("Start here"));
  EXPECT_FALSE(back->isEnabled());
}

TEST_F(ToolWindowsTest, ASearchInTheHelpMarksWhatItFinds) {
  program->help.OpenFor({});
  auto* search = owner.findChild<QLineEdit*>("txtSearch");
  ASSERT_NE(search, nullptr);
  QTest::keyClicks(search, "delay");
  QTest::keyClick(search, Qt::Key_Return);
  auto* page = owner.findChild<QTextBrowser*>("picTopic");
  EXPECT_TRUE(page->toPlainText().startsWith("Set delay"));
  EXPECT_EQ(page->extraSelections().size(), 2) << "the heading and the menu item";
}

TEST_F(ToolWindowsTest, NoPageOfTheHelpNeedsABarToReadItsLines) {
  program->help.OpenFor({});
  auto* page = owner.findChild<QTextBrowser*>("picTopic");
  auto* view = page->window();
  const int pages = static_cast<int>(program->help.lstTopics.Items().size());
  ASSERT_GT(pages, 20);
  for (const QSize size : {view->size(), QSize(700, 440)}) {
    view->resize(size);
    for (int topic = 0; topic < pages; ++topic) {
      program->help.lstTopics.Choose(topic);
      QCoreApplication::processEvents();
      EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0)
          << size.width() << " " << ToUtf8(program->help.lstTopics.Items()[static_cast<std::size_t>(topic)]);
    }
  }
}

TEST_F(ToolWindowsTest, F1OpensThePageOfAToolWindow) {
  QWidget* report = Shown(program->reportWindow);
  ASSERT_NE(report, nullptr);
  QTest::keyClick(report->findChild<QWidget*>("txtReport"), Qt::Key_F1);
  EXPECT_TRUE(program->help.PagePath().ends_with(u"report.html"));
}

TEST_F(ToolWindowsTest, F1InAMessageOpensThePageOfTheWindowBelow) {
  QWidget* find = Shown(program->tools.findWindow);
  ASSERT_NE(find, nullptr);
  QMessageBox box(find);
  box.open();
  QTest::keyClick(&box, Qt::Key_F1);
  EXPECT_TRUE(program->help.PagePath().ends_with(u"find.html"));
}

TEST_F(ToolWindowsTest, TheHelpStandsOverAModalDialogAndStaysWhenItCloses) {
  QDialog dialog(&owner);
  dialog.setObjectName("frmDelay");
  dialog.setModal(true);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  QTest::keyClick(&dialog, Qt::Key_F1);
  auto* help = dialog.findChild<QDialog*>("frmHelp");
  ASSERT_NE(help, nullptr) << "only what stands over a modal dialog can be used beside it";
  dialog.accept();
  EXPECT_EQ(help->parentWidget(), &owner);
  EXPECT_TRUE(help->isVisible());
  EXPECT_TRUE(program->help.Loaded());
}

}  // namespace
}  // namespace cuewright
