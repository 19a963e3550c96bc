#pragma once

#include <cstdint>

#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/player.h"

namespace cuewright {

/// The line at the foot of the main window: how many captions there are and are selected, how long those stand, how
/// fast they are to be read, and the film's rate.
class StatusLine {
 public:
  StatusLine(Workbench bench, Player& player);

  /// Says what is: nothing without a document. In the classic manner the line isn't there.
  void Show();
  /// Says what is, and which frame of the film is shown; until something else changes.
  void ShowFrame(std::int64_t frame, Ms ms);

 private:
  Text TextOfSelection() const;

  Workbench bench_;
  Player& player_;
};

}  // namespace cuewright
