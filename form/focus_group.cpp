#include "form/focus_group.h"

#include <algorithm>

namespace cuewright {

Button* FocusGroup::HolderAfter(Button& last) const {
  const auto usable = [](const Button* button) { return button->Enabled() && button->Visible(); };
  if (usable(&last)) return &last;
  const auto found = std::find_if(buttons_.begin(), buttons_.end(), usable);
  return found == buttons_.end() ? nullptr : *found;
}

}  // namespace cuewright
