#pragma once

#include <cstdint>
#include <mutex>
#include <optional>

namespace cuewright {

/// What was read from the player at one instant.
struct ClockSample {
  double time = 0;                ///< seconds of the monotonic clock
  std::optional<double> audio;    ///< position of the sound that is heard, seconds
  std::optional<double> picture;  ///< position of the picture that is shown, seconds: steps by frames
  bool paused = false;
};

/// The player's position at any instant, from samples that come now and then: smooth between them, and never
/// backward while the film plays. The sound's position leads; where there is no sound, the steps of the picture
/// do, with the time since. May be read and fed on different threads.
class MpvClock {
 public:
  /// Stands at a position and ignores samples: nothing open, loading, seeking, stopped.
  void Hold(double position);

  /// The film plays on from where the clock stands, as the samples will show.
  void Run();

  /// Stands where it is; the first sample of the paused player corrects it.
  void Pause(double now);

  /// Length of one frame in seconds: without sound the clock is at most this far ahead of the picture's sample.
  void SetFrameDuration(double seconds);

  /// True while samples matter.
  bool WantsSamples() const;

  /// A number that changes with every Hold, Run and Pause. A sample goes with the number from before its reading,
  /// so that one read across such a change is dropped.
  std::uint64_t Epoch() const;
  void Add(std::uint64_t epoch, const ClockSample& sample);

  /// Position in seconds at an instant of the monotonic clock.
  double Position(double now);

 private:
  enum class Mode { Held, Running, Pausing };

  /// One source of positions, and how it moved of late.
  struct Track {
    std::optional<double> value;  // the last one seen
    double seen = 0;              // when it was read
    double moved = 0;             // when it was last seen to have moved
    bool Moves(double now) const;
  };

  void AddRunning(const ClockSample& sample);
  void AddAudio(const ClockSample& sample);
  void AddPicture(const ClockSample& sample);
  void Measure(double offset);
  double PositionLocked(double now);

  mutable std::mutex mutex_;
  std::uint64_t epoch_ = 0;
  Mode mode_ = Mode::Held;
  double stand_ = 0;  // position while nothing moves, and the least one while running
  Track audio_;
  Track picture_;
  bool byAudio_ = false;          // the source of the offset
  std::optional<double> offset_;  // position minus time, while it is known that the film moves
  int measured_ = 0;
  int outliers_ = 0;
  double frameDuration_ = 0.04;
};

}  // namespace cuewright
