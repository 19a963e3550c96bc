#include "tools/replace_text.h"

#include <unicode/regex.h>

#include <vector>

#include "core/seen_text.h"

namespace cuewright {
namespace {

/// Steps that a pattern may take on one caption, in units of the library, about a ms each.
constexpr std::int32_t kMostSteps = 500;
/// Time that a pattern may take on all captions.
constexpr std::chrono::seconds kMostTime{10};

/// A view of the text for the library, which doesn't copy it.
icu::UnicodeString Aliased(TextView text) {
  return icu::UnicodeString(false, text.data(), static_cast<std::int32_t>(text.size()));
}

}  // namespace

struct TextReplacer::Engine {
  std::unique_ptr<icu::RegexMatcher> matcher;
  icu::UnicodeString with;
  SeenText visible;
  std::vector<SeenText::Change> changes;
};

TextReplacer::TextReplacer(const ReplaceOrder& order, TextView separator)
    : order_(order), separator_(separator), engine_(std::make_unique<Engine>()) {
  if (order_.find.empty()) {
    fault_ = Fault::NothingToFind;
    return;
  }
  // In a pattern the separator's characters have a meaning of their own.
  if (!order_.regex) order_.find = ReplaceAll(order_.find, separator_, u"\n");
  order_.with = ReplaceAll(order_.with, separator_, u"\n");
  UErrorCode status = U_ZERO_ERROR;
  std::uint32_t flags = UREGEX_MULTILINE;
  if (!order_.regex) flags |= UREGEX_LITERAL;
  if (!order_.matchCase) flags |= UREGEX_CASE_INSENSITIVE;
  const icu::UnicodeString pattern(order_.find.data(), static_cast<std::int32_t>(order_.find.size()));
  engine_->matcher = std::make_unique<icu::RegexMatcher>(pattern, flags, status);
  if (U_SUCCESS(status)) engine_->matcher->setTimeLimit(kMostSteps, status);
  engine_->with = Aliased(order_.with);
  if (U_FAILURE(status)) {
    fault_ = Fault::BadPattern;
  } else if (order_.regex) {
    Check(order_.find);
  }
}

TextReplacer::~TextReplacer() = default;

/// Tries the replacement, whose groups are looked up only where something is found.
void TextReplacer::Check(const Text& pattern) {
  // This one finds something in an empty text. The line end closes a comment of the pattern.
  const Text finding = u"(?:" + pattern + u"\n)?";
  UErrorCode status = U_ZERO_ERROR;
  const icu::UnicodeString nothing;
  icu::RegexMatcher matcher(Aliased(finding), nothing, UREGEX_MULTILINE, status);
  icu::UnicodeString out;
  if (U_FAILURE(status) || !matcher.find()) return;
  matcher.appendReplacement(out, engine_->with, status);
  if (U_FAILURE(status)) fault_ = Fault::BadReplacement;
}

void TextReplacer::FindAll() {
  Engine& engine = *engine_;
  icu::RegexMatcher& matcher = *engine.matcher;
  const TextView visible = engine.visible.View();
  const icu::UnicodeString text = Aliased(visible);
  UErrorCode status = U_ZERO_ERROR;
  matcher.reset(text);
  std::int32_t behind = 0;
  while (matcher.find(status) && U_SUCCESS(status)) {
    const std::int32_t from = matcher.start(status);
    const std::int32_t to = matcher.end(status);
    Text fresh = order_.with;
    if (order_.regex) {
      // What stands between the hits comes in front of the replacement.
      icu::UnicodeString out;
      matcher.appendReplacement(out, engine.with, status);
      const icu::UnicodeString own = out.tempSubString(from - behind);
      fresh.assign(own.getBuffer(), static_cast<std::size_t>(own.length()));
      behind = to;
    }
    const auto at = static_cast<std::size_t>(from);
    const auto length = static_cast<std::size_t>(to - from);
    if (visible.substr(at, length) != fresh) engine.changes.push_back({at, at + length, std::move(fresh)});
  }
  // A pattern that takes too many steps or too deep ones would go on for ever, or as good as.
  if (U_FAILURE(status)) fault_ = status == U_INDEX_OUTOFBOUNDS_ERROR ? Fault::BadReplacement : Fault::TooSlow;
}

std::optional<Text> TextReplacer::Replaced(TextView stored) {
  if (fault_ != Fault::None) return {};
  Engine& engine = *engine_;
  const auto began = std::chrono::steady_clock::now();
  engine.visible.Take(stored, separator_);
  engine.changes.clear();
  FindAll();
  spent_ += std::chrono::steady_clock::now() - began;
  if (fault_ == Fault::None && spent_ > kMostTime) fault_ = Fault::TooSlow;
  if (fault_ != Fault::None || engine.changes.empty()) return {};
  engine.visible.Apply(engine.changes);
  return engine.visible.Stored();
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
  list.Replace(from, static_cast<Row>(upToChanged), std::move(fresh));
  list.SetModified();
  return changed;
}

}  // namespace cuewright
