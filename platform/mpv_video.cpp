#include "platform/mpv_video.h"

#include <array>
#include <cstdlib>
#include <new>
#include <utility>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr std::size_t kAlignment = 64;  // what the library draws fastest into
constexpr std::size_t kBytesPerPixel = 4;

}  // namespace

void MpvVideo::Picture::Fit(int newWidth, int newHeight) {
  width = newWidth;
  height = newHeight;
  stride = (SizeOf(newWidth) * kBytesPerPixel + kAlignment - 1) / kAlignment * kAlignment;
  const std::size_t needed = stride * SizeOf(newHeight);
  if (needed <= capacity) return;
  pixels = {static_cast<std::uint8_t*>(std::aligned_alloc(kAlignment, needed)), &std::free};
  if (!pixels) throw std::bad_alloc();
  capacity = needed;
}

MpvVideo::MpvVideo(const MpvApi& api, mpv_handle* handle, std::function<void()> changed)
    : api_(api), handle_(handle), changed_(std::move(changed)) {}

MpvVideo::~MpvVideo() { Stop(); }

bool MpvVideo::StartSoftware() {
  if (context_) return software_;
  char api[] = MPV_RENDER_API_TYPE_SW;
  std::array<mpv_render_param, 2> params{{{MPV_RENDER_PARAM_API_TYPE, api}, {MPV_RENDER_PARAM_INVALID, nullptr}}};
  if (api_.render_context_create(&context_, handle_, params.data()) < 0) {
    context_ = nullptr;
    return false;
  }
  software_ = true;
  worker_ = std::thread([this] { Work(); });
  api_.render_context_set_update_callback(context_, &MpvVideo::OnUpdate, this);
  return true;
}

bool MpvVideo::CreateGl(VideoFrames::GlAddress address, void* context) {
  if (context_ || address == nullptr) return context_ && !software_;
  char api[] = MPV_RENDER_API_TYPE_OPENGL;
  mpv_opengl_init_params init{};
  init.get_proc_address = address;
  init.get_proc_address_ctx = context;
  std::array<mpv_render_param, 3> params{{{MPV_RENDER_PARAM_API_TYPE, api},
                                          {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &init},
                                          {MPV_RENDER_PARAM_INVALID, nullptr}}};
  if (api_.render_context_create(&context_, handle_, params.data()) < 0) {
    context_ = nullptr;
    return false;
  }
  api_.render_context_set_update_callback(context_, &MpvVideo::OnUpdate, this);
  return true;
}

void MpvVideo::Stop() {
  if (!context_) return;
  // The order matters: first stop callbacks from the library, then calls to it, then destroy it.
  api_.render_context_set_update_callback(context_, nullptr, nullptr);
  if (worker_.joinable()) {
    {
      const std::lock_guard lock(mutex_);
      quit_ = true;
    }
    wake_.notify_one();
    worker_.join();
  }
  api_.render_context_free(context_);
  context_ = nullptr;
}

void MpvVideo::OnUpdate(void* self) {
  auto& video = *static_cast<MpvVideo*>(self);
  if (!video.software_) {
    video.changed_();
    return;
  }
  {
    const std::lock_guard lock(video.mutex_);
    video.update_ = true;
  }
  video.wake_.notify_one();
}

void MpvVideo::SetSize(int width, int height) {
  {
    const std::lock_guard lock(mutex_);
    if (width == width_ && height == height_) return;
    width_ = width;
    height_ = height;
    redraw_ = true;
  }
  wake_.notify_one();
}

void MpvVideo::Redraw() {
  if (!software_) {
    changed_();
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    redraw_ = true;
  }
  wake_.notify_one();
}

VideoFrame MpvVideo::Take() {
  {
    const std::lock_guard lock(mutex_);
    if (fresh_) std::swap(ready_, front_);
    fresh_ = false;
  }
  return {front_.width, front_.height, front_.stride, front_.pixels.get()};
}

void MpvVideo::RenderGl(int framebuffer, int width, int height) {
  if (!context_ || software_) return;
  api_.render_context_update(context_);
  mpv_opengl_fbo target{framebuffer, width, height, 0};
  int flip = 1;
  int block = 0;  // the window's thread must not wait for the picture's time
  std::array<mpv_render_param, 4> params{{{MPV_RENDER_PARAM_OPENGL_FBO, &target},
                                          {MPV_RENDER_PARAM_FLIP_Y, &flip},
                                          {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                          {MPV_RENDER_PARAM_INVALID, nullptr}}};
  api_.render_context_render(context_, params.data());
}

void MpvVideo::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    wake_.wait(lock, [this] { return update_ || redraw_ || quit_; });
    if (quit_) return;
    const bool redraw = std::exchange(redraw_, false);
    const bool update = std::exchange(update_, false);
    const int width = width_;
    const int height = height_;
    lock.unlock();
    const bool frame = update && (api_.render_context_update(context_) & MPV_RENDER_UPDATE_FRAME);
    const bool draw = frame || redraw;
    if (draw) Draw(width, height);
    lock.lock();
    if (!draw || width <= 0 || height <= 0) continue;
    std::swap(back_, ready_);
    fresh_ = true;
    lock.unlock();
    changed_();
    lock.lock();
  }
}

void MpvVideo::Draw(int width, int height) {
  int block = 1;
  if (width <= 0 || height <= 0) {
    int skip = 1;
    std::array<mpv_render_param, 3> params{{{MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
                                            {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                            {MPV_RENDER_PARAM_INVALID, nullptr}}};
    api_.render_context_render(context_, params.data());
    return;
  }
  back_.Fit(width, height);
  std::array<int, 2> size{width, height};
  char format[] = "bgr0";
  std::array<mpv_render_param, 6> params{{{MPV_RENDER_PARAM_SW_SIZE, size.data()},
                                          {MPV_RENDER_PARAM_SW_FORMAT, format},
                                          {MPV_RENDER_PARAM_SW_STRIDE, &back_.stride},
                                          {MPV_RENDER_PARAM_SW_POINTER, back_.pixels.get()},
                                          {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                          {MPV_RENDER_PARAM_INVALID, nullptr}}};
  api_.render_context_render(context_, params.data());
}

}  // namespace cuewright
