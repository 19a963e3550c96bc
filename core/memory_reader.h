#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "core/ports/files.h"

namespace cuewright {

/// Bytes in memory, read as a file.
class MemoryReader final : public FileReader {
 public:
  explicit MemoryReader(std::string bytes) : bytes_(std::move(bytes)) {}

  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t offset, char* to, std::size_t count) override {
    if (offset >= bytes_.size()) return 0;
    const std::size_t given = std::min<std::uint64_t>(count, bytes_.size() - offset);
    std::memcpy(to, bytes_.data() + offset, given);
    return given;
  }

 private:
  std::string bytes_;
};

}  // namespace cuewright
