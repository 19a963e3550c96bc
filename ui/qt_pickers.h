#pragma once

#include "core/ports/pickers.h"

namespace cuewright {

/// The pickers of the desktop's theme over the active window, or the toolkit's own where the theme brings none.
class QtPickers final : public Pickers {
 public:
  std::optional<std::int32_t> PickColor(std::int32_t initial, const CustomColors& custom) override;
  std::optional<FontChoice> PickFont(const FontChoice& initial) override;
  Text PickFolder(TextView prompt) override;
};

}  // namespace cuewright
