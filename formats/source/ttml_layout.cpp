#include "formats/source/ttml_layout.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "formats/source/character_names.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr int kDeepest = 8;

/// The attribute of this name in any name space, of the element or of a style within it.
std::string_view Attribute(const pugi::xml_node& node, std::string_view name) {
  for (const pugi::xml_attribute& attribute : node.attributes()) {
    if (TtmlLayout::LocalName(attribute.name()) == name) return attribute.value();
  }
  for (const pugi::xml_node& child : node.children()) {
    if (TtmlLayout::LocalName(child.name()) != "style") continue;
    for (const pugi::xml_attribute& attribute : child.attributes()) {
      if (TtmlLayout::LocalName(attribute.name()) == name) return attribute.value();
    }
  }
  return {};
}

/// The two parts of "10% 80%".
std::pair<std::string_view, std::string_view> Pair(std::string_view value) {
  const std::size_t blank = value.find(' ');
  if (blank == std::string_view::npos) return {value, {}};
  return {value.substr(0, blank), value.substr(std::min(value.find_first_not_of(' ', blank), value.size()))};
}

double Number(std::string_view value) {
  double number = 0;
  std::from_chars(value.data(), value.data() + value.size(), number);
  return number;
}

int RowAt(double percentFromTop) { return percentFromTop < 40 ? 2 : percentFromTop <= 60 ? 1 : 0; }

/// The column of an alignment; those that name no side are in the middle.
int ColumnOf(std::string_view align) {
  if (align == "left" || align == "start") return -1;
  return align == "right" || align == "end" ? 1 : 0;
}

}  // namespace

TtmlLayout::TtmlLayout(const pugi::xml_node& root) {
  const auto [width, height] = Pair(Attribute(root, "extent"));
  width_.pixels = Number(width);
  height_.pixels = Number(height);
  if (const auto [columns, rows] = Pair(Attribute(root, "cellResolution")); Number(columns) > 0 && Number(rows) > 0) {
    width_.cells = Number(columns);
    height_.cells = Number(rows);
  }
}

void TtmlLayout::ReadHead(const pugi::xml_node& node, int depth) {
  if (depth > kDeepest) return;
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = LocalName(child.name());
    const std::string id(Attribute(child, "id"));
    if (name == "region") {
      regions_.emplace(id, PlaceOfRegion(child));
    } else if (name == "agent") {
      for (const pugi::xml_node& called : child.children()) {
        if (LocalName(called.name()) != "name") continue;
        Text speaker = FromUtf8(called.child_value());
        DecodeNames(speaker);
        speakers_.emplace(id, Text(TrimBlanks(speaker)));
      }
    } else {
      ReadHead(child, depth + 1);
    }
  }
}

double TtmlLayout::Percent(std::string_view length, const Whole& whole, double otherwise) const {
  if (length.empty()) return otherwise;
  const double number = Number(length);
  if (length.ends_with("px") && whole.pixels > 0) return number * 100 / whole.pixels;
  if (length.ends_with("c")) return number * 100 / whole.cells;
  return length.ends_with("%") ? number : otherwise;
}

int TtmlLayout::PlaceOfRegion(const pugi::xml_node& region) const {
  const double top = Percent(Pair(Attribute(region, "origin")).second, height_, 0);
  const double height = Percent(Pair(Attribute(region, "extent")).second, height_, 100 - top);
  const std::string_view align = Attribute(region, "displayAlign");
  const double part = align == "after" ? 1 : align == "center" ? 0.5 : 0;
  return PlaceAt(RowAt(top + part * height), ColumnOf(Attribute(region, "textAlign")));
}

void TtmlLayout::Read(const pugi::xml_node& element, Beside& beside) const {
  for (const pugi::xml_attribute& attribute : element.attributes()) {
    const std::string_view name = LocalName(attribute.name());
    if (name == "region") {
      const auto hit = regions_.find(attribute.value());
      if (hit != regions_.end()) beside.place = hit->second;
    } else if (name == "agent") {
      const auto hit = speakers_.find(attribute.value());
      if (hit != speakers_.end()) beside.speaker = hit->second;
    }
  }
}

}  // namespace cuewright
