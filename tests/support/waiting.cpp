#include "tests/support/waiting.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <system_error>
#include <utility>

namespace cuewright::testing {
namespace {

constexpr int kVainMs = 30000;

bool HasInput(int descriptor, int ms) {
  pollfd waited{descriptor, POLLIN, 0};
  return ::poll(&waited, 1, ms) == 1 && (waited.revents & POLLIN) != 0;
}

int Checked(int result) {
  if (result < 0) throw std::system_error(errno, std::generic_category());
  return result;
}

}  // namespace

Ended RunToEnd(ChildProcess& child) {
  constexpr int kStepMs = 50;
  Ended ended;
  for (int waited = 0; waited < kVainMs; waited += kStepMs) {
    child.Wait(kStepMs);
    const std::optional<int> status = child.Ended();
    ended.output += child.TakeOutput();
    ended.errors += child.TakeErrors();
    if (!status) continue;
    ended.status = *status;
    return ended;
  }
  return ended;
}

bool WaitForEndOf(pid_t process) {
  const int descriptor = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
  if (descriptor < 0) return errno == ESRCH;
  const bool ended = HasInput(descriptor, kVainMs);
  ::close(descriptor);
  return ended;
}

// Open at both ends, so that nobody has to wait for the other to come.
NamedPipe::NamedPipe(std::filesystem::path path)
    : descriptor_((Checked(::mkfifo(path.c_str(), 0600)), Checked(::open(path.c_str(), O_RDWR | O_CLOEXEC)))) {}

NamedPipe::~NamedPipe() { ::close(descriptor_); }

std::string NamedPipe::ReadLine() const {
  std::string line;
  char next = 0;
  while (!line.ends_with('\n') && HasInput(descriptor_, kVainMs) && ::read(descriptor_, &next, 1) == 1) line += next;
  return line;
}

void NamedPipe::Write(const std::string& bytes) const {
  const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
  if (std::cmp_not_equal(written, bytes.size())) throw std::system_error(errno, std::generic_category());
}

bool WaitForChange(const std::filesystem::path& folder, const std::function<bool()>& holds) {
  const int watch = Checked(::inotify_init1(IN_CLOEXEC));
  Checked(::inotify_add_watch(watch, folder.c_str(), IN_CREATE | IN_MODIFY | IN_MOVED_TO | IN_DELETE));
  std::array<char, 4096> events;
  bool held = holds();
  while (!held && HasInput(watch, kVainMs) && ::read(watch, events.data(), events.size()) > 0) held = holds();
  ::close(watch);
  return held;
}

}  // namespace cuewright::testing
