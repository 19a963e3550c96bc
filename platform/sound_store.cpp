#include "platform/sound_store.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "core/runtime_error.h"
#include "platform/posix_files.h"

namespace cuewright {
namespace {

constexpr std::string_view kEnding = ".wav";
constexpr std::string_view kUnfinished = ".part";

/// A number that is another one for nearly every other text.
std::uint64_t Digest(std::string_view text) {
  std::uint64_t digest = 14695981039346656037ULL;
  for (const char c : text) {
    digest ^= static_cast<unsigned char>(c);
    digest *= 1099511628211ULL;
  }
  return digest;
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
    if (!path.ends_with(kEnding) && !path.ends_with(kUnfinished)) continue;
    files.push_back({path, static_cast<std::uint64_t>(info.st_size), info.st_mtim});
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
  const std::string identity = text(info.st_dev) + text(info.st_ino) + text(info.st_size) + text(info.st_mtim.tv_sec) +
                               text(info.st_mtim.tv_nsec) + text(track);
  std::array<char, 24> name{};
  std::snprintf(name.data(), name.size(), "%016llx", static_cast<unsigned long long>(Digest(identity)));
  return folder_ + u"/" + FromUtf8(std::string(name.data()) + std::string(kEnding));
}

bool FolderSoundStore::Has(TextView path) {
  const std::string bytes = ToUtf8(path);
  struct stat info {};
  if (::stat(bytes.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
  ::utimensat(AT_FDCWD, bytes.c_str(), nullptr, 0);
  return true;
}

Text FolderSoundStore::Begin(TextView path) {
  PosixFiles().MakePrivateFolder(folder_);
  return Text(path) + FromUtf8(kUnfinished);
}

void FolderSoundStore::Keep(TextView path) {
  const std::string whole = ToUtf8(path);
  if (::rename((whole + std::string(kUnfinished)).c_str(), whole.c_str()) != 0) throw ErrorOfErrno(errno, path);
  std::vector<Kept> files = KeptFiles(ToUtf8(folder_));
  std::uint64_t size = 0;
  for (const Kept& file : files) size += file.size;
  for (const Kept& file : files) {
    if (size <= most_) return;
    // One that is being written belongs to another program of the user.
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

Text SoundFolder() {
  const auto folderFrom = [](const char* variable) {
    const char* value = ::getenv(variable);
    const std::string folder = value == nullptr ? "" : value;
    return folder.starts_with('/') ? folder : std::string();
  };
  std::string folder = folderFrom("XDG_CACHE_HOME");
  if (folder.empty()) {
    const std::string home = folderFrom("HOME");
    if (home.empty()) return {};
    folder = home + "/.cache";
  }
  return FromUtf8(folder + "/tessaly-cuewright/sounds");
}

}  // namespace cuewright
