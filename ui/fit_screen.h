#pragma once

#include <QScrollArea>

namespace cuewright {

/// What a window can take of the screen that it is on, beside the desktop's bars and its own frame, in pixels.
QSize RoomOnScreen(const QWidget& window);

/// An area that is as large as its content where the screen has room for that, and scrolls where it has not.
class ContentScroll final : public QScrollArea {
 public:
  ContentScroll(QWidget* content, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace cuewright
