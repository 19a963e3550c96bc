#include "tools/replace_text.h"

#include <unicode/regex.h>

#include <algorithm>
#include <future>
#include <iterator>
#include <thread>
#include <utility>
#include <vector>

#include "core/counting.h"
#include "core/seen_text.h"
#include "text/icu_text.h"
#include "tools/text_changes.h"

namespace cuewright {
namespace {

/// Steps that a pattern may take on one caption, in units of the library, about a ms each.
constexpr std::int32_t kMostSteps = 500;

/// A text as a pattern that finds it as it stands.
Text QuotedPattern(TextView text) { return u"\\Q" + ReplaceAll(text, u"\\E", u"\\E\\\\E\\Q") + u"\\E"; }

/// True for a pattern that begins with "\w+", alone or as a group of its own, and in which what follows hangs on
/// nothing but where that ends.
bool BeginsWithAnyWord(TextView pattern) {
  const bool group = pattern.starts_with(u"(\\w+)");
  if (!group && !pattern.starts_with(u"\\w+")) return false;
  const TextView rest = pattern.substr(group ? 5 : 3);
  if (!rest.empty() && TextView(u"+*?{").find(rest.front()) != TextView::npos) return false;
  for (std::size_t at = rest.find(u'\\'); at != TextView::npos; at = rest.find(u'\\', at + 2)) {
    if (at + 1 < rest.size() && TextView(u"123456789kGQ").find(rest[at + 1]) != TextView::npos) return false;
  }
  return rest.find(u'|') == TextView::npos;
}

/// The same pattern, made to be tried from the beginnings of words alone. Where it doesn't match there, it doesn't
/// match from the letters behind either, and trying each of them to the word's end would take time by the square of its
/// length.
Text FromBeginningsOfWords(const Text& pattern) { return u"(?:\\G|(?<!\\w))" + pattern; }

/// The pattern of an order, as the library takes it with `flags`.
Text PatternOf(const ReplaceOrder& order, std::uint32_t& flags) {
  flags = UREGEX_MULTILINE;
  if (!order.matchCase) flags |= UREGEX_CASE_INSENSITIVE;
  if (!order.wholeWord) {
    if (!order.regex) flags |= UREGEX_LITERAL;
    return order.regex && BeginsWithAnyWord(order.find) ? FromBeginningsOfWords(order.find) : order.find;
  }
  constexpr TextView kNoWordBefore = u"(?<![\\p{L}\\p{M}\\p{N}_])(?:";
  constexpr TextView kNoWordBehind = u")(?![\\p{L}\\p{M}\\p{N}_])";
  return Text(kNoWordBefore) + (order.regex ? order.find : QuotedPattern(order.find)) + Text(kNoWordBehind);
}

}  // namespace

struct TextReplacer::Engine {
  /// Takes a text without marks, with no account of where each of its characters is stored.
  void TakePlain(TextView stored, TextView separator) {
    searched = stored;
    if (FindPlain(stored, separator) == Text::npos) return;
    plain = ReplaceAll(stored, separator, u"\n");
    searched = plain;
  }

