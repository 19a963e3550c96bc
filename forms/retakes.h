#pragma once

#include <cstddef>
#include <vector>

#include "capture/preview.h"
#include "capture/timing_capture.h"
#include "capture/workbench.h"
#include "core/ports/player.h"
#include "forms/notices.h"

namespace cuewright {

/// Captures that are taken again: the film goes back to before the last captions, and the keys that take times wait
/// there. The times of before are kept as takes of their captions, as long as the document is open.
class Retakes {
 public:
  Retakes(Workbench bench, Player& player, TimingCapture& capture, Preview& preview, Notices& notices);

  void ShowItems();
  /// Another document has begun.
  void Forget() { takes_.clear(); }

 private:
  void Retake();
  void TakeBefore();
  /// The first caption that is taken again, where `end` is the row behind the last one; 0 for none.
  Row FirstBefore(Row end) const;
  void OnSplice(const Splice& splice);

  Workbench bench_;
  Player& player_;
  TimingCapture& capture_;
  Preview& preview_;
  Notices& notices_;
  std::vector<std::vector<CaptionTimes>> takes_;  ///< of each caption, the first at 0, the newest take last
};

}  // namespace cuewright
