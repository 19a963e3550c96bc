#pragma once

#include <cstdint>
#include <functional>

#include <utility>
#include <vector>

#include "core/signal.h"
#include "text/text.h"

namespace cuewright {

/// States of the player. Every value but these three means a transition (loading, seeking, nothing open).
inline constexpr int kPlayerStopped = 1;
inline constexpr int kPlayerPaused = 2;
inline constexpr int kPlayerPlaying = 3;
inline constexpr int kPlayerTransitional = 9;

/// The size of a picture in pixels.
struct PictureSize {
  int width = 0;
  int height = 0;

  explicit operator bool() const { return width > 0 && height > 0; }
};

/// A sound track of a film: the number of its stream in the file, and its title and language as far as they are told.
struct SoundTrack {
  int stream = -1;
  Text words{};

  bool operator==(const SoundTrack&) const = default;
};

/// The embedded media player. All calls and all announcements are on the window's thread.
class Player {
 public:
  virtual ~Player() = default;

  /// Opens a file, or unloads with the empty text. Playing starts by itself. A file that can't be played is
  /// told by `MediaError`, a player that is missing by run-time error 429.
  virtual void SetUrl(TextView path) = 0;
  virtual void Close() = 0;

  /// The control accepts input.
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;

  virtual int PlayState() const = 0;

  /// "none", "mini" or "full": the controls under the picture.
  virtual void SetUiMode(TextView mode) = 0;
  virtual Text UiMode() const = 0;

  /// True: the picture fills the surface; false: it keeps its size. Always with the right aspect.
  virtual void SetStretchToFit(bool stretch) = 0;

  /// 0 to 100.
  virtual void SetVolume(int volume) = 0;
  virtual int Volume() const = 0;

  /// Silence apart from the volume.
  virtual void SetMuted(bool /*muted*/) {}
  virtual bool Muted() const { return false; }

  virtual void Play() = 0;
  virtual void Pause() = 0;
  /// Goes to the start and stays there, state 1.
  virtual void Stop() = 0;

  /// How many times as fast as it was filmed the film plays, 0.25 to 4, with the pitch of its sound kept; another film
  /// keeps it.
  virtual void SetSpeed(double /*factor*/) {}
  virtual double Speed() const { return 1; }

  /// Seconds. Smooth to the millisecond; never runs backward while playing without a seek.
  virtual double CurrentPosition() const = 0;
  virtual void SetCurrentPosition(double seconds) = 0;
  /// Where the film was at an instant of the last seconds, by the steady clock in seconds. A player that keeps no
  /// history says where it is.
  virtual double PositionAt(double /*instant*/) const { return CurrentPosition(); }
  /// Pictures a second of the film that is open; 0 when it isn't known.
  virtual double FramesPerSecond() const { return 0; }
  /// The film's picture as it is shown; 0 by 0 when it isn't known.
  virtual PictureSize Picture() const { return {}; }

  /// The position as "MM:SS", or "H:MM:SS" from one hour on.
  virtual Text CurrentPositionString() const = 0;

  /// Length of the open media in seconds; 0 when unknown.
  virtual double Duration() const = 0;

  /// The film stands where nothing of it is left to play: playing on begins it anew.
  virtual bool AtEnd() const { return Duration() > 0 && CurrentPosition() >= Duration(); }

  /// Number of the stream in the file that is heard; -1 when unknown.
  virtual int AudioTrack() const { return -1; }
  /// The sound tracks of the open film, in its order, and hearing one of them by its stream.
  virtual std::vector<SoundTrack> SoundTracks() const { return {}; }
  virtual void SetAudioTrack(int /*stream*/) {}

  /// Films are decoded by the graphics card where there is one that can.
  virtual void SetHardwareDecoding(bool /*on*/) {}

  Signal<Player, int> PlayStateChange;            ///< the new state
  Signal<Player, double, double> PositionChange;  ///< a seek has landed: old and new position in seconds
  Signal<Player, Text> MediaError;                ///< the file could not be played: the library's own words
  Signal<Player> ControlsChange;                  ///< enabled, uiMode, volume, mute, speed or the duration has changed

 protected:
  void TellPlayState(int state) { PlayStateChange(state); }
  void TellPosition(double from, double to) { PositionChange(from, to); }
  void TellMediaError(Text words) { MediaError(std::move(words)); }
  void TellControls() { ControlsChange(); }
};

}  // namespace cuewright
