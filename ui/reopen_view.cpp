#include "ui/reopen_view.h"

#include <QComboBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr int kPreviewWidth = 480;
constexpr int kPreviewLines = 12;

}  // namespace

ReopenView::ReopenView(ReopenDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 14);
  column->setSpacing(8);
  column->addWidget(Bind(form.lblTop, WrappedLabel(this)));
  auto* encodings = Bind(form.cboEncoding, new QComboBox(this));
  encodings->setMaxVisibleItems(18);
  column->addWidget(MakeLabelOf(form.lblEncoding, encodings));
  column->addWidget(encodings);
  auto* preview = Bind(form.txtPreview, ReadOnlyText(this));
  preview->setMinimumSize(kPreviewWidth, preview->fontMetrics().lineSpacing() * kPreviewLines + 16);
  column->addWidget(MakeLabelOf(form.lblPreview, preview));
  column->addWidget(preview, 1);
  column->addLayout(MakeButtons({nullptr, &form.cmdOK, &form.cmdCancel}, &form.cmdOK));
  Complete(encodings);
}

}  // namespace cuewright
