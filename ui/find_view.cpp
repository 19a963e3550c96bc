#include "ui/find_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr QPoint kFromOwner(256, 128);

/// A titled group with one field in it.
QGroupBox* FieldGroup(const char* group, const char* field, QWidget* parent) {
  auto* box = new QGroupBox(parent);
  box->setObjectName(group);
  auto* column = new QVBoxLayout(box);
  auto* line = new QLineEdit(box);
  line->setObjectName(field);
  line->setMinimumWidth(240);
  column->addWidget(line);
  return box;
}

}  // namespace

FindView::FindView(FindWindow& form, QWidget* owner) : FindView(form, owner, false) {}

FindView::FindView(ReplaceWindow& form, QWidget* owner) : FindView(form, owner, true) {}

FindView::FindView(SearchWindow& form, QWidget* owner, bool replaces) : ToolView(form, owner), binder_(*this, form) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(14, 12, 14, 10);
  grid->addWidget(MakeFields(replaces), 0, 0);
  grid->addWidget(MakeButtons(replaces), 0, 1, Qt::AlignTop);
  grid->addWidget(MakeResult(), 1, 0, 1, 2);
  binder_.BindAll();
  findChild<QPushButton*>("cmdFind")->setDefault(true);
  if (owner != nullptr) move(owner->pos() + kFromOwner);
}

QWidget* FindView::MakeFields(bool replaces) {
  auto* fields = new QWidget(this);
  auto* column = new QVBoxLayout(fields);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(FieldGroup("fraFind", "txtFind", fields));
  if (replaces) column->addWidget(FieldGroup("fraReplace", "txtReplace", fields));
  for (const char* name : {"chkEntire", "chkCase"}) {
    auto* check = new QCheckBox(fields);
    check->setObjectName(name);
    column->addWidget(check);
  }
  return fields;
}

QWidget* FindView::MakeButtons(bool replaces) {
  auto* buttons = new QWidget(this);
  auto* column = new QVBoxLayout(buttons);
  column->setContentsMargins(0, 0, 0, 0);
  const auto add = [&](const char* name) {
    auto* button = new QPushButton(buttons);
    button->setObjectName(name);
    button->setAutoDefault(false);
    column->addWidget(button);
  };
  add("cmdFind");
  if (replaces) {
    add("cmdReplace");
    add("cmdReplaceAll");
  }
  add("cmdClose");
  return buttons;
}

QWidget* FindView::MakeResult() {
  auto* result = new QWidget(this);
  auto* row = new QHBoxLayout(result);
  row->setContentsMargins(0, 0, 0, 0);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  auto* icon = new QLabel(result);
  icon->setObjectName("imgInfo");
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(size));
  row->addWidget(icon);
  auto* info = new QLabel(result);
  info->setObjectName("lblInfo");
  info->setTextFormat(Qt::PlainText);
  info->setMinimumHeight(size);
  row->addWidget(info, 1);
  return result;
}

}  // namespace cuewright
