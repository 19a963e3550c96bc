#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <utility>

#include "capture/workbench.h"
#include "core/runtime_error.h"
#include "core/signal.h"
#include "forms/film_voice.h"

namespace cuewright {

/// A search in the voice of the open film, in the background: the sound is read first, unless it is known. It stops
/// when the document or the film goes.
template <class Found>
class VoiceSearch {
 public:
  /// What is done on a thread of its own. It should give up soon after `GivenUp` has become true.
  using Search = std::function<Found(const std::shared_ptr<const SoundTable>& sound)>;

  VoiceSearch(Workbench bench, Timer& timer, FilmVoice& voice) : bench_(bench), timer_(timer), voice_(voice) {
    timer_.Tick.Connect([this] { Poll(); });
    bench_.list.EnabledChanged.Connect([this](bool on) {
      if (!on) Stop();
    });
  }
  ~VoiceSearch() { giveUp_ = true; }
  VoiceSearch(const VoiceSearch&) = delete;
  VoiceSearch& operator=(const VoiceSearch&) = delete;

  bool Running() const { return timer_.Enabled(); }
  const Text& Film() const { return film_; }
  const std::atomic<bool>& GivenUp() const { return giveUp_; }

  /// False when the film can't be read.
  [[nodiscard]] bool Begin(Search search) {
    film_ = bench_.document.VideoPath;
    const bool known = voice_.Known() != nullptr;
    CarryOn steps;
    if (!known && !steps([&] { voice_.BeginReading(); })) return false;
    search_ = std::move(search);
    timer_.SetEnabled(true);
    if (known) Run();
    return true;
  }

  void Stop() {
    if (!Running()) return;
    timer_.SetEnabled(false);
    giveUp_ = true;
    if (found_.valid()) found_.wait();
    found_ = {};
    giveUp_ = false;
    voice_.StopReading();
    Stopped();
  }

  Signal<VoiceSearch> Stopped;             ///< before it has found anything
  Signal<VoiceSearch> Unreadable;          ///< the film has no sound that can be read; it has stopped
  Signal<VoiceSearch, const Found&> Done;  ///< it has ended

 private:
  void Run() {
    found_ = std::async(std::launch::async, [this, sound = voice_.Known()] { return search_(sound); });
  }

  void Poll() {
    if (bench_.document.VideoPath != film_) return Stop();
    if (found_.valid()) {
      if (found_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
      timer_.SetEnabled(false);
      return Done(found_.get());
    }
    if (voice_.Poll()) return;
    if (voice_.Known()) return Run();
    Stop();
    Unreadable();
  }

  Workbench bench_;
  Timer& timer_;
  FilmVoice& voice_;
  Text film_;  ///< whose voice is searched
  Search search_;
  std::atomic<bool> giveUp_ = false;
  std::future<Found> found_;  ///< goes first: it uses what stands above
};

}  // namespace cuewright
