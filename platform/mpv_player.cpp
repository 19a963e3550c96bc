#include "platform/mpv_player.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>

#include "core/runtime_error.h"
#include "platform/mpv_core.h"
#include "platform/mpv_library.h"
#include "platform/mpv_sampler.h"
#include "platform/mpv_video.h"

namespace cuewright {
namespace {

constexpr int kErrorNoPlayer = 429;
constexpr int kStateNothing = 0;
/// What the card decodes comes back to where the picture is drawn.
constexpr const char* kHardware = "auto-copy-safe";
constexpr double kSameInstant = 0.005;
constexpr double kSlowest = 0.25;
constexpr double kFastest = 4;
constexpr double kNothing = 0.001;  // less than this of the film can't be played

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

}  // namespace

MpvPlayer::MpvPlayer(const MpvLibrary& library, Post post, const MpvPlayerOptions& options)
    : library_(library), post_(std::move(post)), options_(options), output_(options.output) {}

bool MpvPlayer::EnsureCore() {
  if (!core_ && library_.Available()) StartCore();
  return core_ != nullptr;
}

void MpvPlayer::StartCore() {
  const MpvApi& api = library_.Api();
  if (!library_.Available()) return;
  core_ = std::make_unique<MpvCore>(api, options_.extra,
                                    [this](const MpvNews& news) { PostGuarded([this, news] { OnNews(news); }); });
  if (!core_->Ready()) {
    core_.reset();
    return;
  }
  // Pictures come faster than a busy window can fetch them: one announcement at a time is enough.
  auto posted = std::make_shared<std::atomic<bool>>(false);
  video_ = std::make_unique<MpvVideo>(api, core_->Handle(), [this, posted] {
    if (posted->exchange(true)) return;
    PostGuarded([this, posted] {
      *posted = false;
      TellFrame();
    });
  });
  if (output_ == VideoOutput::Software) video_->StartSoftware();
  video_->SetSize(surfaceWidth_, surfaceHeight_);
  core_->SetNumber("volume", volume_);
  core_->SetFlag("mute", muted_);
  core_->SetNumber("speed", speed_);
  if (hardware_) core_->SetChoice("hwdec", kHardware);
  SetStretchToFit(stretch_);
  core_->Listen();
  sampler_ = std::make_unique<MpvSampler>(api, core_->Handle(), clock_);
}

MpvPlayer::~MpvPlayer() {
  alive_.reset();
  sampler_.reset();
  // Drawing must end before the player that it draws for.
  video_.reset();
  core_.reset();
}

void MpvPlayer::PostGuarded(std::function<void()> task) {
  post_([guard = guard_, task = std::move(task)] {
    if (!guard.expired()) task();
  });
}

void MpvPlayer::SetUrl(TextView path) {
  if (path.empty()) {
    Close();
    return;
  }
  if (!EnsureCore()) throw RuntimeError{kErrorNoPlayer, u"The media player is missing"};
  Open(UnmistakablePath(path));
}

void MpvPlayer::Open(const std::string& path) {
  Forget();
  path_ = path;
  if (Text objection = ObjectionToFilm(path); !objection.empty()) {
    core_->Unload();
    PostGuarded([this, load = load_, objection = std::move(objection)] { Fail(load, objection); });
    loading_ = true;
    wish_ = Wish::Play;
    UpdateState();
    return;
  }
  loading_ = true;
  wish_ = Wish::Play;
  // Without a surface to draw on, the library would play the sound only.
  waitsForGl_ = !video_->Started();
  if (!waitsForGl_) {
    core_->SetFlag("pause", false);
    if (!core_->Load(load_, path_)) {
      PostGuarded([this, load = load_] { Fail(load, u"the player does not answer"); });
    }
  }
  UpdateState();
}

void MpvPlayer::Forget() {
  ++load_;
  path_.clear();
  loading_ = false;
  opened_ = false;
  waitsForGl_ = false;
  atEnd_ = false;
  seeking_ = false;
  startAt_.reset();
  // A track that was chosen is a matter of its film.
  if (core_ && std::exchange(trackChosen_, false)) core_->SetChoice("aid", "auto");
  // Nothing is told of what a film hasn't: it must not keep the rate of the previous one.
  film_ = {};
  clock_.SetFrameDuration(film_.PictureDuration());
  wish_ = Wish::Stop;
  clock_.Hold(0, Now());
}

void MpvPlayer::Close() {
  if (path_.empty()) return;
  Forget();
  core_->Unload();
  UpdateState();
}

void MpvPlayer::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  TellControls();
}

