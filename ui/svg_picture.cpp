#include "ui/svg_picture.h"

#include <QPainter>

namespace cuewright {

SvgPicture::SvgPicture(const QString& file, QWidget* parent) : QWidget(parent), drawing_(file) {}

void SvgPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawing_.render(&painter, QRectF(rect()));
}

}  // namespace cuewright
