#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace cuewright {

/// A file descriptor that is closed with this object.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~Descriptor() { Close(); }

  explicit operator bool() const { return fd_ >= 0; }
  int Get() const { return fd_; }
  /// Closes now. The number of the error, 0 for none: a full disk may be told only here.
  int Close();

 private:
  int fd_ = -1;
};

/// Reads what there is, waiting for the first byte unless the descriptor doesn't wait: how many bytes came, 0 at the
/// end, nothing after an error, which `errno` tells.
std::optional<std::size_t> ReadSome(int fd, std::span<char> to);

/// What a symbolic link names; nothing where there is none.
std::optional<std::string> TargetOfLink(const std::string& link);

/// Writes all bytes. The number of the error, 0 for none.
int WriteAll(int fd, std::string_view bytes);

/// Puts a file's bytes on the disk. The number of the error, 0 for none; a file system without flushing has none.
int Flush(int fd);

/// Puts the names of a folder's files on the disk, as far as that can be done.
void FlushFolder(const std::string& folder);

}  // namespace cuewright
