#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace cuewright {

/// The beginning or the end of an element of an XML file.
struct XmlTag {
  std::size_t open = 0;  ///< the place of its bracket
  std::string_view name;
  bool closing = false;

  std::size_t NameAt() const { return open + (closing ? 2 : 1); }
};

/// The tags of an XML file one behind the other, in a single pass. What looks like a tag in a remark, in an
/// instruction, in a declaration or in verbatim text is none. https://www.w3.org/TR/xml/
class XmlTags {
 public:
  explicit XmlTags(std::string_view bytes) : bytes_(bytes) {}

  /// The next tag; none at the end of the file, or where something begins that the file doesn't end. Behind an opening
  /// tag's name the caller goes on by `GoTo`.
  [[nodiscard]] std::optional<XmlTag> Next();
  void GoTo(std::size_t place) { at_ = place; }

 private:
  /// Behind what begins here and is no tag; the place itself when it is one.
  std::size_t BehindOthers(std::size_t at) const;
  std::size_t BehindDeclaration(std::size_t at) const;

  std::string_view bytes_;
  std::size_t at_ = 0;
};

}  // namespace cuewright
