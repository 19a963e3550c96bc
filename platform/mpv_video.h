#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "core/ports/video_frames.h"
#include "platform/mpv_library.h"

namespace cuewright {

/// Draws the pictures of one player: into memory on a thread of its own, or through the window's OpenGL.
class MpvVideo {
 public:
  /// `changed` is called on any thread when there is a new picture to fetch or to draw.
  MpvVideo(const MpvApi& api, mpv_handle* handle, std::function<void()> changed);
  ~MpvVideo();
  MpvVideo(const MpvVideo&) = delete;
  MpvVideo& operator=(const MpvVideo&) = delete;

  /// Starts drawing into memory; false when the library refuses.
  bool StartSoftware();

  void SetSize(int width, int height);
  VideoFrame Take();

  /// Draws again what there is to show now: black when that is nothing.
  void Redraw();

  bool CreateGl(VideoFrames::GlAddress address, void* context);
  void RenderGl(int framebuffer, int width, int height);

  /// Ends drawing, with OpenGL in the current context. The player itself must be ended after this.
  void Stop();

  bool Started() const { return context_ != nullptr; }

 private:
  struct Picture {
    int width = 0;
    int height = 0;
    std::size_t stride = 0;
    std::size_t capacity = 0;
    std::unique_ptr<std::uint8_t, void (*)(void*)> pixels{nullptr, nullptr};
    void Fit(int newWidth, int newHeight);
  };

  static void OnUpdate(void* self);
  void Work();
  /// Draws into `back_`, or skips the picture while the surface has no size.
  void Draw(int width, int height);

  const MpvApi& api_;
  mpv_handle* handle_;
  std::function<void()> changed_;
  mpv_render_context* context_ = nullptr;
  bool software_ = false;

  std::thread worker_;
  std::mutex mutex_;  // over what follows
  std::condition_variable wake_;
  bool update_ = false;
  bool redraw_ = false;
  bool quit_ = false;
  bool fresh_ = false;  // `ready_` is newer than `front_`
  int width_ = 0;
  int height_ = 0;
  Picture ready_;

  Picture back_;   // the worker's
  Picture front_;  // the window's
};

}  // namespace cuewright
