#include "ui/svg_picture.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

// The macro needs to stand outside of any namespace.
static void InitIcons() { Q_INIT_RESOURCE(icons); }

namespace cuewright {

void LoadIcons() { InitIcons(); }

SvgPicture::SvgPicture(const QString& file, QWidget* parent) : QWidget(parent), drawing_(file) {}

void SvgPicture::ShowFile(const QString& file) {
  drawing_.load(file);
  update();
}

void SvgPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (!isEnabled()) painter.setOpacity(0.4);
  drawing_.render(&painter, QRectF(rect()));
  if (!hasFocus()) return;
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

}  // namespace cuewright
