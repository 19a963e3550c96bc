#pragma once

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>

#include "formats/source/beside.h"

namespace cuewright {

/// The regions that the head of a TTML file lays out, and the speakers that it names.
/// https://www.w3.org/TR/ttml1/#layout-vocabulary-region
class TtmlLayout {
 public:
  TtmlLayout() = default;
  /// What the root's attributes say of lengths.
  explicit TtmlLayout(const pugi::xml_node& root);
  void ReadHead(const pugi::xml_node& head) { ReadHead(head, 0); }

  /// Takes over what an element's attributes say of the captions in it.
  void Read(const pugi::xml_node& element, Beside& beside) const;

  /// A name without the prefix of its name space.
  static std::string_view LocalName(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
  }

 private:
  void ReadHead(const pugi::xml_node& node, int depth);
  int PlaceOfRegion(const pugi::xml_node& region) const;

  /// What a length is a part of.
  struct Whole {
    double pixels = 0;
    double cells = 0;
  };
  double Percent(std::string_view length, const Whole& whole, double otherwise) const;

  Whole width_{0, 32};
  Whole height_{0, 15};
  std::unordered_map<std::string, int> regions_;
  std::unordered_map<std::string, Text> speakers_;
};

}  // namespace cuewright
