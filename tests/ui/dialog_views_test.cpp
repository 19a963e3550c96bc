#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include "tests/ui/dialog_fixture.h"
#include "ui/export_view.h"
#include "ui/fit_screen.h"
#include "ui/format_view.h"
#include "ui/help_key.h"
#include "ui/program_windows.h"
#include "ui/qt_pickers.h"
#include "ui/settings_view.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr std::size_t kEnglish = 0;
constexpr std::size_t kSpanish = 1;
constexpr std::size_t kArabic = 14;
constexpr std::size_t kRussian = 23;

struct DialogViews : testing::DialogFixture {
  SettingsDialog& Settings() { return program->dialogs.settings; }
  FormatDialog& Formats() { return program->dialogs.format; }
  ExportDialog& Export() { return program->exportDialog; }

  void ShowSettings() {
    program->languages.EndFirstRun();
    Settings().Open();
    Show(std::make_unique<SettingsView>(Settings(), nullptr));
  }
  void ShowFormats() {
    program->formats.SettingsFormatIndex = program->catalogue.IndexOf(u"SAMI");
    Formats().Open();
    Show(std::make_unique<FormatView>(Formats(), nullptr));
  }
  void ShowExport() {
    Export().Open(program->languages.IsRightToLeft());
    Show(std::make_unique<ExportView>(Export(), nullptr));
  }
};

using SettingsWindowView = DialogViews;
using FormatWindowView = DialogViews;
using ExportWindowView = DialogViews;
using PickerViews = DialogViews;

TEST_F(SettingsWindowView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowSettings();
  ExpectBound(Settings());
}

TEST_F(FormatWindowView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowFormats();
  ExpectBound(Formats());
}

TEST_F(ExportWindowView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowExport();
  ExpectBound(Export());
}

TEST_F(SettingsWindowView, HasASpokenNameForAllThatTheKeyboardReaches) {
  ShowSettings();
  ExpectNamed();
  ExpectChoicesNamed();
}

TEST_F(FormatWindowView, HasASpokenNameForAllThatTheKeyboardReaches) {
  ShowFormats();
  ExpectNamed();
  ExpectChoicesNamed();
}

TEST_F(ExportWindowView, HasASpokenNameForAllThatTheKeyboardReaches) {
  ShowExport();
  ExpectNamed();
  ExpectChoicesNamed();
}

TEST_F(SettingsWindowView, NoTextIsCutOffInAnyLanguage) {
  ShowSettings();
  for (const std::size_t language : {kEnglish, kSpanish, kArabic, kRussian}) {
    Settings().language.cboLanguage.Choose(static_cast<int>(language));
    for (std::size_t page = 0; page < 5; ++page) {
      Settings().ShowSettingsPage(page);
      ExpectNothingCutOff("language " + std::to_string(language) + " page " + std::to_string(page) + ": ");
    }
    Settings().ShowSettingsPage(0);
    for (CheckBox* check :
         {&Settings().rules.chkAutoJoin, &Settings().rules.chkDuration, &Settings().rules.chkCredits}) {
      check->Hover();
      ExpectNothingCutOff("language " + std::to_string(language) + " " + check->Name() + ": ");
    }
  }
}

TEST_F(SettingsWindowView, TheDetailsHaveRoomForEveryText) {
  ShowSettings();
  for (const std::size_t language : {kEnglish, kSpanish, kArabic}) {
    Settings().language.cboLanguage.Choose(static_cast<int>(language));
    for (const Text& text : Settings().DetailTexts()) {
      Settings().ShowSettingsDetails(text);
      QCoreApplication::sendPostedEvents();
      const auto* label = Find<QLabel>("lblDetails");
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << ToUtf8(text);
    }
  }
}

TEST_F(FormatWindowView, NoTextIsCutOffInAnyLanguage) {
  for (const std::size_t language : {kEnglish, kSpanish, kArabic}) {
    program->ChangeLanguage(language);
    ShowFormats();
    for (int row = 0; row < 3; ++row) {
      Formats().lstFormats.Choose(row);
      ExpectNothingCutOff("language " + std::to_string(language) + " row " + std::to_string(row) + ": ");
    }
  }
}

