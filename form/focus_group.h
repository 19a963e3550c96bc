#pragma once

#include <utility>
#include <vector>

#include "form/controls.h"

namespace cuewright {

/// Buttons of which one or two can be pressed at a time. One that is disabled while it has the keyboard's focus leaves
/// it to another of them, so that the same key goes on with the work.
class FocusGroup {
 public:
  explicit FocusGroup(std::vector<Button*> buttons) : buttons_(std::move(buttons)) {}

  const std::vector<Button*>& Buttons() const { return buttons_; }

  /// Who has the focus after `last`, which was disabled with it: itself once it is enabled again, else the first that
  /// is enabled. Null while none is.
  Button* HolderAfter(Button& last) const;

 private:
  std::vector<Button*> buttons_;
};

}  // namespace cuewright
