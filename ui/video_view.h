#pragma once

#include <QWidget>

#include "core/ports/player.h"
#include "core/ports/video_frames.h"

class QVBoxLayout;

namespace cuewright {

class VideoTransport;

/// The player in the main window: the picture, and under it the controls.
class VideoView final : public QWidget {
 public:
  /// Both ports are of one player, and outlive the view.
  VideoView(Player& player, VideoFrames& frames, QWidget* parent = nullptr);

  /// The widget with the picture, named "WMP".
  QWidget* Surface() const { return surface_; }

 private:
  void UseSoftware();

  VideoFrames& frames_;
  QVBoxLayout* column_;
  QWidget* surface_ = nullptr;
  VideoTransport* transport_;
};

}  // namespace cuewright
