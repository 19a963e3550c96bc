#pragma once

#include <array>
#include <cstddef>

#include "core/text.h"

namespace cuewright {

inline constexpr std::size_t kMessageCount = 469;

/// The messages of the language in force, by number 0 to 468.
class LangStrings {
 public:
  const Text& operator[](std::size_t id) const { return rows_[id]; }
  void Set(std::size_t id, Text text) { rows_[id] = std::move(text); }

 private:
  std::array<Text, kMessageCount> rows_;
};

}  // namespace cuewright
