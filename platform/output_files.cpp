#include "platform/output_files.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <string>

#include "platform/posix_files.h"
#include "platform/run_folder.h"

namespace cuewright {
namespace {

constexpr std::string_view kPart = ".cuewright-";
constexpr std::time_t kStraySeconds = 60;

/// Removes what runs that were killed have left in a folder: parts that nobody has locked.
void RemoveStrays(const std::string& folder) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    const std::string path = entry.path().string();
    if (!entry.path().filename().string().starts_with(kPart)) continue;
    const int fd = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) continue;
    struct stat info {};
    // A new one isn't locked in its first moment.
    const bool stray = ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == ::geteuid() &&
                       std::time(nullptr) - info.st_mtim.tv_sec > kStraySeconds && ::flock(fd, LOCK_EX | LOCK_NB) == 0;
    if (stray) ::unlink(path.c_str());
    ::close(fd);
  }
}

class PosixOutputFile final : public OutputFile {
 public:
  explicit PosixOutputFile(TextView target) : shown_(target), target_(ResolveLinks(ToUtf8(target), target)) {
    struct stat info {};
    if (::stat(target_.c_str(), &info) == 0) {
      if (!S_ISREG(info.st_mode)) throw ErrorOfErrno(EISDIR, target);
      // Renaming needs no right on the old file itself, but a write-protected one is not to be replaced.
      if ((info.st_mode & 0222) == 0) throw ErrorOfErrno(EACCES, target);
      mode_ = info.st_mode & 07777;
    } else {
      const mode_t mask = ::umask(0);
      ::umask(mask);
      mode_ = 0666 & ~mask;
    }
    RemoveStrays(FolderOf(target_));
    part_ = FolderOf(target_) + "/" + std::string(kPart) + "XXXXXX";
    lock_ = ::mkostemp(part_.data(), O_CLOEXEC);
    if (lock_ < 0) throw ErrorOfErrno(errno == ENOENT ? ENOTDIR : errno, target);
    ::flock(lock_, LOCK_EX | LOCK_NB);
    shownPart_ = FromUtf8(part_);
  }
  PosixOutputFile(const PosixOutputFile&) = delete;
  PosixOutputFile& operator=(const PosixOutputFile&) = delete;
  ~PosixOutputFile() override {
    if (!kept_) ::unlink(part_.c_str());
    if (lock_ >= 0) ::close(lock_);
  }

  const Text& Part() const override { return shownPart_; }

  void Keep() override {
    const int fd = ::open(part_.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) throw ErrorOfErrno(errno, shown_);
    ::fchmod(fd, mode_);
    ::close(fd);
    RenameFlushed(part_, target_, shown_);
    kept_ = true;
  }

 private:
  Text shown_;
  std::string target_;
  std::string part_;
  Text shownPart_;
  mode_t mode_ = 0;
  int lock_ = -1;  // tells other runs that the part is in work
  bool kept_ = false;
};

class PosixWorkFolder final : public WorkFolder {
 public:
  const Text& Path() const override { return folder_.Path(); }
  void Write(std::string_view name, std::string_view bytes) override {
    PosixFiles().WritePrivate(folder_.Path() + FromUtf8(name), bytes);
  }

 private:
  RunFolder folder_;
};

}  // namespace

void RenameFlushed(const std::string& from, const std::string& to, TextView shown) {
  const int file = ::open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
  if (file < 0) throw ErrorOfErrno(errno, shown);
  // Some file systems have nothing to flush.
  const int error = ::fsync(file) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno;
  ::close(file);
  if (error != 0) throw ErrorOfErrno(error, shown);
  if (::rename(from.c_str(), to.c_str()) != 0) throw ErrorOfErrno(errno, shown);
  const int folder = ::open(FolderOf(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  ::fsync(folder);
  ::close(folder);
}

std::unique_ptr<OutputFile> PosixOutputFiles::Begin(TextView target) {
  return std::make_unique<PosixOutputFile>(Absolute(target));
}

std::unique_ptr<WorkFolder> PosixOutputFiles::MakeWorkFolder() { return std::make_unique<PosixWorkFolder>(); }

bool PosixOutputFiles::SameFile(TextView a, TextView b) const { return PosixFiles().SameFile(a, b); }

Text PosixOutputFiles::Absolute(TextView path) const {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(ToUtf8(path), error);
  return error ? Text(path) : FromUtf8(absolute.string());
}

}  // namespace cuewright
