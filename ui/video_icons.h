#pragma once

#include <QAbstractButton>
#include <QPainterPath>

namespace cuewright {

enum class VideoIcon { Play, Pause, Stop, Sound, Muted };

/// The outline of an icon in a square of 16 by 16.
QPainterPath VideoIconPath(VideoIcon icon);

/// A flat button with a drawn icon in the colours of the desktop, sharp at every scale.
class VideoButton final : public QAbstractButton {
 public:
  VideoButton(VideoIcon icon, const char* name, const QString& text, QWidget* parent);

  void SetIcon(VideoIcon icon);
  /// Marks the button of the state that is on.
  void SetMarked(bool marked);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  VideoIcon icon_;
  bool marked_ = false;
};

}  // namespace cuewright
