#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/descriptor.h"
#include "text/text.h"

namespace cuewright {

/// What the names of unfinished files begin with.
inline constexpr std::string_view kBesidePrefix = ".cuewright-";

/// A new file in the folder of a target, whose place it takes once it is whole. Until then the target stays as it is,
/// and a file that isn't kept goes with this object.
class BesideFile {
 public:
  /// Run-time error for a target that may not be replaced, or a folder that takes no file.
  explicit BesideFile(TextView target);
  BesideFile(const BesideFile&) = delete;
  BesideFile& operator=(const BesideFile&) = delete;
  ~BesideFile();

  const std::string& Path() const { return path_; }
  Descriptor& Open() { return fd_; }
  bool TargetExisted() const { return old_.has_value(); }

  /// Gives the file the target's rights and its name; with `flush` all of it is on the disk before and after. Run-time
  /// error when that fails; the target is then untouched.
  void Keep(bool flush);

 private:
  Text shown_;
  std::string target_;
  std::optional<struct stat> old_;  // the target, if there was one
  std::string path_;
  Descriptor fd_;
  bool kept_ = false;
};

/// Gives an open file another name once all of it is on the disk. Run-time error when either fails; `shown` stands in
/// it.
void RenameFlushed(int fd, const std::string& from, const std::string& to, TextView shown);

}  // namespace cuewright
