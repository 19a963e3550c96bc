#include "tools/cleaning.h"

#include <unicode/regex.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "core/counting.h"
#include "text/icu_text.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr std::int32_t kMostSteps = 200;
constexpr TextView kQuotes = u"\"\u201c\u201d\u201e\u201f\u00ab\u00bb\u201a";
constexpr TextView kSentenceEnds = u".!?\u2026\u061f";
constexpr TextView kClosing = u"\"'\u2019\u201d\u00bb)]\u266a\u266b";
constexpr TextView kOpening = u"\"'\u2018\u201c\u201e\u00ab([\u00bf\u00a1-\u2010\u2013\u2014\u266a\u266b# \n\u00a0";
constexpr TextView kBlanks = u" \t\u00a0\u3000\u202f";
constexpr TextView kDashes = u"-\u2010\u2011\u2012\u2013\u2014\u2015\u2212";

bool IsWordCharacter(char16_t c) { return u_isalnum(c) != 0 || c == u'\'' || c == u'\u2019' || c == u'|'; }

}  // namespace

struct Cleaner::Pattern {
  const CleaningRule* rule = nullptr;
  std::unique_ptr<icu::RegexMatcher> matcher;
};

Cleaner::Cleaner(const CleaningData& data, const CleaningChoice& choice) : data_(data), choice_(choice) {
  for (const CleaningRule& rule : data_.rules) {
    if (!Chosen(rule.kind)) continue;
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString pattern(rule.pattern.data(), CountOf(rule.pattern));
    auto matcher = std::make_unique<icu::RegexMatcher>(pattern, UREGEX_MULTILINE, status);
    if (U_SUCCESS(status)) matcher->setTimeLimit(kMostSteps, status);
    if (U_SUCCESS(status)) patterns_.push_back({&rule, std::move(matcher)});
  }
}

Cleaner::~Cleaner() = default;

void Cleaner::ApplyRules(CleaningKind kind) {
  for (const Pattern& pattern : patterns_) {
    const Text& needing = pattern.rule->needing;
    if (pattern.rule->kind != kind) continue;
    if (!needing.empty() && seen_.View().find_first_of(needing) == TextView::npos) continue;
    const icu::UnicodeString text = Aliased(seen_.View());
    const icu::UnicodeString with = Aliased(pattern.rule->with);
    std::vector<SeenText::Change> changes;
    UErrorCode status = U_ZERO_ERROR;
    pattern.matcher->reset(text);
    std::int32_t behind = 0;
    while (pattern.matcher->find(status) && U_SUCCESS(status)) {
      const std::int32_t from = pattern.matcher->start(status);
      const std::size_t at = from;
      const std::size_t end = pattern.matcher->end(status);
      icu::UnicodeString out;
      pattern.matcher->appendReplacement(out, with, status);
      const icu::UnicodeString own = out.tempSubString(from - behind);
      behind = pattern.matcher->end(status);
      changes.push_back({at, end, TextOf(own)});
    }
    if (U_SUCCESS(status) && !changes.empty()) seen_.Apply(changes);
  }
}

/// Quotation marks open and close by turns. In a caption with an odd number of them none is touched, since one of a
/// pair stands in a neighbouring caption.
void Cleaner::ApplyQuotes() {
  if (data_.openingQuote.empty()) return;
  const TextView text = seen_.View();
  std::vector<SeenText::Change> changes;
  bool opens = true;
  for (std::size_t at = text.find_first_of(kQuotes); at != TextView::npos; at = text.find_first_of(kQuotes, at + 1)) {
    SeenText::Change change{at, at + 1, opens ? data_.openingQuote : data_.closingQuote};
    // A mark that has a blank of its own replaces the blanks that stand beside it.
    const bool brings = change.text.size() > 1;
    while (brings && opens && change.to < text.size() && kBlanks.find(text[change.to]) != TextView::npos) ++change.to;
    while (brings && !opens && change.from > 0 && kBlanks.find(text[change.from - 1]) != TextView::npos) --change.from;
    changes.push_back(std::move(change));
    opens = !opens;
  }
  if (!opens) return;
  std::erase_if(changes, [&](const SeenText::Change& change) {
    return text.substr(change.from, change.to - change.from) == change.text;
  });
  if (!changes.empty()) seen_.Apply(changes);
}

