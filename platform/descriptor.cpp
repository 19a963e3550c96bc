#include "platform/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>

#include "core/counting.h"

namespace cuewright {

int Descriptor::Close() {
  const int fd = std::exchange(fd_, -1);
  return fd < 0 || ::close(fd) == 0 ? 0 : errno;
}

std::optional<std::size_t> ReadSome(int fd, std::span<char> to) {
  ssize_t count = 0;
  do {
    count = ::read(fd, to.data(), to.size());
  } while (count < 0 && errno == EINTR);
  return count < 0 ? std::nullopt : std::optional(SizeOf(count));
}

std::optional<std::string> TargetOfLink(const std::string& link) {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
  return length < 0 ? std::nullopt : std::optional(std::string(target.data(), SizeOf(length)));
}

int WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(fd, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(SizeOf(count));
  }
  return 0;
}

int Flush(int fd) {
  while (::fsync(fd) != 0) {
    if (errno != EINTR) return errno == EINVAL || errno == EROFS ? 0 : errno;
  }
  return 0;
}

void FlushFolder(const std::string& folder) {
  const Descriptor open(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (open) ::fsync(open.Get());
}

}  // namespace cuewright
