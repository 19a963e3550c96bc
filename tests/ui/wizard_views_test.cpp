#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include "tests/support/program_fixture.h"
#include "ui/audio_wizard_view.h"
#include "ui/embed_view.h"
#include "ui/run_view.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

struct WizardViews : testing::ProgramFixture {
  WizardViews() {
    LoadIcons();
    std::filesystem::create_directories(folder.Path() / "run");
    program->document.SubtitlePath = folder.Write("a.ssa", "text");
    program->document.VideoPath = folder.Write("a.avi", "film");
    processes.onStart = [](testing::FakeProcesses::Run& run) {
      run.status = 0;
      run.output = " V....D libxvid  XviD\n .. subtitles  V->V  text\n";
    };
    std::filesystem::create_directories(folder.Path() / "tool");
    folder.Write("tool/vdrun", "x");
    program->store.SaveSetting(kMainSection, u"VDPATH", folder / "tool/");
  }
  ~WizardViews() override {
    view.reset();
    program.reset();
  }

  EmbedWizard& Embed() { return program->embedWizard; }
  AudioWizard& Audio() { return program->audioWizard; }
  void Show(std::unique_ptr<QDialog> made) {
    view = std::move(made);
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
  }
  void ShowEmbed() {
    Embed().Open();
    Show(std::make_unique<EmbedView>(Embed(), nullptr));
  }
  void ShowAudio() {
    Audio().Open();
    Show(std::make_unique<AudioWizardView>(Audio(), nullptr));
  }
  template <class Widget = QWidget>
  Widget* Find(const char* name) {
    auto* found = view->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  void ExpectBound(const Form& form) {
    for (const Control* control : form.Controls()) {
      EXPECT_NE(view->findChild<QWidget*>(QString::fromStdString(control->Name())), nullptr) << control->Name();
    }
    for (QWidget* widget : view->findChildren<QWidget*>()) {
      const std::string name = widget->objectName().toStdString();
      if (name.empty() || name.starts_with("qt_")) continue;
      EXPECT_NE(form.Find(name), nullptr) << name;
      const auto* label = qobject_cast<QLabel*>(widget);
      if (widget->focusPolicy() == Qt::NoFocus || (label != nullptr && label->text().isEmpty())) continue;
      EXPECT_FALSE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty()) << name;
    }
  }
  /// No visible text has less room than it needs.
  void ExpectNothingCutOff(const std::string& where) {
    QCoreApplication::sendPostedEvents();
    QTest::qWait(1);
    for (QWidget* widget : view->findChildren<QWidget*>()) {
      const auto* label = qobject_cast<QLabel*>(widget);
      if (!widget->isVisible() || (label == nullptr && qobject_cast<QAbstractButton*>(widget) == nullptr)) continue;
      const bool wraps = label != nullptr && label->wordWrap();
      const QSize needed = wraps ? QSize(0, label->heightForWidth(label->width())) : widget->minimumSizeHint();
      EXPECT_GE(widget->width(), needed.width()) << where << widget->objectName().toStdString();
      EXPECT_GE(widget->height(), needed.height()) << where << widget->objectName().toStdString();
    }
  }

  std::unique_ptr<QDialog> view;
};

using EmbedWizardView = WizardViews;
using AudioWizardWindow = WizardViews;
using RunWindowView = WizardViews;

TEST_F(EmbedWizardView, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowEmbed();
  ExpectBound(Embed());
}

TEST_F(EmbedWizardView, ShowsOnePageAtATimeInAWindowOfOneSize) {
  ShowEmbed();
  const QSize size = view->size();
  for (std::size_t step = 0; step < 4; ++step) {
    ExpectNothingCutOff("page " + std::to_string(step) + " ");
    for (std::size_t page = 0; page < 4; ++page) {
      EXPECT_EQ(Find(Embed().picStep[page].Name().c_str())->isVisible(), page == step);
    }
    EXPECT_EQ(view->size(), size);
    if (step < 3) QTest::keyClick(view.get(), Qt::Key_Return);
  }
  EXPECT_EQ(Embed().Step(), 3);
}

TEST_F(EmbedWizardView, EveryHintHasItsRoom) {
  ShowEmbed();
  const QSize size = view->size();
  for (const Text& hint : Embed().Hints()) {
    Embed().ShowEmbedDetails(hint);
    ExpectNothingCutOff(ToUtf8(hint).substr(0, 30) + ": ");
  }
  EXPECT_EQ(view->size(), size);
}

TEST_F(EmbedWizardView, TheSizeBoxesTakeDigitsAndBackspace) {
  ShowEmbed();
  Embed().cmbResolution.Choose(9);
  auto* width = Find<QLineEdit>("txtWidth");
  width->setFocus();
  EXPECT_EQ(width->selectedText(), "640");
  QTest::keyClicks(width, "1a2b;8");
  QTest::keyClick(width, Qt::Key_Backspace);
  EXPECT_EQ(width->text(), "12;");
  Find("txtHeight")->setFocus();
  EXPECT_EQ(width->text(), "32");
}

