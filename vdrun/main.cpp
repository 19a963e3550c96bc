#include <signal.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/product.h"
#include "core/runtime_error.h"
#include "platform/child_processes.h"
#include "platform/locale.h"
#include "platform/output_files.h"
#include "platform/posix_files.h"
#include "platform/user_folders.h"
#include "runner/run.h"
#include "runner/script.h"
#include "settings/store.h"
#include "vdrun/command_line.h"
#include "vdrun/displays.h"

namespace cuewright {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongCall = 2;
constexpr int kCancelled = 3;
constexpr int kStepMs = 100;
constexpr std::uint64_t kLargestScript = 1 << 20;
constexpr int kLeastQuantizer = 1;
constexpr int kMostQuantizer = 31;

volatile sig_atomic_t endSignal = 0;

void OnEndSignal(int signal) { endSignal = signal; }

void CatchSignals() {
  struct sigaction action {};
  action.sa_handler = OnEndSignal;
  ::sigemptyset(&action.sa_mask);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
  // A window that was closed reads no more.
  ::signal(SIGPIPE, SIG_IGN);
}

std::int64_t NowMs() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

/// A terminal shows a bar; else a desktop shows the window.
std::unique_ptr<RunDisplay> MakeDisplay(Processes& processes) {
  const auto set = [](const char* name) {
    const char* value = ::getenv(name);
    return value != nullptr && *value != '\0';
  };
  const bool desktop = set("DISPLAY") || set("WAYLAND_DISPLAY");
  if (::isatty(STDERR_FILENO) == 1 || !desktop) return MakeTerminalDisplay();
  return MakeWindowDisplay(processes, ProgramFolder() + u"vdrun-window", [] { return endSignal != 0; });
}

int QuantizerOfUser(Files& files) {
  const SettingsStore store(files, SettingsFilePath());
  const Text stored = store.GetSetting(kMainSection, u"VDQUANT", Decimal(kDefaultQuantizer));
  const auto quantizer = LeadingInt(stored);
  return quantizer < kLeastQuantizer || quantizer > kMostQuantizer ? kDefaultQuantizer : quantizer;
}

/// Carries the jobs out and gives the exit status.
int RunJobs(const std::string& script, std::vector<RunJob> jobs, RunParts parts, RunDisplay& display) {
  const std::int64_t began = NowMs();
  std::string failure;
  {
    ScriptRun run(std::move(parts), std::move(jobs));
    for (;;) {
      const ScriptRun::State state = run.Step(kStepMs);
      for (const std::string& note : run.TakeNotes()) display.Note(note);
      if (state == ScriptRun::State::Cancelled) return kCancelled;
      if (state == ScriptRun::State::Done) break;
      if (state == ScriptRun::State::Failed) {
        failure = script + ":" + std::to_string(run.FailedLine()) + ": " + run.Failure();
        break;
      }
      const std::int64_t elapsed = NowMs() - began;
      display.Show(ToUtf8(run.Target()), {run.Fraction(), TimeLeft::Of(run.Fraction(), elapsed)}, elapsed);
    }
  }
  display.End(failure);
  return failure.empty() ? kDone : kFailed;
}

int RunScript(const std::string& path) {
  PosixFiles files;
  PosixProcesses processes;
  PosixOutputFiles outputs;
  const std::unique_ptr<RunDisplay> display = MakeDisplay(processes);
  const auto fail = [&](const std::string& failure) {
    display->End(failure);
    return kFailed;
  };
  std::string bytes;
  CarryOn step;
  if (!step([&] { bytes = files.Read(FromUtf8(path), kLargestScript); })) return fail(ToUtf8(step.Last()->description));
  Script script = ReadScript(bytes);
  if (script.problem) {
    return fail(path + ":" + std::to_string(script.problem->line) + ": " + script.problem->problem);
  }
  const RunParts parts{files, processes, outputs, AnsiCodePageOfLocale(), QuantizerOfUser(files), [&display] {
                         return endSignal != 0 || display->Cancelled();
                       }};
  const int status = RunJobs(path, std::move(script.jobs), parts, *display);
  if (status == kCancelled) display->Note("cancelled; nothing was written");
  return status;
}

int Main(const std::vector<std::string>& arguments) {
  const RunRequest request = ReadRunRequest(arguments);
  switch (request.kind) {
    case RunRequest::Kind::Help:
      std::fputs(RunHelp().c_str(), stdout);
      return kDone;
    case RunRequest::Kind::Version:
      std::printf("vdrun %s\n", ToUtf8(VersionText()).c_str());
      return kDone;
    case RunRequest::Kind::Wrong:
      std::fprintf(stderr, "vdrun: %s\nTry 'vdrun --help'.\n", Printable(request.problem, false).c_str());
      return kWrongCall;
    case RunRequest::Kind::Run:
      CatchSignals();
      return RunScript(request.script);
  }
  return kWrongCall;
}

}  // namespace
}  // namespace cuewright

int main(int argc, char** argv) {
  return cuewright::Main(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
