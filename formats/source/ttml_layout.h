#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "formats/source/beside.h"
#include "formats/source/ttml_styles.h"

namespace cuewright {

/// How captions look by what is said around them.
struct TtmlLook {
  Beside beside{};
  TtmlStyle region{};  ///< of the region; all other styles go before it
  TtmlStyle style{};

  /// What is said of a caption.
  Beside Said() const;
};

/// The regions that the head of a TTML file lays out, the styles and the speakers that it names.
/// https://www.w3.org/TR/ttml1/#layout-vocabulary-region
class TtmlLayout {
 public:
  TtmlLayout() = default;
  /// What the root's attributes say of lengths.
  explicit TtmlLayout(const pugi::xml_node& root);
  void ReadHead(const pugi::xml_node& head);

  /// Takes over what an element's attributes say of the captions in it.
  void Read(const pugi::xml_node& element, TtmlLook& look) const;

  /// The styles by their names; null when the file names none.
  std::shared_ptr<const TtmlStyles> Styles() const { return styles_; }

  /// A name without the prefix of its name space.
  static std::string_view LocalName(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
  }

 private:
  /// A style as its element says it, and the styles that this one builds on.
  struct StyleElement {
    std::string id;
    std::string basis;
    TtmlStyle own;
  };
  struct Region {
    int place = kUsualPlace;
    StyleElement style;
  };

  void ReadHead(const pugi::xml_node& node, int depth);
  static StyleElement StyleOf(const pugi::xml_node& element);
  void TakeNamed(std::string_view names, TtmlStyle& style) const;
  void ResolveStyles();
  int PlaceOfRegion(const pugi::xml_node& region) const;

  /// What a length is a part of.
  struct Whole {
    double pixels = 0;
    double cells = 0;
  };
  double Percent(std::string_view length, const Whole& whole, double otherwise) const;

  Whole width_{0, 32};
  Whole height_{0, 15};
  std::unordered_map<std::string, Region> regions_;
  std::vector<StyleElement> styleElements_;
  std::shared_ptr<TtmlStyles> styles_;
  std::unordered_map<std::string, Text> speakers_;
};

}  // namespace cuewright
