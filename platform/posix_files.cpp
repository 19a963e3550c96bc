#include "platform/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>

#include "core/counting.h"
#include "platform/beside_file.h"
#include "platform/descriptor.h"

namespace cuewright {
namespace {

[[noreturn]] void Throw(int error, TextView path) { throw ErrorOfErrno(error, path); }

struct stat StatOf(TextView path) {
  struct stat info {};
  if (::stat(ToUtf8(path).c_str(), &info) != 0) Throw(errno, path);
  return info;
}

/// Opens a regular file to read it; `size` gets its size.
Descriptor OpenRegular(TextView path, std::uint64_t& size) {
  // Non-blocking: opening a pipe without a writer would otherwise wait before it can be recognised as one.
  Descriptor fd(::open(ToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!fd) Throw(errno, path);
  struct stat info {};
  if (::fstat(fd.Get(), &info) != 0) Throw(errno, path);
  if (!S_ISREG(info.st_mode)) Throw(EISDIR, path);
  size = SizeOf(info.st_size);
  return fd;
}

class DescriptorReader final : public FileReader {
 public:
  explicit DescriptorReader(TextView path) : path_(path), fd_(OpenRegular(path, size_)) {}

  std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) override {
    std::size_t done = 0;
    while (done < count) {
      const ssize_t read = ::pread(fd_.Get(), to + done, count - done, static_cast<off_t>(offset + done));
      if (read < 0 && errno == EINTR) continue;
      if (read < 0) Throw(errno, path_);
      if (read == 0) break;
      done += SizeOf(read);
    }
    return done;
  }

 private:
  Text path_;
  std::uint64_t size_ = 0;
  Descriptor fd_;
};

/// Collects writes in blocks; the first failure is kept and the rest is dropped.
class DescriptorSink final : public ByteSink {
 public:
  explicit DescriptorSink(int fd) : fd_(fd) { block_.reserve(kBlock); }

  void Write(std::string_view bytes) override {
    if (block_.empty() && bytes.size() >= kBlock) return WriteOut(bytes);
    block_.append(bytes);
    if (block_.size() >= kBlock) Flush();
  }

  void Flush() {
    WriteOut(block_);
    block_.clear();
  }

  int Error() const { return error_; }

 private:
  static constexpr std::size_t kBlock = 1 << 16;

  void WriteOut(std::string_view bytes) {
    if (error_ == 0) error_ = WriteAll(fd_, bytes);
  }

