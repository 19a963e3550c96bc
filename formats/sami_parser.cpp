#include <array>
#include <utility>

#include "core/numbers.h"
#include "formats/line_parsers.h"
#include "formats/text_search.h"

namespace cuewright {
namespace {

/// Tags that are text, and what they are hidden as while the others go.
struct KeptTag {
  TextView tag;
  TextView hidden;
};
constexpr std::array<KeptTag, 4> kKeptTags = {
    {{u"<br>", u"#br#"}, {u"<b>", u"#b#"}, {u"<i>", u"#i#"}, {u"<u>", u"#u#"}}};

/// Longest line of nested brackets that is worked on copy by copy, since that takes time by its square.
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

/// The same for any text: every further copy of a stretch goes with it, which may bring brackets together.
Text RemoveStretches(TextView text) {
  Text result;
  if (RemoveFlatStretches(text, text.size() > kLongestNested, result)) return result;
  result = text;
  for (;;) {
    const std::size_t open = result.find(u'<');
    const std::size_t close = open == Text::npos ? open : result.find(u'>', open);
    if (close == Text::npos) return result;
    result = ReplaceAll(result, Text(result, open, close - open + 1), {});
  }
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

/// Strips a line in which no stretch lies in another and no "#" can be taken for a hidden tag. False for any other.
bool StripPlainLine(TextView text, Text& result) {
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

Text StripAnyLine(TextView line) {
  Text text(line);
  for (const KeptTag& kept : kKeptTags) text = ReplaceAll(text, kept.tag, kept.hidden);
  text = RemoveStretches(text);
  for (const KeptTag& kept : kKeptTags) text = ReplaceAll(text, kept.hidden, kept.tag);
  return text;
}

class SamiParser final : public LineParser {
 public:
  explicit SamiParser(const ParseContext& context) : captions_(context.captions), errors_(context.errors) {}

  void Parse(ImportLine& line) override {
    if (!bodySeen_) {
      bodySeen_ = line.Empty() ? false : line.View() == u"<BODY>";
      return;
    }
    if (line.Empty()) return;
    const TextView text = line.View();
    if (!captions_.captionText.empty() && captions_.TimesSet()) captions_.FlushImportedCaption();
    const bool sync = HoldsPair(text, u'C', u'c', u' ') && sync_.In(text);
    const unsigned held = HeldOf(text, u'&', u'<', u'#');
    const bool space = (held & 1u) != 0 && space_.In(text);
    if (!sync && !space && captions_.captionText.empty()) TakeText(text, (held & 6u) != 0);
    if (sync) errors_([&] { ReadTime(text); });
    if (space) captions_.Reset();
  }

 private:
  void TakeText(TextView text, bool marked) {
    if (!marked) {
      captions_.captionText = text;
    } else if (!StripPlainLine(text, captions_.captionText)) {
      captions_.captionText = StripAnyLine(text);
    }
  }

  void ReadTime(TextView text) {
    const std::size_t equals = text.find(u'=');
    const TextView number = equals == TextView::npos ? text : text.substr(equals + 1);
    if (!captions_.StartSet()) {
      captions_.captionStart = RoundToInt32(LeadingNumber(number));
    } else if (!captions_.EndSet()) {
      captions_.captionEnd = RoundToInt32(LeadingNumber(number));
    }
  }

  CaptionCollector& captions_;
  CarryOn& errors_;
  Needle sync_{u"SYNC START"};
  Needle space_{u"&nbsp;"};
  bool bodySeen_ = false;
};

}  // namespace

std::unique_ptr<LineParser> MakeSamiParser(const ParseContext& context) {
  return std::make_unique<SamiParser>(context);
}

}  // namespace cuewright
