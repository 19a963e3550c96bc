#include "formats/sami_tags.h"

#include <array>

#include "core/style_markers.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

/// The tags that are kept, each with the text that hides it while the other tags are removed.
struct KeptTag {
  TextView tag;
  TextView hidden;
};
constexpr std::array<KeptTag, 4> kKeptTags = {
    {{u"<br>", u"#br#"}, {kBoldMarker, u"#b#"}, {kItalicMarker, u"#i#"}, {kUnderlineMarker, u"#u#"}}};

/// Longest line of nested brackets that is worked on copy by copy.
constexpr std::size_t kLongestNested = 4096;

/// Removes each stretch from a "<" to the next ">". Gives up with false at a "<" inside a stretch.
bool RemoveFlatStretches(TextView text, bool nestedToo, Text& result) {
  result.clear();
  std::size_t at = 0;
  for (;;) {
    const std::size_t open = text.find(u'<', at);
    const std::size_t close = open == TextView::npos ? open : text.find(u'>', open);
    if (close == TextView::npos) break;
    if (!nestedToo && text.substr(open + 1, close - open - 1).find(u'<') != TextView::npos) return false;
    result.append(text, at, open - at);
    at = close + 1;
  }
  result.append(text, at);
  return true;
}

/// The same for any text. With a stretch all its copies go, and what is left on both sides may form a further stretch.
Text RemoveStretches(TextView text, TagWork& work) {
  Text result;
  if (RemoveFlatStretches(text, text.size() > kLongestNested, result)) return result;
  for (result = text; work.left >= result.size(); work.left -= result.size()) {
    const std::size_t open = result.find(u'<');
    const std::size_t close = open == Text::npos ? open : result.find(u'>', open);
    if (close == Text::npos) return result;
    result = ReplaceAll(result, Text(result, open, close - open + 1), {});
  }
  Text flat;
  RemoveFlatStretches(result, true, flat);
  return flat;
}

/// Length of the kept tag that begins at the place; 0 when none does.
std::size_t KeptLength(TextView text, std::size_t at) {
  for (const KeptTag& kept : kKeptTags) {
    if (text.substr(at).starts_with(kept.tag)) return kept.tag.size();
  }
  return 0;
}

/// The ">" that closes the stretch opened at `open`, npos when there is none. `plain` becomes false when another
/// stretch opens inside.
std::size_t ClosingPlace(TextView text, std::size_t open, bool& plain) {
  for (std::size_t at = open + 1; at < text.size(); ++at) {
    if (text[at] == u'>') return at;
    if (text[at] != u'<') continue;
    const std::size_t kept = KeptLength(text, at);
    if (kept == 0) plain = false;
    at += kept == 0 ? 0 : kept - 1;
  }
  return TextView::npos;
}

}  // namespace

bool StripFlatTags(TextView text, Text& result) {
  // A "#" could be taken for a hidden tag.
  if (FindCharacter(text, u'#') != TextView::npos) return false;
  result.clear();
  std::size_t at = 0;
  for (std::size_t open = FindCharacter(text, u'<'); open != TextView::npos; open = FindCharacter(text, u'<', open)) {
    const std::size_t kept = KeptLength(text, open);
    open += kept;
    if (kept != 0) continue;
    bool plain = true;
    const std::size_t close = ClosingPlace(text, open, plain);
    if (!plain) return false;
    if (close == TextView::npos) break;
    result.append(text, at, open - at);
    at = open = close + 1;
  }
  result.append(text, at);
  return true;
}

Text StripNestedTags(TextView line, TagWork& work) {
  Text text(line);
  for (const KeptTag& kept : kKeptTags) text = ReplaceAll(text, kept.tag, kept.hidden);
  text = RemoveStretches(text, work);
  for (const KeptTag& kept : kKeptTags) text = ReplaceAll(text, kept.hidden, kept.tag);
  return text;
}

Text StripTags(TextView line, TagWork& work) {
  Text flat;
  return StripFlatTags(line, flat) ? flat : StripNestedTags(line, work);
}

}  // namespace cuewright
