#include "ui/keys_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeySequenceEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr int kWidth = 560;
constexpr int kRows = 14;
/// Room for what is told of a key, so that the window doesn't move.
constexpr int kConflictLines = 2;

}  // namespace

KeysView::KeysView(KeysDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(8);
  auto* sets = Bind(form.cboSet, new QComboBox(this));
  auto* setRow = new QHBoxLayout;
  setRow->addWidget(MakeLabelOf(form.lblSet, sets));
  setRow->addWidget(sets, 1);
  column->addLayout(setRow);
  auto* list = Bind(form.lstCommands, new QListWidget(this));
  list->setMinimumSize(kWidth, (list->fontMetrics().height() + 6) * kRows);
  column->addWidget(list, 1);
  auto* key = Bind(form.txtKey, new QKeySequenceEdit(this));
  auto* keyRow = new QHBoxLayout;
  keyRow->addWidget(MakeLabelOf(form.lblKey, key));
  keyRow->addWidget(key, 1);
  keyRow->addWidget(MakeButton(form.cmdAssign));
  keyRow->addWidget(MakeButton(form.cmdRemove));
  column->addLayout(keyRow);
  auto* conflict = Bind(form.lblConflict, WrappedLabel(this));
  conflict->setMinimumHeight(conflict->fontMetrics().lineSpacing() * kConflictLines);
  column->addWidget(conflict);
  column->addLayout(MakeButtons({nullptr, &form.cmdClose}, &form.cmdClose));
  Complete(list);
}

}  // namespace cuewright
