#include "platform/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace cuewright {

int Descriptor::Close() {
  const int fd = std::exchange(fd_, -1);
  return fd < 0 || ::close(fd) == 0 ? 0 : errno;
}

int WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(fd, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
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
