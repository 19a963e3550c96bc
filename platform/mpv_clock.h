#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>

namespace cuewright {

/// What was read from the player at one instant.
struct ClockSample {
  double time = 0;                ///< seconds of the monotonic clock
  std::optional<double> audio;    ///< position of the sound that is heard, seconds
  std::optional<double> picture;  ///< position of the picture that is shown, seconds: steps by frames
  bool paused = false;
  bool idle = false;  ///< nothing plays although nobody paused it: the player waits for the file
};

/// The player's position at any instant, from samples that come now and then: smooth between them, and never
/// backward while the film plays. The sound's position leads; where there is no sound, the steps of the picture
/// do, with the time since. May be read and fed on different threads.
class MpvClock {
 public:
  /// Stands at a position and ignores samples: nothing open, loading, seeking, stopped.
  void Hold(double position, double now);

  /// The film plays on from where the clock stands, as the samples will show.
  void Run(double now);

  /// Stands where it is; the first sample of the paused player corrects it.
  void Pause(double now);

  /// Length of one frame in seconds. Where the pictures come late, the clock without sound is at most this far ahead of
  /// the one on show; else a picture may be meant to stay for longer.
  void SetFrameDuration(double seconds);

  /// From now on the film plays so many times as fast as it was filmed.
  void SetSpeed(double factor, double now);

  /// True while samples matter.
  bool WantsSamples() const;

  /// A number that changes with every Hold, Run and Pause. A sample goes with the number from before its reading,
  /// so that one read across such a change is dropped.
  std::uint64_t Epoch() const;
  void Add(std::uint64_t epoch, const ClockSample& sample);

  /// Position in seconds at an instant of the monotonic clock.
  double Position(double now);

  /// Where the film was at an instant of the last seconds, whatever happened since: a key that is handled late
  /// counts where it was pressed. For an instant that the samples haven't reached, the same as `Position`.
  double PositionAt(double instant);

 private:
  enum class Mode { Held, Running, Pausing };

  /// One source of positions, and how it moved of late.
  struct Track {
    std::optional<double> value;  // the last one seen
    double seen = 0;              // when it was read
    double moved = 0;             // when it was last seen to have moved
    bool Moves(double now) const;
  };

  /// The position of the clock, and whether it was running.
  struct Point {
    double time = 0;
    double position = 0;
    bool moves = false;
  };

  void AddRunning(const ClockSample& sample);
  void AddAudio(const ClockSample& sample);
  void AddPicture(const ClockSample& sample);
  void Measure(double offset);
  double PositionLocked(double now);
  double Reckoned(double time) const;
  void Remember(double time, double position, bool moves);

  mutable std::mutex mutex_;
  std::uint64_t epoch_ = 0;
  Mode mode_ = Mode::Held;
  double stand_ = 0;  // position while nothing moves, and the least one while running
  Track audio_;
  Track picture_;
  bool byAudio_ = false;  // the source of the offset
  double speed_ = 1;
  std::optional<double> offset_;  // position minus time * speed, while it is known that the film moves
  int measured_ = 0;
  int outliers_ = 0;
  double frameDuration_ = 0.04;
  bool picturesLate_ = false;
  std::deque<Point> history_;  // in the order of time
};

}  // namespace cuewright