  std::unique_ptr<icu::RegexMatcher> matcher;
  Text plain;         // a text without marks, LF between its lines
  TextView searched;  // the text as it is seen
  icu::UnicodeString with;
  bool withGroups = false;  // the replacement may name groups
  SeenText visible;
  std::vector<SeenText::Change> changes;
};

TextReplacer::TextReplacer(const ReplaceOrder& order, TextView separator, const CaptionMarks* marks,
                           std::chrono::milliseconds most)
    : order_(order), separator_(separator), marks_(marks), most_(most), engine_(std::make_unique<Engine>()) {
  if (order_.find.empty()) {
    fault_ = Fault::NothingToFind;
    return;
  }
  // In a pattern the separator's characters have a meaning of their own.
  if (!order_.regex) order_.find = ReplaceAll(order_.find, separator_, u"\n");
  order_.with = ReplaceAll(order_.with, separator_, u"\n");
  UErrorCode status = U_ZERO_ERROR;
  std::uint32_t flags = 0;
  const Text pattern = PatternOf(order_, flags);
  engine_->matcher =
      std::make_unique<icu::RegexMatcher>(icu::UnicodeString(pattern.data(), CountOf(pattern)), flags, status);
  if (U_SUCCESS(status)) engine_->matcher->setTimeLimit(kMostSteps, status);
  engine_->with = Aliased(order_.with);
  engine_->withGroups = order_.regex && order_.with.find_first_of(u"$\\") != Text::npos;
  if (U_FAILURE(status)) {
    fault_ = Fault::BadPattern;
  } else if (order_.regex) {
    Check(order_.find);
  }
}

TextReplacer::~TextReplacer() = default;

std::unique_ptr<TextReplacer> TextReplacer::Another() const {
  return std::make_unique<TextReplacer>(order_, separator_, marks_, most_);
}

void TextReplacer::TakeProblemOf(const TextReplacer& other) {
  if (fault_ == Fault::None) fault_ = other.fault_;
}

/// Tries the replacement, whose groups are looked up only where something is found.
void TextReplacer::Check(const Text& pattern) {
  // This pattern matches an empty text. Its line end closes a comment that the user's pattern may end in.
  const Text finding = u"(?:" + pattern + u"\n)?";
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString nothing;
  icu::RegexMatcher matcher(Aliased(finding), nothing, UREGEX_MULTILINE, status);
  icu::UnicodeString out;
  if (U_FAILURE(status) || !matcher.find()) return;
  matcher.appendReplacement(out, engine_->with, status);
  if (U_FAILURE(status)) fault_ = Fault::BadReplacement;
}

void TextReplacer::TakeText(TextView stored) {
  if (marks_ != nullptr) {
    engine_->visible.Take(stored, separator_, *marks_);
  } else {
    engine_->visible.Take(stored, separator_);
  }
  engine_->searched = engine_->visible.View();
}

/// A pattern that takes too many steps or too deep ones would go on for ever, or as good as.
void TextReplacer::NoteFailure() { fault_ = Fault::TooSlow; }

/// Looks into a text that has no marks.
bool TextReplacer::FindsInPlain(TextView stored) {
  engine_->TakePlain(stored, separator_);
  const icu::UnicodeString text = Aliased(engine_->searched);
  UErrorCode status = U_ZERO_ERROR;
  engine_->matcher->reset(text);
  const bool found = engine_->matcher->find(status) != 0;
  if (U_FAILURE(status)) NoteFailure();
  return found && fault_ == Fault::None;
}

void TextReplacer::FindAll() {
  Engine& engine = *engine_;
  icu::RegexMatcher& matcher = *engine.matcher;
  const TextView visible = engine.searched;
  const icu::UnicodeString text = Aliased(visible);
  UErrorCode status = U_ZERO_ERROR;
  matcher.reset(text);
  std::int32_t behind = 0;
  while (matcher.find(status) && U_SUCCESS(status)) {
    const std::int32_t from = matcher.start(status);
    const std::int32_t to = matcher.end(status);
    Text fresh = order_.with;
    if (engine.withGroups) {
      // The library puts the text since the last hit in front of the replacement.
      icu::UnicodeString out;
      matcher.appendReplacement(out, engine.with, status);
      const icu::UnicodeString own = out.tempSubString(from - behind);
      fresh = TextOf(own);
      behind = to;
    }
    const std::size_t at = from;
    const std::size_t length = to - from;
    if (visible.substr(at, length) != fresh) engine.changes.push_back({at, at + length, std::move(fresh)});
  }
  if (status == U_INDEX_OUTOFBOUNDS_ERROR) {
    fault_ = Fault::BadReplacement;
  } else if (U_FAILURE(status)) {
    NoteFailure();
  }
}

bool TextReplacer::FindsIn(TextView stored) {
  if (fault_ != Fault::None) return false;
  const auto began = std::chrono::steady_clock::now();
  if (MayHaveMarks(stored)) {
    TakeText(stored);
    stored = engine_->visible.View();
  }
  const bool found = FindsInPlain(stored);
  spent_ += std::chrono::steady_clock::now() - began;
  if (fault_ == Fault::None && spent_ > most_) NoteFailure();
  return found && fault_ == Fault::None;
}

std::optional<Text> TextReplacer::Replaced(TextView stored) {
  if (fault_ != Fault::None) return {};
  Engine& engine = *engine_;
  const auto began = std::chrono::steady_clock::now();
  const bool plain = !MayHaveMarks(stored) && stored.find(u'\n') == TextView::npos;
  if (plain) {
    engine.TakePlain(stored, separator_);
  } else {
    TakeText(stored);
  }
  engine.changes.clear();
  FindAll();
  spent_ += std::chrono::steady_clock::now() - began;
  if (fault_ == Fault::None && spent_ > most_) NoteFailure();
  if (fault_ != Fault::None || engine.changes.empty()) return {};
  if (plain) return ReplaceAll(WithChanges(engine.searched, engine.changes), u"\n", separator_);
  engine.visible.Apply(engine.changes);
  return engine.visible.Stored();
}

namespace {

/// A thread of its own is not worth while for fewer rows than this.
constexpr std::size_t kRowsOfAThread = 2000;

std::vector<Proposal> ProposeIn(const CaptionList& list, std::span<const Row> rows, TextReplacer& replacer) {
  const Text& separator = list.Options().lineSeparator;
  std::vector<Proposal> proposals;
  for (const Row row : rows) {
    const Caption& caption = list.At(row);
    std::optional<Text> text = replacer.Replaced(caption.text);
    if (replacer.Problem() != TextReplacer::Fault::None) return {};
    if (!text) continue;
    // A text that ends in a line break would not be stored.
    while (!separator.empty() && text->ends_with(separator)) text->resize(text->size() - separator.size());
    if (*text != caption.text) proposals.push_back({row, caption.WithText(*std::move(text))});
  }
  return proposals;
}

}  // namespace

std::vector<Proposal> ProposeReplacements(const CaptionList& list, std::span<const Row> rows, TextReplacer& replacer) {
  const std::size_t threads =
      std::clamp<std::size_t>(rows.size() / kRowsOfAThread, 1, std::max(1u, std::thread::hardware_concurrency()));
  const std::size_t share = (rows.size() + threads - 1) / threads;
  std::vector<std::unique_ptr<TextReplacer>> others;
  std::vector<std::future<std::vector<Proposal>>> parts;
  for (std::size_t at = share; at < rows.size(); at += share) {
    TextReplacer& other = *others.emplace_back(replacer.Another());
    const std::span<const Row> part = rows.subspan(at, std::min(share, rows.size() - at));
    parts.push_back(std::async(std::launch::async, [&list, &other, part] { return ProposeIn(list, part, other); }));
  }
  std::vector<Proposal> proposals = ProposeIn(list, rows.first(std::min(share, rows.size())), replacer);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    std::vector<Proposal> more = parts[i].get();
    replacer.TakeProblemOf(*others[i]);
    proposals.insert(proposals.end(), std::move_iterator(more.begin()), std::move_iterator(more.end()));
  }
  if (replacer.Problem() != TextReplacer::Fault::None) proposals.clear();
  return proposals;
}

int ReplaceInCaptions(CaptionList& list, const RowRange& rows, TextReplacer& replacer) {
  const auto [first, last] = rows.In(list);
  int changed = 0;
  Row from = 0;
  std::vector<Caption> fresh;  // from the first row that changes on
  std::size_t upToChanged = 0;
  for (Row row = first; row <= last; ++row) {
    const Caption& caption = list.At(row);
    std::optional<Text> text = replacer.Replaced(caption.text);
    if (replacer.Problem() != TextReplacer::Fault::None) return 0;
    const bool changes = text.has_value();
    if (changes && changed++ == 0) from = row;
    if (changed == 0) continue;
    fresh.push_back(changes ? caption.WithText(*std::move(text)) : caption);
    if (changes) upToChanged = fresh.size();
  }
  if (changed == 0) return 0;
  fresh.resize(upToChanged);
  const EditScope scope(list, EditKind::ReplaceAll);
  const int replaced = CountOf(fresh);
  list.Replace(from, replaced, std::move(fresh));
  list.SetModified();
  return changed;
}

}  // namespace cuewright
