#include "core/seen_text.h"

#include <algorithm>
#include <utility>

#include "core/word_changes.h"
#include "text/digits.h"

namespace cuewright {
namespace {

bool IsHighSurrogate(char16_t c) { return (c & 0xFC00) == 0xD800; }

bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

/// What may stand behind the "<" of a tag: a name, or the time of a word, so that "1 < 2" and "<3" are text.
bool BeginsAngleTag(TextView text) {
  if (text.size() < 3) return false;
  if (IsLetter(text[1])) return true;
  if (text[1] == u'/') return IsLetter(text[2]) || text[2] == u'>';
  if (!IsDigit(text[1])) return false;
  const std::size_t behind = text.find_first_not_of(u"0123456789:.", 1);
  return behind != TextView::npos && text[behind] == u'>' && text.substr(0, behind).find(u':') != TextView::npos;
}

/// "{\" begins overrides, and "{y:" and its like a code.
bool BeginsBraceTag(TextView text) {
  return text.size() >= 3 && (text[1] == u'\\' || (IsLetter(text[1]) && text[2] == u':'));
}

}  // namespace

std::size_t TagLength(TextView text) {
  const bool angle = text.starts_with(u'<') && BeginsAngleTag(text);
  if (!angle && !(text.starts_with(u'{') && BeginsBraceTag(text))) return 0;
  const std::size_t end = text.find_first_of(angle ? TextView(u"<>") : TextView(u"{}"), 1);
  return end != TextView::npos && text[end] == (angle ? u'>' : u'}') ? end + 1 : 0;
}

namespace {

/// Where the pair of tags begins that ends a text: "<i></i>"; npos when it ends in none.
std::size_t PairAtEnd(TextView text) {
  const std::size_t closing = text.rfind(u"</");
  if (closing == TextView::npos || TagLength(text.substr(closing)) != text.size() - closing) return TextView::npos;
  const TextView name = text.substr(closing + 2, text.size() - closing - 3);
  const TextView front = text.substr(0, closing);
  const std::size_t opening = front.rfind(u'<');
  if (opening == TextView::npos || TagLength(front.substr(opening)) != front.size() - opening) return TextView::npos;
  const TextView inner = front.substr(opening + 1, front.size() - opening - 2);
  return EqualLoose(inner.substr(0, inner.find_first_of(u" ./")), name) ? opening : TextView::npos;
}

}  // namespace

/// Puts a changed text together from the old one and what is new.
class SeenText::Builder {
 public:
  explicit Builder(const SeenText& old) : old_(old) {
    stored_.reserve(old.stored_.size());
    seen_.reserve(old.seen_.size());
    places_.reserve(old.places_.size());
  }

  /// Everything of the old text up to a place, in front of the unit `last`.
  void CopyUpTo(std::size_t place, std::size_t last) {
    const std::size_t shift = stored_.size() - copied_;  // wraps around where the text became shorter
    stored_.append(old_.stored_, copied_, place - copied_);
    seen_.append(old_.seen_, unit_, last - unit_);
    for (; unit_ < last; ++unit_) {
      places_.push_back({old_.places_[unit_].begin + shift, old_.places_[unit_].end + shift});
    }
    copied_ = place;
  }

  /// The next unit of the old text goes; everything in front of it was copied.
  void Drop() { copied_ = old_.places_[unit_++].end; }

  void Put(TextView text) {
    for (const char16_t c : text) {
      const std::size_t begin = stored_.size();
      if (c == u'\n') {
        stored_ += old_.separator_;
      } else {
        stored_ += c;
      }
      seen_ += c;
      places_.push_back({begin, stored_.size()});
    }
  }

  void Finish(SeenText& to) {
    CopyUpTo(old_.stored_.size(), old_.seen_.size());
    to.stored_ = std::move(stored_);
    to.seen_ = std::move(seen_);
    to.places_ = std::move(places_);
  }

