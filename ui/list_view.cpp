#include "ui/list_view.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr int kListWidth = 480;
constexpr int kListLines = 8;

}  // namespace

ListDialogView::ListDialogView(ListDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 14);
  column->setSpacing(10);
  column->addWidget(Bind(form.lblTop, WrappedLabel(this)));
  auto* list = Bind(form.txtList, ReadOnlyText(this));
  list->setMinimumSize(kListWidth, list->fontMetrics().lineSpacing() * kListLines + 16);
  column->addWidget(list, 1);
  const bool asks = form.cmdSave.Visible();
  column->addLayout(MakeButtons({nullptr, &form.cmdSave, &form.cmdCancel}, asks ? &form.cmdSave : &form.cmdCancel));
  Complete(list);
}

}  // namespace cuewright
