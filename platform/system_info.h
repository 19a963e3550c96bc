#pragma once

#include <string>
#include <utility>

#include "core/ports/system_info.h"

namespace cuewright {

/// The name and the memory of a Linux system, from its files.
class LinuxSystemInfo final : public SystemInfo {
 public:
  /// `root` stands before the paths of the files: "/etc/os-release", else "/usr/lib/os-release", "/proc/meminfo" and
  /// "/proc/sys/kernel/osrelease".
  explicit LinuxSystemInfo(std::string root = {}) : root_(std::move(root)) {}

  std::optional<Name> SystemName() const override;
  std::uint64_t AvailableMemory() const override;

 private:
  std::string root_;
};

}  // namespace cuewright
