#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/ports/files.h"
#include "text/text.h"

namespace cuewright {

/// What can be cleaned.
enum class CleaningKind : std::uint8_t {
  Blanks,        ///< blanks that stand twice, at an end of a line or in front of punctuation
  Dashes,        ///< dashes that the language writes in another way
  Quotes,        ///< quotation marks that aren't the language's
  Descriptions,  ///< sounds and speakers described for people who don't hear well
  Tags,          ///< all marks of style and place
  Capitals,      ///< sentences that begin with a small letter, words that never do
  Letters,       ///< letters mistaken by optical reading
  Empty          ///< captions without text
};
inline constexpr std::size_t kCleaningKinds = 8;

/// A pattern, and what comes in place of what it finds.
struct CleaningRule {
  CleaningKind kind = CleaningKind::Blanks;
  Text pattern;
  Text with;     ///< "$1" is a group of the pattern
  Text needing;  ///< only a text with one of these characters can match; empty: any text can
};

/// What is cleaned in a language.
struct CleaningData {
  std::vector<CleaningRule> rules;
  std::unordered_map<Text, Text> words;     ///< misread words, and the words that they should be
  std::unordered_map<Text, Text> capitals;  ///< words in small letters that have capitals
  Text openingQuote;                        ///< empty: quotation marks are left alone
  Text closingQuote;
};

/// Adds what a file of cleaning data says to `data`; false, with the reason in `problem`, when a line can't be
/// understood: "line 3: ...". A line has columns parted by tabs, the first of which tells what it is; a line that
/// begins with ";" is a remark.
bool AddCleaningData(TextView text, CleaningData& data, std::string& problem);

/// The cleaning data that come with the program: a file for all languages, and one for each that has its own.
class CleaningShelf {
 public:
  /// `folder` holds "cleaning".
  CleaningShelf(const Files& files, TextView folder) : files_(files), folder_(folder) {}

  /// The languages that have data of their own, as two letters each, in alphabetical order.
  std::vector<Text> Languages() const;
  /// The data for a language; for one without data of its own, and for the empty name, the data for all languages.
  /// Nothing, with the reason, when a file can't be read.
  std::optional<CleaningData> Read(TextView language, std::string& problem) const;

 private:
  bool ReadFile(TextView name, CleaningData& data, std::string& problem) const;

  const Files& files_;
  Text folder_;
};

}  // namespace cuewright