void Cleaner::ApplyWords(const std::unordered_map<Text, Text>& words) {
  if (words.empty()) return;
  const TextView text = seen_.View();
  std::vector<SeenText::Change> changes;
  for (std::size_t at = 0; at < text.size();) {
    if (!IsWordCharacter(text[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < text.size() && IsWordCharacter(text[end])) ++end;
    const auto found = words.find(Text(text.substr(at, end - at)));
    if (found != words.end()) changes.push_back({at, end, found->second});
    at = end;
  }
  if (!changes.empty()) seen_.Apply(changes);
}

/// Makes the first letter of each sentence a capital; with `begins` the caption begins a sentence.
void Cleaner::ApplySentences(bool begins) {
  const TextView text = seen_.View();
  std::vector<SeenText::Change> changes;
  bool first = begins;
  std::size_t end = TextView::npos;  // where a sentence ended
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t c = text[at];
    if (kSentenceEnds.find(c) != TextView::npos) {
      // Points in a row are a pause, and one inside a word or a number belongs to that.
      const bool pause = c == u'\u2026' || (c == u'.' && at > 0 && text[at - 1] == u'.');
      end = at;
      first = false;
      if (pause) end = TextView::npos;
      continue;
    }
    if (kBlanks.find(c) != TextView::npos || c == u'\n') {
      if (end != TextView::npos) first = true;
      continue;
    }
    if (kOpening.find(c) != TextView::npos || kClosing.find(c) != TextView::npos) continue;
    const UChar32 capital = u_toupper(c);
    if (first && u_islower(c) != 0 && capital != c && capital <= 0xFFFF) {
      changes.push_back({at, at + 1, Text(1, LowUnit(capital))});
    }
    first = false;
    end = TextView::npos;
  }
  if (!changes.empty()) seen_.Apply(changes);
}

/// Removes lines of which nothing but dashes is left, and the dash where a single speaker is left.
void Cleaner::DropEmptyLines() {
  const std::vector<Text> lines = Split(seen_.View(), u"\n");
  std::vector<Text> kept;
  int speakers = 0;
  for (const Text& line : lines) {
    const bool dash = line.find_first_of(kDashes) == line.find_first_not_of(kBlanks) && !IsBlank(line);
    speakers += dash ? 1 : 0;
    if (line.find_first_not_of(Text(kBlanks) + Text(kDashes)) != Text::npos) kept.push_back(line);
  }
  if (kept.size() == lines.size()) return;
  if (speakers > 1 && kept.size() == 1) {
    const std::size_t dash = kept[0].find_first_of(kDashes);
    if (dash == kept[0].find_first_not_of(kBlanks)) {
      kept[0].erase(0, std::min(kept[0].find_first_not_of(kBlanks, dash + 1), kept[0].size()));
    }
  }
  Text text;
  for (const Text& line : kept) text += (text.empty() ? u"" : u"\n") + line;
  seen_.ChangeTo(text);
}

std::optional<Text> Cleaner::Cleaned(const CaptionList& list, Row row) {
  const Text& separator = list.Options().lineSeparator;
  seen_.Take(list.At(row).text, separator, list.Marks());
  if (Chosen(CleaningKind::Tags) && seen_.Stored().size() != seen_.View().size()) {
    seen_.Take(ReplaceAll(seen_.View(), u"\n", separator), separator, list.Marks());
  }
  if (Chosen(CleaningKind::Descriptions)) {
    ApplyRules(CleaningKind::Descriptions);
    DropEmptyLines();
  }
  if (Chosen(CleaningKind::Letters)) {
    ApplyRules(CleaningKind::Letters);
    ApplyWords(data_.words);
  }
  ApplyRules(CleaningKind::Dashes);
  if (Chosen(CleaningKind::Quotes)) ApplyQuotes();
  if (Chosen(CleaningKind::Capitals)) {
    ApplyRules(CleaningKind::Capitals);
    ApplyWords(data_.capitals);
    const Text before = row > 1 ? list.GetSeenText(row - 1) : u".";
    const std::size_t last = before.find_last_not_of(Text(kBlanks) + Text(kClosing));
    ApplySentences(last != Text::npos && kSentenceEnds.find(before[last]) != TextView::npos &&
                   before[last] != u'\u2026' && !before.substr(0, last + 1).ends_with(u".."));
  }
  ApplyRules(CleaningKind::Blanks);
  if (seen_.Stored() == list.At(row).text) return {};
  return seen_.Stored();
}

std::vector<Proposal> Cleaner::Propose(const CaptionList& list, std::span<const Row> rows) {
  std::vector<Proposal> proposals;
  for (const Row row : rows) {
    if (!list.InRange(row)) continue;
    std::optional<Text> text = Cleaned(list, row);
    const bool empty = seen_.View().find_first_not_of(Text(kBlanks) + u"\n") == TextView::npos;
    if (empty && (Chosen(CleaningKind::Empty) || text)) {
      proposals.push_back({row, std::nullopt});
    } else if (text) {
      proposals.push_back({row, list.At(row).WithText(*std::move(text))});
    }
  }
  return proposals;
}

}  // namespace cuewright
