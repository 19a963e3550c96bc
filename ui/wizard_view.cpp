#include "ui/wizard_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr int kGap = 8;

}  // namespace

QVBoxLayout* WizardView::MakePage(Picture& page, QGridLayout& stack) {
  auto* area = Bind(page, new QWidget(this));
  KeepPlace(*area);
  auto* column = new QVBoxLayout(area);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  stack.addWidget(area, 0, 0);
  return column;
}

QWidget* WizardView::MakeHead(QWidget* drawing) {
  auto* row = BareRow(this);
  QWidget* head = row->parentWidget();
  row->setSpacing(12);
  row->addWidget(drawing);
  auto* texts = new QVBoxLayout;
  texts->addWidget(Bind(wizard_.lblTop, HeadingLabel(head)));
  texts->addWidget(Bind(wizard_.lblTop2, PlainLabel(head)));
  row->addLayout(texts, 1);
  return head;
}

QWidget* WizardView::MakeIcon(Picture& icon, const QString& file, QWidget* parent, int size) {
  auto* drawing = Bind(icon, new SvgPicture(file, parent));
  drawing->setFixedSize(size, size);
  KeepPlace(*drawing);
  return drawing;
}

QLineEdit* WizardView::AddPathRow(QVBoxLayout& column, TextBox& box, Button& button) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  auto* line = Bind(box, new QLineEdit(column.parentWidget()));
  line->setMinimumWidth(340);
  line->setLayoutDirection(Qt::LeftToRight);  // a path is read from its root in every language
  row->addWidget(line, 1);
  row->addWidget(Bind(button, new QPushButton(column.parentWidget())));
  column.addLayout(row);
  return line;
}

QBoxLayout* WizardView::MakeWizardButtons() {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  row->addStretch();
  for (Button* control : {&wizard_.cmdBack, &wizard_.cmdNext, &wizard_.cmdCancel}) {
    QPushButton* button = MakeButton(*control);
    button->setAutoDefault(control == &wizard_.cmdNext);
    button->setDefault(control == &wizard_.cmdNext);
    row->addWidget(button);
  }
  return row;
}

}  // namespace cuewright
