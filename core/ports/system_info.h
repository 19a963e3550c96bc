#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace cuewright {

/// What the system says about itself. This class is one that says nothing.
class SystemInfo {
 public:
  virtual ~SystemInfo() = default;

  /// The system's own name and the version of its kernel.
  struct Name {
    Text name;
    int major = 0;
    int minor = 0;
  };
  /// Empty when the system doesn't tell.
  virtual std::optional<Name> SystemName() const { return std::nullopt; }

  /// Memory that programs could still have, in bytes; 0 when the system doesn't tell.
  virtual std::uint64_t AvailableMemory() const { return 0; }
};

}  // namespace cuewright
