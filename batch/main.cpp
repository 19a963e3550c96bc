#include <malloc.h>
#include <unistd.h>

#include <string>
#include <variant>
#include <vector>

#include "batch/command_line.h"
#include "batch/commands.h"
#include "batch/console.h"
#include "batch/session.h"
#include "batch/stream_files.h"
#include "core/product.h"
#include "platform/locale.h"
#include "platform/user_folders.h"

namespace cuewright {
namespace {

int Complain(const std::string& problem, Console& console) {
  console.Complain("cuewright-batch: " + problem + "\nTry 'cuewright-batch --help'.");
  return kExitUsage;
}

/// Writes what is left and ends the process. The memory goes with it: taking a large document apart piece by piece
/// would only cost time.
[[noreturn]] void End(int status, Console& console) {
  if (!console.Finish() && status == kExitDone) status = kExitFailed;
  ::_exit(status);
}

[[noreturn]] void Run(const Request& request, Console& console) {
  if (request.quiet) console.SetQuiet();
  StreamFiles files;
  Session session(request, files, console, AnsiCodePageOfLocale());
  const bool started = session.Start(DataFolder());
  End(started ? RunCommand(request, session, console) : kExitUsage, console);
}

[[noreturn]] void Main(const std::vector<std::string>& arguments) {
  Console console;
  const CommandLine line = ReadCommandLine(arguments);
  if (const auto* request = std::get_if<Request>(&line)) Run(*request, console);
  if (const auto* wrong = std::get_if<WrongUsage>(&line)) End(Complain(wrong->problem, console), console);
  if (const auto* help = std::get_if<HelpWanted>(&line)) {
    console.Out(HelpText(help->command));
  } else {
    console.Out("cuewright-batch " + ToUtf8(VersionText()) + "\n");
  }
  End(kExitDone, console);
}

}  // namespace
}  // namespace cuewright

int main(int argc, char** argv) {
  // A document is many small texts: memory is asked of the system in a few large pieces.
  ::mallopt(M_TOP_PAD, 8 << 20);
  cuewright::Main(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
