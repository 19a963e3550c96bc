#include "ui/labels.h"

namespace cuewright {

QLabel* PlainLabel(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QLabel* WrappedLabel(QWidget* parent) {
  QLabel* label = PlainLabel(parent);
  label->setWordWrap(true);
  return label;
}

QLabel* BoldLabel(QWidget* parent, double larger) {
  QLabel* label = PlainLabel(parent);
  MakeBold(*label, larger);
  return label;
}

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  MakeBold(*this);
}

void MakeBold(QWidget& widget, double larger) {
  QFont font = widget.font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * larger);
  widget.setFont(font);
}

void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace cuewright
