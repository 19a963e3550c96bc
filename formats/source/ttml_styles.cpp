#include "formats/source/ttml_styles.h"

#include "formats/source/markup_colours.h"

namespace cuewright {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

template <class Value>
void TakeOver(std::optional<Value>& value, const std::optional<Value>& other) {
  if (other) value = other;
}

}  // namespace

void TtmlStyle::Take(const TtmlStyle& other) {
  TakeOver(bold, other.bold);
  TakeOver(italic, other.italic);
  TakeOver(underline, other.underline);
  TakeOver(strike, other.strike);
  TakeOver(colour, other.colour);
  others = others || other.others;
}

bool TtmlStyle::TakeAttribute(TextView name, TextView value) {
  if (name == u"fontweight") {
    bold = value == u"bold";
  } else if (name == u"fontstyle") {
    italic = value == u"italic" || value == u"oblique";
  } else if (name == u"color") {
    TakeOver(colour, WebColour(value));
  } else if (name == u"textdecoration") {
    for (const Text& part : Split(value, u" ")) {
      if (part == u"underline" || part == u"noUnderline" || part == u"none") underline = part == u"underline";
      if (part == u"lineThrough" || part == u"noLineThrough" || part == u"none") strike = part == u"lineThrough";
    }
  } else {
    return false;
  }
  return true;
}

void TtmlStyle::Apply(RunStyle& style) const {
  style.bold = bold.value_or(style.bold);
  style.italic = italic.value_or(style.italic);
  style.underline = underline.value_or(style.underline);
  style.strike = strike.value_or(style.strike);
  if (colour) style.colour = *colour == kWhite ? std::nullopt : colour;
}

}  // namespace cuewright
