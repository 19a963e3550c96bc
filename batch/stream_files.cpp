#include "batch/stream_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "core/memory_reader.h"
#include "core/runtime_error.h"
#include "platform/descriptor.h"

namespace cuewright {
namespace {

constexpr TextView kOutputDevice = u"/dev/stdout";
/// The names that the system has for the standard streams.
constexpr std::array<TextView, 3> kOutputNames = {kOutputDevice, u"/dev/fd/1", u"/proc/self/fd/1"};

std::string ReadStandardInput(std::uint64_t limit) {
  std::string bytes;
  std::array<char, 65536> block{};
  for (;;) {
    const std::optional<std::size_t> count = ReadSome(STDIN_FILENO, block);
    if (!count) throw ErrorOfErrno(errno, u"standard input");
    if (*count == 0) return bytes;
    if (bytes.size() + *count > limit) throw ErrorOfErrno(ENOMEM, u"standard input");
    bytes.append(block.data(), *count);
  }
}

std::optional<FileIdentity> Identity(int failed, const struct stat& info) {
  if (failed != 0) return {};
  return FileIdentity{info.st_dev, info.st_ino};
}

std::optional<FileIdentity> IdentityOf(TextView path, int streamFd) {
  struct stat info {};
  const int failed = path == kStream ? ::fstat(streamFd, &info) : ::stat(ToUtf8(path).c_str(), &info);
  return Identity(failed, info);
}

}  // namespace

bool StreamFiles::Exists(TextView path) const { return path == kStream || PosixFiles::Exists(path); }

std::string StreamFiles::Read(TextView path, std::uint64_t limit) const {
  return path == kStream ? ReadStandardInput(limit) : PosixFiles::Read(path, limit);
}

std::unique_ptr<FileReader> StreamFiles::OpenToRead(TextView path) const {
  constexpr std::uint64_t kLargestSound = std::uint64_t{4} << 30;
  if (path == kStream) return std::make_unique<MemoryReader>(ReadStandardInput(kLargestSound));
  return PosixFiles::OpenToRead(path);
}

void StreamFiles::Replace(TextView path, const std::function<void(ByteSink&)>& write) {
  PosixFiles::Replace(path == kStream ? kOutputDevice : path, write);
}

bool IsStandardOutput(TextView path) {
  return path == kStream || std::ranges::find(kOutputNames, path) != kOutputNames.end();
}

std::optional<FileIdentity> IdentityOfInput(TextView path) { return IdentityOf(path, STDIN_FILENO); }

std::optional<FileIdentity> IdentityOfResult(TextView path) { return IdentityOf(path, STDOUT_FILENO); }

Text ObjectionToSource(TextView source, TextView out, bool whole) {
  const std::optional<FileIdentity> target = IdentityOfResult(out);
  struct stat info {};
  if (!target || target != IdentityOfInput(source)) return {};
  if (!whole) return u"Not written: " + Text(out) + u" was not read whole.";
  // A stream is written behind what stands in it already; only a file that is replaced may be its own result. What
  // is no file, such as a terminal, may well be both.
  const bool file = ::fstat(STDOUT_FILENO, &info) == 0 && S_ISREG(info.st_mode);
  if (IsStandardOutput(out) && file) return u"Not written: the output is the file that is read.";
  return {};
}

}  // namespace cuewright
