#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "core/ports/files.h"
#include "text/text.h"

namespace cuewright {

/// One page of the help.
struct HelpTopic {
  Text file;              ///< name in the book's folder
  Text title;             ///< as the page gives it
  std::size_t depth = 0;  ///< how deep it stands in the contents, 0 at the top
  Text words;             ///< title and text without marks, prepared by `SearchKey`
};

/// A text as searches compare it: lower case, without accents.
Text SearchKey(TextView text);

/// The pages of the help in one language.
class HelpBook {
 public:
  /// Reads the pages that "contents.txt" in `folder` lists, one file name a line with a tab before it for each level
  /// that it stands deep. Whatever can't be read is left out; false when no page is left.
  bool Load(const Files& files, const Text& folder);

  const std::vector<HelpTopic>& Topics() const { return topics_; }

  /// Places of the topics that hold every one of the words, those that hold them in their title first; all topics for
  /// a text without words.
  std::vector<std::size_t> Find(TextView words) const;

  /// The place of the topic in a file; none when the book has no such page.
  std::optional<std::size_t> PlaceOf(TextView file) const;

 private:
  std::vector<HelpTopic> topics_;
};

}  // namespace cuewright
