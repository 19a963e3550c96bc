#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "tests/support/program_fixture.h"
#include "ui/fit_screen.h"
#include "ui/program_windows.h"
#include "ui/start_view.h"
#include "ui/svg_picture.h"
#include "ui/windows.h"

namespace cuewright {
namespace {

/// What a small screen has room for beside the desktop's own bars; on a smaller one, or one with larger text, what that
/// has room for.
QSize SmallScreen(const QWidget& window) {
  constexpr QSize kSmall(1280, 720);
  return QGuiApplication::platformName() == "offscreen" ? kSmall : kSmall.boundedTo(RoomOnScreen(window));
}

bool IsText(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QGroupBox*>(&widget) != nullptr;
}

/// A language by its row in the table.
struct EveryLanguage : testing::ProgramFixture, ::testing::WithParamInterface<std::size_t> {
  EveryLanguage() {
    LoadIcons();
    program->options.applyWhen = 1;
    program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 10));
    const std::filesystem::path resources(CUEWRIGHT_SOURCE_DIR "/resources");
    std::filesystem::create_directory_symlink(resources / "messages", folder.Path() / "languages");
    std::filesystem::create_directory_symlink(resources / "help", folder.Path() / "help");
    program->folders.AppFolder = folder / "";
    auto* surface = new QWidget;
    surface->setObjectName("WMP");
    view = MakeMainWindow(*program, surface);
    AddDialogs(view->Views(), *program);
    view->ShowStarted({1000, 700, false, {}});
    EXPECT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    program->ChangeLanguage(GetParam());
    QTest::qWait(0);
  }
  ~EveryLanguage() override {
    view.reset();
    program.reset();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  }

  std::string Where(const QWidget& window) const {
    return ToUtf8(program->options.language) + " " + window.objectName().toStdString() + " ";
  }

  /// Leaves a picture of the window in the folder that the environment names, if it does: sheets are made of them.
  void Keep(QWidget& window) {
    const QString sheets = qEnvironmentVariable("CUEWRIGHT_SHEETS");
    if (sheets.isEmpty()) return;
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    const QString name = QString("%1/%2_%3_%4.png")
                             .arg(sheets, QString::fromStdString(ToUtf8(ToLower(program->options.language))))
                             .arg(QString(test->name()).section('/', 0, 0))
                             .arg(++kept_, 2, 10, QChar('0'));
    EXPECT_TRUE(window.grab().save(name)) << name.toStdString();
  }

  /// No visible text of a window has less room than it needs, the window fits a small screen, and it is mirrored
  /// in a language that is read from the right.
  void Check(QWidget& window) {
    QCoreApplication::sendPostedEvents();
    Keep(window);
    EXPECT_EQ(window.layoutDirection(), program->languages.IsRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight)
        << Where(window);
    const QSize size = window.size();
    EXPECT_LE(size.width(), SmallScreen(window).width()) << Where(window);
    EXPECT_LE(size.height(), SmallScreen(window).height()) << Where(window);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      const QString name = widget->objectName();
      // Samples are as large as their font; the names of the open files are shortened.
      if (!widget->isVisible() || name.isEmpty() || name.startsWith("qt_") || name.contains("Sample") ||
          name.endsWith("File") || widget->window() != &window || !IsText(*widget))
        continue;
      const auto* label = qobject_cast<const QLabel*>(widget);
      const bool wraps = label != nullptr && label->wordWrap();
      const QSize needed = wraps ? QSize(0, label->heightForWidth(label->width())) : widget->minimumSizeHint();
      EXPECT_GE(widget->width(), needed.width()) << Where(window) << name.toStdString();
      EXPECT_GE(widget->height(), needed.height()) << Where(window) << name.toStdString();
    }
  }

  /// The dialog or tool window beside the main one that is on show.
  QDialog* Opened() const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* dialog = qobject_cast<QDialog*>(window);
      if (dialog != nullptr && dialog->isVisible()) return dialog;
    }
    return nullptr;
  }

  /// Opens a window by its menu item, looks at it and at each further state of it, and closes it.
  void Look(MenuItem& item, const std::vector<std::function<void()>>& states = {}) {
    bool seen = false;
    const auto look = [&] {
      QDialog* dialog = Opened();
      if (dialog == nullptr) return;
      seen = true;
      Check(*dialog);
      for (const auto& state : states) {
        state();
        Check(*dialog);
      }
      dialog->close();
    };
    // A modal dialog holds the click up.
    QTimer modal;
    modal.setSingleShot(true);
    QObject::connect(&modal, &QTimer::timeout, view.get(), look);
    modal.start(0);
    item.Click();
    modal.stop();
    if (!seen) look();
    EXPECT_TRUE(seen) << item.Name();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Opened() == nullptr; })) << item.Name();
  }

  std::unique_ptr<MainWindowView> view;

 private:
  int kept_ = 0;
};

TEST_P(EveryLanguage, HasRoomInTheMainWindow) {
  view->resize(view->size().boundedTo(SmallScreen(*view)));
  QTest::qWait(0);
  Check(*view);
  view->resize(view->minimumSize());
  QTest::qWait(0);
  Check(*view);
}

