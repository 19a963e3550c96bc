#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "text/text.h"

namespace cuewright {

/// Longest value that a profile read gives, in characters.
inline constexpr std::size_t kLongestProfileValue = 254;

/// The sections and keys of an INI text. Names are found whatever their case; of sections, and of keys in one, with
/// the same name the first counts.
class Profile {
 public:
  Profile() = default;
  /// Values are cut at `longest` characters.
  explicit Profile(TextView text, std::size_t longest = kLongestProfileValue);

  /// The value without the blanks and one pair of quotes around it; nothing when the key is absent.
  const Text* Find(TextView section, TextView key) const;

  /// The same, with `fallback` for an absent key.
  Text Read(TextView section, TextView key, TextView fallback) const;

 private:
  static Text Name(TextView section, TextView key);

  std::unordered_map<Text, Text> values_;
};

}  // namespace cuewright
