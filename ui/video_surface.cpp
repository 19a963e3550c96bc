#include "ui/video_surface.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace cuewright {

void DressAsPicture(QWidget& widget) {
  widget.setObjectName("WMP");
  widget.setAccessibleName("Picture of the film");
  widget.setFocusPolicy(Qt::ClickFocus);
  widget.setAttribute(Qt::WA_InputMethodEnabled, false);
  widget.setMinimumSize(1, 1);
  widget.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

VideoSurface::VideoSurface(VideoFrames& frames, QWidget* parent) : QWidget(parent), frames_(frames) {
  DressAsPicture(*this);
  setAttribute(Qt::WA_OpaquePaintEvent);
  ready_ = frames_.FrameReady.ConnectScoped([this] { update(); });
}

VideoSurface::~VideoSurface() { frames_.SetSurfaceSize(0, 0); }

void VideoSurface::paintEvent(QPaintEvent*) {
  // The scale changes without a resize when the window goes to another screen.
  TellSize();
  QPainter painter(this);
  const VideoFrame frame = frames_.TakeFrame();
  if (frame.pixels == nullptr) {
    painter.fillRect(rect(), Qt::black);
    return;
  }
  QImage image(frame.pixels, frame.width, frame.height, static_cast<qsizetype>(frame.stride), QImage::Format_RGB32);
  // While the window is being resized the picture may still have the size of before: it is stretched meanwhile.
  painter.drawImage(QRectF(rect()), image, QRectF(image.rect()));
}

void VideoSurface::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  TellSize();
}

void VideoSurface::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  TellSize();
}

void VideoSurface::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  TellSize();
}

void VideoSurface::TellSize() {
  // A hidden surface wants no pictures.
  const QSize size = isVisible() ? (QSizeF(this->size()) * devicePixelRatioF()).toSize() : QSize(0, 0);
  frames_.SetSurfaceSize(size.width(), size.height());
}

VideoOutput WantedVideoOutput() {
#ifdef CUEWRIGHT_OPENGL
  const bool wanted = qEnvironmentVariable("CUEWRIGHT_VIDEO_OUTPUT").compare("opengl", Qt::CaseInsensitive) == 0;
  const QString platform = QGuiApplication::platformName();
  const bool possible = platform == "xcb" || platform.startsWith("wayland");
  if (wanted && possible) return VideoOutput::OpenGl;
#endif
  return VideoOutput::Software;
}

}  // namespace cuewright
