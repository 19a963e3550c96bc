#include <QPlainTextEdit>
#include <QPushButton>

#include "tests/ui/dialog_fixture.h"
#include "ui/list_view.h"
#include "ui/reopen_view.h"

namespace cuewright {
namespace {

struct SavingViews : testing::DialogFixture {
  ListDialog& Saving() { return program->saveCheck.dialog; }
  ReopenDialog& Reopening() { return program->reopening.dialog; }

  void ShowSaving(const Text& save) {
    Saving().Open({u"Save as", program->strings[Message::LackingHead], {u"Caption 1, line 2: \u0416", u"two"}, save},
                  program->languages.IsRightToLeft());
    Show(std::make_unique<ListDialogView>(Saving(), nullptr));
  }
  void ShowReopening() {
    Reopening().Open("one\r\nd\xFCr", {1252, false}, program->languages.IsRightToLeft());
    Show(std::make_unique<ReopenView>(Reopening(), nullptr));
  }
};

TEST_F(SavingViews, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowSaving(u"Save");
  ExpectBound(Saving());
  ExpectNamed();
  ShowReopening();
  ExpectBound(Reopening());
  ExpectNamed();
  ExpectChoicesNamed();
}

TEST_F(SavingViews, AListShowsItsLinesAndEnterSaves) {
  ShowSaving(u"Save");
  EXPECT_EQ(Find<QPlainTextEdit>("txtList")->toPlainText(), QString::fromUtf8("Caption 1, line 2: Ж\ntwo"));
  EXPECT_TRUE(Find<QPushButton>("cmdSave")->isDefault());
  EXPECT_EQ(Find<QPushButton>("cmdSave")->text(), "&Save");
  QTest::keyClick(view.get(), Qt::Key_Return);
  EXPECT_TRUE(Saving().Result());
  EXPECT_FALSE(view->isVisible());
}

TEST_F(SavingViews, EscapeSavesNothing) {
  ShowSaving(u"Save");
  QTest::keyClick(view.get(), Qt::Key_Escape);
  EXPECT_FALSE(Saving().Result());
  EXPECT_FALSE(Saving().IsOpen());
}

TEST_F(SavingViews, AListToLookAtHasOneButton) {
  ShowSaving({});
  EXPECT_FALSE(Find<QPushButton>("cmdSave")->isVisible());
  EXPECT_EQ(Find<QPushButton>("cmdCancel")->text(), "&Close");
}

TEST_F(SavingViews, ReopeningShowsTheFirstLinesInTheEncodingThatIsChosen) {
  ShowReopening();
  EXPECT_EQ(Find<QPlainTextEdit>("txtPreview")->toPlainText(), QString::fromUtf8("one\ndür"));
  auto* box = Find<QComboBox>("cboEncoding");
  box->setCurrentIndex(box->findText("KOI8-R", Qt::MatchEndsWith));
  Q_EMIT box->activated(box->currentIndex());
  EXPECT_EQ(Find<QPlainTextEdit>("txtPreview")->toPlainText(), QString::fromUtf8("one\ndЭr"));
  QTest::keyClick(view.get(), Qt::Key_Return);
  EXPECT_TRUE(Reopening().Result());
  EXPECT_EQ(Reopening().Chosen().codePage, 20866);
}

TEST_F(SavingViews, NoTextIsCutOff) {
  for (const std::size_t language : {0, 1, 14, 23}) {
    program->ChangeLanguage(language);
    ShowSaving(program->strings[Message::SaveInUtf8]);
    ExpectNothingCutOff("saving, language " + std::to_string(language) + ": ");
    Saving().Close();
    ShowReopening();
    ExpectNothingCutOff("reopening, language " + std::to_string(language) + ": ");
    Reopening().Close();
  }
}

}  // namespace
}  // namespace cuewright
