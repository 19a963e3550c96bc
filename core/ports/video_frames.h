#pragma once

#include <cstddef>
#include <cstdint>

#include "core/signal.h"

namespace cuewright {

/// Who draws the film: the player into memory, or the player through the window's OpenGL.
enum class VideoOutput { Software, OpenGl };

/// A picture that the player drew: rows of 32-bit pixels, blue in the lowest byte, the highest byte unused.
struct VideoFrame {
  int width = 0;
  int height = 0;
  std::size_t stride = 0;  ///< bytes from row to row
  const std::uint8_t* pixels = nullptr;
};

/// The pictures of the player, for the surface that shows them. All on the window's thread.
class VideoFrames {
 public:
  /// Gives the address of an OpenGL function by its name; null when there is none.
  using GlAddress = void* (*)(void* context, const char* name);

  virtual ~VideoFrames() = default;

  /// How the player was set up to draw; it falls back to `Software` when `CreateGl` fails.
  virtual VideoOutput Output() const = 0;

  /// Size of the surface in device pixels; the pictures that follow have it. Nothing is drawn while a side is 0.
  virtual void SetSurfaceSize(int width, int height) = 0;

  /// The newest picture; without pixels when there was none. Valid until the next call.
  virtual VideoFrame TakeFrame() = 0;

  /// Sets OpenGL drawing up in the current context; false when that can't be, and then pictures come by
  /// `TakeFrame`.
  virtual bool CreateGl(GlAddress address, void* context) = 0;
  /// Draws the newest picture into a framebuffer of the current context.
  virtual void RenderGl(int framebuffer, int width, int height) = 0;
  /// Ends OpenGL drawing; the context must be current.
  virtual void DestroyGl() = 0;

  Signal<VideoFrames> FrameReady;  ///< there is a new picture

 protected:
  void TellFrame() { FrameReady(); }
};

}  // namespace cuewright
