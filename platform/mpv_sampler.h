#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/mpv_clock.h"
#include "platform/mpv_library.h"

namespace cuewright {

/// Feeds a clock from a player on a thread of its own, since reading from the library may block.
class MpvSampler {
 public:
  MpvSampler(const MpvApi& api, mpv_handle* handle, MpvClock& clock);
  ~MpvSampler();
  MpvSampler(const MpvSampler&) = delete;
  MpvSampler& operator=(const MpvSampler&) = delete;

  /// To be called when the clock has begun to want samples; while it wants none the thread sleeps.
  void Wake();

 private:
  void Run();
  void Sample();

  const MpvApi& api_;
  mpv_handle* handle_;
  MpvClock& clock_;
  int slowReads_ = 0;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool quit_ = false;
  std::thread thread_;
};

}  // namespace cuewright
