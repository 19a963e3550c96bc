#include "tools/visible_text.h"

#include <algorithm>

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

void VisibleText::Take(TextView stored, TextView separator) {
  stored_ = stored;
  separator_ = separator;
  visible_.clear();
  begins_.clear();
  ends_.clear();
  for (std::size_t at = 0; at < stored.size();) {
    const TextView rest = stored.substr(at);
    const char16_t c = rest.front();
    if (const std::size_t tag = c == u'<' || c == u'{' ? TagLength(rest) : 0; tag != 0) {
      at += tag;
      continue;
    }
    const bool breaks = !separator.empty() && rest.starts_with(separator);
    visible_ += breaks ? u'\n' : c;
    begins_.push_back(at);
    at += breaks ? separator.size() : 1;
    ends_.push_back(at);
  }
}

void VisibleText::CopyStored(std::size_t from, std::size_t to, Text& out) const {
  out.append(stored_, from, to - from);
}

void VisibleText::PutVisible(TextView text, Text& out) const {
  for (const char16_t c : text) {
    if (c == u'\n') {
      out += separator_;
    } else {
      out += c;
    }
  }
}

/// Where something comes into the stored text in front of a visible character: behind the tags at the beginning of a
/// line, in front of those anywhere else.
std::size_t VisibleText::InsertionPlace(std::size_t at) const {
  const bool lineBegins = at == 0 || visible_[at - 1] == u'\n';
  if (at < begins_.size() && lineBegins) return begins_[at];
  if (at == 0) return stored_.size();
  return ends_[at - 1];
}

void VisibleText::PutChange(const Change& change, Text& out) const {
  const TextView old = TextView(visible_).substr(change.from, change.to - change.from);
  const TextView fresh = change.text;
  // What both begin and end with stays as it stands, its tags with it.
  const std::size_t shorter = std::min(old.size(), fresh.size());
  std::size_t front = 0;
  while (front < shorter && old[front] == fresh[front]) ++front;
  std::size_t back = 0;
  while (back < shorter - front && old[old.size() - 1 - back] == fresh[fresh.size() - 1 - back]) ++back;
  const TextView middle = fresh.substr(front, fresh.size() - front - back);
  const std::size_t first = change.from + front;
  const std::size_t last = change.to - back;
  CopyStored(begins_[change.from], first == change.from ? begins_[first] : ends_[first - 1], out);
  std::size_t used = 0;
  for (std::size_t at = first; at < last; ++at) {
    if (at > change.from) CopyStored(ends_[at - 1], begins_[at], out);
    const std::size_t units = used + 1 < middle.size() && IsHighSurrogate(middle[used]) ? 2 : 1;
    PutVisible(middle.substr(std::min(used, middle.size()), units), out);
    used = std::min(used + units, middle.size());
  }
  PutVisible(middle.substr(used), out);
  if (last < change.to) CopyStored(last == change.from ? begins_[last] : ends_[last - 1], ends_[change.to - 1], out);
}

Text VisibleText::Changed(const std::vector<Change>& changes) const {
  Text out;
  std::size_t copied = 0;
  for (const Change& change : changes) {
    const bool inserts = change.from == change.to;
    const std::size_t from = inserts ? InsertionPlace(change.from) : begins_[change.from];
    CopyStored(copied, from, out);
    if (inserts) {
      PutVisible(change.text, out);
      copied = from;
    } else {
      PutChange(change, out);
      copied = ends_[change.to - 1];
    }
  }
  CopyStored(copied, stored_.size(), out);
  return out;
}

}  // namespace cuewright
