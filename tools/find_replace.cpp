#include "tools/find_replace.h"

#include <utility>
#include <vector>

#include "core/counting.h"
#include "core/seen_text.h"
#include "tools/text_changes.h"

namespace cuewright {
namespace {

/// A text as it is compared: without line breaks and, unless case counts, in lower case.
Text Shaped(Text text, const FindOptions& options) {
  if (!options.matchCase) text = ToLower(text);
  return options.entireWord ? u" " + text + u" " : text;
}

/// True when marks are not searched, since they aren't shown either.
bool MarksAreHidden(const CaptionList& list) {
  return list.Options().manner.KeepsStylesWithin() && !list.Options().rawMarks;
}

/// A caption's text as it is compared, with one more blank at each end.
Text Padded(const CaptionList& list, Row row, const FindOptions& options) {
  const Text text = MarksAreHidden(list) ? list.GetSeenText(row) : list.At(row).text;
  const TextView blanks = options.entireWord ? u"  " : u" ";
  Text padded;
  padded.reserve(text.size() + 2 * blanks.size());
  padded.append(blanks).append(text).append(blanks);
  const Text& separator = list.Options().lineSeparator;
  if (FindPlain(text, separator) != Text::npos) {
    padded = Text(blanks) + ReplaceAll(text, separator, u" ") + Text(blanks);
  }
  return options.matchCase ? padded : ToLower(padded);
}

/// The text without those two blanks.
TextView Flat(TextView padded) { return padded.substr(1, padded.size() - 2); }

/// What is looked for, in the form in which texts are compared.
class Needle {
 public:
  explicit Needle(const FindOptions& options)
      : text_(Shaped(Text(options.search), options)), matchCase_(options.matchCase) {}

  bool In(TextView text) const { return text_.empty() || At(text, 0) != TextView::npos; }

  Text Replaced(TextView text, TextView replacement) const {
    Text result;
    std::size_t from = 0;
    for (std::size_t hit = At(text, 0); hit != TextView::npos; hit = At(text, from)) {
      result.append(text, from, hit - from).append(replacement);
      from = hit + text_.size();
    }
    return result.append(text, from);
  }

  std::size_t Size() const { return text_.size(); }
  /// Where the next hit begins; npos for none.
  std::size_t At(TextView text, std::size_t from) const {
    if (text_.empty()) return TextView::npos;
    return matchCase_ ? text.find(text_, from) : FindLoose(text, text_, from);
  }

 private:
  Text text_;
  bool matchCase_;
};

/// A caption's text on one line and in the case that is searched, and where each of its units stands in the text.
struct FlatText {
  FlatText(TextView text, const Text& separator, bool matchCase) {
    for (std::size_t at = 0; at < text.size();) {
      const bool breaks = !separator.empty() && text.substr(at).starts_with(separator);
      shaped += breaks ? u' ' : text[at];
      origins.push_back(at);
      at += breaks ? separator.size() : 1;
    }
    origins.push_back(text.size());
    if (!matchCase) Lower();
  }

  Text shaped;
  std::vector<std::size_t> origins;  ///< one for each unit of `shaped`, and the end of the text

 private:
  void Lower() {
    Text lower = ToLower(shaped);
    if (lower.size() == shaped.size()) {
      shaped = std::move(lower);
      return;
    }
    // Some letters become longer in lower case.
    lower.clear();
    std::vector<std::size_t> places;
    for (std::size_t at = 0; at < shaped.size();) {
      const bool pair = (shaped[at] & 0xFC00) == 0xD800 && at + 1 < shaped.size();
      const Text letter = ToLower(TextView(shaped).substr(at, pair ? 2 : 1));
      lower += letter;
      places.insert(places.end(), letter.size(), origins[at]);
      at += pair ? 2 : 1;
    }
    places.push_back(origins.back());
    shaped = std::move(lower);
    origins = std::move(places);
  }
};

/// The hits in a text as changes of it. The blanks around a word are no part of the hit, and a blank may serve two
/// words.
std::vector<SeenText::Change> ChangesOf(TextView text, const Text& separator, const FindOptions& options,
                                        const Needle& needle, TextView replacement) {
  const FlatText flat(text, separator, options.matchCase);
  const std::size_t bound = options.entireWord ? 1 : 0;
  const Text searched = Text(bound, u' ') + flat.shaped + Text(bound, u' ');
  std::vector<SeenText::Change> changes;
  for (std::size_t hit = needle.At(searched, 0); hit != TextView::npos;) {
    const std::size_t end = hit + needle.Size() - 2 * bound;
    changes.push_back({flat.origins[hit], flat.origins[end], Text(replacement)});
    hit = needle.At(searched, hit + needle.Size() - bound);
  }
  return changes;
}

/// The text with each hit replaced and everything else as it was.
Text ReplacedAlone(const CaptionList& list, Row row, const FindOptions& options, const Needle& needle,
                   TextView replacement) {
  const Text& text = list.At(row).text;
  const Text& separator = list.Options().lineSeparator;
  Text result;
  if (MarksAreHidden(list)) {
    SeenText seen;
    seen.Take(text, separator, list.Marks());
    seen.Apply(ChangesOf(seen.View(), u"\n", options, needle, replacement));
    result = seen.Stored();
  } else {
    result = WithChanges(text, ChangesOf(text, separator, options, needle, replacement));
  }
  // A text that ends in a line break would not be stored.
  while (!separator.empty() && result.ends_with(separator)) result.resize(result.size() - separator.size());
  return result;
}

/// Rows that are to be stored, neighbours as one change.
class Stores {
 public:
  explicit Stores(CaptionList& list) : list_(list) {}

  void Add(Row row, Text text) {
    const Caption& old = list_.At(row);
    // Storing a text does the same: a text that ends in the separator is dropped.
    const Text& separator = list_.Options().lineSeparator;
    if (text == old.text || (!separator.empty() && text.ends_with(separator))) return;
    if (row != first_ + CountOf(rows_)) Flush();
    if (rows_.empty()) first_ = row;
    rows_.push_back(old.WithText(std::move(text)));
  }

  void Flush() {
    const int count = CountOf(rows_);
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
  const bool keeps = list.Options().manner.ReplaceKeepsTheRest();
  if (!replacing) return FindNext(list, options, needle);
  std::int16_t count = 0;
  std::vector<std::pair<Row, Text>> found;
  for (Row row = list.Selected(); row < list.Rows(); ++row) {
    const Text padded = Padded(list, row, options);
    if (!needle.In(padded)) continue;
    ++count;
    found.emplace_back(row, keeps ? ReplacedAlone(list, row, options, needle, replacement)
                                  : needle.Replaced(Flat(padded), replacement));
    if (!replaceAll) break;
  }
  if (found.empty()) return 0;
  const EditScope scope(list, replaceAll ? EditKind::ReplaceAll : EditKind::Replace);
  // The row is selected before its text changes, so that the window still shows the old text.
  if (found.back().first != list.Selected()) list.MoveSelection(found.back().first);
  Stores stores(list);
  for (auto& [row, text] : found) stores.Add(row, std::move(text));
  stores.Flush();
  if (keeps) list.SetRow(list.Selected(), false);
  return count;
}

}  // namespace cuewright
