#include "platform/mpv_sampler.h"

#include <algorithm>
#include <chrono>
#include <optional>

namespace cuewright {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr auto kInterval = std::chrono::milliseconds(5);
constexpr double kQuickRead = 0.0005;  // within such a reading its middle is the best guess of its instant
constexpr double kSlowRead = 0.002;    // one that took longer says too little about when it was true
constexpr int kSlowReadsInARow = 8;    // but better that than nothing

double Now() { return std::chrono::duration<double>(SteadyClock::now().time_since_epoch()).count(); }

}  // namespace

MpvSampler::MpvSampler(const MpvApi& api, mpv_handle* handle, MpvClock& clock)
    : api_(api), handle_(handle), clock_(clock), thread_([this] { Run(); }) {}

MpvSampler::~MpvSampler() {
  {
    const std::lock_guard lock(mutex_);
    quit_ = true;
  }
  wake_.notify_one();
  thread_.join();
}

void MpvSampler::Wake() {
  {
    // Locked, so that the wake-up can't fall between the thread's check and its wait.
    const std::lock_guard lock(mutex_);
  }
  wake_.notify_one();
}

void MpvSampler::Run() {
  auto due = SteadyClock::now();
  std::unique_lock lock(mutex_);
  while (!quit_) {
    wake_.wait(lock, [this] { return quit_ || clock_.WantsSamples(); });
    if (quit_) return;
    lock.unlock();
    Sample();
    due = std::max(due + kInterval, SteadyClock::now());
    lock.lock();
    wake_.wait_until(lock, due, [this] { return quit_; });
  }
}

void MpvSampler::Sample() {
  const auto number = [this](const char* property) -> std::optional<double> {
    double value = 0;
    if (api_.get_property(handle_, property, MPV_FORMAT_DOUBLE, &value) < 0) return std::nullopt;
    return value;
  };
  const auto flag = [this](const char* property) {
    int value = 0;
    return api_.get_property(handle_, property, MPV_FORMAT_FLAG, &value) >= 0 && value != 0;
  };
  const std::uint64_t epoch = clock_.Epoch();
  ClockSample sample;
  sample.paused = flag("pause");
  sample.idle = flag("core-idle");
  sample.picture = number("time-pos");
  const double before = Now();
  sample.audio = number("audio-pts");
  const double after = Now();
  // When reading had to wait, the value is that of the end of the wait.
  sample.time = after - before < kQuickRead ? (before + after) / 2 : after;
  if (after - before > kSlowRead && ++slowReads_ < kSlowReadsInARow) return;
  slowReads_ = 0;
  clock_.Add(epoch, sample);
}

}  // namespace cuewright