TEST_F(FormatWindowView, ScrollsOnlyWhereTheScreenIsTooSmall) {
  QWidget owner;
  owner.show();
  Windows windows(owner);
  AddDialogs(windows, *program);
  program->window.mnuFormatSettings.Click();
  QWidget* shown = QApplication::activeModalWidget();
  ASSERT_NE(shown, nullptr);
  EXPECT_TRUE(QTest::qWaitForWindowExposed(shown));
  const auto* scroll = shown->findChild<ContentScroll*>();
  const QSize needed = scroll->widget()->sizeHint() + shown->size() - scroll->viewport()->size();
  const QSize room = RoomOnScreen(*shown);
  EXPECT_GE(shown->width(), std::min(needed.width(), room.width()));
  EXPECT_GE(shown->height(), std::min(needed.height(), room.height()));
  Formats().Close();
}

TEST_F(ExportWindowView, NoTextIsCutOffInAnyLanguage) {
  for (const std::size_t language : {kEnglish, kSpanish, kArabic}) {
    program->ChangeLanguage(language);
    ShowExport();
    for (int row = 0; row < program->catalogue.Count(); row += 7) {
      Export().cboFormats.Choose(row);
      ExpectNothingCutOff("language " + std::to_string(language) + " format " + std::to_string(row) + ": ");
    }
  }
}

TEST_F(SettingsWindowView, ThePageOnShowIsTheOneThatTheMenuNames) {
  ShowSettings();
  EXPECT_TRUE(Find<QAbstractButton>("lblMenu(0)")->isChecked());
  QTest::mouseClick(Find("lblMenu(3)"), Qt::LeftButton);
  EXPECT_EQ(Settings().Page(), 3u);
  EXPECT_TRUE(Find("picOptions(3)")->isVisible());
  EXPECT_FALSE(Find("picOptions(0)")->isVisible());
  EXPECT_TRUE(Find<QAbstractButton>("lblMenu(3)")->isChecked());
  EXPECT_FALSE(Find<QAbstractButton>("lblMenu(0)")->isChecked());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Settings().Page(), 4u);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Settings().Page(), 0u);
}

TEST_F(SettingsWindowView, TheArrowKeysGoThroughTheMenu) {
  ShowSettings();
  ASSERT_EQ(QApplication::focusWidget(), Find("lblMenu(0)"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(QApplication::focusWidget(), Find("lblMenu(1)"));
  EXPECT_EQ(Settings().Page(), 1u);
  EXPECT_TRUE(Find<QAbstractButton>("lblMenu(1)")->isChecked());
  EXPECT_TRUE(view->isVisible());
}

TEST_F(SettingsWindowView, TheWindowKeepsItsSizeFromPageToPage) {
  ShowSettings();
  const QSize size = view->size();
  for (std::size_t page = 0; page < 5; ++page) {
    Settings().ShowSettingsPage(page);
    Settings().ShowSettingsDetails(page % 2 == 0 ? u"" : u"text");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(view->size(), size);
    EXPECT_GE(view->height(), view->minimumSizeHint().height());
  }
}

TEST_F(SettingsWindowView, ThePointerOpensAPanelUnderItsCheckAndThePageClosesIt) {
  ShowSettings();
  auto* check = Find<QCheckBox>("chkDuration");
  QWidget* panel = Find("picDuration");
  PointAt(check);
  ASSERT_TRUE(QTest::qWaitFor([&] { return panel->isVisible(); }));
  EXPECT_EQ(panel->mapTo(view.get(), QPoint(0, 0)).y(), check->mapTo(view.get(), QPoint(0, check->height())).y());
  EXPECT_GE(panel->height(), 142);
  EXPECT_TRUE(check->autoFillBackground());
  EXPECT_EQ(check->palette().color(check->backgroundRole()), check->palette().color(QPalette::ToolTipBase));
  PointAt(Find("lblDuration(1)"));
  const QString wanted =
      "Specifies the best appear time per character in milliseconds. Read the documentation for details.";
  EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QLabel>("lblDetails")->text() == wanted; }));
  EXPECT_TRUE(panel->isVisible());
  QWidget* page = Find("picOptions(0)");
  QTest::mouseMove(page, QPoint(page->width() - 4, page->height() - 4));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !panel->isVisible(); }));
  EXPECT_FALSE(check->autoFillBackground());
}

TEST_F(SettingsWindowView, ThePointerBesideAPanelsCheckOrAboveThePageClosesIt) {
  ShowSettings();
  auto* check = Find<QCheckBox>("chkCredits");
  QWidget* panel = Find("picCredits");
  for (const bool above : {false, true}) {
    PointAt(check);
    ASSERT_TRUE(QTest::qWaitFor([&] { return panel->isVisible(); }));
    if (above) {
      QWidget* heading = Find("lblTop")->parentWidget();
      QTest::mouseMove(heading, QPoint(heading->width() / 2, 2));
    } else {
      QTest::mouseMove(check->parentWidget(), QPoint(check->parentWidget()->width() - 3, 4));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !panel->isVisible(); })) << above;
  }
}

