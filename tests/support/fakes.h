#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/ports/desktop.h"
#include "core/ports/event_queue.h"
#include "core/ports/file_dialogs.h"
#include "core/ports/messages.h"
#include "core/ports/pickers.h"
#include "core/ports/player.h"
#include "core/ports/processes.h"
#include "core/ports/system_info.h"
#include "core/ports/web.h"
#include "core/runtime_error.h"

namespace cuewright::testing {

/// A player whose state and clock the test sets.
class FakePlayer final : public Player {
 public:
  void SetUrl(TextView path) override {
    url = path;
    urls.emplace_back(path);
  }
  void Close() override { ++closes; }
  bool Enabled() const override { return enabled; }
  void SetEnabled(bool on) override { enabled = on; }
  int PlayState() const override { return state; }
  void SetUiMode(TextView mode) override { uiMode = mode; }
  Text UiMode() const override { return uiMode; }
  void SetStretchToFit(bool on) override { stretch = on; }
  void SetVolume(int value) override { volume = value; }
  int Volume() const override { return volume; }
  void SetMuted(bool on) override { muted = on; }
  bool Muted() const override { return muted; }
  void SetSpeed(double factor) override {
    speed = factor;
    TellControls();
  }
  double Speed() const override { return speed; }
  void Play() override { Become(kPlayerPlaying); }
  void Pause() override { Become(kPlayerPaused); }
  void Stop() override {
    position = 0;
    Become(kPlayerStopped);
  }
  double CurrentPosition() const override { return position; }
  void SetCurrentPosition(double seconds) override {
    seeks.push_back(seconds);
    const double old = position;
    position = seconds;
    TellPosition(old, seconds);
  }
  double PositionAt(double instant) const override { return history ? history(instant) : position; }
  Text CurrentPositionString() const override { return positionText; }
  double FramesPerSecond() const override { return framesPerSecond; }
  PictureSize Picture() const override { return picture; }
  double Duration() const override { return duration; }
  int AudioTrack() const override { return audioTrack; }
  std::vector<SoundTrack> SoundTracks() const override { return soundTracks; }
  void SetAudioTrack(int stream) override { audioTrack = stream; }
  void SetHardwareDecoding(bool on) override { hardware = on; }

  /// Changes the state and announces it.
  void Become(int newState) {
    state = newState;
    TellPlayState(newState);
  }
  /// The file could not be played.
  void Fail(const Text& words) { TellMediaError(words); }

  PictureSize picture;
  Text url;
  std::vector<Text> urls;
  int closes = 0;
  bool enabled = false;
  int state = 0;
  Text uiMode = u"full";
  bool stretch = true;
  int volume = 75;
  bool muted = false;
  double speed = 1;
  double position = 0;
  std::function<double(double)> history;  // where the film was at an instant; empty: always where it is
  Text positionText = u"00:00";
  double duration = 0;
  double framesPerSecond = 0;
  int audioTrack = -1;
  std::vector<SoundTrack> soundTracks;
  bool hardware = false;
  std::vector<double> seeks;
};

/// A program that ends and writes when the test says so.
class FakeProcesses final : public Processes {
 public:
  struct Run {
    Text program;
    std::vector<Text> arguments;
    std::string output;         ///< not taken yet
    std::optional<int> status;  ///< empty: it runs
    bool gone = false;          ///< nobody holds it any more
    std::string errors{};       ///< not taken yet
    StartOptions options{};
  };

  using Processes::Start;
  std::unique_ptr<ChildProcess> Start(const Text& program, const std::vector<Text>& arguments,
                                      const StartOptions& options) override {
    if (missing) throw RuntimeError{kErrorFileNotFound, u"File not found: " + program};
    if (program == u"ffprobe") {
      probe = Run{program, arguments, said, slowProbe ? std::nullopt : std::optional(0), false, {}, options};
      return std::make_unique<Child>(probe);
    }
    runs.push_back(std::make_unique<Run>(Run{program, arguments, {}, {}, false, {}, options}));
    if (onStart) onStart(*runs.back());
    return std::make_unique<Child>(*runs.back());
  }

  std::function<void(Run&)> onStart;  ///< runs at each start

  std::vector<std::unique_ptr<Run>> runs;
  Run probe;         ///< the last question that ffprobe was asked, which has ended at once unless that is slow
  std::string said;  ///< its answer
  bool slowProbe = false;
  bool missing = false;

 private:
  class Child final : public ChildProcess {
   public:
    explicit Child(Run& run) : run_(run) {}
    ~Child() override { run_.gone = true; }
    std::string TakeOutput() override { return std::exchange(run_.output, {}); }
    std::string TakeErrors() override { return std::exchange(run_.errors, {}); }
    std::optional<int> Ended() override { return run_.status; }

