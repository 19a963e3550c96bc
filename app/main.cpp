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

/// What the program has of the outside.
struct Outside {
  PosixFiles files;
  QtMessages messages;
  QtFileDialogs dialogs;
  QtPickers pickers;
  QtEventQueue events;
  QtDesktop desktop;
  MpvLibrary library{MpvLibrary::DefaultFileName(), MpvLibrary::Load::WhenUsed};
  MpvPlayer player{library, Post, PlayerOptions()};
  std::optional<RunFolder> runFolder;
  IcuLocale locale;
  LinuxSystemInfo about;
  QtWeb web;
  HunspellDictionaries dictionaries;
  PosixProcesses processes;
  // Two hours of sound take about 320 MB.
  FolderSoundStore sounds{SoundFolder(), std::uint64_t{4} << 30};
  JournalFiles journals{JournalFolderPath()};

  static MpvPlayerOptions PlayerOptions() {
    MpvPlayerOptions options = MpvPlayerOptions::FromEnvironment();
    options.output = WantedVideoOutput();
    return options;
  }

  Ports AsPorts() { return {files, messages, dialogs, events, desktop, player, pickers, &journals}; }

  StartEnvironment Environment(const Text& commandLine) {
    StartEnvironment environment;
    environment.commandLine = commandLine;
    environment.appFolder = DataFolder();
    environment.settingsFile = SettingsFilePath();
    environment.registryFile = RegistryFilePath();
    environment.makeTempFolder = [this] { return runFolder.emplace().Path(); };
    if (!library.Available()) environment.missingPlayer = library.FileName();
    environment.systemCodePage = AnsiCodePageOfLocale();
    environment.locale = &locale;
    environment.system = &about;
    environment.web = &web;
    environment.dictionaries = &dictionaries;
    environment.wordsFolder = WordsFolderPath();
    environment.documentsFolder = UserFolder(QStandardPaths::DocumentsLocation);
    environment.filmsFolder = UserFolder(QStandardPaths::MoviesLocation);
    environment.processes = &processes;
    if (!SoundFolder().empty()) environment.sounds = &sounds;
    environment.systemFolder = WineSystemFolder();
    return environment;
  }
};

/// The window that comes first, and the main one.
class StartingWindows {
 public:
  StartingWindows(Program& program, MpvPlayer& player) : program_(program), player_(player) {}

  /// The main window, or the one that tells that the player is missing.
  void ShowFirst() {
    if (!program_.PlayerMissing()) return ShowMain();
    start_ = std::make_unique<StartView>(program_.start);
    program_.start.cmdExit.Clicked.Connect([] { QCoreApplication::exit(0); });
    program_.start.cmdIgnore.Clicked.Connect([this] {
      ShowMain();
      start_->close();
    });
    start_->show();
  }

 private:
  void ShowMain() {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    main_ = MakeMainWindow(program_, new VideoView(player_, player_));
    AddDialogs(main_->Views(), program_);
    main_->ShowStarted(program_.LoadMainWindow(screen.width(), screen.height()));
    // Behind the window's first painting, and whoever has the keyboard.
    Post([this] {
      program_.OpenOnFirstRun();
      program_.OnFirstActivation();
    });
  }

  Program& program_;
  MpvPlayer& player_;
  std::unique_ptr<StartView> start_;
  std::unique_ptr<MainWindowView> main_;  ///< goes first
};

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

  Outside system;
  ToolkitTexts toolkitTexts;
  Program program(system.AsPorts(), system.Environment(commandLine));
  system.messages.LabelButtons(program.strings);
  if (!program.Start()) return 1;
  toolkitTexts.Use(program.options.language);
  program.LanguageChanged.Connect([&] { toolkitTexts.Use(program.options.language); });

  StartingWindows windows(program, system.player);
  windows.ShowFirst();
  return QApplication::exec();
}
