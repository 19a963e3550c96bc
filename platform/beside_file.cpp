#include "platform/beside_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/posix_files.h"

namespace cuewright {
namespace {

/// The rights that a new file of this process lacks. They can only be asked for by setting them, which two threads must
/// not do at once; so that is done once.
mode_t CreationMask() {
  static const mode_t mask = [] {
    const mode_t present = ::umask(0);
    ::umask(present);
    return present;
  }();
  return mask;
}

/// For fchown: the owner stays.
constexpr uid_t kSameOwner = ~uid_t{0};

/// Gives the new file the mode and, where allowed, the owner of the one that it takes the place of; a file
/// that was not there gets the mode that a plain creation gives.
void CopyRights(int fd, const std::optional<struct stat>& old) {
  if (!old) {
    ::fchmod(fd, 0666 & ~CreationMask());
    return;
  }
  if (::fchown(fd, old->st_uid, old->st_gid) != 0 && ::fchown(fd, kSameOwner, old->st_gid) != 0) {
    // Neither is allowed: the file stays the user's own.
  }
  ::fchmod(fd, old->st_mode & 07777);
}

}  // namespace

BesideFile::BesideFile(TextView target) : shown_(target), target_(ResolveLinks(ToUtf8(target), target)) {
  struct stat info {};
  if (::stat(target_.c_str(), &info) == 0) {
    if (!S_ISREG(info.st_mode)) throw ErrorOfErrno(EISDIR, target);
    // Renaming needs no right on the old file itself, but a write-protected one is not to be replaced.
    // The bits are asked as well, since a superuser passes every test of access.
    if ((info.st_mode & 0222) == 0) throw ErrorOfErrno(EACCES, target);
    if (::access(target_.c_str(), W_OK) != 0) throw ErrorOfErrno(errno, target);
    old_ = info;
  } else if (errno != ENOENT) {
    throw ErrorOfErrno(errno, target);
  }
  path_ = FolderOf(target_) + "/" + std::string(kBesidePrefix) + "XXXXXX";
  fd_ = Descriptor(::mkostemp(path_.data(), O_CLOEXEC));
  if (!fd_) throw ErrorOfErrno(errno == ENOENT ? ENOTDIR : errno, target);
}

BesideFile::~BesideFile() {
  if (!kept_) ::unlink(path_.c_str());
}

void BesideFile::Keep(bool flush) {
  // By its name, since a program that was given the name may have put another file there.
  const Descriptor file(::open(path_.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
  if (!file) throw ErrorOfErrno(errno, shown_);
  CopyRights(file.Get(), old_);
  if (flush) {
    RenameFlushed(file.Get(), path_, target_, shown_);
  } else if (::rename(path_.c_str(), target_.c_str()) != 0) {
    throw ErrorOfErrno(errno, shown_);
  }
  kept_ = true;
}

void RenameFlushed(int fd, const std::string& from, const std::string& to, TextView shown) {
  if (const int error = Flush(fd); error != 0) throw ErrorOfErrno(error, shown);
  if (::rename(from.c_str(), to.c_str()) != 0) throw ErrorOfErrno(errno, shown);
  FlushFolder(FolderOf(to));
}

}  // namespace cuewright
