#include "ui/sample_area.h"

#include <QLabel>

namespace cuewright {
namespace {

QLabel* MakeLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
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

SampleArea::SampleArea(const char* name, const char* label, const char* shadow, QWidget* parent) : QFrame(parent) {
  setObjectName(name);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setMinimumHeight(96);
  if (shadow != nullptr) shadow_ = MakeLabel(shadow, this);
  label_ = MakeLabel(label, this);
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
