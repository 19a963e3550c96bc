#include "tests/support/run_process.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>

namespace cuewright::test {
namespace {

struct Ends {
  int read = -1;
  int write = -1;
};

Ends MakePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("pipe2 failed");
  return {ends[0], ends[1]};
}

Ends MakeTerminal() {
  Ends ends;
  if (::openpty(&ends.read, &ends.write, nullptr, nullptr, nullptr) != 0) throw std::runtime_error("openpty failed");
  ::fcntl(ends.read, F_SETFD, FD_CLOEXEC);
  ::fcntl(ends.write, F_SETFD, FD_CLOEXEC);
  return ends;
}

/// Runs in the child between fork and exec: calls that are safe there alone.
[[noreturn]] void Become(char* const* argv, const char* folder, int in, int out, int error) {
  if (::dup2(in, STDIN_FILENO) >= 0 && ::dup2(out, STDOUT_FILENO) >= 0 && ::dup2(error, STDERR_FILENO) >= 0 &&
      (*folder == '\0' || ::chdir(folder) == 0)) {
    ::execv(argv[0], argv);
  }
  ::_exit(127);
}

/// Takes what is there; false at the end of the stream.
bool Drain(int fd, std::string& text) {
  std::array<char, 65536> block{};
  const ssize_t count = ::read(fd, block.data(), block.size());
  if (count < 0 && errno == EINTR) return true;
  if (count <= 0) return false;  // a terminal whose other end has closed is told as an error
  text.append(block.data(), static_cast<std::size_t>(count));
  return true;
}

void DrainBoth(int out, int error, ProcessResult& result) {
  std::array<pollfd, 2> waits = {pollfd{out, POLLIN, 0}, pollfd{error, POLLIN, 0}};
  while (waits[0].fd >= 0 || waits[1].fd >= 0) {
    if (::poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) return;
    if (waits[0].revents != 0 && !Drain(out, result.out)) waits[0].fd = -1;
    if (waits[1].revents != 0 && !Drain(error, result.error)) waits[1].fd = -1;
  }
}

}  // namespace

ProcessResult RunProcess(const std::vector<std::string>& command, const ProcessOptions& options) {
  std::vector<char*> argv;
  for (const std::string& argument : command) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  const Ends out = MakePipe();
  const Ends error = options.errorIsTerminal ? MakeTerminal() : MakePipe();
  const int in = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  const int target = options.outPath.empty() ? out.write : ::open(options.outPath.c_str(), O_WRONLY | O_CLOEXEC);

  ProcessResult result;
  const pid_t child = ::fork();
  if (child == 0) Become(argv.data(), options.folder.c_str(), in, target, error.write);
  if (target != out.write) ::close(target);
  ::close(in);
  ::close(out.write);
  ::close(error.write);
  if (child > 0) {
    DrainBoth(out.read, error.read, result);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  ::close(out.read);
  ::close(error.read);
  return result;
}

}  // namespace cuewright::test
