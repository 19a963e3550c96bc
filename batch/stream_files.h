#pragma once

#include <sys/types.h>

#include <optional>
#include <utility>

#include "platform/posix_files.h"

namespace cuewright {

/// The name that stands for the standard input where a file is read, and for the standard output where one is written.
inline constexpr TextView kStream = u"-";

/// The files of a run: those of the system, and the standard streams under the name "-".
class StreamFiles final : public PosixFiles {
 public:
  StreamFiles() : PosixFiles(Flush::Replacing) {}

  bool Exists(TextView path) const override;
  std::string Read(TextView path, std::uint64_t limit) const override;
  std::unique_ptr<FileReader> OpenToRead(TextView path) const override;
  void Replace(TextView path, const std::function<void(ByteSink&)>& write) override;
};

/// True when the path stands for the standard output.
bool IsStandardOutput(TextView path);

/// An identity of a file, the same for every path that leads to it; empty where there is no file.
using FileIdentity = std::pair<dev_t, ino_t>;
std::optional<FileIdentity> IdentityOfInput(TextView path);
std::optional<FileIdentity> IdentityOfResult(TextView path);

/// Why `out` is not to be written when it is the file that was read, or a stream to it; empty when it may be. A file
/// that was not read whole stays, whatever the result would be.
Text ObjectionToSource(TextView source, TextView out, bool whole);

}  // namespace cuewright
