#pragma once

#include "core/ports/files.h"
#include "core/runtime_error.h"

namespace cuewright {

/// `Files` on the system's own calls.
class PosixFiles final : public Files {
 public:
  bool Exists(TextView path) const override;
  bool IsRegular(TextView path) const override;
  std::uint64_t Size(TextView path) const override;
  std::string Read(TextView path, std::uint64_t limit) const override;
  void Replace(TextView path, const std::function<void(ByteSink&)>& write) override;
  bool Remove(TextView path) override;
  void MakePrivateFolder(TextView path) override;
};

/// The run-time error for an `errno` value of a call on `path`.
RuntimeError ErrorOfErrno(int error, TextView path);

}  // namespace cuewright
