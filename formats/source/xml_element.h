#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "formats/source/source_format.h"

namespace cuewright {

/// An element of a file as a tree of its own, so that a file is never in memory as one.
class XmlElement {
 public:
  /// Reads the element, all of it; false when it isn't well-formed, though as much of it is there as could be read.
  [[nodiscard]] bool Load(std::string_view bytes, Stretch element);
  /// Reads the tag that opens an element, and nothing that is in the element.
  [[nodiscard]] bool LoadTag(std::string_view bytes, Stretch tag);

  pugi::xml_node Node() const { return document_.document_element(); }
  /// Where the name of an element stands in the file.
  std::size_t NameAt(const pugi::xml_node& node) const { return at_ + node.offset_debug(); }

 private:
  pugi::xml_parse_result Parse(std::string_view bytes, Stretch stretch);

  std::string bytes_;
  std::size_t at_ = 0;
  pugi::xml_document document_;
};

}  // namespace cuewright
