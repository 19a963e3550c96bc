#include "ui/wizard_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/link_button.h"
#include "ui/svg_picture.h"

namespace cuewright {
namespace {

constexpr int kGap = 8;

}  // namespace

QVBoxLayout* WizardView::MakePage(QGridLayout& stack, std::size_t index) {
  auto* page = new QWidget(this);
  page->setObjectName(Indexed("picStep", index));
  QSizePolicy policy = page->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  page->setSizePolicy(policy);
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  stack.addWidget(page, 0, 0);
  return column;
}

QWidget* WizardView::MakeIcon(const QString& file, const char* name, QWidget* parent, int size) {
  auto* icon = Named(new SvgPicture(file, parent), name);
  icon->setFixedSize(size, size);
  QSizePolicy policy = icon->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  icon->setSizePolicy(policy);
  return icon;
}

QWidget* WizardView::MakeLink(const char* name, QWidget* parent) { return Named(new LinkButton(parent), name); }

void WizardView::AddPathRow(QVBoxLayout& column, const char* box, const char* button) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  auto* line = Named(new QLineEdit(column.parentWidget()), box);
  line->setMinimumWidth(340);
  line->setLayoutDirection(Qt::LeftToRight);  // a path is read from its root in every language
  row->addWidget(line, 1);
  row->addWidget(Named(new QPushButton(column.parentWidget()), button));
  column.addLayout(row);
}

QBoxLayout* WizardView::MakeWizardButtons() {
  QBoxLayout* row = MakeButtons({"", "cmdBack", "cmdNext", "cmdCancel"});
  row->setSpacing(kGap);
  for (const char* name : {"cmdBack", "cmdNext", "cmdCancel"}) {
    findChild<QPushButton*>(name)->setAutoDefault(name == QString("cmdNext"));
  }
  findChild<QPushButton*>("cmdNext")->setDefault(true);
  return row;
}

}  // namespace cuewright