   private:
    Run& run_;
  };
};

/// Boxes answered from queues; what was shown is kept.
class FakeMessages final : public Messages {
 public:
  BoxAnswer Show(const MessageBox& box) override {
    shown.push_back(box);
    if (answers.empty()) return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Cancel;
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  Text Ask(const InputBox& box) override {
    asked.push_back(box);
    if (lines.empty()) return {};
    Text line = lines.front();
    lines.pop_front();
    return line;
  }

  std::vector<MessageBox> shown;
  std::vector<InputBox> asked;
  std::deque<BoxAnswer> answers;
  std::deque<Text> lines;
};

class FakeFileDialogs final : public FileDialogs {
 public:
  struct Call {
    Text title, filter, folder, proposal;
  };
  Text ShowOpenDialog(TextView title, TextView filter, TextView folder) override {
    calls.push_back({Text(title), Text(filter), Text(folder), {}});
    return Take();
  }
  Text ShowSaveDialog(TextView title, TextView filter, TextView folder, TextView proposal) override {
    calls.push_back({Text(title), Text(filter), Text(folder), Text(proposal)});
    return Take();
  }

  std::vector<Call> calls;
  std::deque<Text> paths;

 private:
  Text Take() {
    if (paths.empty()) return {};
    Text path = paths.front();
    paths.pop_front();
    return path;
  }
};

/// Pickers answered from queues; an empty queue is a cancel.
class FakePickers final : public Pickers {
 public:
  std::optional<std::int32_t> PickColor(std::int32_t initial, const CustomColors& custom) override {
    colorsShown.push_back(initial);
    customColors = custom;
    return Take(colors);
  }
  std::optional<FontChoice> PickFont(const FontChoice& initial) override {
    fontsShown.push_back(initial);
    return Take(fonts);
  }
  Text PickFolder(TextView prompt) override {
    prompts.emplace_back(prompt);
    return Take(folders).value_or(Text());
  }

  std::vector<std::int32_t> colorsShown;
  CustomColors customColors{};
  std::vector<FontChoice> fontsShown;
  std::vector<Text> prompts;
  std::deque<std::int32_t> colors;
  std::deque<FontChoice> fonts;
  std::deque<Text> folders;

 private:
  template <class T>
  static std::optional<T> Take(std::deque<T>& queue) {
    if (queue.empty()) return std::nullopt;
    T first = queue.front();
    queue.pop_front();
    return first;
  }
};

/// A clock that moves when the test waits; `onYield` runs at each yield.
class FakeEventQueue final : public EventQueue {
 public:
  void Yield() override {
    ++yields;
    if (onYield) onYield();
  }
  void WaitMs(int ms) override {
    now += ms;
    waits.push_back(ms);
    if (onWait) onWait();
    if (onWaitMs) onWaitMs(ms);
  }
  std::int64_t NowMs() const override { return now; }

  int yields = 0;
  std::int64_t now = 0;
  std::vector<int> waits;
  std::function<void()> onYield;
  std::function<void()> onWait;       ///< runs at each wait
  std::function<void(int)> onWaitMs;  ///< the same, with the length
};

class FakeDesktop final : public Desktop {
 public:
  bool ShellOpen(TextView target) override {
    opened.emplace_back(target);
    return true;
  }
  bool OpenRegionalSettings() override {
    ++regionalSettings;
    return hasRegionalSettings;
  }
  bool ClipboardHasText() const override { return !clipboard.empty(); }
  Text ClipboardText() const override { return clipboard; }
  std::string ClipboardCaptions() const override { return clipboardCaptions; }
  void PutOnClipboard(TextView text, const std::string& captions) override {
    clipboard = text;
    clipboardCaptions = captions;
  }
  void SetBusy(bool on) override { busy = on; }

  std::vector<Text> opened;
  int regionalSettings = 0;
  bool hasRegionalSettings = true;
  Text clipboard;
  std::string clipboardCaptions;
  bool busy = false;
};

/// A network with one reply, the test's own.
class FakeWeb final : public Web {
 public:
  int ConnectionState() const override { return state; }
  std::string Get(TextView url) override {
    urls.emplace_back(url);
    if (onGet) onGet();
    if (error) throw RuntimeError(*error);
    return body;
  }
  void Abort() override { ++aborts; }

  int state = 2;
  std::string body;
  std::optional<RuntimeError> error;
  std::function<void()> onGet;
  std::vector<Text> urls;
  int aborts = 0;
};

/// A system that says what the test wants.
class FakeSystemInfo final : public SystemInfo {
 public:
  std::optional<Name> SystemName() const override { return name; }
  std::uint64_t AvailableMemory() const override { return memory; }

  std::optional<Name> name = Name{u"Test System", 6, 1};
  std::uint64_t memory = 0;
};

}  // namespace cuewright::testing