TEST_F(SettingsWindowView, TheKeyboardOpensThePanelsAndReachesWhatIsInThem) {
  ShowSettings();
  const QStringList reached = TabRound();
  for (const char* name : {"lblMenu(0)", "chkAutoSplit", "chkAutoJoin", "sldAutoJoin", "chkDuration", "sldDuration(0)",
                           "sldTolerance(2)", "chkCredits", "txtCredits", "cmbApply", "cmdOK", "cmdReset"}) {
    EXPECT_TRUE(reached.contains(name)) << name;
  }
  EXPECT_EQ(reached.indexOf("sldAutoJoin"), reached.indexOf("chkAutoJoin") + 1);
  EXPECT_LT(reached.indexOf("txtCredits"), reached.indexOf("cmbApply"));
}

TEST_F(SettingsWindowView, TheKeyboardReachesEveryControlOfThePages) {
  ShowSettings();
  const std::vector<std::vector<const char*>> pages = {
      {},
      {"chkKeys", "txtHotkey(0)", "txtHotkey(9)", "txtHotkey(7)", "txtPosition(0)", "txtPosition(1)"},
      {"chkStretch", "cmbUImode", "imgVSHelp"},
      {"cmdFont", "cmdColor", "sldShadow", "sldHeight", "chkFollow"},
      {"cboLanguage", "txtCharset", "cmdRegionalSettings"}};
  for (std::size_t page = 1; page < pages.size(); ++page) {
    Settings().ShowSettingsPage(page);
    Find("cmdOK")->setFocus();
    const QStringList reached = TabRound();
    for (const char* name : pages[page]) EXPECT_TRUE(reached.contains(name)) << name;
  }
}

TEST_F(SettingsWindowView, AShortcutIsTypedIntoItsField) {
  ShowSettings();
  Settings().ShowSettingsPage(1);
  auto* box = Find<QLineEdit>("txtHotkey(0)");
  box->setFocus(Qt::TabFocusReason);
  QTest::keyClick(box, Qt::Key_Q);
  EXPECT_EQ(box->text(), "Q");
  EXPECT_EQ(box->selectedText(), "Q");
  QTest::keyClick(box, Qt::Key_R);
  EXPECT_EQ(box->text(), "R");
  EXPECT_EQ(program->options.playKey, 'R');
  QTest::keyClick(box, Qt::Key_5);
  EXPECT_EQ(box->text(), "R");
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(SettingsWindowView, BarsAndChecksReachTheOptions) {
  ShowSettings();
  QTest::keyClick(Find<QCheckBox>("chkCollision"), Qt::Key_Space);
  EXPECT_EQ(program->options.avoidCollision, 0);
  EXPECT_FALSE(Find<QCheckBox>("chkCollision")->isChecked());
  Settings().rules.chkAutoJoin.Hover();
  auto* slider = Find<QSlider>("sldAutoJoin");
  slider->setFocus();
  QTest::keyClick(slider, Qt::Key_Home);
  EXPECT_EQ(program->options.nearMs, 10);
  QTest::keyClick(slider, Qt::Key_End);
  EXPECT_EQ(program->options.nearMs, 400);
}

TEST_F(SettingsWindowView, EnterIsOkAndEscapeKeepsChangesUnstored) {
  ShowSettings();
  QTest::keyClick(Find("chkCollision"), Qt::Key_Space);
  QTest::keyClick(Find("chkCollision"), Qt::Key_Escape);
  EXPECT_FALSE(view->isVisible());
  EXPECT_FALSE(Settings().IsOpen());
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"Collision", u"?"), u"?");
  ShowSettings();
  QTest::keyClick(Find("chkCollision"), Qt::Key_Return);
  EXPECT_FALSE(view->isVisible());
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"Collision", u"?"), u"0");
}

TEST_F(SettingsWindowView, F1OpensTheHelpOfThePage) {
  ShowSettings();
  files.MakeLink(folder / "help", FromUtf8(CUEWRIGHT_SOURCE_DIR "/resources/help"));
  const HelpKey key(program->help);
  QTest::keyClick(Find("chkCollision"), Qt::Key_F1);
  EXPECT_TRUE(program->help.PagePath().ends_with(u"settings_timing.html"));
  EXPECT_TRUE(view->isVisible());
}

