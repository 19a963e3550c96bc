#include "ui/svg_picture.h"

#include <QPainter>

// The macro needs to stand outside of any namespace.
static void InitIcons() { Q_INIT_RESOURCE(icons); }

namespace cuewright {

void LoadIcons() { InitIcons(); }

SvgPicture::SvgPicture(const QString& file, QWidget* parent) : QWidget(parent), drawing_(file) {}

void SvgPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawing_.render(&painter, QRectF(rect()));
}

}  // namespace cuewright
