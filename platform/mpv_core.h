#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/mpv_library.h"

namespace cuewright {

/// A sound track as the library counts it.
struct MpvSoundTrack {
  int id = 0;      ///< the library's own
  int stream = 0;  ///< of the file
  std::string words;
};

/// What the library tells, in the order in which it happened. `load` is the number given to `Load`.
struct MpvNews {
  enum class Kind {
    Opened,       ///< the file is open; nothing of it is shown yet
    Landed,       ///< the first picture and sound after opening or after the seek `seek`; `flag`: at the end already
    SeekFailed,   ///< the seek `seek` can't be done
    EndReached,   ///< the film stands at its end
    Gone,         ///< the film was unloaded without anyone asking
    Failed,       ///< the file can't be played: `text`
    Duration,     ///< length in seconds: `number`
    FrameRate,    ///< frames per second: `number`
    Seekable,     ///< `flag`
    AudioTrack,   ///< stream of the file that is heard: `number`
    Width,        ///< of the picture as it is shown, in pixels: `number`
    Height,       ///< the same
    SoundTracks,  ///< of the file: `tracks`
    NoPicture,    ///< nothing is shown any more, whichever file is open
  };
  Kind kind = Kind::Opened;
  std::uint64_t load = 0;
  std::uint64_t seek = 0;
  double number = 0;
  bool flag = false;
  std::string text{};
  std::vector<MpvSoundTrack> tracks{};
};

/// One instance of the library's player, with the thread that listens to it. Commands only queue up and never wait.
class MpvCore {
 public:
  using Options = std::vector<std::pair<std::string, std::string>>;

  /// `news` is called on the listening thread. Test `Ready` afterwards.
  MpvCore(const MpvApi& api, const Options& options, std::function<void(const MpvNews&)> news);
  ~MpvCore();
  MpvCore(const MpvCore&) = delete;
  MpvCore& operator=(const MpvCore&) = delete;

  /// False when the library could not be started.
  bool Ready() const { return handle_ != nullptr; }

  const MpvApi& Api() const { return api_; }
  mpv_handle* Handle() const { return handle_; }

  /// Starts listening; what is drawn must be set up before.
  void Listen();

  /// False when the library rejects the command at once; otherwise `news` reports the result.
  bool Load(std::uint64_t load, const std::string& path);
  bool Seek(std::uint64_t seek, double seconds);
  void Unload();
  void SetFlag(const char* property, bool value);
  void SetNumber(const char* property, double value);
  void SetChoice(const char* property, const char* value);

 private:
  bool Command(std::uint64_t reply, std::initializer_list<const char*> words);
  void Run();
  void Handle(const mpv_event& event);
  void TellOfFile();
  void OnReply(const mpv_event& event);
  void OnEnd(const mpv_event_end_file& end);
  void OnProperty(const mpv_event_property& property);
  void Tell(MpvNews news);

  const MpvApi& api_;
  mpv_handle* handle_ = nullptr;
  std::function<void(const MpvNews&)> news_;
  std::thread listener_;
  std::atomic<bool> quit_ = false;

  // Used on the listening thread only: the current file, and the seeks queued and begun last.
  std::uint64_t queuedLoad_ = 0;
  std::int64_t queuedEntry_ = 0;
  std::int64_t entry_ = 0;
  std::uint64_t load_ = 0;
  std::uint64_t queuedSeek_ = 0;
  std::uint64_t begunSeek_ = 0;
  std::string lastComplaint_;
};

}  // namespace cuewright
