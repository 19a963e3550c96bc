#include "platform/output_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <string>

#include "platform/beside_file.h"
#include "platform/posix_files.h"
#include "platform/run_folder.h"

namespace cuewright {
namespace {

constexpr std::time_t kStraySeconds = 60;

/// Removes what runs that were killed have left in a folder: parts that nobody has locked.
void RemoveStrays(const std::string& folder) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
    const std::string path = entry.path().string();
    if (!entry.path().filename().string().starts_with(kBesidePrefix)) continue;
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!fd) continue;
    struct stat info {};
    // A file that was just made may not be locked yet.
    const bool stray = ::fstat(fd.Get(), &info) == 0 && S_ISREG(info.st_mode) && info.st_uid == ::geteuid() &&
                       std::time(nullptr) - info.st_mtim.tv_sec > kStraySeconds &&
                       ::flock(fd.Get(), LOCK_EX | LOCK_NB) == 0;
    if (stray) ::unlink(path.c_str());
  }
}

class PosixOutputFile final : public OutputFile {
 public:
  explicit PosixOutputFile(TextView target) : beside_(target), part_(FromUtf8(beside_.Path())) {
    // Tells other runs that the part is in work.
    ::flock(beside_.Open().Get(), LOCK_EX | LOCK_NB);
    RemoveStrays(FolderOf(beside_.Path()));
  }

  const Text& Part() const override { return part_; }
  void Keep() override { beside_.Keep(true); }

 private:
  BesideFile beside_;
  Text part_;
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