TEST_F(SettingsWindowView, ArabicMirrorsItWhileItIsOpen) {
  ShowSettings();
  EXPECT_LT(LeftOf("picMenu"), LeftOf("picTop"));
  Settings().language.cboLanguage.Choose(static_cast<int>(kArabic));
  QCoreApplication::sendPostedEvents();
  EXPECT_GT(LeftOf("picMenu"), LeftOf("picTop"));
  EXPECT_GT(LeftOf("cmdReset"), LeftOf("cmdOK"));
  Settings().rules.chkDuration.Hover();
  QCoreApplication::sendPostedEvents();
  QWidget* page = Find("picOptions(0)");
  EXPECT_EQ(Find("picDuration")->geometry().left(), 0);
  EXPECT_LT(Find("picDuration")->geometry().right(), page->width() - 10);
  Settings().language.cboLanguage.Choose(static_cast<int>(kEnglish));
  QCoreApplication::sendPostedEvents();
  EXPECT_LT(LeftOf("picMenu"), LeftOf("picTop"));
}

TEST_F(SettingsWindowView, GoesWhenItCloses) {
  Settings().Open();
  QPointer<SettingsView> own = new SettingsView(Settings(), nullptr);
  own->ShowModal();
  EXPECT_TRUE(own->isModal());
  Settings().cmdOK.Click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(own, nullptr);
}

TEST_F(FormatWindowView, ThePanelFollowsTheListAndTheKeyboardReachesIt) {
  ShowFormats();
  EXPECT_TRUE(Find("picSami")->isVisible());
  QTest::keyClick(Find("lstFormats"), Qt::Key_Home);
  EXPECT_TRUE(Find("picSsa")->isVisible());
  EXPECT_FALSE(Find("picSami")->isVisible());
  const QStringList reached = TabRound();
  for (const char* name : {"cmdSsaFont", "cmdSsaColor", "cmbSsaAlign", "cmbSsaValign", "cmbSsaStyle", "txtSsaOutline",
                           "txtSsaShadow", "cmdSsaBack", "txtSsaMarginl", "txtSsaMarginv", "imgSsaCharset",
                           "lblGetMore", "cmdReset", "cmdOK", "cmdCancel"}) {
    EXPECT_TRUE(reached.contains(name)) << name;
  }
}

TEST_F(FormatWindowView, NumbersAreFilteredAsTheyAreTyped) {
  ShowFormats();
  Formats().lstFormats.Choose(0);
  auto* box = Find<QLineEdit>("txtSsaMarginl");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, "1a2.5000");
  EXPECT_EQ(box->text(), "1200");
  QTest::keyClick(box, Qt::Key_Backspace);
  EXPECT_EQ(box->text(), "120");
}

TEST_F(FormatWindowView, LatinNamesBeginAtTheRightInArabic) {
  program->ChangeLanguage(kArabic);
  ShowFormats();
  const auto side = [&](const char* name) { return Find<QLabel>(name)->alignment() & Qt::AlignHorizontal_Mask; };
  EXPECT_EQ(side("lblTop"), Qt::AlignRight | Qt::AlignAbsolute);
  // A sample keeps to the side of its format.
  EXPECT_EQ(side("lblSamiSample"), Qt::AlignHCenter | Qt::AlignAbsolute);
}

TEST_F(FormatWindowView, SamplesShowTheColors) {
  ShowFormats();
  EXPECT_EQ(Find("picSamiSample")->palette().color(QPalette::Window), QColor(0, 0, 0));
  EXPECT_EQ(Find("lblSamiSample")->palette().color(QPalette::WindowText), QColor(255, 255, 0));
  EXPECT_TRUE(Find("lblSamiSample")->font().bold());
  Formats().lstFormats.Choose(0);
  EXPECT_EQ(Find("picSsaBack")->palette().color(QPalette::Window), QColor(0, 0, 0));
}

TEST_F(ExportWindowView, APointIsTypedAsAComma) {
  program->formats.CurrentFormatIndex = program->catalogue.IndexOf(u"MICRODVD");
  ShowExport();
  auto* rate = Find<QComboBox>("cmbFPS");
  ASSERT_TRUE(rate->isEnabled());
  rate->setFocus();
  rate->lineEdit()->selectAll();
  QTest::keyClicks(rate->lineEdit(), "29.9x,7");
  EXPECT_EQ(rate->currentText(), "29,97");
  EXPECT_EQ(Export().cmbFPS.GetText(), u"29,97");
}

