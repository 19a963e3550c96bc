#include "ui/labels.h"

#include <QPlainTextEdit>

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

QPlainTextEdit* ReadOnlyText(QWidget* parent) {
  auto* text = new QPlainTextEdit(parent);
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  return text;
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

QHBoxLayout* BareRow(QWidget* parent) {
  auto* row = new QHBoxLayout(new QWidget(parent));
  row->setContentsMargins(0, 0, 0, 0);
  return row;
}

QVBoxLayout* BareColumn(QWidget* parent) {
  auto* column = new QVBoxLayout(new QWidget(parent));
  column->setContentsMargins(0, 0, 0, 0);
  return column;
}

void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

}  // namespace cuewright
