#pragma once

#include <optional>
#include <string>

#include "core/ports/files.h"
#include "core/runtime_error.h"

namespace cuewright {

/// `Files` on the system's own calls.
class PosixFiles : public Files {
 public:
  /// What `Replace` flushes to the disk before it is done: every file, or, for those who write thousands, only one that
  /// replaces an older file. Without a flush a crash of the system soon afterwards may lose a new file.
  enum class Flush { Always, Replacing };
  explicit PosixFiles(Flush flush = Flush::Always) : flush_(flush) {}

  bool Exists(TextView path) const override;
  bool IsRegular(TextView path) const override;
  bool SameFile(TextView a, TextView b) const override;
  std::uint64_t Size(TextView path) const override;
  std::string Read(TextView path, std::uint64_t limit) const override;
  std::unique_ptr<FileReader> OpenToRead(TextView path) const override;
  void Replace(TextView path, const std::function<void(ByteSink&)>& write) override;
  void WritePrivate(TextView path, std::string_view bytes) override;
  std::vector<Text> Names(TextView folder) const override;
  bool Remove(TextView path) override;
  bool MakeLink(TextView link, TextView target) override;
  void MakePrivateFolder(TextView path) override;

 private:
  Flush flush_;
};

/// The folder that a path's file stands in, without a "/" at its end; "." for a bare name.
std::string FolderOf(const std::string& path);

/// The file that a path leads to behind its links, so that a link stays a link. A link to nothing leads to
/// the place that it names. Run-time error for links in a circle; `shown` stands in it.
std::string ResolveLinks(std::string path, TextView shown);

/// The descriptor of this process that a path such as "/dev/stdout" or "/dev/fd/1" stands for; empty for any other
/// path. One of another process gives run-time error 75; `shown` stands in it.
std::optional<int> DescriptorNamedBy(std::string path, TextView shown);

/// The run-time error for an `errno` value of a call on `path`.
RuntimeError ErrorOfErrno(int error, TextView path);

}  // namespace cuewright
