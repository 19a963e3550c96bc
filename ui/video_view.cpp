#include "ui/video_view.h"

#include <QVBoxLayout>

#include "ui/video_surface.h"
#include "ui/video_transport.h"

namespace cuewright {

VideoView::VideoView(Player& player, VideoFrames& frames, QWidget* parent)
    : QWidget(parent), frames_(frames), column_(new QVBoxLayout(this)), transport_(new VideoTransport(player, this)) {
  setObjectName("wmpView");
  setAccessibleName("Player");
  column_->setContentsMargins(0, 0, 0, 0);
  column_->setSpacing(0);
  column_->addWidget(transport_);
  if (frames_.Output() == VideoOutput::OpenGl) {
    surface_ = MakeGlSurface(frames_, this, [this] { UseSoftware(); });
    // Without such a surface the player must hear that no OpenGL will come.
    if (surface_ == nullptr) frames_.CreateGl(nullptr, nullptr);
  }
  if (surface_ == nullptr) surface_ = new VideoSurface(frames_, this);
  column_->insertWidget(0, surface_, 1);
}

void VideoView::UseSoftware() {
  QWidget* before = surface_;
  surface_ = new VideoSurface(frames_, this);
  column_->insertWidget(0, surface_, 1);
  before->hide();
  before->setObjectName({});
  before->deleteLater();
  surface_->show();
}

}  // namespace cuewright
