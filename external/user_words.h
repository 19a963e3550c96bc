#pragma once

#include <set>
#include <string>

#include "core/ports/files.h"
#include "text/text.h"

namespace cuewright {

/// The words that the user added to one dictionary: a file of the user with a word a line, in UTF-8.
class UserWords {
 public:
  /// `path` is the file; an empty one keeps the words in memory. A file that can't be read has none.
  UserWords(Files& files, Text path);

  /// True for a word of the user's, and for one that was added in small letters and begins, or is written, in capitals.
  bool Has(TextView word) const;
  /// Adds (removes) a word. The file is read again before, written beside and renamed over; run-time error when that
  /// fails, and then the words stay as they were.
  void Add(TextView word);
  void Remove(TextView word);

 private:
  void Read();
  void Write(std::set<Text, std::less<>> words);

  Files& files_;
  Text path_;
  std::set<Text, std::less<>> words_;
};

}  // namespace cuewright
