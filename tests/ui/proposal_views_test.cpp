#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "tests/ui/dialog_fixture.h"
#include "ui/check_view.h"
#include "ui/program_windows.h"
#include "ui/proposals_view.h"
#include "ui/sheet_view.h"

namespace cuewright {
namespace {

struct ProposalViews : testing::DialogFixture {
  ProposalViews() {
    program->folders.AppFolder = FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/");
    program->documentFiles.OpenSubtitleFile(
        folder.Write("a.srt",
                     "1\n00:00:01,000 --> 00:00:01,400\nGood  evening.\n\n"
                     "2\n00:00:05,000 --> 00:00:08,000\nNobody leaves this house until the\nstorm has passed.\n\n"
                     "3\n00:00:08,010 --> 00:00:10,000\nYes  , Inspector.\n\n"));
  }

  ProposalsDialog& Proposals() { return program->proposals.dialog; }
  CheckWindow& Check() { return program->checkWindow; }

  /// Shows the dialog that a menu item opens, until `look` has looked at it.
  void WithProposals(MenuItem& item, const std::function<void()>& look) {
    Proposals().Opened.Connect([&, look] {
      Show(std::make_unique<ProposalsView>(Proposals(), nullptr));
      look();
      Proposals().Close();
    });
    item.Click();
  }
};

TEST_F(ProposalViews, EveryControlHasAWidgetThatSaysItsName) {
  bool looked = false;
  WithProposals(Window().mnuClean, [&] {
    looked = true;
    ExpectBound(Proposals());
    ExpectNamed();
  });
  EXPECT_TRUE(looked);
  Check().Show();
  Show(std::make_unique<CheckView>(Check(), nullptr));
  ExpectBound(Check());
  ExpectNamed();
}

TEST_F(ProposalViews, RowsAreChosenAndTickedByTheKeyboard) {
  WithProposals(Window().mnuClean, [&] {
    auto* list = Find<SheetView>("lstProposals");
    ASSERT_EQ(list->model()->rowCount(), 2);
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), "Good  evening.");
    EXPECT_EQ(list->model()->index(0, 2).data().toString(), "Good evening.");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(Proposals().lstProposals.Index(), 1);
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_FALSE(Proposals().lstProposals.Ticked(1));
    EXPECT_EQ(Find<QLabel>("lblTotal")->text(), "1 of 2 changes");
    QTest::mouseClick(Find<QPushButton>("cmdApply"), Qt::LeftButton);
  });
  EXPECT_EQ(List().At(1).text, u"Good evening.");
  EXPECT_EQ(List().At(3).text, u"Yes  , Inspector.");
}

TEST_F(ProposalViews, EnterInTheFindingsGoesToTheCaption) {
  Check().Show();
  Show(std::make_unique<CheckView>(Check(), nullptr));
  auto* list = Find<SheetView>("lstFindings");
  ASSERT_EQ(list->model()->rowCount(), 3);
  EXPECT_EQ(list->model()->index(2, 1).data().toString(), "Too near to the caption before");
  list->setFocus();
  QTest::keyClick(list, Qt::Key_End);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(List().Selected(), 3);
  EXPECT_EQ(Find<QLabel>("lblThen")->text(), QString::fromUtf8("00:00:05,000 \u2013 00:00:07,927"));
  QTest::mouseClick(Find<QPushButton>("cmdFix"), Qt::LeftButton);
  EXPECT_EQ(List().At(2).end, 7927);
  EXPECT_EQ(list->model()->rowCount(), 2);
}

TEST_F(ProposalViews, OtherRulesAreChosenInTheBox) {
  Check().Show();
  Show(std::make_unique<CheckView>(Check(), nullptr));
  auto* box = Find<QComboBox>("cmbProfile");
  EXPECT_EQ(box->currentText(), "Plain");
  const int at = box->findText("Streaming, English");
  ASSERT_GE(at, 0);
  box->setCurrentIndex(at);
  emit box->activated(at);
  EXPECT_EQ(program->check.findings.Rules().id, u"streaming-en");
  EXPECT_TRUE(Find<QLabel>("lblSource")->text().contains("Timed Text Style Guide"));
}

}  // namespace
}  // namespace cuewright
