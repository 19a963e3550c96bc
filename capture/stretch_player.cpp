#include "capture/stretch_player.h"

#include <algorithm>

namespace cuewright {
namespace {

/// A player that has just been told to play may not have begun.
bool IsAtRest(int state) { return state == kPlayerPaused || state == kPlayerStopped; }

}  // namespace

StretchPlayer::StretchPlayer(Player& player, Timer& timer) : player_(player), timer_(timer) {
  timer_.Tick.Connect([this] { Tick(); });
  seeks_ = player_.PositionChange.ConnectScoped([this](double, double to) {
    const bool own = stretch_ && Ms::OfSeconds(to) == stretch_->from;
    if (!seeking_ && !own) Leave();
  });
  states_ = player_.PlayStateChange.ConnectScoped([this](int state) {
    if (!seeking_ && IsAtRest(state)) Leave();
  });
}

void StretchPlayer::Play(Ms from, Ms to) {
  Leave();
  from = std::max<Ms>(from, 0);
  if (to <= from) return;
  stretch_ = {from, to, false};
  Begin();
  timer_.SetEnabled(true);
}

void StretchPlayer::Loop(Ms from, Ms to) {
  Play(from, to);
  if (stretch_) stretch_->loops = true;
}

void StretchPlayer::Begin() {
  seeking_ = true;
  player_.SetCurrentPosition(stretch_->from.Seconds());
  player_.Play();
  seeking_ = false;
}

void StretchPlayer::Leave() {
  stretch_.reset();
  timer_.SetEnabled(false);
}

void StretchPlayer::Tick() {
  if (!stretch_ || player_.CurrentPosition() < stretch_->to.Seconds()) return;
  if (repeats_ || stretch_->loops) return Begin();
  Leave();
  player_.Pause();
}

}  // namespace cuewright
