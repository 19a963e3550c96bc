#include "platform/child_processes.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cerrno>
#include <optional>
#include <thread>
#include <utility>

#include "core/counting.h"
#include "platform/descriptor.h"
#include "platform/posix_files.h"
#include "platform/run_folder.h"

extern char** environ;

namespace cuewright {
namespace {

constexpr std::size_t kMostUntold = 64 * 1024;  ///< bytes kept for a program that doesn't read

struct Pipe {
  Descriptor read;
  Descriptor write;
};

Pipe MakePipe(TextView program) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw ErrorOfErrno(errno, program);
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

/// Bytes that a program can have written before they are taken.
constexpr int kPipeSize = 1 << 20;

/// All that can be read without waiting.
std::string ReadAll(Descriptor& end) {
  std::string taken;
  std::array<char, 1 << 16> piece;
  while (end) {
    const std::optional<std::size_t> count = ReadSome(end.Get(), piece);
    if (!count) break;
    if (*count == 0) end.Close();
    taken.append(piece.data(), *count);
  }
  return taken;
}

/// This program's ends of a child's pipes; one that isn't there is -1.
struct OwnEnds {
  Descriptor input;
  Descriptor output;
  Descriptor errors;
};

class PosixChild final : public ChildProcess {
 public:
  PosixChild(pid_t pid, OwnEnds ends, bool outlives) : pid_(pid), ends_(std::move(ends)), outlives_(outlives) {}
  PosixChild(const PosixChild&) = delete;
  PosixChild& operator=(const PosixChild&) = delete;
  ~PosixChild() override {
    if (Ended()) return;
    if (outlives_) {
      // Its status must be collected, or it stays in the system's process table.
      std::thread([pid = pid_] { WaitForEnd(pid); }).detach();
      return;
    }
    ::kill(pid_, SIGKILL);
    WaitForEnd(pid_);
  }

  std::string TakeOutput() override { return ReadAll(ends_.output); }
  std::string TakeErrors() override { return ReadAll(ends_.errors); }

  void Tell(std::string_view bytes) override {
    // All bytes or none, so that the child never reads half a message.
    if (ends_.input && untold_.size() + bytes.size() <= kMostUntold) untold_ += bytes;
    TellRest();
  }

  bool HasUntold() override {
    TellRest();
    return !untold_.empty();
  }

  void Wait(int ms) override { WaitFor(ends_.output.Get(), ends_.errors.Get(), ms); }

  void WaitForOutput(int ms) override {
    if (ends_.output) return WaitFor(ends_.output.Get(), -1, ms);
    Wait(ms);
  }

