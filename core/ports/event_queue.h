#pragma once

#include <cstdint>

namespace cuewright {

/// The window system's queue of events, and the clock that goes with it.
class EventQueue {
 public:
  virtual ~EventQueue() = default;

  /// Handles the events that are waiting, and returns.
  virtual void Yield() = 0;

  /// Handles waiting events but those of keyboard, pointer and window frame, which stay waiting: work that must not be
  /// entered twice paints and keeps its timers going.
  virtual void YieldToPainting() { Yield(); }

  /// Waits `ms` milliseconds while events go on being handled.
  virtual void WaitMs(int ms) = 0;

  /// Milliseconds of a clock that never runs backward.
  virtual std::int64_t NowMs() const = 0;
};

}  // namespace cuewright
