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

bool SaysStyle(std::string_view name) {
  return name == "fontStyle" || name == "fontWeight" || name == "textDecoration" || name == "color";
}

void TakeStyles(const pugi::xml_node& element, TtmlStyle& style) {
  for (const pugi::xml_attribute& attribute : element.attributes()) {
    const std::string_view name = TtmlLayout::LocalName(attribute.name());
    if (SaysStyle(name)) {
      (void)style.TakeAttribute(ToLower(FromUtf8(name)), FromUtf8(attribute.value()));
    } else if (name != "id" && name != "style") {
      style.others = true;
    }
  }
}

}  // namespace

Beside TtmlLook::Said() const {
  Beside said = beside;
  region.Apply(said.style);
  style.Apply(said.style);
  return said;
}

TtmlLayout::TtmlLayout(const pugi::xml_node& root) {
  const auto [width, height] = Pair(Attribute(root, "extent"));
  width_.pixels = Number(width);
  height_.pixels = Number(height);
  if (const auto [columns, rows] = Pair(Attribute(root, "cellResolution")); Number(columns) > 0 && Number(rows) > 0) {
    width_.cells = Number(columns);
    height_.cells = Number(rows);
  }
}

void TtmlLayout::ReadHead(const pugi::xml_node& head) {
  ReadHead(head, 0);
  ResolveStyles();
}

void TtmlLayout::ReadHead(const pugi::xml_node& node, int depth) {
  if (depth > kDeepest) return;
  for (const pugi::xml_node& child : node.children()) {
    const std::string_view name = LocalName(child.name());
    const std::string id(Attribute(child, "id"));
    if (name == "region") {
      regions_.emplace(id, Region{PlaceOfRegion(child), StyleOf(child)});
    } else if (name == "style") {
      if (!id.empty()) styleElements_.push_back(StyleOf(child));
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

TtmlLayout::StyleElement TtmlLayout::StyleOf(const pugi::xml_node& element) {
  StyleElement style{std::string(Attribute(element, "id")), std::string(Attribute(element, "style")), {}};
  TakeStyles(element, style.own);
  for (const pugi::xml_node& child : element.children()) {
    if (LocalName(child.name()) == "style") TakeStyles(child, style.own);
  }
  return style;
}

/// Gives each style what the styles say that it builds on, which the file may name later. Chains of more than
/// `kDeepest` styles are resolved up to there.
void TtmlLayout::ResolveStyles() {
  if (styleElements_.empty()) return;
  styles_ = std::make_shared<TtmlStyles>();
  for (int depth = 0; depth < kDeepest; ++depth) {
    for (const StyleElement& element : styleElements_) {
      TtmlStyle style;
      TakeNamed(element.basis, style);
      style.Take(element.own);
      styles_->insert_or_assign(FromUtf8(element.id), style);
    }
  }
}

void TtmlLayout::TakeNamed(std::string_view names, TtmlStyle& style) const {
  if (names.empty() || styles_ == nullptr) return;
  for (const Text& name : Split(FromUtf8(names), u" ")) {
    const auto hit = styles_->find(name);
    if (hit != styles_->end()) style.Take(hit->second);
  }
}

void TtmlLayout::Read(const pugi::xml_node& element, TtmlLook& look) const {
  TtmlStyle own;
  for (const pugi::xml_attribute& attribute : element.attributes()) {
    const std::string_view name = LocalName(attribute.name());
    if (name == "region") {
      const auto hit = regions_.find(attribute.value());
      if (hit == regions_.end()) continue;
      look.beside.place = hit->second.place;
      look.region = {};
      TakeNamed(hit->second.style.basis, look.region);
      look.region.Take(hit->second.style.own);
    } else if (name == "agent") {
      const auto hit = speakers_.find(attribute.value());
      if (hit != speakers_.end()) look.beside.speaker = hit->second;
    } else if (name == "style") {
      TakeNamed(attribute.value(), look.style);
    } else if (SaysStyle(name)) {
      (void)own.TakeAttribute(ToLower(FromUtf8(name)), FromUtf8(attribute.value()));
    }
  }
  look.style.Take(own);
}

}  // namespace cuewright
