#pragma once

#include <map>
#include <string_view>

#include "core/lang_strings.h"
#include "text/text.h"

namespace cuewright {

/// The distance from one language's block to the next.
inline constexpr int kBlockSize = 1000;

/// The number in the catalogue of a text of a language, by its row in the language table: a block holds 1000 numbers,
/// and the further texts from 1000 on have blocks of their own behind all of these.
constexpr int CatalogueNumber(int language, int id) {
  constexpr int kFurtherBlocks = 1'000'000;
  constexpr int kFurtherBlockSize = 10'000;
  return id < kBlockSize ? kBlockSize * language + id : kFurtherBlocks + kFurtherBlockSize * language + id;
}

/// The catalogue of messages by number: the English block that the program carries in itself (0 to 468 and 900 to
/// 2999), the language table (600 to 624), the texts of a translation file (660 to 670), and the blocks of other
/// languages that were added.
class MessageCatalogue {
 public:
  /// Holds all that the program carries in itself.
  MessageCatalogue();

  /// Adds rows in the form of the data files: a number, a tab, the text; a bare number is an empty place. In the text
  /// "\n" is a line break and "\\" a backslash. Numbers are taken at `base` + number.
  void Add(std::string_view data, int base);

  /// Adds the block of a language by its row in the language table, data as above, at `CatalogueNumber`. Left out is
  /// what can't stand in a block: numbers beyond the messages, text that isn't UTF-8, nothing where English has a text.
  void AddBlock(std::string_view data, int language);

  /// The row of a number; null when the catalogue has none.
  const Text* Find(int id) const;

 private:
  std::map<int, Text> rows_;
};

/// Fills the strings with the English messages.
void LoadEnglish(const MessageCatalogue& catalogue, LangStrings& strings);

}  // namespace cuewright
