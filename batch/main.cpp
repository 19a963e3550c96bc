#include <unistd.h>

#include <array>
#include <climits>
#include <string>
#include <variant>
#include <vector>

#include "batch/command_line.h"
#include "batch/commands.h"
#include "batch/console.h"
#include "batch/session.h"
#include "core/product.h"
#include "platform/locale.h"
#include "platform/posix_files.h"

namespace cuewright {
namespace {

/// The folder of the running program; empty when the system does not tell it.
Text ProgramFolder() {
  std::array<char, PATH_MAX> path{};
  const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) return {};
  const std::string whole(path.data(), static_cast<std::size_t>(length));
  return FromUtf8(whole.substr(0, whole.rfind('/')));
}

int Run(const Request& request, Console& console) {
  if (request.quiet) console.SetQuiet();
  PosixFiles files;
  Session session(request, files, console, AnsiCodePageOfLocale());
  if (!session.Start(ProgramFolder())) return kExitUsage;
  return RunCommand(request, session, console);
}

int Complain(const std::string& problem, Console& console) {
  console.Complain("cuewright-batch: " + problem + "\nTry 'cuewright-batch --help'.");
  return kExitUsage;
}

int Main(const std::vector<std::string>& arguments) {
  Console console;
  const CommandLine line = ReadCommandLine(arguments);
  int status = kExitDone;
  if (const auto* wrong = std::get_if<WrongUsage>(&line)) {
    status = Complain(wrong->problem, console);
  } else if (const auto* help = std::get_if<HelpWanted>(&line)) {
    console.Out(HelpText(help->command));
  } else if (std::holds_alternative<VersionWanted>(line)) {
    console.Out("cuewright-batch " + ToUtf8(VersionText()) + "\n");
  } else {
    status = Run(std::get<Request>(line), console);
  }
  if (!console.Finish() && status == kExitDone) status = kExitFailed;
  return status;
}

}  // namespace
}  // namespace cuewright

int main(int argc, char** argv) {
  return cuewright::Main(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
