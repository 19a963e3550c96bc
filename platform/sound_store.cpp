#include "platform/sound_store.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "core/counting.h"
#include "core/runtime_error.h"
#include "platform/beside_file.h"
#include "platform/descriptor.h"
#include "platform/posix_files.h"
#include "text/byte_numbers.h"

namespace cuewright {
namespace {

constexpr std::string_view kEnding = ".wav";
constexpr std::string_view kUnfinished = ".part";
constexpr std::string_view kTable = ".bands";   // beside a sound: what it is made of
constexpr std::string_view kShots = ".shots";   // what was measured of a film's pictures
constexpr std::string_view kVersion = "4/";     // of the way in which the sounds are made
constexpr std::time_t kStraySeconds = 10 * 60;  // what is being written was written to a moment ago
constexpr std::size_t kHeader = 8;

/// A 64-bit hash (FNV-1a).
std::uint64_t Digest(std::string_view text) {
  std::uint64_t digest = 14695981039346656037ULL;
  for (const char c : text) {
    digest ^= ByteOf(c);
    digest *= 1099511628211ULL;
  }
  return digest;
}

/// True when a wave file is as long as its header says; one that was cut off isn't.
bool IsWhole(const std::string& path, std::uint64_t size) {
  std::array<char, kHeader> header{};
  const Descriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (ReadSome(fd.Get(), header) != header.size() || std::string_view(header.data(), 4) != "RIFF") return false;
  const std::uint64_t told = NumberOf(std::string_view(header.data(), kHeader).substr(4));
  // The header has no room for the length of a wave beyond 4 GiB.
  return told == 0xFFFFFFFF ? size >= told : told + kHeader == size;
}

struct Kept {
  std::string path;
  std::uint64_t size = 0;
  timespec used{};
};

/// The files of the store, those not used for the longest time first.
std::vector<Kept> KeptFiles(const std::string& folder) {
  std::vector<Kept> files;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    struct stat info {};
    const std::string path = entry.path().string();
    if (::lstat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) continue;
    if (!path.ends_with(kEnding) && !path.ends_with(kUnfinished) && !path.ends_with(kTable) &&
        !path.ends_with(kShots)) {
      continue;
    }
    files.push_back({path, SizeOf(info.st_size), info.st_mtim});
  }
  std::sort(files.begin(), files.end(), [](const Kept& a, const Kept& b) {
    return std::pair(a.used.tv_sec, a.used.tv_nsec) < std::pair(b.used.tv_sec, b.used.tv_nsec);
  });
  return files;
}

}  // namespace

FolderSoundStore::FolderSoundStore(TextView folder, std::uint64_t most) : folder_(folder), most_(most) {}

Text FolderSoundStore::PathFor(TextView film, int track) {
  struct stat info {};
  if (::stat(ToUtf8(film).c_str(), &info) != 0) throw ErrorOfErrno(errno, film);
  const auto text = [](auto number) { return std::to_string(number) + "/"; };
  const std::string identity = std::string(kVersion) + text(info.st_dev) + text(info.st_ino) + text(info.st_size) +
                               text(info.st_mtim.tv_sec) + text(info.st_mtim.tv_nsec) + text(track);
  std::array<char, 24> name{};
  std::snprintf(name.data(), name.size(), "%016llx", static_cast<unsigned long long>(Digest(identity)));
  return folder_ + u"/" + FromUtf8(std::string(name.data()) + std::string(kEnding));
}

bool FolderSoundStore::Has(TextView path) {
  const std::string bytes = ToUtf8(path);
  struct stat info {};
  if (::stat(bytes.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  if (!IsWhole(bytes, SizeOf(info.st_size))) {
    ::unlink(bytes.c_str());
    return false;
  }
  ::utimensat(AT_FDCWD, bytes.c_str(), nullptr, 0);
  return true;
}

Text FolderSoundStore::Begin(TextView path) {
  PosixFiles().MakePrivateFolder(folder_);
  // Unfinished files of programs that were killed.
  for (const Kept& file : KeptFiles(ToUtf8(folder_))) {
    if (file.path.ends_with(kUnfinished) && std::time(nullptr) - file.used.tv_sec > kStraySeconds) {
      ::unlink(file.path.c_str());
    }
  }
  return Text(path) + FromUtf8(kUnfinished);
}

void FolderSoundStore::Keep(TextView path) {
  const std::string whole = ToUtf8(path);
  const std::string part = whole + std::string(kUnfinished);
  const Descriptor fd(::open(part.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  if (!fd) throw ErrorOfErrno(errno, path);
  RenameFlushed(fd.Get(), part, whole, path);
  std::vector<Kept> files = KeptFiles(ToUtf8(folder_));
  std::uint64_t size = 0;
  for (const Kept& file : files) size += file.size;
  for (const Kept& file : files) {
    if (size <= most_) return;
    // Unfinished files may belong to another program that is still writing.
    if (file.path == whole || file.path.ends_with(kUnfinished)) continue;
    if (::unlink(file.path.c_str()) == 0) size -= file.size;
  }
}

void FolderSoundStore::Discard(TextView path) { ::unlink((ToUtf8(path) + std::string(kUnfinished)).c_str()); }

void FolderSoundStore::Empty() {
  for (const Kept& file : KeptFiles(ToUtf8(folder_))) {
    if (::unlink(file.path.c_str()) != 0 && errno != ENOENT) throw ErrorOfErrno(errno, FromUtf8(file.path));
  }
}

}  // namespace cuewright
