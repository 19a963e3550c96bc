#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>

#include "core/styled_text.h"
#include "text/text.h"

namespace cuewright {

/// What a style of TTML says; what it doesn't name stays as it is around the text.
/// https://www.w3.org/TR/ttml1/#styling-attribute-vocabulary
struct TtmlStyle {
  std::optional<bool> bold;
  std::optional<bool> italic;
  std::optional<bool> underline;
  std::optional<bool> strike;
  std::optional<std::uint32_t> colour;  ///< 0xRRGGBB
  bool others = false;                  ///< it says more than these tell

  /// Takes over what another style says.
  void Take(const TtmlStyle& other);
  /// Takes an attribute, its name in small letters and without its prefix; false when it is of no style told here.
  bool TakeAttribute(TextView name, TextView value);
  /// A text of this style. White is what captions are anyway.
  void Apply(RunStyle& style) const;
};

/// The styles that a file names.
using TtmlStyles = std::unordered_map<Text, TtmlStyle>;

}  // namespace cuewright
