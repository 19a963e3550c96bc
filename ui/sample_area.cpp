#include "ui/sample_area.h"

#include "ui/binder.h"
#include "ui/labels.h"

namespace cuewright {
namespace {

QLabel* MakeLabel(QWidget* parent) {
  QLabel* label = PlainLabel(parent);
  label->setMargin(8);
  return label;
}

void ShowFont(QLabel& label, const QFont& font, const QColor& color, Qt::Alignment alignment) {
  label.setFont(font);
  QPalette colors = label.palette();
  colors.setColor(QPalette::WindowText, color);
  label.setPalette(colors);
  label.setAlignment(alignment | Qt::AlignAbsolute);
}

}  // namespace

SampleArea::SampleArea(Binder& binder, Picture& area, Label& label, Label* shadow, QWidget* parent) : QFrame(parent) {
  binder.Bind(area, this);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setMinimumHeight(96);
  if (shadow != nullptr) shadow_ = binder.Bind(*shadow, MakeLabel(this));
  label_ = binder.Bind(label, MakeLabel(this));
}

void SampleArea::ShowStyle(const SampleStyle& style) {
  QPalette colors = parentWidget()->palette();
  if (style.background.isValid()) colors.setColor(QPalette::Window, style.background);
  setPalette(colors);
  shift_ = style.shadowShift;
  ShowFont(*label_, style.font, style.color, style.alignment);
  if (shadow_ != nullptr) ShowFont(*shadow_, style.font, Qt::black, style.alignment);
  Place();
}

void SampleArea::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  Place();
}

void SampleArea::Place() {
  label_->setGeometry(contentsRect());
  if (shadow_ != nullptr) shadow_->setGeometry(contentsRect().translated(shift_, shift_));
}

}  // namespace cuewright
