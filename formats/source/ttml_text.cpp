#include "formats/source/ttml_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "formats/source/character_names.h"
#include "formats/source/whole_styles.h"

namespace cuewright {
namespace {

bool IsBlankUnit(char16_t c) { return c <= u' ' && (c == u' ' || c == u'\t' || c == u'\r' || c == u'\n'); }

/// A name without the prefix of its name space.
TextView LocalName(TextView name) {
  const std::size_t colon = name.find(u':');
  return colon == TextView::npos ? name : name.substr(colon + 1);
}

/// The name of the element that a tag, given between its brackets, opens or closes.
TextView ElementOf(TextView inner) {
  if (inner.starts_with(u'/')) inner.remove_prefix(1);
  return LocalName(inner.substr(0, inner.find_first_of(u" \t\r\n/")));
}

constexpr TextView kVerbatim = u"<![CDATA[";

/// Puts a paragraph's pieces together. Blanks that follow each other are one, be there tags between them or not, and
/// those around a line are none.
class Joiner {
 public:
  Joiner(XmlSpace space, TextView separator) : space_(space), separator_(separator) {}

  void Text(TextView raw) {
    for (std::size_t at = 0; at < raw.size(); ++at) {
      const auto word = raw.begin() + at;
      const auto blank = std::find_if(word, raw.end(), IsBlankUnit);
      if (blank != word) {
        out_.append(word, blank);
        lastBlank_ = kNone;
        inLine_ = true;
        at += blank - word;
      }
      if (at < raw.size()) Blank(raw, at);
    }
  }
  void Break() {
    TrimEnd();
    out_ += separator_;
    inLine_ = false;
  }
  void Tag(TextView tag) { out_ += tag; }
  cuewright::Text Take() {
    TrimEnd();
    return std::move(out_);
  }

 private:
  static constexpr std::size_t kNone = cuewright::Text::npos;

  void Blank(TextView raw, std::size_t at) {
    if (space_ == XmlSpace::Preserve) return Preserved(raw, at);
    if (!inLine_ || lastBlank_ != kNone) return;
    lastBlank_ = out_.size();
    out_ += u' ';
  }
  void Preserved(TextView raw, std::size_t at) {
    if (raw[at] == u'\n' || (raw[at] == u'\r' && raw.substr(at + 1, 1) != u"\n")) {
      Break();
    } else if (raw[at] != u'\r') {
      out_ += raw[at];
    }
  }
  void TrimEnd() {
    if (lastBlank_ != kNone) out_.erase(lastBlank_, 1);
    lastBlank_ = kNone;
  }

  XmlSpace space_;
  TextView separator_;
  cuewright::Text out_;
  std::size_t lastBlank_ = kNone;  // that nothing visible follows yet
  bool inLine_ = false;            // the line has something visible
};

struct SpanStyle {
  TextView attribute;
  TextView value;
  bool WholeStyles::*flag;
};
constexpr std::array<SpanStyle, 3> kSpanStyles = {{{u"fontWeight", u"bold", &WholeStyles::bold},
                                                   {u"fontStyle", u"italic", &WholeStyles::italic},
                                                   {u"textDecoration", u"underline", &WholeStyles::underline}}};

/// Takes one attribute of a span that only sets styles that the list has markers for.
bool TakeAttribute(TextView& rest, WholeStyles& styles) {
  const std::size_t equals = rest.find(u'=');
  if (equals == TextView::npos || equals + 2 >= rest.size()) return false;
  const char16_t quote = rest[equals + 1];
  const std::size_t end = rest.find(quote, equals + 2);
  if ((quote != u'"' && quote != u'\'') || end == TextView::npos) return false;
  const TextView name = LocalName(TrimBlanks(rest.substr(0, equals)));
  const TextView value = rest.substr(equals + 2, end - equals - 2);
  for (const auto& [attribute, wanted, flag] : kSpanStyles) {
    if (name != attribute || value != wanted) continue;
    styles.*flag = true;
    rest = TrimBlanks(rest.substr(end + 1));
    return true;
  }
  return false;
}

/// A span around all of the text becomes markers if it does no more than they tell.
void SpanToMarkers(Text& text) {
  const TextView view = text;
  const std::size_t tagEnd = view.find(u'>');
  if (!view.starts_with(u'<') || !view.ends_with(u'>') || tagEnd + 1 == view.size()) return;
  const TextView tag = view.substr(1, tagEnd - 1);
  const std::size_t closing = view.rfind(u'<');
  const TextView ending = view.substr(closing + 1, view.size() - closing - 2);
  if (ElementOf(tag) != u"span" || tag.ends_with(u'/') || !ending.starts_with(u'/') || ElementOf(ending) != u"span")
    return;
  const TextView inner = view.substr(tagEnd + 1, closing - tagEnd - 1);
  // A span inside might be the one that is closed last.
  if (inner.find(u"span") != TextView::npos) return;
  WholeStyles styles;
  TextView rest = TrimBlanks(tag.substr(std::min(tag.find(u' '), tag.size())));
  while (!rest.empty()) {
    if (!TakeAttribute(rest, styles)) return;
  }
  if (styles.Any()) text = Markers(styles) + Text(inner);
}

}  // namespace

Text ParagraphToText(TextView view, XmlSpace space, TextView separator) {
  Joiner joiner(space, separator);
  for (std::size_t at = 0; at < view.size();) {
    const std::size_t open = std::min(view.find(u'<', at), view.size());
    joiner.Text(view.substr(at, open - at));
    if (open == view.size()) break;
    if (view.substr(open, kVerbatim.size()) == kVerbatim) {
      const std::size_t begin = open + kVerbatim.size();
      const std::size_t behind = std::min(view.find(u"]]>", begin), view.size());
      joiner.Text(EncodeAllNames(view.substr(begin, behind - begin)));
      at = std::min(behind + 3, view.size());
      continue;
    }
    const bool remark = view.substr(open, 4) == u"<!--";
    std::size_t end = remark ? view.find(u"-->", open + 4) : view.find(u'>', open);
    if (end == TextView::npos) end = view.size() - 1;
    end += remark ? 3 : 1;
    const TextView tag = view.substr(open, end - open);
    if (!remark && tag.size() > 2 && ElementOf(tag.substr(1, tag.size() - 2)) == u"br") {
      if (tag[1] != u'/') joiner.Break();
    } else {
      joiner.Tag(tag);
    }
    at = std::min(end, view.size());
  }
  Text text = joiner.Take();
  DecodeNames(text);
  SpanToMarkers(text);
  return text;
}

Text TextToParagraph(TextView text, TextView separator, const TtmlNames& names) {
  Text inner(text);
  const WholeStyles styles = TakeMarkers(inner);
  inner = ReplaceAll(EncodeNames(inner), separator, u"<" + names.element + u"br/>");
  if (!styles.Any()) return inner;
  Text span = u"<" + names.element + u"span";
  const TextView prefix = TextView(names.style).substr(0, names.style.size() - 1);
  if (!names.declaresStyles) span += u" xmlns:" + Text(prefix) + u"=\"" + Text(kTtmlStyling) + u"\"";
  for (const auto& [attribute, value, flag] : kSpanStyles) {
    if (styles.*flag) span += u" " + names.style + Text(attribute) + u"=\"" + Text(value) + u"\"";
  }
  return span + u">" + inner + u"</" + names.element + u"span>";
}

}  // namespace cuewright
