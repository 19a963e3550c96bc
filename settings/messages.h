#pragma once

#include <map>
#include <string_view>

#include "core/lang_strings.h"
#include "core/text.h"

namespace cuewright {

/// The catalogue of messages by number: the English block that the program carries in itself, the language table,
/// and the other numbered strings.
class MessageCatalogue {
 public:
  /// Holds the English block and the language table.
  MessageCatalogue();

  /// Adds rows in the form of the data files: a number, a tab, the text; a bare number is an empty place. In the text
  /// "\n" is a line break and "\\" a backslash. Numbers are taken at `base` + number.
  void Add(std::string_view data, int base);

  /// The row of a number; null when the catalogue has none.
  const Text* Find(int id) const;

 private:
  std::map<int, Text> rows_;
};

/// Fills the strings with the English messages.
void LoadEnglish(const MessageCatalogue& catalogue, LangStrings& strings);

}  // namespace cuewright