void MpvPlayer::SetUiMode(TextView mode) {
  if (mode == uiMode_) return;
  uiMode_ = mode;
  TellControls();
}

void MpvPlayer::SetStretchToFit(bool stretch) {
  stretch_ = stretch;
  if (core_) core_->SetChoice("video-unscaled", stretch ? "no" : "downscale-big");
}

void MpvPlayer::SetVolume(int volume) {
  volume = std::clamp(volume, 0, 100);
  if (volume == volume_) return;
  volume_ = volume;
  if (core_) core_->SetNumber("volume", volume_);
  TellControls();
}

void MpvPlayer::SetSpeed(double factor) {
  factor = std::clamp(factor, kSlowest, kFastest);
  if (factor == speed_) return;
  speed_ = factor;
  if (core_) core_->SetNumber("speed", speed_);
  clock_.SetSpeed(speed_, Now());
  TellControls();
}

void MpvPlayer::SetAudioTrack(int stream) {
  const auto track = std::ranges::find(film_.soundTracks, stream, &MpvSoundTrack::stream);
  if (!core_ || track == film_.soundTracks.end()) return;
  trackChosen_ = true;
  core_->SetChoice("aid", std::to_string(track->id).c_str());
}

void MpvPlayer::SetHardwareDecoding(bool on) {
  if (on == hardware_) return;
  hardware_ = on;
  if (core_) core_->SetChoice("hwdec", on ? kHardware : "no");
}

void MpvPlayer::SetMuted(bool muted) {
  if (muted == muted_) return;
  muted_ = muted;
  if (core_) core_->SetFlag("mute", muted_);
  TellControls();
}

void MpvPlayer::Play() {
  if (path_.empty() || wish_ == Wish::Play) return;
  if (!opened_ && !loading_) {
    Open(std::string(path_));
    return;
  }
  if (opened_ && film_.seekable && AtEnd()) SeekTo(0, true);
  wish_ = Wish::Play;
  core_->SetFlag("pause", false);
  if (!loading_ && !seeking_) {
    clock_.Run(Now());
    sampler_->Wake();
  }
  UpdateState();
}

void MpvPlayer::Pause() {
  if (path_.empty() || wish_ != Wish::Play) return;
  wish_ = Wish::Pause;
  core_->SetFlag("pause", true);
  clock_.Pause(Now());
  UpdateState();
}

void MpvPlayer::Stop() {
  if (path_.empty()) return;
  wish_ = Wish::Stop;
  startAt_.reset();
  core_->SetFlag("pause", true);
  clock_.Hold(0, Now());
  if (opened_ && film_.seekable) {
    SeekTo(0, false);
  } else if (opened_) {
    // The film can only be restarted by opening it again, which is done when it is to play.
    ++load_;
    opened_ = false;
    core_->Unload();
  }
  UpdateState();
}

bool MpvPlayer::AtEnd() const {
  return atEnd_ || (film_.duration > 0 && CurrentPosition() > film_.duration - kNothing);
}

double MpvPlayer::CurrentPosition() const {
  lastReadAt_ = Now();
  lastRead_ = clock_.Position(lastReadAt_);
  return lastRead_;
}

void MpvPlayer::SetCurrentPosition(double seconds) {
  if (path_.empty() || !std::isfinite(seconds)) return;
  seconds = std::max(seconds, 0.0);
  if (film_.duration > 0) seconds = std::min(seconds, film_.duration);
  if (!opened_ && loading_) {
    startAt_ = seconds;
    clock_.Hold(seconds, Now());
  } else if (opened_ && film_.seekable) {
    SeekTo(seconds, true);
  }
}

double MpvPlayer::PositionAt(double instant) const { return clock_.PositionAt(instant); }

Text MpvPlayer::CurrentPositionString() const {
  // Position and text are often read one after the other; both then show the same instant.
  const bool justRead = lastReadAt_ > 0 && Now() - lastReadAt_ < kSameInstant;
  return PositionText(justRead ? lastRead_ : CurrentPosition());
}

