#include <QApplication>
#include <QDir>
#include <QMetaObject>
#include <QScreen>
#include <QStandardPaths>
#include <clocale>
#include <memory>
#include <optional>

#include "core/paths.h"
#include "forms/program.h"
#include "platform/child_processes.h"
#include "platform/hunspell_dictionaries.h"
#include "platform/journal_files.h"
#include "platform/locale.h"
#include "platform/mpv_library.h"
#include "platform/mpv_player.h"
#include "platform/posix_files.h"
#include "platform/run_folder.h"
#include "platform/sound_store.h"
#include "platform/system_info.h"
#include "platform/user_folders.h"
#include "ui/color_scheme.h"
#include "ui/joined_letters.h"
#include "ui/program_windows.h"
#include "ui/qt_pickers.h"
#include "ui/qt_ports.h"
#include "ui/qt_web.h"
#include "ui/start_view.h"
#include "ui/svg_picture.h"
#include "ui/toolkit_texts.h"
#include "ui/video_surface.h"
#include "ui/video_view.h"

namespace {

using namespace cuewright;

/// The arguments joined as one line, in which every path of an existing file is absolute.
Text CommandLine(int argc, char** argv) {
  Text line;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) line += u" ";
    line += AbsoluteIfExists(FromUtf8(argv[i]));
  }
  return line;
}

/// A folder of the user by its purpose, or the home folder where there is none.
Text UserFolder(QStandardPaths::StandardLocation purpose) {
  const QString folder = QStandardPaths::writableLocation(purpose);
  return WithSlash(PickedPath(!folder.isEmpty() && QDir(folder).exists() ? folder : QDir::homePath()));
}

/// Runs tasks on the window's thread, each later and in the order of their coming.
void Post(std::function<void()> task) { QMetaObject::invokeMethod(qApp, std::move(task), Qt::QueuedConnection); }

}  // namespace

int main(int argc, char** argv) {
  // The whole command line is the one path: Qt's own switches would be taken out of it.
  const Text commandLine = CommandLine(argc, argv);
  int qtArguments = 1;
  QApplication application(qtArguments, argv);
  QApplication::setApplicationName("tessaly-cuewright");
  QApplication::setDesktopFileName("tessaly-cuewright");
  QApplication::setQuitOnLastWindowClosed(false);
  LoadIcons();
  QApplication::setStyle(new JoinedLetters(QApplication::style()->objectName()));
  const ColorScheme colorScheme;
  // The player's library and the number formats need the plain decimal point.
  std::setlocale(LC_NUMERIC, "C");

  PosixFiles files;
  QtMessages messages;
  QtFileDialogs dialogs;
  QtPickers pickers;
  QtEventQueue events;
  QtDesktop desktop;
  const MpvLibrary library(MpvLibrary::DefaultFileName(), MpvLibrary::Load::WhenUsed);
  MpvPlayerOptions playerOptions = MpvPlayerOptions::FromEnvironment();
  playerOptions.output = WantedVideoOutput();
  MpvPlayer player(library, Post, playerOptions);
  StartEnvironment environment;
  environment.commandLine = commandLine;
  environment.appFolder = DataFolder();
  environment.settingsFile = SettingsFilePath();
  environment.registryFile = RegistryFilePath();
  std::optional<RunFolder> runFolder;
  environment.makeTempFolder = [&runFolder] { return runFolder.emplace().Path(); };
  if (!library.Available()) environment.missingPlayer = library.FileName();
  environment.systemCodePage = AnsiCodePageOfLocale();
  const IcuLocale locale;
  environment.locale = &locale;
  const LinuxSystemInfo system;
  environment.system = &system;
  QtWeb web;
  environment.web = &web;
  const HunspellDictionaries dictionaries;
  environment.dictionaries = &dictionaries;
  environment.wordsFolder = WordsFolderPath();
  environment.documentsFolder = UserFolder(QStandardPaths::DocumentsLocation);
  environment.filmsFolder = UserFolder(QStandardPaths::MoviesLocation);

  PosixProcesses processes;
  // Two hours of sound take about 320 MB.
  FolderSoundStore sounds(SoundFolder(), std::uint64_t{4} << 30);
  environment.processes = &processes;
  if (!SoundFolder().empty()) environment.sounds = &sounds;
  environment.systemFolder = WineSystemFolder();

  ToolkitTexts toolkitTexts;
  JournalFiles journals(JournalFolderPath());
  Program program({files, messages, dialogs, events, desktop, player, pickers, &journals}, environment);
  messages.LabelButtons(program.strings);
  if (!program.Start()) return 1;
  toolkitTexts.Use(program.options.language);
  program.LanguageChanged.Connect([&] { toolkitTexts.Use(program.options.language); });

  std::unique_ptr<MainWindowView> window;
  const auto showMainWindow = [&] {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    window = MakeMainWindow(program, new VideoView(player, player));
    AddDialogs(window->Views(), program);
    window->ShowStarted(program.LoadMainWindow(screen.width(), screen.height()));
    // Behind the window's first painting, and whoever has the keyboard.
    Post([&] {
      program.OpenOnFirstRun();
      program.OnFirstActivation();
    });
  };
  std::unique_ptr<StartView> startView;
  if (program.PlayerMissing()) {
    startView = std::make_unique<StartView>(program.start);
    program.start.cmdExit.Clicked.Connect([] { QCoreApplication::exit(0); });
    program.start.cmdIgnore.Clicked.Connect([&] {
      showMainWindow();
      startView->close();
    });
    startView->show();
  } else {
    showMainWindow();
  }
  const int result = QApplication::exec();
  window.reset();
  return result;
}