TEST_F(EmbedWizardView, HintsFollowThePointerAndTheKeyboard) {
  ShowEmbed();
  QWidget* format = Find("imgFormat");
  QTest::mouseMove(format, QPoint(5, 5));
  QTest::qWait(1);
  EXPECT_EQ(Find<QLabel>("lblDetails")->text().left(20),
            QString::fromStdU16String(program->strings[Message::OutputFormatHint]).left(20));
  Find("cmdConfigure")->setFocus(Qt::TabFocusReason);
  EXPECT_EQ(Find<QLabel>("lblDetails")->text().left(20),
            QString::fromStdU16String(program->strings[Message::ConfigureCodecHint]).left(20));
}

TEST_F(EmbedWizardView, EscapeClosesTheForm) {
  ShowEmbed();
  QTest::keyClick(view.get(), Qt::Key_Escape);
  EXPECT_FALSE(Embed().IsOpen());
}

TEST_F(AudioWizardWindow, EveryControlHasAWidgetAndEveryNamedWidgetAControl) {
  ShowAudio();
  ExpectBound(Audio());
}

TEST_F(AudioWizardWindow, GoesThroughItsPagesByTheKeyboard) {
  ShowAudio();
  processes.onStart = [this](testing::FakeProcesses::Run& run) {
    folder.Write("a.wav", "wave");
    run.status = 0;
  };
  for (std::size_t step = 0; step < 5; ++step) {
    ExpectNothingCutOff("page " + std::to_string(step) + " ");
    EXPECT_TRUE(Find(Audio().picStep[step].Name().c_str())->isVisible());
    if (step < 4) QTest::keyClick(view.get(), Qt::Key_Return);
  }
  EXPECT_EQ(Find<QPushButton>("cmdNext")->text(), "Finish");
  EXPECT_TRUE(Find<QLabel>("lblStep5")->font().bold());
  QTest::keyClick(view.get(), Qt::Key_Return);
  EXPECT_FALSE(Audio().IsOpen());
}

TEST_F(AudioWizardWindow, AFailedTaskIsDarkRed) {
  ShowAudio();
  processes.missing = true;
  for (int i = 0; i < 4; ++i) QTest::keyClick(view.get(), Qt::Key_Return);
  EXPECT_EQ(Find<QLabel>("lblTask(0)")->palette().color(QPalette::WindowText), QColor(192, 0, 0));
  EXPECT_NE(Find<QLabel>("lblTask(1)")->palette().color(QPalette::WindowText), QColor(192, 0, 0));
  EXPECT_TRUE(Find<QLabel>("lblTask(1)")->font().bold());
  ExpectNothingCutOff("failed ");
}

TEST_F(AudioWizardWindow, ClosingItWhileTheToolRunsEndsTheWait) {
  ShowAudio();
  processes.onStart = nullptr;
  events.onWaitMs = [this](int ms) {
    if (ms == 500) QTest::keyClick(view.get(), Qt::Key_Escape);
  };
  for (int i = 0; i < 4; ++i) QTest::keyClick(view.get(), Qt::Key_Return);
  EXPECT_FALSE(Audio().IsOpen());
}

TEST_F(RunWindowView, ShowsHowFarTheRunIs) {
  RunWindow form(program->strings);
  form.Open(false);
  Show(std::make_unique<RunView>(form, nullptr));
  ExpectBound(form);
  form.TakeInput("file /films/a b.avi\nprogress 250 7");
  EXPECT_EQ(Find<QLabel>("lblFile")->text(), "a b.avi");
  EXPECT_EQ(Find<QLabel>("lblLeft")->text(), "");
  form.TakeInput("5\nnonsense\n");
  EXPECT_EQ(Find<QLabel>("lblLeft")->text(), "Time left: 1:15");
  EXPECT_EQ(Find<QProgressBar>("barProgress")->value(), 250);
  form.TakeInput("progress -1 -1\n");
  EXPECT_EQ(Find<QProgressBar>("barProgress")->maximum(), 0);
  EXPECT_EQ(Find<QLabel>("lblLeft")->text(), "");
  form.EndInput();
  EXPECT_FALSE(form.IsOpen());
  EXPECT_FALSE(form.Cancelled());
  view.reset();
}

TEST_F(RunWindowView, ItsButtonAndEscapeCancel) {
  for (const bool byButton : {true, false}) {
    RunWindow form(program->strings);
    form.Open(false);
    Show(std::make_unique<RunView>(form, nullptr));
    if (byButton) {
      QTest::mouseClick(Find("cmdCancel"), Qt::LeftButton);
    } else {
      QTest::keyClick(view.get(), Qt::Key_Escape);
    }
    EXPECT_FALSE(form.IsOpen());
    EXPECT_TRUE(form.Cancelled());
    view.reset();
  }
}

TEST_F(RunWindowView, AFailureStaysUntilItWasSeen) {
  RunWindow form(program->strings);
  form.Open(false);
  Show(std::make_unique<RunView>(form, nullptr));
  form.TakeInput("failure a.vcf:3: it\vdoesn't go\n");
  EXPECT_EQ(Find<QLabel>("lblFailure")->text(), "a.vcf:3: it\ndoesn't go");
  EXPECT_FALSE(Find("barProgress")->isVisible());
  ExpectNothingCutOff("failure ");
  form.EndInput();
  EXPECT_TRUE(form.IsOpen());
  QTest::mouseClick(Find("cmdCancel"), Qt::LeftButton);
  EXPECT_FALSE(form.IsOpen());
  EXPECT_FALSE(form.Cancelled());
  view.reset();
}

}  // namespace
}  // namespace cuewright
