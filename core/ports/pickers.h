#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "text/text.h"

namespace cuewright {

/// The colours that a colour picker offers as the program's own, 0x00BBGGRR.
using CustomColors = std::array<std::int32_t, 16>;

/// A font as a picker shows and changes it.
struct FontChoice {
  Text Name;
  double Size = 8;  ///< points
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool Strikethrough = false;
  int Weight = 400;  ///< 100 (thin) to 900 (black)

  bool operator==(const FontChoice&) const = default;
};

/// The desktop's pickers of colours, fonts and folders. A call returns when the user has chosen or cancelled; a
/// picker that can't be shown is a run-time error.
class Pickers {
 public:
  virtual ~Pickers() = default;

  /// The colour chosen, beginning with `initial`; empty when the user cancelled. Colours are 0x00BBGGRR.
  virtual std::optional<std::int32_t> PickColor(std::int32_t initial, const CustomColors& custom) = 0;

  /// The font chosen, beginning with `initial`; empty when the user cancelled.
  virtual std::optional<FontChoice> PickFont(const FontChoice& initial) = 0;

  /// The folder chosen; empty when the user cancelled.
  virtual Text PickFolder(TextView prompt) = 0;
};

}  // namespace cuewright
