#include "ui/palette_view.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr int kWidth = 520;
constexpr int kRows = 12;

}  // namespace

PaletteView::PaletteView(Palette& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(8);
  auto* words = Bind(form.txtWords, new QLineEdit(this));
  column->addWidget(MakeLabelOf(form.lblWords, words));
  column->addWidget(words);
  auto* list = Bind(form.lstCommands, new QListWidget(this));
  list->setMinimumSize(kWidth, (list->fontMetrics().height() + 6) * kRows);
  connect(list, &QListWidget::itemDoubleClicked, this, [&form] { form.cmdOK.Click(); });
  column->addWidget(list, 1);
  column->addLayout(MakeButtons({nullptr, &form.cmdOK, &form.cmdCancel}, &form.cmdOK));
  Complete(words);
}

}  // namespace cuewright
