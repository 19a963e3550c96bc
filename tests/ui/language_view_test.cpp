#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "tests/support/program_fixture.h"
#include "ui/program_windows.h"
#include "ui/qt_ports.h"
#include "ui/qt_text.h"
#include "ui/start_view.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr std::size_t kSpanish = 1;
constexpr std::size_t kArabic = 14;

/// The main window with the program's own languages beside it.
struct LanguageViewTest : testing::ProgramFixture {
  LanguageViewTest() {
    LoadIcons();
    program->folders.AppFolder = folder / "";
    std::filesystem::create_directory(folder.Path() / "languages");
    for (const char* name : {"spanish.txt", "arabic.txt"}) {
      std::filesystem::copy_file(std::filesystem::path(CUEWRIGHT_SOURCE_DIR "/resources/messages") / name,
                                 folder.Path() / "languages" / name);
    }
    auto* surface = new QWidget;
    surface->setObjectName("WMP");
    view = MakeMainWindow(*program, surface);
    view->ShowStarted({700, 600, false});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
  }
  ~LanguageViewTest() override {
    view.reset();
    program.reset();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  }

  QWidget* Find(const char* name) {
    auto* found = view->findChild<QWidget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  int LeftOf(const char* name) { return Find(name)->mapTo(view.get(), QPoint(0, 0)).x(); }

  std::unique_ptr<MainWindowView> view;
};

using WindowLanguage = LanguageViewTest;

TEST_F(WindowLanguage, ArabicMirrorsTheWindowAndSpanishTurnsItBack) {
  EXPECT_LT(LeftOf("grdSubs"), LeftOf("WMP"));
  EXPECT_LT(LeftOf("txtSub"), LeftOf("optPress"));
  EXPECT_EQ(program->ChangeLanguage(kArabic), 100);
  QTest::qWait(0);
  EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
  EXPECT_GT(LeftOf("grdSubs"), LeftOf("WMP"));
  EXPECT_GT(LeftOf("txtSub"), LeftOf("optPress"));
  EXPECT_GT(LeftOf("lblShow"), LeftOf("txtTime(0)"));
  EXPECT_EQ(program->ChangeLanguage(kSpanish), 100);
  QTest::qWait(0);
  EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
  EXPECT_LT(LeftOf("grdSubs"), LeftOf("WMP"));
  EXPECT_LT(LeftOf("txtSub"), LeftOf("optPress"));
  EXPECT_LT(LeftOf("lblShow"), LeftOf("txtTime(0)"));
}

TEST_F(WindowLanguage, AChangeRelabelsTheWidgets) {
  program->ChangeLanguage(kSpanish);
  EXPECT_EQ(view->menuBar()->actions().front()->text(), "&Archivo");
  EXPECT_EQ(static_cast<QAbstractButton*>(Find("cmdApply"))->text(), "Aplicar");
  EXPECT_EQ(static_cast<QLabel*>(Find("lblMainMode"))->text(), "Modo de subtitulado");
}

TEST_F(WindowLanguage, TheListKeepsToTheSideOfTheLanguage) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  const QAbstractItemModel* model = static_cast<QTableView*>(Find("grdSubs"))->model();
  const auto side = [&] {
    return Qt::Alignment(model->index(0, 3).data(Qt::TextAlignmentRole).toInt()) & Qt::AlignHorizontal_Mask;
  };
  EXPECT_EQ(side(), Qt::AlignLeft | Qt::AlignAbsolute);
  program->ChangeLanguage(kArabic);
  EXPECT_EQ(side(), Qt::AlignRight | Qt::AlignAbsolute);
}

TEST_F(WindowLanguage, NoLabelOfTheBottomPanelIsCutOffInTheSmallestWindow) {
  for (const std::size_t language : {std::size_t{0}, kSpanish, kArabic}) {
    program->ChangeLanguage(language);
    QTest::qWait(0);
    for (const char* name : {"lblShow", "lblDuration", "lblPosition", "lblMainMode", "optPress", "optManual",
                             "optPreview", "cmdApply", "cmdNext", "cmdEnd"}) {
      const QWidget* widget = Find(name);
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << name << " in language " << language;
      EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << name << " in language " << language;
    }
  }
}

TEST_F(WindowLanguage, TheMissingPlayersScreenIsMirroredToo) {
  program->start.ShowMissing(program->strings, u"libmpv.so.2", true);
  StartView start(program->start);
  start.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&start));
  const auto left = [&](const char* name) { return start.findChild<QWidget*>(name)->mapTo(&start, QPoint(0, 0)).x(); };
  EXPECT_GT(left("imgWMP"), left("lblMain"));
  program->start.ShowMissing(program->strings, u"libmpv.so.2", false);
  QTest::qWait(0);
  EXPECT_LT(left("imgWMP"), left("lblMain"));
}

TEST_F(WindowLanguage, BoxesHaveButtonsInTheLanguage) {
  program->ChangeLanguage(kSpanish);
  QtMessages messages;
  messages.LabelButtons(program->strings);
  QStringList texts;
  QTimer::singleShot(0, qApp, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    for (const QAbstractButton* button : box->buttons()) {
      texts << button->text();
      EXPECT_TRUE(button->icon().isNull());
    }
    box->button(QMessageBox::No)->click();
  });
  EXPECT_EQ(messages.Show({u"?", BoxIcon::Question, BoxButtons::YesNoCancel}), BoxAnswer::No);
  texts.sort();
  EXPECT_EQ(texts, QStringList({"&No", "&Sí", "Cance&lar"}));
}

TEST_F(WindowLanguage, EscapeAndTheCloseButtonOfABoxAreItsHarmlessAnswer) {
  const std::pair<BoxButtons, BoxAnswer> cases[] = {{BoxButtons::Ok, BoxAnswer::Ok},
                                                    {BoxButtons::OkCancel, BoxAnswer::Cancel},
                                                    {BoxButtons::YesNo, BoxAnswer::No},
                                                    {BoxButtons::YesNoCancel, BoxAnswer::Cancel}};
  QtMessages messages;
  for (const auto& [buttons, harmless] : cases) {
    for (const bool escape : {true, false}) {
      QTimer::singleShot(0, qApp, [escape] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        if (escape) {
          QTest::keyClick(box, Qt::Key_Escape);
        } else {
          box->close();
        }
      });
      EXPECT_EQ(messages.Show({u"?", BoxIcon::Question, buttons}), harmless);
    }
  }
}

}  // namespace
}  // namespace cuewright
