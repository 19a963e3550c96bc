#include "formats/source/xml_tags.h"

#include <algorithm>

namespace cuewright {

std::optional<XmlTag> XmlTags::Next() {
  for (;;) {
    const std::size_t open = std::min(bytes_.find('<', at_), bytes_.size());
    at_ = BehindOthers(open);
    if (open == bytes_.size() || at_ == bytes_.size()) return {};
    if (at_ != open) continue;
    XmlTag tag{open, {}, bytes_.substr(open + 1, 1) == "/"};
    const std::size_t nameEnd = std::min(bytes_.find_first_of(" \t\r\n/>", tag.NameAt()), bytes_.size());
    tag.name = bytes_.substr(tag.NameAt(), nameEnd - tag.NameAt());
    at_ = nameEnd;
    if (tag.closing) {
      const std::size_t end = bytes_.find('>', nameEnd);
      if (end == std::string_view::npos) return {};
      at_ = end + 1;
    }
    return tag;
  }
}

std::size_t XmlTags::BehindOthers(std::size_t at) const {
  const auto behind = [&](std::string_view begin, std::string_view end) {
    const std::size_t found = bytes_.find(end, at + begin.size());
    return found == std::string_view::npos ? bytes_.size() : found + end.size();
  };
  const std::string_view rest = bytes_.substr(at);
  if (rest.starts_with("<!--")) return behind("<!--", "-->");
  if (rest.starts_with("<![CDATA[")) return behind("<![CDATA[", "]]>");
  if (rest.starts_with("<?")) return behind("<?", "?>");
  return rest.starts_with("<!") ? BehindDeclaration(at) : at;
}

/// A declaration of the document's type may contain others, between square brackets.
std::size_t XmlTags::BehindDeclaration(std::size_t at) const {
  std::size_t open = 0;  // declarations that are
  while (at < bytes_.size()) {
    const char c = bytes_[at];
    if (bytes_.substr(at, 4) == "<!--") {
      at = std::min(bytes_.find("-->", at + 4), bytes_.size());
    } else if (c == '"' || c == '\'') {
      at = std::min(bytes_.find(c, at + 1), bytes_.size());
    } else if (c == '<') {
      ++open;
    } else if (c == '>' && --open == 0) {
      return at + 1;
    }
    at = std::min(at + 1, bytes_.size());
  }
  return at;
}

}  // namespace cuewright
