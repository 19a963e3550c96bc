#include "formats/source/ttml_places.h"

namespace cuewright {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// True when the bytes begin with this name and the name ends there.
bool IsNamed(std::string_view bytes, std::string_view name) {
  if (!bytes.starts_with(name)) return false;
  return bytes.size() > name.size() && std::string_view(" \t\r\n/>").find(bytes[name.size()]) != std::string_view::npos;
}

/// Where the closing tag of an element begins. What looks like a tag in a remark or in verbatim text is none.
std::size_t ClosingTag(std::string_view bytes, std::size_t at, std::string_view name) {
  int inner = 0;  // elements of the same name that are open
  for (at = bytes.find('<', at); at != std::string_view::npos; at = bytes.find('<', at + 1)) {
    const std::string_view rest = bytes.substr(at);
    if (rest.starts_with("<!--")) {
      at = bytes.find("-->", at + 4);
    } else if (rest.starts_with("<![CDATA[")) {
      at = bytes.find("]]>", at + 9);
    } else if (rest.starts_with("</") && IsNamed(rest.substr(2), name)) {
      if (inner-- == 0) return at;
    } else if (IsNamed(rest.substr(1), name)) {
      at = bytes.find('>', at);
      if (at != std::string_view::npos && bytes[at - 1] != '/') ++inner;
    }
    if (at == std::string_view::npos) break;
  }
  return bytes.size();
}

}  // namespace

TtmlTag::TtmlTag(std::string_view bytes, std::size_t nameAt)
    : bytes_(bytes), at_(std::min(bytes.find_first_of(" \t\r\n/>", nameAt), bytes.size())) {
  if (nameAt < at_) name_ = bytes.substr(nameAt, at_ - nameAt);
}

bool TtmlTag::Next(std::string_view& name, Stretch& value) {
  at_ = std::min(bytes_.find_first_not_of(kBlanks, at_), bytes_.size());
  if (at_ >= bytes_.size() || bytes_[at_] == '/' || bytes_[at_] == '>') {
    closed_ = at_ < bytes_.size() && bytes_[at_] == '/';
    at_ = std::min(bytes_.find('>', at_), bytes_.size() - 1) + 1;
    return false;
  }
  const std::size_t equals = std::min(bytes_.find('=', at_), bytes_.size());
  const std::size_t quote = std::min(bytes_.find_first_of("\"'", equals), bytes_.size() - 1);
  const std::size_t end = std::min(bytes_.find(bytes_[quote], quote + 1), bytes_.size());
  name = bytes_.substr(at_, std::min(bytes_.find_first_of(" \t\r\n=", at_), equals) - at_);
  value = Stretch::Between(std::min(quote + 1, end), end);
  at_ = std::min(end + 1, bytes_.size());
  return true;
}

Stretch TagAt(std::string_view bytes, std::size_t nameAt) {
  TtmlTag tag(bytes, nameAt);
  std::string_view name;
  Stretch value;
  while (tag.Next(name, value)) continue;
  return Stretch::Between(nameAt - 1, tag.End());
}

TtmlPlaces TtmlPlacesOf(std::string_view bytes, std::size_t nameAt, std::string_view fullName) {
  TtmlPlaces places;
  TtmlTag tag(bytes, nameAt);
  std::string_view name;
  Stretch value;
  while (tag.Next(name, value)) {
    if (name == "begin") places.begin = value;
    if (name == "end") places.end = value;
    if (name == "dur") places.duration = value;
  }
  places.behind = tag.End();
  places.inner = Stretch::Of(tag.End(), 0);
  if (tag.Closed()) return places;
  const std::size_t closing = ClosingTag(bytes, tag.End(), fullName);
  places.inner = Stretch::Between(tag.End(), closing);
  places.behind = std::min(bytes.find('>', closing), bytes.size() - 1) + 1;
  return places;
}

/// The element with the indentation in front of it and the line end behind it, where it has lines of its own.
Stretch WithItsLine(std::string_view bytes, std::size_t open, std::size_t behind) {
  std::size_t at = open;
  while (at > 0 && (bytes[at - 1] == ' ' || bytes[at - 1] == '\t')) --at;
  if (at > 0 && bytes[at - 1] != '\n' && bytes[at - 1] != '\r') at = open;
  std::size_t end = std::min(bytes.find_first_not_of(" \t", behind), bytes.size());
  if (end < bytes.size() && bytes[end] != '\n' && bytes[end] != '\r') return Stretch::Between(at, behind);
  if (bytes.substr(end, 2) == "\r\n") ++end;
  return Stretch::Between(at, std::min(end + 1, bytes.size()));
}

}  // namespace cuewright
