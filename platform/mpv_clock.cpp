#include "platform/mpv_clock.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace cuewright {
namespace {

constexpr double kStandstill = 0.1;  // sound that hasn't moved for so long stands
constexpr double kOutlier = 0.03;    // a measurement so far off is a jump, if others agree
constexpr int kOutliersForJump = 3;
constexpr double kLeastGain = 0.1;     // share of a new measurement once many are in
constexpr double kLongestBlind = 0.5;  // without any sample the clock runs on for so long
constexpr double kPauseCorrection = 0.25;
constexpr double kRemembered = 10;  // seconds of history: no window is busy for longer

}  // namespace

bool MpvClock::Track::Moves(double now) const { return moved > 0 && now - moved < kStandstill; }

void MpvClock::Hold(double position, double now) {
  const std::lock_guard lock(mutex_);
  // The samples may not have reached the end of the run yet.
  if (mode_ == Mode::Running) Remember(now, PositionLocked(now), true);
  ++epoch_;
  mode_ = Mode::Held;
  stand_ = position;
  Remember(now, stand_, false);
}

void MpvClock::Run(double now) {
  const std::lock_guard lock(mutex_);
  if (mode_ == Mode::Running) return;
  ++epoch_;
  mode_ = Mode::Running;
  Remember(now, stand_, true);
  audio_ = {};
  picture_ = {};
  byAudio_ = false;
  offset_.reset();
  measured_ = 0;
  outliers_ = 0;
  picturesLate_ = false;
}

void MpvClock::Pause(double now) {
  const std::lock_guard lock(mutex_);
  if (mode_ != Mode::Running) return;
  stand_ = PositionLocked(now);
  ++epoch_;
  mode_ = Mode::Pausing;
  Remember(now, stand_, false);
}

void MpvClock::SetFrameDuration(double seconds) {
  const std::lock_guard lock(mutex_);
  frameDuration_ = std::clamp(seconds, 0.001, kLongestBlind);
}

void MpvClock::SetSpeed(double factor, double now) {
  const std::lock_guard lock(mutex_);
  if (factor == speed_) return;
  if (mode_ == Mode::Running) Remember(now, PositionLocked(now), true);
  // A sample that was read before the change says nothing about the time behind it.
  ++epoch_;
  speed_ = factor;
  // What was measured held for the other speed; until the next measurement the film goes on from here.
  if (offset_) offset_ = stand_ - now * speed_;
  measured_ = 0;
  outliers_ = 0;
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
  if (mode_ == Mode::Running && !sample.paused) {
    AddRunning(sample);
    Remember(sample.time, Reckoned(sample.time), true);
  }
  if (mode_ == Mode::Pausing && sample.paused) {
    if (sample.audio && std::abs(*sample.audio - stand_) < kPauseCorrection) stand_ = *sample.audio;
    // The film has stood there since it paused.
    if (!history_.empty()) history_.back().position = stand_;
    mode_ = Mode::Held;
  }
}

void MpvClock::AddRunning(const ClockSample& sample) {
  if (sample.idle) {
    // The film is paused; it will go on from this position.
    offset_.reset();
    picture_ = {};
    return;
  }
  if (sample.audio) AddAudio(sample);
  // The sound may end before the picture: from then on its position lacks or stands, and the picture leads.
  const bool soundLacks = !sample.audio || !audio_.Moves(sample.time);
  if (soundLacks && byAudio_ && picture_.value) {
    byAudio_ = false;
    measured_ = 0;
  }
  if (sample.picture) AddPicture(sample);
  if (!offset_ && !sample.audio && sample.picture) {
    // Until the first step arrives, the film is taken to play on from here.
    offset_ = std::max(stand_, *sample.picture) - sample.time * speed_;
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
  Measure(*sample.audio - sample.time * speed_);
}

void MpvClock::AddPicture(const ClockSample& sample) {
  const bool moved = picture_.value && *sample.picture > *picture_.value;
  const double before = picture_.seen;
  // A step is late when it took longer than the time between the two pictures in the film.
  if (moved) {
    picturesLate_ = (sample.time - picture_.moved) * speed_ > *sample.picture - *picture_.value + frameDuration_ / 2;
  }
  if (moved || !picture_.value) picture_.moved = sample.time;
  picture_.value = sample.picture;
  picture_.seen = sample.time;
  if (!moved) return;
  if (byAudio_) return;
  // The step was somewhere between this sample and the one before.
  Measure(*sample.picture - (before + sample.time) / 2 * speed_);
}

void MpvClock::Measure(double offset) {
  const double error = offset_ ? offset - *offset_ : 0;
  const bool outlier = std::abs(error) > kOutlier * speed_;
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

double MpvClock::PositionAt(double instant) {
  const std::lock_guard lock(mutex_);
  const auto next = std::upper_bound(history_.begin(), history_.end(), instant,
                                     [](double time, const Point& point) { return time < point.time; });
  if (next == history_.end()) {
    if (mode_ != Mode::Running) return stand_;
    return history_.empty() ? Reckoned(instant) : std::max(history_.back().position, Reckoned(instant));
  }
  if (next == history_.begin()) return next->position;
  const Point& before = *std::prev(next);
  if (!before.moves) return before.position;
  return std::lerp(before.position, next->position, (instant - before.time) / (next->time - before.time));
}

void MpvClock::Remember(double time, double position, bool moves) {
  // A sample describes an instant slightly before its arrival, which may precede a change made meanwhile.
  if (!history_.empty()) {
    time = std::max(time, history_.back().time);
    if (history_.back().moves && mode_ == Mode::Running) position = std::max(position, history_.back().position);
  }
  history_.push_back({time, position, moves});
  while (history_.front().time < time - kRemembered) history_.pop_front();
}

double MpvClock::PositionLocked(double now) {
  if (mode_ == Mode::Running) stand_ = std::max(stand_, Reckoned(now));
  return stand_;
}

double MpvClock::Reckoned(double time) const {
  if (!offset_) return stand_;
  const Track& track = byAudio_ ? audio_ : picture_;
  const double unseen = std::clamp(time - track.seen, 0.0, kLongestBlind);
  const double shown = byAudio_ || picturesLate_ ? 0 : track.seen - track.moved;
  const double ahead = (shown + unseen + (byAudio_ ? kStandstill : 0)) * speed_ + (byAudio_ ? 0 : frameDuration_);
  return std::min(*offset_ + time * speed_, track.value.value_or(stand_) + ahead);
}

}  // namespace cuewright