TEST_F(ExportWindowView, ShowsTheAnswerWithoutItsAccessKey) {
  program->formats.CurrentFormatIndex = program->catalogue.IndexOf(u"SAMI");
  ShowExport();
  EXPECT_EQ(Find<QLabel>("lblHeader2")->text(), "Yes");
  EXPECT_TRUE(Find("imgBold")->isVisible());
}

TEST_F(ExportWindowView, ARefusedRateTakesTheFocusAndTheWindowStays) {
  program->formats.CurrentFormatIndex = program->catalogue.IndexOf(u"MICRODVD");
  ShowExport();
  Export().cmbFPS.SetText(u"241");
  QTest::keyClick(Find("cboFormats"), Qt::Key_Return);
  EXPECT_TRUE(view->isVisible());
  EXPECT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(QApplication::focusWidget(), Find("cmbFPS"));
}

TEST_F(ExportWindowView, EnterInTheRateIsOkAndAddsNoChoice) {
  program->formats.CurrentFormatIndex = program->catalogue.IndexOf(u"MICRODVD");
  ShowExport();
  auto* rate = Find<QComboBox>("cmbFPS");
  rate->lineEdit()->setFocus();
  rate->lineEdit()->selectAll();
  QTest::keyClicks(rate->lineEdit(), "18");
  QTest::keyClick(rate->lineEdit(), Qt::Key_Return);
  EXPECT_TRUE(Export().Result());
  EXPECT_EQ(program->formats.CurrentFps, 18);
  EXPECT_EQ(rate->count(), 7);
}

TEST_F(ExportWindowView, EscapeIsCancel) {
  ShowExport();
  QTest::keyClick(Find("cboFormats"), Qt::Key_Escape);
  EXPECT_FALSE(view->isVisible());
  EXPECT_FALSE(Export().Result());
}

/// Answers the next modal dialog of a class.
template <class Picker>
void Answer(std::function<void(Picker&)> answer) {
  QTimer::singleShot(0, qApp, [answer = std::move(answer)] {
    auto* picker = qobject_cast<Picker*>(QApplication::activeModalWidget());
    ASSERT_NE(picker, nullptr);
    answer(*picker);
  });
}

TEST_F(PickerViews, AColorBeginsWithTheGivenOneAndOffersTheProgramsOwn) {
  QtPickers own;
  CustomColors custom{};
  custom[0] = 0xC0C0C0;
  custom[15] = 0xC000C1;
  Answer<QColorDialog>([](QColorDialog& picker) {
    EXPECT_EQ(picker.currentColor(), QColor(0x11, 0x22, 0x33));
    EXPECT_EQ(QColorDialog::customColor(15), QColor(0xC1, 0x00, 0xC0));
    picker.setCurrentColor(QColor(1, 2, 3));
    picker.accept();
  });
  EXPECT_EQ(own.PickColor(0x332211, custom), 0x030201);
  Answer<QColorDialog>([](QColorDialog& picker) { picker.reject(); });
  EXPECT_EQ(own.PickColor(0x332211, custom), std::nullopt);
}

TEST_F(PickerViews, AFontBeginsWithTheGivenOneAndComesBackWhole) {
  QtPickers own;
  FontChoice font{u"DejaVu Sans", 18, true, true, false, false, 700};
  Answer<QFontDialog>([](QFontDialog& picker) {
    EXPECT_EQ(picker.currentFont().pointSizeF(), 18);
    EXPECT_TRUE(picker.currentFont().bold());
    EXPECT_TRUE(picker.currentFont().italic());
    QFont chosen = picker.currentFont();
    chosen.setPointSize(12);
    chosen.setStyleName({});
    chosen.setBold(false);
    chosen.setUnderline(true);
    picker.setCurrentFont(chosen);
    picker.accept();
  });
  const std::optional<FontChoice> chosen = own.PickFont(font);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->Size, 12);
  EXPECT_FALSE(chosen->Bold);
  EXPECT_TRUE(chosen->Italic);
  EXPECT_TRUE(chosen->Underline);
  Answer<QFontDialog>([](QFontDialog& picker) { picker.reject(); });
  EXPECT_EQ(own.PickFont(font), std::nullopt);
}

}  // namespace
}  // namespace cuewright
