#include <unistd.h>

#include <QApplication>
#include <QIcon>
#include <QSocketNotifier>
#include <array>
#include <cerrno>

#include "core/folders.h"
#include "forms/run_window.h"
#include "platform/locale.h"
#include "platform/posix_files.h"
#include "platform/user_folders.h"
#include "runner/progress.h"
#include "settings/languages.h"
#include "settings/options.h"
#include "settings/store.h"
#include "ui/color_scheme.h"
#include "ui/qt_ports.h"
#include "ui/run_view.h"
#include "ui/svg_picture.h"

namespace {

using namespace cuewright;

/// The strings of the language that the user has chosen for the program.
class UserStrings {
 public:
  UserStrings() {
    CarryOn step;
    folders_.AppFolder = DataFolder();
    step([&] { languages_.BuildLanguageTable(); });
    step([&] { LoadSettings(store_, options_); });
    step([&] { languages_.LoadStored(); });
  }
  const LangStrings& Strings() const { return strings_; }
  bool RightToLeft() const { return languages_.IsRightToLeft(); }

 private:
  PosixFiles files_;
  QtMessages messages_;
  QtEventQueue events_;
  IcuLocale locale_;
  Folders folders_;
  AppOptions options_;
  LangStrings strings_;
  MessageCatalogue catalogue_;
  Languages languages_{{options_, strings_, catalogue_, folders_, files_, messages_, events_, locale_}};
  SettingsStore store_{files_, SettingsFilePath()};
};

/// Hands what comes on the standard input to the form.
void Read(RunWindow& form, QSocketNotifier& notifier) {
  std::array<char, 4096> piece{};
  const ssize_t count = ::read(STDIN_FILENO, piece.data(), piece.size());
  if (count < 0 && errno == EINTR) return;
  if (count > 0) return form.TakeInput(std::string_view(piece.data(), count));
  notifier.setEnabled(false);
  form.EndInput();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("tessaly-cuewright");
  QApplication::setDesktopFileName("tessaly-cuewright");
  LoadIcons();
  QApplication::setWindowIcon(QIcon(":/cuewright.svg"));
  const ColorScheme colorScheme;
  const UserStrings user;
  RunWindow form(user.Strings());
  form.Open(user.RightToLeft());
  RunView view(form, nullptr);
  QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [&] { Read(form, notifier); });
  form.Closed.Connect([&form] {
    // The runner knows it before this program has gone.
    if (form.Cancelled() && ::write(STDOUT_FILENO, kCancelLine.data(), kCancelLine.size()) < 0) errno = 0;
    QCoreApplication::exit(0);
  });
  if (qEnvironmentVariableIsSet("VDRUN_MINIMISED")) {
    view.showMinimized();
  } else {
    view.show();
  }
  QApplication::exec();
  return form.Cancelled() ? kWindowCancelled : 0;
}
