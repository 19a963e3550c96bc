#include "ui/find_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr QPoint kFromOwner(256, 128);

}  // namespace

FindView::FindView(FindWindow& form, QWidget* owner) : FindView(form, nullptr, owner) {}

FindView::FindView(ReplaceWindow& form, QWidget* owner) : FindView(form, &form, owner) {}

FindView::FindView(SearchWindow& form, ReplaceWindow* replacing, QWidget* owner) : ToolView(form, owner) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(14, 12, 14, 10);
  grid->addWidget(MakeFields(form, replacing), 0, 0);
  grid->addWidget(MakeButtons(form, replacing), 0, 1, Qt::AlignTop);
  grid->addWidget(MakeResult(form), 1, 0, 1, 2);
  if (owner != nullptr) move(owner->pos() + kFromOwner);
}

QWidget* FindView::MakeFields(SearchWindow& form, ReplaceWindow* replacing) {
  auto* column = BareColumn(this);
  QWidget* fields = column->parentWidget();
  const auto add = [&](Frame& frame, TextBox& field) {
    auto* group = Bind(frame, new QGroupBox(fields));
    auto* line = Bind(field, new QLineEdit(group));
    line->setMinimumWidth(240);
    (new QVBoxLayout(group))->addWidget(line);
    column->addWidget(group);
  };
  add(form.fraFind, form.txtFind);
  if (replacing != nullptr) add(replacing->fraReplace, replacing->txtReplace);
  for (CheckBox* check : {&form.chkEntire, &form.chkCase, &form.chkRegex}) {
    column->addWidget(Bind(*check, new QCheckBox(fields)));
  }
  if (replacing != nullptr) column->addWidget(Bind(replacing->chkSelected, new QCheckBox(fields)));
  return fields;
}

QWidget* FindView::MakeButtons(SearchWindow& form, ReplaceWindow* replacing) {
  auto* column = BareColumn(this);
  QWidget* buttons = column->parentWidget();
  const auto add = [&](Button& control) {
    auto* button = Bind(control, new QPushButton(buttons));
    button->setAutoDefault(false);
    column->addWidget(button);
    return button;
  };
  add(form.cmdFind)->setDefault(true);
  if (replacing != nullptr) {
    add(replacing->cmdReplace);
    add(replacing->cmdReplaceAll);
    add(replacing->cmdList);
  }
  add(form.cmdClose);
  return buttons;
}

QWidget* FindView::MakeResult(SearchWindow& form) {
  auto* row = BareRow(this);
  QWidget* result = row->parentWidget();
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  auto* icon = Bind(form.imgInfo, new QLabel(result));
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size));
  row->addWidget(icon);
  auto* info = Bind(form.lblInfo, PlainLabel(result));
  info->setMinimumHeight(size);
  row->addWidget(info, 1);
  return result;
}

}  // namespace cuewright
