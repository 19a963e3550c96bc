#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "text/text.h"

namespace cuewright {

/// Longest value that a profile read gives, in characters.
inline constexpr std::size_t kLongestProfileValue = 254;

/// A line of an INI text that is neither blank nor a remark, which begins with ";".
struct ProfileLine {
  enum class Kind : std::uint8_t { Section, Value, Other };

  Kind kind = Kind::Other;
  int number = 0;  ///< of the line, from 1
  TextView name;   ///< of the section or the key, without the blanks around it
  TextView value;  ///< without the blanks and one pair of quotes around it; of `Other` the whole line
};

/// Goes through an INI text line by line. CR LF, CR and LF each end a line.
class ProfileLines {
 public:
  explicit ProfileLines(TextView text) : rest_(text) {}

  /// Takes the next line that is neither blank nor a remark; false at the end.
  bool Next(ProfileLine& line);

 private:
  TextView rest_;
  int number_ = 0;
};

/// The sections and keys of an INI text. Names are found whatever their case. Of two sections with the same name the
/// first counts, and so it is with two keys in one section.
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
