#include "tools/join_captions.h"

#include <algorithm>
#include <utility>

#include "core/style_markers.h"
#include "tools/pane_text.h"

namespace cuewright {
namespace {

/// Tags around a part of a caption.
struct Tags {
  Text opening;
  Text closing;
};

bool HasStyle(const RunStyle& style, TextView marker) {
  return marker == kBoldMarker ? style.bold : marker == kItalicMarker ? style.italic : style.underline;
}

/// The tags that give a part of a caption the style of a list's marker in the document's format; empty ones when it has
/// none.
Tags TagsOf(const CaptionList& list, TextView marker) {
  const Text letter(marker.substr(1, 1));
  for (const Tags& tags :
       {Tags{u"<" + letter + u">", u"</" + letter + u">"}, Tags{u"{\\" + letter + u"1}", u"{\\" + letter + u"0}"}}) {
    const SeenCaption seen = list.Marks().Read(tags.opening + u"x" + tags.closing + u"y", list.Options().lineSeparator);
    if (seen.runs.size() == 2 && seen.runs[0].text == u"x" && HasStyle(seen.runs[0].style, marker) &&
        seen.runs[1].text == u"y" && !HasStyle(seen.runs[1].style, marker)) {
      return tags;
    }
  }
  return {};
}

/// The markers of the whole caption that all these texts have in common.
std::vector<TextView> SharedMarkers(const std::vector<Text>& texts) {
  std::vector<TextView> shared;
  for (const TextView marker : kStyleMarkers) {
    if (std::ranges::all_of(texts, [&](const Text& text) { return FindWholeMarkers(text).Has(marker); })) {
      shared.push_back(marker);
    }
  }
  return shared;
}

/// The text without its markers of the whole caption; a style that not all texts have is given to the whole of this
/// text by tags.
Text AsPart(const CaptionList& list, const Text& text, const std::vector<TextView>& shared) {
  const WholeMarkers whole = FindWholeMarkers(text);
  Text part(whole.Inner(text));
  for (const TextView marker : kStyleMarkers) {
    if (!whole.Has(marker) || std::ranges::find(shared, marker) != shared.end()) continue;
    const Tags tags = TagsOf(list, marker);
    part = tags.opening + part + tags.closing;
  }
  return part;
}

/// One line behind a dash; a text that is a dialogue already stays as it is.
Text AsSpoken(const CaptionList& list, const Text& text) {
  SeenText seen;
  seen.Take(text, list.Options().lineSeparator, list.Marks());
  const TextView view = seen.View();
  if (DashLength(view) != 0) return text;
  std::vector<SeenText::Change> changes = {{0, 0, u"- "}};
  for (std::size_t at = view.find(u'\n'); at != TextView::npos; at = view.find(u'\n', at + 1)) {
    changes.push_back({at, at + 1, u" "});
  }
  seen.Apply(changes);
  return seen.Stored();
}

Text Joined(const CaptionList& list, std::vector<Text> texts, JoinAs as) {
  std::erase_if(texts, [](const Text& text) { return IsBlank(text); });
  if (texts.empty()) return {};
  const std::vector<TextView> shared = SharedMarkers(texts);
  Text joined;
  for (const TextView marker : shared) joined += marker;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (i != 0) joined += list.Options().lineSeparator;
    Text part = AsPart(list, texts[i], shared);
    joined += as == JoinAs::Dialogue ? AsSpoken(list, part) : part;
  }
  return joined;
}

}  // namespace

bool JoinCaptions(CaptionList& list, const RowSet& rows, JoinAs as) {
  const Row first = rows.First();
  const Row last = rows.Last();
  if (!list.InRange(first) || !list.InRange(last) || first == last) return false;
  std::vector<Text> texts;
  std::vector<Caption> left(1);
  Caption whole = list.At(first);
  for (Row row = first; row <= last; ++row) {
    const Caption& each = list.At(row);
    if (!rows.Has(row)) {
      left.push_back(each);
      continue;
    }
    texts.push_back(each.text);
    if (each.start > 0 && (whole.start == 0 || each.start < whole.start)) whole.start = each.start;
    whole.end = std::max(whole.end, each.end);
  }
  whole.text = Joined(list, std::move(texts), as);
  left.front() = std::move(whole);
  list.Replace(first, last - first + 1, std::move(left));
  list.SetModified();
  return true;
}

bool MeetNext(CaptionList& list, Row row) {
  if (!list.IsCaptionTimed(row) || list.GetCaptionStart(row + 1) <= list.GetCaptionStart(row)) return false;
  list.SetCaptionEnd(row, list.GetCaptionStart(row + 1));
  return true;
}

bool SwapTextWithNext(CaptionList& list, Row row) {
  if (!list.InRange(row) || !list.InRange(row + 1)) return false;
  const Caption& upper = list.At(row);
  const Caption& lower = list.At(row + 1);
  list.Replace(row, 2, {upper.WithText(lower.text), lower.WithText(upper.text)});
  list.SetModified();
  return true;
}

}  // namespace cuewright