void MpvPlayer::SeekTo(double seconds, bool announce) {
  if (!seeking_) seekFrom_ = CurrentPosition();
  seeking_ = true;
  announceSeek_ = announce;
  target_ = seconds;
  atEnd_ = false;
  ++seek_;
  clock_.Hold(seconds, Now());
  if (!core_->Seek(seek_, seconds)) seeking_ = false;
}

void MpvPlayer::UpdateState() {
  int state = kPlayerStopped;
  if (path_.empty()) {
    state = kStateNothing;
  } else if (wish_ == Wish::Play) {
    state = loading_ ? kPlayerTransitional : kPlayerPlaying;
  } else if (wish_ == Wish::Pause) {
    state = kPlayerPaused;
  }
  if (state == state_) return;
  state_ = state;
  TellPlayState(state);
}

void MpvPlayer::Fail(std::uint64_t load, Text text) {
  if (load != load_) return;
  Forget();
  UpdateState();
  TellMediaError(std::move(text));
}

void MpvPlayer::OnNews(const MpvNews& news) {
  if (news.kind == MpvNews::Kind::NoPicture) video_->Redraw();
  if (news.load != load_ || path_.empty()) return;
  switch (news.kind) {
    case MpvNews::Kind::Opened:
      return OnOpened();
    case MpvNews::Kind::Landed:
      return OnLanded(news.seek, news.flag);
    case MpvNews::Kind::SeekFailed:
      if (seeking_ && news.seek == seek_) OnLanded(news.seek, false);
      break;
    case MpvNews::Kind::EndReached:
      return OnEndReached(news.seek);
    case MpvNews::Kind::Gone:
      return OnGone();
    case MpvNews::Kind::Failed:
      return Fail(news.load, FromUtf8(news.text));
    default:
      film_.Take(news);
      clock_.SetFrameDuration(film_.PictureDuration());
      if (news.kind == MpvNews::Kind::Duration) TellControls();
  }
}

void MpvPlayer::OnOpened() {
  opened_ = true;
  if (startAt_ && film_.seekable) SeekTo(*startAt_, true);
  startAt_.reset();
}

void MpvPlayer::OnLanded(std::uint64_t seek, bool atEnd) {
  if (seeking_ && seek != seek_) return;
  const bool landed = std::exchange(seeking_, false);
  loading_ = false;
  atEnd_ = atEnd;
  if (wish_ == Wish::Play) {
    if (atEnd) {
      Stop();
      return;
    }
    // The library pauses by itself at the end of the film, which a seek may have crossed.
    core_->SetFlag("pause", false);
    clock_.Run(Now());
    sampler_->Wake();
  }
  const std::uint64_t load = load_;
  UpdateState();
  if (landed && announceSeek_ && load == load_) TellPosition(seekFrom_, target_);
}

void MpvPlayer::OnEndReached(std::uint64_t seek) {
  if (seeking_ && seek != seek_) return;
  seeking_ = false;
  loading_ = false;
  atEnd_ = true;
  if (wish_ == Wish::Play) Stop();
}

void MpvPlayer::OnGone() {
  if (!opened_) {
    Fail(load_, u"nothing in the file can be played");
    return;
  }
  opened_ = false;
  loading_ = false;
  seeking_ = false;
  wish_ = Wish::Stop;
  clock_.Hold(0, Now());
  UpdateState();
}

void MpvPlayer::SetSurfaceSize(int width, int height) {
  surfaceWidth_ = width;
  surfaceHeight_ = height;
  if (video_) video_->SetSize(width, height);
}

VideoFrame MpvPlayer::TakeFrame() { return video_ ? video_->Take() : VideoFrame{}; }

bool MpvPlayer::CreateGl(GlAddress address, void* context) {
  if (output_ != VideoOutput::OpenGl || !EnsureCore()) return false;
  const bool done = video_->CreateGl(address, context);
  if (!done) {
    output_ = VideoOutput::Software;
    video_->StartSoftware();
  }
  if (waitsForGl_) {
    Open(std::string(path_));
  } else if (core_ && opened_) {
    // The library gave up drawing with the old context; selecting the track again makes it draw.
    core_->SetChoice("vid", "no");
    core_->SetChoice("vid", "auto");
  }
  return done;
}

void MpvPlayer::RenderGl(int framebuffer, int width, int height) {
  if (video_) video_->RenderGl(framebuffer, width, height);
}

void MpvPlayer::DestroyGl() {
  if (video_ && output_ == VideoOutput::OpenGl) video_->Stop();
}

}  // namespace cuewright
