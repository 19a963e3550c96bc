#include "formats/source/sami_scanner.h"

#include <algorithm>

#include "formats/source/clock_field.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kRemarkEnd = "-->";

// Faster than a search among the four for each byte of a file.
bool IsBlankByte(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// The bytes of an attribute's value in a tag, without quotes.
std::string_view Attribute(std::string_view tag, std::string_view name) {
  for (std::size_t at = tag.find('='); at != std::string_view::npos; at = tag.find('=', at + 1)) {
    std::size_t nameEnd = at;
    while (nameEnd > 0 && IsBlankByte(tag[nameEnd - 1])) --nameEnd;
    if (nameEnd <= name.size() || !SameLetters(tag.substr(nameEnd - name.size(), name.size()), name)) continue;
    if (!IsBlankByte(tag[nameEnd - name.size() - 1])) continue;
    std::size_t begin = tag.find_first_not_of(kBlanks, at + 1);
    if (begin == std::string_view::npos) return {};
    const bool quoted = tag[begin] == '"' || tag[begin] == '\'';
    const std::size_t end = quoted ? tag.find(tag[begin], begin + 1) : tag.find_first_of(" \t\r\n>", begin);
    if (quoted) ++begin;
    return tag.substr(begin, std::min(end, tag.size()) - begin);
  }
  return {};
}

}  // namespace

bool SameLetters(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

SamiScanner::SamiScanner(std::string_view bytes) : bytes_(bytes), bodyEnd_(bytes.size()), next_(0) {
  const std::size_t closing = bytes.rfind(kRemarkEnd);
  lastClosing_ = closing == std::string_view::npos ? 0 : closing;
  bodyEnd_ = FindTag("/body", 0, bytes.size());
  if (bodyEnd_ == bytes.size()) bodyEnd_ = FindTag("/sami", 0, bytes.size());
  next_ = FindTag("sync", 0, bodyEnd_);
}

/// The place behind the remark that begins here; the place itself where none begins or where it is not closed, which
/// some programs forget.
std::size_t SamiScanner::BehindRemark(std::size_t at) const {
  constexpr std::string_view kOpening = "<!--";
  if (bytes_.substr(at, kOpening.size()) != kOpening || at + kOpening.size() > lastClosing_) return at;
  return bytes_.find(kRemarkEnd, at + kOpening.size()) + kRemarkEnd.size();
}

/// Where the next tag of a name begins, or `to`.
std::size_t SamiScanner::FindTag(std::string_view name, std::size_t from, std::size_t to) const {
  for (std::size_t at = bytes_.find('<', from); at < to; at = bytes_.find('<', at + 1)) {
    if (const std::size_t behind = BehindRemark(at); behind != at) {
      at = behind - 1;
      continue;
    }
    if (!SameLetters(bytes_.substr(at + 1, name.size()), name)) continue;
    const std::size_t behind = at + 1 + name.size();
    if (behind < bytes_.size() && (bytes_[behind] == '>' || IsBlankByte(bytes_[behind]))) {
      return at;
    }
  }
  return to;
}

/// The place behind the bracket that closes the tag that begins here; a tag without one ends in front of the next tag.
std::size_t SamiScanner::TagEnd(std::size_t at) const {
  std::size_t end = at + 1;
  while (end < bodyEnd_ && bytes_[end] != '<' && bytes_[end] != '>') ++end;
  return end < bodyEnd_ && bytes_[end] == '>' ? end + 1 : end;
}

bool SamiScanner::Next(SamiSync& sync) {
  if (next_ >= bodyEnd_) return false;
  const std::size_t at = next_;
  const std::size_t behind = TagEnd(at);
  next_ = FindTag("sync", behind, bodyEnd_);
  std::size_t end = next_;
  // The blanks in front of the next time belong to it.
  while (end > behind && (bytes_[end - 1] == ' ' || bytes_[end - 1] == '\t')) --end;
  sync.whole = Stretch::Between(at, end);
  sync.start = {};
  sync.ms = 0;
  sync.paragraphs.clear();
  const std::string_view value = Attribute(bytes_.substr(at, behind - at), "start");
  if (const auto number = ReadNumber(value)) {
    sync.ms = number->number;
    sync.start = Stretch::Of(value.data() - bytes_.data(), number->size);
  }
  ReadParagraphs(behind, end, sync);
  return true;
}

void SamiScanner::ReadParagraphs(std::size_t from, std::size_t to, SamiSync& sync) const {
  std::size_t at = FindTag("p", from, to);
  // Text in front of any paragraph belongs to all classes.
  std::size_t textAt = from;
  std::string_view className;
  bool named = false;
  bool shown = true;
  for (;;) {
    std::size_t begin = textAt;
    std::size_t end = at;
    while (begin < end && IsBlankByte(bytes_[begin])) ++begin;
    while (end > begin && IsBlankByte(bytes_[end - 1])) --end;
    for (const std::string_view closing : {"</sync>", "</p>"}) {
      if (end - begin >= closing.size() && SameLetters(bytes_.substr(end - closing.size(), closing.size()), closing)) {
        end -= closing.size();
      }
      while (end > begin && IsBlankByte(bytes_[end - 1])) --end;
    }
    if (shown && (named || begin < end)) sync.paragraphs.push_back({className, Stretch::Between(begin, end)});
    if (at >= to) return;
    textAt = std::min(TagEnd(at), to);
    const std::string_view tag = bytes_.substr(at, textAt - at);
    // A paragraph that only tells who speaks is no caption.
    named = true;
    shown = !SameLetters(Attribute(tag, "id"), "source");
    className = Attribute(tag, "class");
    at = FindTag("p", textAt, to);
  }
}

}  // namespace cuewright
