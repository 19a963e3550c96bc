#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/ports/player.h"
#include "core/ports/video_frames.h"
#include "platform/mpv_clock.h"
#include "platform/mpv_film.h"
#include "platform/mpv_options.h"

namespace cuewright {

class MpvLibrary;
class MpvSampler;
class MpvVideo;

/// The media player on libmpv. Made, used and ended on the window's thread; nothing here waits for the library.
/// The library's part starts with the first film. Without the library all this exists just the same, and only opening a
/// file fails, with run-time error 429.
class MpvPlayer final : public Player, public VideoFrames {
 public:
  /// Runs a task on the window's thread, later and never within the call. Called on any thread.
  using Post = std::function<void(std::function<void()>)>;

  MpvPlayer(const MpvLibrary& library, Post post, const MpvPlayerOptions& options = {});
  ~MpvPlayer() override;
  MpvPlayer(const MpvPlayer&) = delete;
  MpvPlayer& operator=(const MpvPlayer&) = delete;

  void SetUrl(TextView path) override;
  void Close() override;
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override;
  int PlayState() const override { return state_; }
  void SetUiMode(TextView mode) override;
  Text UiMode() const override { return uiMode_; }
  void SetStretchToFit(bool stretch) override;
  void SetVolume(int volume) override;
  int Volume() const override { return volume_; }
  void SetSpeed(double factor) override;
  double Speed() const override { return speed_; }
  void SetMuted(bool muted) override;
  bool Muted() const override { return muted_; }
  void Play() override;
  void Pause() override;
  void Stop() override;
  double CurrentPosition() const override;
  double PositionAt(double instant) const override;
  double FramesPerSecond() const override { return film_.framesPerSecond; }
  PictureSize Picture() const override { return film_.picture; }
  void SetCurrentPosition(double seconds) override;
  Text CurrentPositionString() const override;
  double Duration() const override { return film_.duration; }
  bool AtEnd() const override;
  int AudioTrack() const override { return film_.audioTrack; }
  std::vector<SoundTrack> SoundTracks() const override { return film_.Tracks(); }
  void SetAudioTrack(int stream) override;
  void SetHardwareDecoding(bool on) override;

  VideoOutput Output() const override { return output_; }
  void SetSurfaceSize(int width, int height) override;
  VideoFrame TakeFrame() override;
  bool CreateGl(GlAddress address, void* context) override;
  void RenderGl(int framebuffer, int width, int height) override;
  void DestroyGl() override;

 private:
  /// What the user wants the open film to do.
  enum class Wish { Play, Pause, Stop };

  /// Starts the library's player when it hasn't been; false when that can't be.
  bool EnsureCore();
  void StartCore();
  void PostGuarded(std::function<void()> task);
  void Open(const std::string& path);
  void Forget();
  void SeekTo(double seconds, bool announce);
  void UpdateState();
  void Fail(std::uint64_t load, Text text);

  void OnNews(const MpvNews& news);
  void OnOpened();
  void OnLanded(std::uint64_t seek, bool atEnd);
  void OnEndReached(std::uint64_t seek);
  void OnGone();

  const MpvLibrary& library_;
  Post post_;
  MpvPlayerOptions options_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  const std::weak_ptr<bool> guard_{alive_};  // what posted tasks hold
  std::unique_ptr<MpvCore> core_;
  std::unique_ptr<MpvVideo> video_;
  VideoOutput output_;

  std::uint64_t load_ = 0;  // number of the newest opening; news of older ones is stale
  std::string path_;        // empty: nothing open
  bool waitsForGl_ = false;
  bool loading_ = false;  // until the first picture or sound
  bool opened_ = false;
  bool atEnd_ = false;
  Wish wish_ = Wish::Stop;
  int state_ = 0;
  MpvFilm film_;
  bool trackChosen_ = false;
  bool hardware_ = false;

  std::uint64_t seek_ = 0;  // number of the newest seek
  bool seeking_ = false;    // it has not landed
  bool announceSeek_ = false;
  double seekFrom_ = 0;
  double target_ = 0;
  std::optional<double> startAt_;  // asked for while loading

  bool enabled_ = false;
  Text uiMode_ = u"full";
  int volume_ = 75;
  bool muted_ = false;
  double speed_ = 1;
  bool stretch_ = true;
  int surfaceWidth_ = 0;
  int surfaceHeight_ = 0;

  mutable MpvClock clock_;
  mutable double lastRead_ = 0;  // the position last handed out, and when
  mutable double lastReadAt_ = 0;

  std::unique_ptr<MpvSampler> sampler_;
};

}  // namespace cuewright