  int fd_;
  int error_ = 0;
  std::string block_;
};

/// Writes to a descriptor that is open already.
void WriteTo(int fd, TextView path, const std::function<void(ByteSink&)>& write) {
  DescriptorSink sink(fd);
  write(sink);
  sink.Flush();
  if (sink.Error() != 0) Throw(sink.Error(), path);
}

}  // namespace

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string ResolveLinks(std::string path, TextView shown) {
  for (int hops = 0; hops < 40; ++hops) {
    const std::optional<std::string> to = TargetOfLink(path);
    if (!to) return path;
    path = to->starts_with('/') ? *to : FolderOf(path) + "/" + *to;
  }
  Throw(ELOOP, shown);
}

std::optional<int> DescriptorNamedBy(std::string path, TextView shown) {
  for (int hops = 0; hops < 40; ++hops) {
    std::array<char, PATH_MAX> folder{};
    if (::realpath(FolderOf(path).c_str(), folder.data()) == nullptr) return {};
    const std::string place(folder.data());
    if (place.starts_with("/proc/") && place.ends_with("/fd")) {
      std::array<char, PATH_MAX> own{};
      const bool ours = ::realpath("/proc/self/fd", own.data()) != nullptr && place == own.data();
      const std::string name = path.substr(path.rfind('/') + 1);
      int number = -1;
      const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
      if (!ours || error != std::errc() || end != name.data() + name.size()) Throw(EACCES, shown);
      return number;
    }
    const std::optional<std::string> to = TargetOfLink(path);
    if (!to) return {};
    path = to->starts_with('/') ? *to : FolderOf(path) + "/" + *to;
  }
  return {};
}

RuntimeError ErrorOfErrno(int error, TextView path) {
  const auto make = [&](int number, TextView what) { return RuntimeError{number, Text(what) + u": " + Text(path)}; };
  switch (error) {
    case ENOENT:
      return make(kErrorFileNotFound, u"File not found");
    case ENOTDIR:
      return make(kErrorPathNotFound, u"Path not found");
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return make(kErrorDiskFull, u"Disk full");
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENXIO:
    case ETXTBSY:
    case ELOOP:
    case ENAMETOOLONG:
      return make(kErrorPathFileAccess, u"Path/File access error");
    case ENOMEM:
      return make(kErrorOutOfMemory, u"Out of memory");
    default:
      return make(kErrorDeviceIo, u"Device I/O error (" + FromUtf8(std::strerror(error)) + u")");
  }
}

bool PosixFiles::Exists(TextView path) const {
  struct stat info {};
  return !path.empty() && ::stat(ToUtf8(path).c_str(), &info) == 0;
}

bool PosixFiles::SameFile(TextView a, TextView b) const {
  struct stat first {};
  struct stat second {};
  return ::stat(ToUtf8(a).c_str(), &first) == 0 && ::stat(ToUtf8(b).c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool PosixFiles::IsRegular(TextView path) const {
  struct stat info {};
  return ::stat(ToUtf8(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

std::uint64_t PosixFiles::Size(TextView path) const {
  const struct stat info = StatOf(path);
  if (!S_ISREG(info.st_mode)) Throw(EISDIR, path);
  return SizeOf(info.st_size);
}

std::string PosixFiles::Read(TextView path, std::uint64_t limit) const {
  std::uint64_t size = 0;
  const Descriptor fd(OpenRegular(path, size));
  if (size > limit) {
    throw RuntimeError{kErrorOutOfMemory, u"The file is too large (" + FromUtf8(std::to_string(size)) +
                                              u" bytes, at most " + FromUtf8(std::to_string(limit)) + u"): " +
                                              Text(path)};
  }
  // One byte more than the size, so that the end of the file is seen without growing the buffer.
  std::string bytes(size + 1, '\0');
  std::size_t done = 0;
  for (;;) {
    if (done == bytes.size()) {
      if (bytes.size() > limit) throw ErrorOfErrno(ENOMEM, path);
      bytes.resize(bytes.size() * 2);
    }
    const std::optional<std::size_t> count = ReadSome(fd.Get(), std::span(bytes).subspan(done));
    if (!count) Throw(errno, path);
    if (*count == 0) break;
    done += *count;
  }
  bytes.resize(done);
  return bytes;
}

std::unique_ptr<FileReader> PosixFiles::OpenToRead(TextView path) const {
  return std::make_unique<DescriptorReader>(path);
}

void PosixFiles::Replace(TextView path, const std::function<void(ByteSink&)>& write) {
  // A redirected output may be shared with other programs: it is written to, never replaced.
  if (const std::optional<int> fd = DescriptorNamedBy(ToUtf8(path), path)) return WriteTo(*fd, path, write);
  BesideFile beside(path);
  WriteTo(beside.Open().Get(), path, write);
  if (const int error = beside.Open().Close(); error != 0) Throw(error, path);
  beside.Keep(beside.TargetExisted() || flush_ == Flush::Always);
}

void PosixFiles::WritePrivate(TextView path, std::string_view bytes) {
  const std::string place = ToUtf8(path);
  // Whatever is there is removed first, so that a link put there by somebody else is not followed.
  if (::unlink(place.c_str()) != 0 && errno != ENOENT) Throw(errno, path);
  Descriptor fd(::open(place.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!fd) Throw(errno, path);
  if (const int error = WriteAll(fd.Get(), bytes); error != 0) Throw(error, path);
  if (const int error = fd.Close(); error != 0) Throw(error, path);
}

std::vector<Text> PosixFiles::Names(TextView folder) const {
  std::vector<Text> names;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(ToUtf8(folder), ignored)) {
    names.push_back(FromUtf8(entry.path().filename().string()));
  }
  return names;
}

bool PosixFiles::Remove(TextView path) {
  ::unlink(ToUtf8(path).c_str());
  return !Exists(path);
}

bool PosixFiles::MakeLink(TextView link, TextView target) {
  const std::string place = ToUtf8(link);
  const std::string to = ToUtf8(target);
  if (::symlink(to.c_str(), place.c_str()) == 0) return true;
  if (errno != EEXIST) Throw(errno, link);
  return TargetOfLink(place) == to;
}

void PosixFiles::MakePrivateFolder(TextView path) {
  const std::string bytes = ToUtf8(path);
  for (std::size_t slash = bytes.find('/', 1);; slash = bytes.find('/', slash + 1)) {
    const std::string part = bytes.substr(0, slash);
    if (!part.empty() && ::mkdir(part.c_str(), 0700) != 0 && errno != EEXIST) {
      struct stat info {};
      const int error = errno;
      if (::stat(part.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) Throw(error, path);
    }
    if (slash == std::string::npos) break;
  }
  struct stat info {};
  if (::stat(bytes.c_str(), &info) != 0) Throw(errno, path);
  if (!S_ISDIR(info.st_mode)) Throw(ENOTDIR, path);
}

}  // namespace cuewright
