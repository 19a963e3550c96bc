#include "ui/wrap_row.h"

#include <QStyle>
#include <QWidget>

#include "core/counting.h"

namespace cuewright {

WrapRow::WrapRow(QWidget* parent, int gap, int lineGap) : QLayout(parent), gap_(gap), lineGap_(lineGap) {
  setContentsMargins(0, 0, 0, 0);
}

WrapRow::~WrapRow() {
  for (QLayoutItem* item : items_) delete item;
}

QLayoutItem* WrapRow::itemAt(int index) const {
  return index >= 0 && index < count() ? ItemAt(items_, index) : nullptr;
}

QLayoutItem* WrapRow::takeAt(int index) {
  QLayoutItem* item = itemAt(index);
  if (item != nullptr) items_.erase(items_.begin() + index);
  return item;
}

QSize WrapRow::sizeHint() const {
  QSize size(0, 0);
  for (const QLayoutItem* item : items_) {
    const QSize hint = item->sizeHint();
    size = {size.width() + hint.width() + (size.width() > 0 ? gap_ : 0), std::max(size.height(), hint.height())};
  }
  return size;
}

QSize WrapRow::minimumSize() const {
  QSize size(0, 0);
  for (const QLayoutItem* item : items_) size = size.expandedTo(item->minimumSize());
  return size;
}

void WrapRow::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  Arrange(rect, true);
}

int WrapRow::Arrange(const QRect& rect, bool place) const {
  const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
  int x = rect.x();
  int y = rect.y();
  int lineHeight = 0;
  for (QLayoutItem* item : items_) {
    const QSize hint = item->sizeHint();
    const int width = std::min(hint.width(), rect.width());
    if (x > rect.x() && x + width > rect.x() + rect.width()) {
      x = rect.x();
      y += lineHeight + lineGap_;
      lineHeight = 0;
    }
    if (place) item->setGeometry(QStyle::visualRect(direction, rect, {x, y, width, hint.height()}));
    x += width + gap_;
    lineHeight = std::max(lineHeight, hint.height());
  }
  return y + lineHeight - rect.y();
}

}  // namespace cuewright
