#include "ui/check_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/sheet_view.h"

namespace cuewright {

CheckView::CheckView(CheckWindow& form, QWidget* owner) : ToolView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  column->addWidget(MakeHead());
  auto* list = Bind(form.lstFindings, new SheetView(this));
  column->addWidget(list, 1);
  column->addWidget(Bind(form.lblTotal, PlainLabel(this)));
  column->addWidget(MakeFix());
  column->addWidget(MakeFoot());
  resize(620, 460);
  list->setFocus();
}

QWidget* CheckView::MakeHead() {
  auto* head = new QWidget(this);
  auto* grid = new QGridLayout(head);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setColumnStretch(1, 1);
  grid->addWidget(Bind(form_.lblProfile, PlainLabel(head)), 0, 0);
  grid->addWidget(Bind(form_.cmbProfile, new QComboBox(head)), 0, 1);
  grid->addWidget(Bind(form_.lblSource, WrappedLabel(head)), 1, 1);
  return head;
}

QWidget* CheckView::MakeFix() {
  auto* column = BareColumn(this);
  QWidget* fix = column->parentWidget();
  column->setSpacing(6);
  column->addWidget(Bind(form_.lblFix, WrappedLabel(fix)));
  auto* row = BareRow(fix);
  row->setSpacing(20);
  QWidget* texts = row->parentWidget();
  for (Label* label : {&form_.lblNow, &form_.lblThen}) {
    auto* text = Bind(*label, WrappedLabel(texts));
    // Room for the times and two lines, so that the window doesn't jump from one finding to the next.
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * 3);
    text->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    row->addWidget(text, 1);
  }
  column->addWidget(texts);
  return fix;
}

QWidget* CheckView::MakeFoot() {
  auto* row = BareRow(this);
  QWidget* foot = row->parentWidget();
  const auto add = [&](Button& control) {
    auto* button = Bind(control, new QPushButton(foot));
    button->setAutoDefault(false);
    row->addWidget(button);
  };
  add(form_.cmdFix);
  add(form_.cmdFixAll);
  add(form_.cmdGoTo);
  row->addStretch();
  add(form_.cmdClose);
  return foot;
}

}  // namespace cuewright