  std::optional<int> Ended() override {
    int status = 0;
    if (!status_ && ::waitpid(pid_, &status, WNOHANG) == pid_) {
      status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return status_;
  }

 private:
  /// Returns when one of these pipes has something or is closed, -1 for none, at the latest after `ms`.
  void WaitFor(int one, int other, int ms) {
    TellRest();
    std::array<pollfd, 2> watched = {pollfd{one, POLLIN, 0}, pollfd{other, POLLIN, 0}};
    // With both ends closed there is nothing to poll; the child is about to end.
    const bool closed = one < 0 && other < 0;
    ::poll(watched.data(), watched.size(), closed ? std::min(ms, 5) : ms);
  }

  /// Hands over as much as can be without waiting.
  void TellRest() {
    while (ends_.input && !untold_.empty()) {
      const ssize_t count = ::write(ends_.input.Get(), untold_.data(), untold_.size());
      if (count < 0 && errno == EINTR) continue;
      if (count < 0 && errno != EAGAIN) untold_.clear();  // it reads no more
      if (count <= 0) return;
      untold_.erase(0, SizeOf(count));
    }
  }

  static void WaitForEnd(pid_t pid) {
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  pid_t pid_;
  OwnEnds ends_;
  bool outlives_;
  std::string untold_;
  std::optional<int> status_;
};

/// The file actions of a child that is to be spawned.
class Actions {
 public:
  Actions() { ::posix_spawn_file_actions_init(&actions_); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }

  /// The child's stream is the pipe's end, or nothing when there is none.
  void Stream(int stream, int end, int openMode) {
    if (end >= 0) {
      ::posix_spawn_file_actions_adddup2(&actions_, end, stream);
    } else {
      ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", openMode, 0);
    }
  }
  /// The child has the descriptor too, as the first behind its streams.
  void Keep(int fd) { ::posix_spawn_file_actions_adddup2(&actions_, fd, STDERR_FILENO + 1); }
  void Folder(const std::string& folder) {
    if (!folder.empty()) ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
  }
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

/// The signals whose handling this program may have changed, and a child must not inherit.
constexpr std::array<int, 4> kOwnSignals = {SIGPIPE, SIGINT, SIGTERM, SIGHUP};

/// The attributes of a child that outlives this program: default signals and a session of its own.
class Attributes {
 public:
  Attributes() {
    ::posix_spawnattr_init(&attributes_);
    sigset_t none;
    sigset_t reset;
    ::sigemptyset(&none);
    ::sigemptyset(&reset);
    for (const int signal : kOwnSignals) ::sigaddset(&reset, signal);
    ::posix_spawnattr_setsigmask(&attributes_, &none);
    ::posix_spawnattr_setsigdefault(&attributes_, &reset);
    constexpr short kFlags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID;
    ::posix_spawnattr_setflags(&attributes_, kFlags);
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

/// Starts a child that goes on when this program ends. 0, or an errno value.
int SpawnApart(pid_t& pid, const std::array<int, 3>& streams, const StartOptions& options, Words& argv,
               Words& environment) {
  const Descriptor hold = options.holds.empty() ? Descriptor() : HoldFolder(ToUtf8(options.holds));
  Actions actions;
  for (int stream = 0; stream < CountOf(streams); ++stream) {
    actions.Stream(stream, ItemAt(streams, stream), stream == 0 ? O_RDONLY : O_WRONLY);
  }
  // The copy lives as long as the child does.
  if (hold) actions.Keep(hold.Get());
  actions.Folder(ToUtf8(options.folder));
  const Attributes attributes;
  return ::posix_spawnp(&pid, argv.Get()[0], actions.Get(), attributes.Get(), argv.Get(), environment.Get());
}

/// In the new process: becomes the program, or gives an errno value. Nothing here may allocate memory, since another
/// thread of this program may have been doing so at the fork.
int BecomeProgram(pid_t parent, const std::array<int, 3>& streams, const char* folder, char** argv,
                  char** environment) {
  // The child ends with this program, however that ends. It may have ended already.
  if (::prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return errno;
  if (::getppid() != parent) ::_exit(1);
  for (const int signal : kOwnSignals) ::signal(signal, SIG_DFL);
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  for (int stream = 0; stream < CountOf(streams); ++stream) {
    const int given = ItemAt(streams, stream);
    const int fd = given >= 0 ? given : ::open("/dev/null", stream == 0 ? O_RDONLY : O_WRONLY);
    if (fd < 0 || (fd != stream && ::dup2(fd, stream) < 0)) return errno;
  }
  if (*folder != '\0' && ::chdir(folder) != 0) return errno;
  ::execvpe(argv[0], argv, environment);
  return errno;
}

/// Starts a child that ends with this program at the latest. 0, or an errno value.
int StartBound(pid_t& pid, const std::array<int, 3>& streams, const std::string& folder, Words& argv,
               Words& environment) {
  std::array<int, 2> failure{};
  if (::pipe2(failure.data(), O_CLOEXEC) != 0) return errno;
  Descriptor read(failure[0]);
  Descriptor write(failure[1]);
  char** words = argv.Get();
  char** variables = environment.Get();
  const pid_t parent = ::getpid();
  pid = ::fork();
  if (pid < 0) return errno;
  if (pid == 0) {
    const int error = BecomeProgram(parent, streams, folder.c_str(), words, variables);
    const ssize_t told = ::write(write.Get(), &error, sizeof error);
    ::_exit(told == sizeof error ? 1 : 2);
  }
  write.Close();
  std::array<char, sizeof(int)> told{};
  if (ReadSome(read.Get(), told) != told.size()) return 0;
  while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
  }
  return std::bit_cast<int>(told);
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
  const std::array<int, 3> streams = {input.read.Get(), output.write.Get(), errors.write.Get()};
  pid_t pid = 0;
  const int error = options.outlives ? SpawnApart(pid, streams, options, argv, environment)
                                     : StartBound(pid, streams, ToUtf8(options.folder), argv, environment);
  if (error != 0) throw ErrorOfErrno(error, program);
  // A program that writes much needn't wait until it is asked again; where the system grants less, it waits.
  if (output.read) ::fcntl(output.read.Get(), F_SETPIPE_SZ, kPipeSize);
  for (const Descriptor* end : {&output.read, &errors.read}) {
    if (*end) ::fcntl(end->Get(), F_SETFL, O_NONBLOCK);
  }
  if (input.write) ::fcntl(input.write.Get(), F_SETFL, O_NONBLOCK);
  return std::make_unique<PosixChild>(
      pid, OwnEnds{std::move(input.write), std::move(output.read), std::move(errors.read)}, options.outlives);
}

}  // namespace cuewright
