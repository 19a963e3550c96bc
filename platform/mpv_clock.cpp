#include "platform/mpv_clock.h"

#include <algorithm>
#include <cmath>

namespace cuewright {
namespace {

constexpr double kStandstill = 0.1;  // sound that hasn't moved for so long stands
constexpr double kOutlier = 0.03;    // a measurement so far off is a jump, if others agree
constexpr int kOutliersForJump = 3;
constexpr double kLeastGain = 0.1;     // share of a new measurement once many are in
constexpr double kLongestBlind = 0.5;  // without any sample the clock runs on for so long
constexpr double kPauseCorrection = 0.25;

}  // namespace

bool MpvClock::Track::Moves(double now) const { return moved > 0 && now - moved < kStandstill; }

void MpvClock::Hold(double position) {
  const std::lock_guard lock(mutex_);
  ++epoch_;
  mode_ = Mode::Held;
  stand_ = position;
}

void MpvClock::Run() {
  const std::lock_guard lock(mutex_);
  if (mode_ == Mode::Running) return;
  ++epoch_;
  mode_ = Mode::Running;
  audio_ = {};
  picture_ = {};
  byAudio_ = false;
  offset_.reset();
  measured_ = 0;
  outliers_ = 0;
}

void MpvClock::Pause(double now) {
  const std::lock_guard lock(mutex_);
  if (mode_ != Mode::Running) return;
  stand_ = PositionLocked(now);
  ++epoch_;
  mode_ = Mode::Pausing;
}

void MpvClock::SetFrameDuration(double seconds) {
  const std::lock_guard lock(mutex_);
  frameDuration_ = std::clamp(seconds, 0.001, kLongestBlind);
}

bool MpvClock::WantsSamples() const {
  const std::lock_guard lock(mutex_);
  return mode_ != Mode::Held;
}

std::uint64_t MpvClock::Epoch() const {
  const std::lock_guard lock(mutex_);
  return epoch_;
}

void MpvClock::Add(std::uint64_t epoch, const ClockSample& sample) {
  const std::lock_guard lock(mutex_);
  if (epoch != epoch_) return;
  if (mode_ == Mode::Running && !sample.paused) AddRunning(sample);
  if (mode_ == Mode::Pausing && sample.paused) {
    if (sample.audio && std::abs(*sample.audio - stand_) < kPauseCorrection) stand_ = *sample.audio;
    mode_ = Mode::Held;
  }
}

void MpvClock::AddRunning(const ClockSample& sample) {
  if (sample.audio) AddAudio(sample);
  // The sound may end before the picture: from then on its position lacks or stands, and the picture leads.
  const bool soundLacks = !sample.audio || !audio_.Moves(sample.time);
  if (soundLacks && byAudio_ && picture_.value) {
    byAudio_ = false;
    measured_ = 0;
  }
  if (sample.picture) AddPicture(sample);
  if (!offset_ && !sample.audio && sample.picture) {
    // Until the first step tells more: the film plays on from here.
    offset_ = std::max(stand_, *sample.picture) - sample.time;
    measured_ = 0;
  }
}

void MpvClock::AddAudio(const ClockSample& sample) {
  const bool moved = audio_.value && *sample.audio > *audio_.value;
  audio_.value = sample.audio;
  audio_.seen = sample.time;
  if (!moved) return;
  audio_.moved = sample.time;
  if (!byAudio_) measured_ = 0;
  byAudio_ = true;
  Measure(*sample.audio - sample.time);
}

void MpvClock::AddPicture(const ClockSample& sample) {
  const bool moved = picture_.value && *sample.picture > *picture_.value;
  const double before = picture_.seen;
  picture_.value = sample.picture;
  picture_.seen = sample.time;
  if (!moved) return;
  picture_.moved = sample.time;
  if (byAudio_) return;
  // The step was somewhere between this sample and the one before.
  Measure(*sample.picture - (before + sample.time) / 2);
}

void MpvClock::Measure(double offset) {
  const double error = offset_ ? offset - *offset_ : 0;
  const bool outlier = std::abs(error) > kOutlier;
  if (outlier && measured_ > 0 && ++outliers_ < kOutliersForJump) return;
  outliers_ = 0;
  if (!offset_ || outlier || measured_ == 0) {
    offset_ = offset;
    measured_ = 1;
    return;
  }
  ++measured_;
  *offset_ += error * std::max(1.0 / measured_, kLeastGain);
}

double MpvClock::Position(double now) {
  const std::lock_guard lock(mutex_);
  return PositionLocked(now);
}

double MpvClock::PositionLocked(double now) {
  if (mode_ != Mode::Running) return stand_;
  double position = stand_;
  if (offset_) {
    const Track& track = byAudio_ ? audio_ : picture_;
    const double unseen = std::clamp(now - track.seen, 0.0, kLongestBlind);
    const double furthest = track.value.value_or(stand_) + unseen + (byAudio_ ? kStandstill : frameDuration_);
    position = std::min(*offset_ + now, furthest);
  }
  stand_ = std::max(stand_, position);
  return stand_;
}

}  // namespace cuewright
