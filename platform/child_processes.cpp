#include "platform/child_processes.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <thread>
#include <utility>

#include "platform/posix_files.h"

extern char** environ;

namespace cuewright {
namespace {

/// One end of a pipe, closed with this.
class PipeEnd {
 public:
  explicit PipeEnd(int fd = -1) : fd_(fd) {}
  PipeEnd(PipeEnd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  PipeEnd& operator=(PipeEnd&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~PipeEnd() { Close(); }
  int Get() const { return fd_; }
  void Close() {
    if (fd_ >= 0) ::close(std::exchange(fd_, -1));
  }

 private:
  int fd_;
};

struct Pipe {
  PipeEnd read;
  PipeEnd write;
};

Pipe MakePipe(TextView program) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw ErrorOfErrno(errno, program);
  return {PipeEnd(ends[0]), PipeEnd(ends[1])};
}

/// All that can be read without waiting.
std::string ReadAll(PipeEnd& end) {
  std::string taken;
  std::array<char, 4096> piece{};
  while (end.Get() >= 0) {
    const ssize_t count = ::read(end.Get(), piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count == 0) end.Close();
    if (count <= 0) break;
    taken.append(piece.data(), static_cast<std::size_t>(count));
  }
  return taken;
}

/// This program's ends of a child's pipes; one that isn't there is -1.
struct OwnEnds {
  PipeEnd input;
  PipeEnd output;
  PipeEnd errors;
};

class PosixChild final : public ChildProcess {
 public:
  PosixChild(pid_t pid, OwnEnds ends, bool outlives) : pid_(pid), ends_(std::move(ends)), outlives_(outlives) {}
  PosixChild(const PosixChild&) = delete;
  PosixChild& operator=(const PosixChild&) = delete;
  ~PosixChild() override {
    if (Ended()) return;
    if (outlives_) {
      // Somebody has to take its status, or it stays in the system's table.
      std::thread([pid = pid_] { WaitFor(pid); }).detach();
      return;
    }
    ::kill(pid_, SIGKILL);
    WaitFor(pid_);
  }

  std::string TakeOutput() override { return ReadAll(ends_.output); }
  std::string TakeErrors() override { return ReadAll(ends_.errors); }

  void Tell(std::string_view bytes) override {
    while (ends_.input.Get() >= 0 && !bytes.empty()) {
      const ssize_t count = ::write(ends_.input.Get(), bytes.data(), bytes.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void Wait(int ms) override {
    std::array<pollfd, 2> watched = {pollfd{ends_.output.Get(), POLLIN, 0}, pollfd{ends_.errors.Get(), POLLIN, 0}};
    // With both ends closed its end is near, and can't be waited for here.
    const bool closed = ends_.output.Get() < 0 && ends_.errors.Get() < 0;
    ::poll(watched.data(), watched.size(), closed ? std::min(ms, 5) : ms);
  }

  std::optional<int> Ended() override {
    int status = 0;
    if (!status_ && ::waitpid(pid_, &status, WNOHANG) == pid_) {
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return status_;
  }

 private:
  static void WaitFor(pid_t pid) {
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  pid_t pid_;
  OwnEnds ends_;
  bool outlives_;
  std::optional<int> status_;
};

/// What is opened for a child, taken away with this.
class Actions {
 public:
  Actions() { ::posix_spawn_file_actions_init(&actions_); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }

  /// The child's stream is the pipe's end, or nothing when there is none.
  void Stream(int stream, const PipeEnd& end, int openMode) {
    if (end.Get() >= 0) {
      ::posix_spawn_file_actions_adddup2(&actions_, end.Get(), stream);
    } else {
      ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", openMode, 0);
    }
  }
  void Folder(const std::string& folder) {
    if (!folder.empty()) ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
  }
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

/// What a child keeps of this program: nothing of its signals, and with `apart` not its terminal either.
class Attributes {
 public:
  explicit Attributes(bool apart) {
    ::posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigset_t reset;
    ::sigemptyset(&none);
    ::sigemptyset(&reset);
    for (const int signal : {SIGPIPE, SIGINT, SIGTERM, SIGHUP}) ::sigaddset(&reset, signal);
    ::posix_spawnattr_setsigmask(&attributes_, &none);
    ::posix_spawnattr_setsigdefault(&attributes_, &reset);
    const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | (apart ? POSIX_SPAWN_SETSID : 0);
    ::posix_spawnattr_setflags(&attributes_, static_cast<short>(flags));
  }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }
  const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_{};
};

/// Texts in the form in which a program gets its arguments and its environment.
class Words {
 public:
  void Add(std::string word) { words_.push_back(std::move(word)); }
  char** Get() {
    pointers_.clear();
    for (std::string& word : words_) pointers_.push_back(word.data());
    pointers_.push_back(nullptr);
    return pointers_.data();
  }

 private:
  std::vector<std::string> words_;
  std::vector<char*> pointers_;
};

Words EnvironmentWith(const std::vector<std::pair<Text, Text>>& variables) {
  Words words;
  const auto replaced = [&](std::string_view entry) {
    for (const auto& [name, value] : variables) {
      if (entry.starts_with(ToUtf8(name) + "=")) return true;
    }
    return false;
  };
  for (char** entry = environ; *entry != nullptr; ++entry) {
    if (!replaced(*entry)) words.Add(*entry);
  }
  for (const auto& [name, value] : variables) words.Add(ToUtf8(name) + "=" + ToUtf8(value));
  return words;
}

}  // namespace

std::unique_ptr<ChildProcess> PosixProcesses::Start(const Text& program, const std::vector<Text>& arguments,
                                                    const StartOptions& options) {
  Words argv;
  argv.Add(ToUtf8(program));
  for (const Text& argument : arguments) argv.Add(ToUtf8(argument));
  Words environment = EnvironmentWith(options.variables);
  Pipe input = options.input ? MakePipe(program) : Pipe();
  Pipe output = options.outlives ? Pipe() : MakePipe(program);
  Pipe errors = options.errors ? MakePipe(program) : Pipe();
  Actions actions;
  actions.Stream(STDIN_FILENO, input.read, O_RDONLY);
  actions.Stream(STDOUT_FILENO, output.write, O_WRONLY);
  actions.Stream(STDERR_FILENO, errors.write, O_WRONLY);
  actions.Folder(ToUtf8(options.folder));
  const Attributes attributes(options.outlives);
  pid_t pid = 0;
  const int error = ::posix_spawnp(&pid, argv.Get()[0], actions.Get(), attributes.Get(), argv.Get(), environment.Get());
  if (error != 0) throw ErrorOfErrno(error, program);
  for (const PipeEnd* end : {&output.read, &errors.read}) {
    if (end->Get() >= 0) ::fcntl(end->Get(), F_SETFL, O_NONBLOCK);
  }
  return std::make_unique<PosixChild>(
      pid, OwnEnds{std::move(input.write), std::move(output.read), std::move(errors.read)}, options.outlives);
}

}  // namespace cuewright
