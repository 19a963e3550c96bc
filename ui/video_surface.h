#pragma once

#include <QWidget>

#include "core/ports/video_frames.h"

namespace cuewright {

/// Gives a widget the manners of the picture area: black, taking the keyboard on a click, so that the captioning
/// keys work, and without an input method, so that a held letter stays a held letter.
void DressAsPicture(QWidget& widget);

/// Shows the pictures that the player draws into memory, in the display's own pixels.
class VideoSurface final : public QWidget {
 public:
  VideoSurface(VideoFrames& frames, QWidget* parent);
  ~VideoSurface() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void TellSize();

  VideoFrames& frames_;
  Connection ready_;
};

/// A surface that lets the player draw by OpenGL, or null where the program was built without or the platform has
/// none. `failed` is called once, later, when the player can't draw so.
QWidget* MakeGlSurface(VideoFrames& frames, QWidget* parent, std::function<void()> failed);

/// How to draw: by OpenGL where the environment variable CUEWRIGHT_VIDEO_OUTPUT says "opengl" and it is possible, in
/// software otherwise. To be asked when the application exists.
VideoOutput WantedVideoOutput();

}  // namespace cuewright
