#include "platform/run_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <string_view>

#include "platform/posix_files.h"
#include "platform/user_folders.h"

namespace cuewright {
namespace {

constexpr std::string_view kPrefix = "cuewrite-";
constexpr std::string_view kRandom = "XXXXXX";
constexpr std::time_t kStraySeconds = 60;

Descriptor OpenFolder(const std::string& path) {
  return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

/// Removes a folder unless somebody holds it.
void RemoveUnlessHeld(const std::string& path, const Descriptor& folder) {
  if (::flock(folder.Get(), LOCK_EX | LOCK_NB) != 0) return;
  std::error_code ignored;
  std::filesystem::remove_all(path, ignored);
}

void RemoveStrays(const std::string& base) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(base, ignored)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with(kPrefix) || name.size() != kPrefix.size() + kRandom.size()) continue;
    const Descriptor folder = OpenFolder(entry.path().string());
    if (!folder) continue;
    struct stat info {};
    // A folder that was just made may not be locked yet.
    const bool own = ::fstat(folder.Get(), &info) == 0 && info.st_uid == ::geteuid() &&
                     (info.st_mode & 07777) == 0700 && std::time(nullptr) - info.st_mtim.tv_sec > kStraySeconds;
    if (own) RemoveUnlessHeld(entry.path().string(), folder);
  }
}

}  // namespace

Descriptor HoldFolder(const std::string& path) {
  Descriptor folder = OpenFolder(path);
  if (folder) ::flock(folder.Get(), LOCK_SH | LOCK_NB);
  return folder;
}

RunFolder::RunFolder() {
  for (const std::string& base : RunFolderBases()) {
    RemoveStrays(base);
    path_ = base + "/" + std::string(kPrefix) + std::string(kRandom);
    if (::mkdtemp(path_.data()) == nullptr) continue;
    hold_ = HoldFolder(path_);
    shown_ = FromUtf8(path_ + "/");
    return;
  }
  throw ErrorOfErrno(errno, u"/tmp");
}

RunFolder::~RunFolder() {
  if (hold_) RemoveUnlessHeld(path_, hold_);
}

}  // namespace cuewright
