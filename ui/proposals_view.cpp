#include "ui/proposals_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/counting.h"
#include "ui/sheet_view.h"

namespace cuewright {
namespace {

constexpr QSize kListSize(620, 260);
/// Boxes side by side.
constexpr int kColumns = 2;

}  // namespace

ProposalsView::ProposalsView(ProposalsDialog& form, QWidget* owner) : DialogView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  column->addWidget(Bind(form.lblTop, WrappedLabel(this)));
  column->addWidget(MakeWishes());
  auto* list = Bind(form.lstProposals, new SheetView(this));
  list->setMinimumSize(kListSize);
  column->addWidget(list, 1);
  column->addWidget(Bind(form.lblTotal, PlainLabel(this)));
  column->addLayout(
      MakeButtons({&form.cmdAll, &form.cmdNone, nullptr, &form.cmdApply, &form.cmdCancel}, &form.cmdApply));
  Complete(list);
}

QWidget* ProposalsView::MakeWishes() {
  auto* wishes = new QWidget(this);
  auto* grid = new QGridLayout(wishes);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setColumnStretch(1, 1);
  const auto addChoice = [&](int row, Label& label, ComboBox& box) {
    auto* widget = Bind(box, new QComboBox(wishes));
    grid->addWidget(MakeLabelOf(label, widget), row, 0);
    grid->addWidget(widget, row, 1);
  };
  addChoice(0, form_.lblScope, form_.cmbScope);
  addChoice(1, form_.lblLanguage, form_.cmbLanguage);
  auto* kinds = new QGridLayout;
  for (int kind = 0; kind < CountOf(form_.chkKind); ++kind) {
    kinds->addWidget(Bind(ItemAt(form_.chkKind, kind), new QCheckBox(wishes)), kind / kColumns, kind % kColumns);
  }
  grid->addLayout(kinds, 2, 0, 1, 2);
  return wishes;
}

}  // namespace cuewright
