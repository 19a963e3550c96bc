#include "platform/child_processes.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "platform/posix_files.h"

extern char** environ;

namespace cuewright {
namespace {

class PosixChild final : public ChildProcess {
 public:
  PosixChild(pid_t pid, int output) : pid_(pid), output_(output) {}
  PosixChild(const PosixChild&) = delete;
  PosixChild& operator=(const PosixChild&) = delete;
  ~PosixChild() override {
    ::close(output_);
    if (status_) return;
    ::kill(pid_, SIGKILL);
    while (::waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  std::string TakeOutput() override {
    std::string taken;
    std::array<char, 4096> piece{};
    for (;;) {
      const ssize_t count = ::read(output_, piece.data(), piece.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) return taken;
      taken.append(piece.data(), static_cast<std::size_t>(count));
    }
  }

  std::optional<int> Ended() override {
    int status = 0;
    if (!status_ && ::waitpid(pid_, &status, WNOHANG) == pid_) {
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return status_;
  }

 private:
  pid_t pid_;
  int output_;
  std::optional<int> status_;
};

/// What is opened for a child, taken away with this.
class Actions {
 public:
  explicit Actions(int output) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

std::unique_ptr<ChildProcess> PosixProcesses::Start(const Text& program, const std::vector<Text>& arguments) {
  std::vector<std::string> words = {ToUtf8(program)};
  for (const Text& argument : arguments) words.push_back(ToUtf8(argument));
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw ErrorOfErrno(errno, program);
  const Actions actions(ends[1]);
  pid_t pid = 0;
  const int error = ::posix_spawnp(&pid, argv[0], actions.Get(), nullptr, argv.data(), environ);
  ::close(ends[1]);
  if (error != 0) {
    ::close(ends[0]);
    throw ErrorOfErrno(error, program);
  }
  ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
  return std::make_unique<PosixChild>(pid, ends[0]);
}

}  // namespace cuewright