 private:
  const SeenText& old_;
  std::size_t copied_ = 0;  // place in the old stored text
  std::size_t unit_ = 0;    // of the old seen text
  Text stored_;
  Text seen_;
  std::vector<TextPlace> places_;
};

void SeenText::Take(TextView stored, TextView separator, const CaptionMarks& marks) {
  stored_ = stored;
  separator_ = separator;
  seen_ = marks.ReadPlaces(stored, separator, places_);
  TakeBreaks();
}

/// A separator counts as one unit, whatever its length.
void SeenText::TakeBreaks() {
  if (separator_.empty() || FindPlain(seen_, separator_) == Text::npos) return;
  Text seen;
  std::size_t kept = 0;
  for (std::size_t at = 0; at < seen_.size();) {
    const bool breaks = TextView(seen_).substr(at).starts_with(separator_);
    const std::size_t size = breaks ? separator_.size() : 1;
    places_[kept++] = {places_[at].begin, places_[at + size - 1].end};
    seen += breaks ? u'\n' : seen_[at];
    at += size;
  }
  places_.resize(kept);
  seen_ = std::move(seen);
}

void SeenText::Take(TextView stored, TextView separator) {
  stored_ = stored;
  separator_ = separator;
  seen_.clear();
  places_.clear();
  for (std::size_t at = 0; at < stored.size();) {
    const TextView rest = stored.substr(at);
    const char16_t c = rest.front();
    if (const std::size_t tag = c == u'<' || c == u'{' ? TagLength(rest) : 0; tag != 0) {
      at += tag;
      continue;
    }
    const bool breaks = !separator.empty() && rest.starts_with(separator);
    const std::size_t size = breaks ? separator.size() : 1;
    seen_ += breaks ? u'\n' : c;
    places_.push_back({at, at + size});
    at += size;
  }
}

/// Where something comes into the stored text in front of a seen character: behind the marks at the beginning of a
/// line, in front of those anywhere else.
std::size_t SeenText::InsertionPlace(std::size_t at) const {
  const bool lineBegins = at == 0 || seen_[at - 1] == u'\n';
  if (at < places_.size() && lineBegins) return places_[at].begin;
  if (at == 0) return stored_.size();
  return places_[at - 1].end;
}

void SeenText::PutChange(const Change& change, Builder& out) const {
  const TextView old = TextView(seen_).substr(change.from, change.to - change.from);
  const TextView fresh = change.text;
  // What both begin and end with stays as it stands, its marks with it.
  const std::size_t shorter = std::min(old.size(), fresh.size());
  std::size_t front = 0;
  while (front < shorter && old[front] == fresh[front]) ++front;
  std::size_t back = 0;
  while (back < shorter - front && old[old.size() - 1 - back] == fresh[fresh.size() - 1 - back]) ++back;
  const TextView middle = fresh.substr(front, fresh.size() - front - back);
  const std::size_t first = change.from + front;
  const std::size_t last = change.to - back;
  out.CopyUpTo(front == 0 ? places_[first].begin : places_[first - 1].end, first);
  std::size_t used = 0;
  for (std::size_t at = first; at < last; ++at) {
    if (at > change.from) out.CopyUpTo(places_[at].begin, at);
    const std::size_t units = used + 1 < middle.size() && IsHighSurrogate(middle[used]) ? 2 : 1;
    out.Put(middle.substr(std::min(used, middle.size()), units));
    used = std::min(used + units, middle.size());
    out.Drop();
  }
  out.Put(middle.substr(used));
}

void SeenText::Apply(const std::vector<Change>& changes) {
  Builder out(*this);
  for (const Change& change : changes) {
    if (change.from == change.to) {
      out.CopyUpTo(InsertionPlace(change.from), change.from);
      out.Put(change.text);
    } else {
      PutChange(change, out);
    }
  }
  out.Finish(*this);
}

void SeenText::ChangeTo(TextView wanted) {
  if (wanted == seen_) return;
  const std::vector<Change> changes = ChangesByWords(seen_, wanted);
  Apply(changes);
  std::size_t behind = 0;  // the change, in the new text
  std::size_t old = 0;
  for (const Change& change : changes) {
    behind += change.from - old + change.text.size();
    old = change.to;
    if (change.to > change.from) DropEmptyPairs(behind);
  }
}

void SeenText::Keep(std::size_t from, std::size_t to) {
  std::vector<Change> gone;
  if (from > 0) gone.push_back({0, from, {}});
  if (to < seen_.size()) gone.push_back({to, seen_.size(), {}});
  Apply(gone);
  DropEmptyPairs(seen_.size());
  if (!seen_.empty()) DropEmptyPairs(0);
}

/// Takes the pairs of tags without anything between them out of the marks in front of a unit.
void SeenText::DropEmptyPairs(std::size_t at) {
  const std::size_t begin = at == 0 ? 0 : places_[at - 1].end;
  const std::size_t end = at == places_.size() ? stored_.size() : places_[at].begin;
  Text marks;
  for (const char16_t c : TextView(stored_).substr(begin, end - begin)) {
    marks += c;
    if (const std::size_t pair = c == u'>' ? PairAtEnd(marks) : Text::npos; pair != Text::npos) marks.resize(pair);
  }
  const std::size_t dropped = end - begin - marks.size();
  if (dropped == 0) return;
  stored_.replace(begin, end - begin, marks);
  for (std::size_t unit = at; unit < places_.size(); ++unit) {
    places_[unit].begin -= dropped;
    places_[unit].end -= dropped;
  }
}

}  // namespace cuewright
