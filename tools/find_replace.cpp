#include "tools/find_replace.h"

#include <utility>
#include <vector>

namespace cuewright {
namespace {

/// A text in the shape in which texts are compared.
Text Shaped(Text text, const FindOptions& options) {
  if (!options.matchCase) text = ToLower(text);
  return options.entireWord ? u" " + text + u" " : text;
}

/// A caption's text in that shape, with one more blank at each end.
Text Padded(const CaptionList& list, Row row, const FindOptions& options) {
  const Text& text = list.At(row).text;
  const TextView blanks = options.entireWord ? u"  " : u" ";
  Text padded;
  padded.reserve(text.size() + 2 * blanks.size());
  padded.append(blanks).append(text).append(blanks);
  const Text& separator = list.Options().LineSeparator;
  if (FindPlain(text, separator) != Text::npos) {
    padded = Text(blanks) + ReplaceAll(text, separator, u" ") + Text(blanks);
  }
  return options.matchCase ? padded : ToLower(padded);
}

/// The text without the blank more at each end.
TextView Flat(TextView padded) { return padded.substr(1, padded.size() - 2); }

/// What is looked for, in the shape of the texts that it is looked for in.
class Needle {
 public:
  explicit Needle(const FindOptions& options)
      : text_(Shaped(Text(options.search), options)), matchCase_(options.matchCase) {}

  bool In(TextView text) const { return At(text, 0) != TextView::npos; }

  Text Replaced(TextView text, TextView replacement) const {
    Text result;
    std::size_t from = 0;
    while (!text_.empty()) {
      const std::size_t hit = At(text, from);
      if (hit == TextView::npos) break;
      result.append(text, from, hit - from).append(replacement);
      from = hit + text_.size();
    }
    return result.append(text, from);
  }

 private:
  std::size_t At(TextView text, std::size_t from) const {
    return matchCase_ ? text.find(text_, from) : FindLoose(text, text_, from);
  }

  Text text_;
  bool matchCase_;
};

/// Rows that are to be stored, neighbours as one change.
class Stores {
 public:
  explicit Stores(CaptionList& list) : list_(list) {}

  void Add(Row row, Text text) {
    const Caption& old = list_.At(row);
    // As storing a text does: one that ends in the separator is dropped.
    const Text& separator = list_.Options().LineSeparator;
    if (text == old.text || (!separator.empty() && text.ends_with(separator))) return;
    if (row != first_ + static_cast<Row>(rows_.size())) Flush();
    if (rows_.empty()) first_ = row;
    rows_.push_back({old.start, old.end, std::move(text)});
  }

  void Flush() {
    const Row count = static_cast<Row>(rows_.size());
    if (count > 0) list_.Replace(first_, count, std::exchange(rows_, {}));
  }

 private:
  CaptionList& list_;
  Row first_ = 0;
  std::vector<Caption> rows_;
};

std::int16_t FindNext(CaptionList& list, const FindOptions& options, const Needle& needle) {
  const Row start = list.Selected();
  std::int16_t count = 0;
  for (Row row = start; row < list.Rows(); ++row) {
    const Text padded = Padded(list, row, options);
    if (!needle.In(padded)) continue;
    ++count;
    if (row == start) continue;
    list.MoveSelection(row);
    break;
  }
  return count;
}

}  // namespace

std::int16_t FindInCaptions(CaptionList& list, const FindOptions& options, bool replacing, TextView replacement,
                            bool replaceAll) {
  const Needle needle(options);
  if (!replacing) return FindNext(list, options, needle);
  std::int16_t count = 0;
  std::vector<std::pair<Row, Text>> found;
  for (Row row = list.Selected(); row < list.Rows(); ++row) {
    const Text padded = Padded(list, row, options);
    if (!needle.In(padded)) continue;
    ++count;
    found.emplace_back(row, needle.Replaced(Flat(padded), replacement));
    if (!replaceAll) break;
  }
  if (found.empty()) return 0;
  const EditScope scope(list, replaceAll ? EditKind::ReplaceAll : EditKind::Replace);
  // The selection comes first: what the window shows of the row is its text before.
  if (found.back().first != list.Selected()) list.MoveSelection(found.back().first);
  Stores stores(list);
  for (auto& [row, text] : found) stores.Add(row, std::move(text));
  stores.Flush();
  return count;
}

}  // namespace cuewright