TEST_P(EveryLanguage, HasRoomInTheWindowsOfTheEditMenu) {
  Look(Window().mnuFind);
  Look(Window().mnuReplace);
  Look(Window().mnuDelay);
  player.framesPerSecond = 23.976;
  std::vector<std::function<void()>> ways;
  RetimeWindow& retime = program->retime;
  for (OptionButton* way : {&retime.optRatio, &retime.optRates, &retime.optPoints, &retime.optSync}) {
    ways.emplace_back([way] { way->Click(); });
  }
  Look(Window().mnuRetime, ways);
}

TEST_P(EveryLanguage, HasRoomInTheWindowsOfFilesAndTools) {
  Look(Window().mnuSaveAs);
  Look(Window().mnuReport);
  Look(Window().mnuCheck);
  Look(Window().mnuBreakLines);
  Look(Window().mnuClean);
  Look(Window().mnuOpenWav);
}

TEST_P(EveryLanguage, HasRoomInTheSpellCheck) {
  dictionaries.dictionaries[u"en_GB"] = {u"the"};
  dictionaries.dictionaries[u"de_DE"] = {u"eins"};
  dictionaries.suggestions[u"line"] = {u"the", u"lines"};
  Look(Window().mnuSpell);
}

TEST_P(EveryLanguage, HasRoomInTheSettings) {
  std::vector<std::function<void()>> states;
  SettingsDialog& settings = program->dialogs.settings;
  for (std::size_t page = 0; page < 5; ++page) states.emplace_back([&, page] { settings.ShowSettingsPage(page); });
  states.emplace_back([&] { settings.ShowSettingsPage(0); });
  for (CheckBox* check : {&settings.rules.chkAutoJoin, &settings.rules.chkDuration, &settings.rules.chkCredits}) {
    states.emplace_back([check] { check->Hover(); });
  }
  Look(Window().mnuGSettings, states);
  states.clear();
  for (int row = 0; row < 3; ++row)
    states.emplace_back([this, row] { program->dialogs.format.lstFormats.Choose(row); });
  Look(Window().mnuFormatSettings, states);
}

TEST_P(EveryLanguage, HasRoomForEveryDetailOfTheSettings) {
  SettingsDialog& settings = program->dialogs.settings;
  std::vector<std::function<void()>> states;
  states.emplace_back([&] {
    for (const Text& text : settings.DetailTexts()) {
      settings.ShowSettingsDetails(text);
      Check(*Opened());
    }
  });
  Look(Window().mnuGSettings, states);
}

TEST_P(EveryLanguage, HasRoomInTheWindowsOfTheHelpMenu) {
  boxes.shown.clear();
  Look(Window().mnuHelpTopics);
  Look(Window().mnuAbout);
  Look(Window().mnuUpdate);
}

TEST_P(EveryLanguage, HasRoomOnThePagesOfTheWizards) {
  program->document.SubtitlePath = folder.Write("a.ssa", "[Script Info]");
  program->document.VideoPath = folder.Write("a.avi", "RIFF");
  std::vector<std::function<void()>> states;
  const auto pages = [&](auto& wizard) {
    states.clear();
    for (std::size_t shown = 0; shown < wizard.picStep.size(); ++shown) {
      states.emplace_back([&wizard, shown] {
        for (std::size_t page = 0; page < wizard.picStep.size(); ++page) wizard.picStep[page].SetVisible(page == shown);
      });
    }
  };
  EmbedWizard& embed = program->embedWizard;
  pages(embed);
  states.emplace_back([&] {
    for (Control* control : std::initializer_list<Control*>{&embed.imgNotice, &embed.lblNotice, &embed.lblNote1,
                                                            &embed.lblNote2, &embed.lblConvert}) {
      control->SetVisible(true);
    }
  });
  for (const Message hint :
       {Message::OutputFormatHint, Message::ConfigureCodecHint, Message::VirtualDubFolderHint,
        Message::OutputResolutionHint, Message::FilterModeHint, Message::OutputWidthHint, Message::OutputHeightHint,
        Message::OutputFileNameHint, Message::EmbedPreviewHint, Message::CloseDialogHint, Message::EmbedHint}) {
    states.emplace_back([&, hint] { embed.ShowEmbedDetails(program->strings[hint]); });
  }
  states.emplace_back([&] {
    embed.ShowEmbedDetails(program->strings[Message::FilesWillBeClosed] + u"\r\n\r\n" +
                           program->strings[Message::OkBeginsProcess]);
  });
  Look(Window().mnuEmbed, states);
  pages(program->audioWizard);
  Look(Window().mnuAudioExtract, states);
}

TEST_P(EveryLanguage, HasRoomInTheMissingPlayersScreen) {
  program->start.ShowMissing(program->strings, u"libmpv.so.2", program->languages.IsRightToLeft());
  StartView start(program->start);
  start.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&start));
  Check(start);
}

INSTANTIATE_TEST_SUITE_P(Table, EveryLanguage, ::testing::Range(std::size_t{0}, std::size_t{25}));

}  // namespace
}  // namespace cuewright
