#include "ui/delay_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QSlider>

#include "ui/qt_text.h"

namespace cuewright {

DelayView::DelayView(DelayDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 16, 16, 12);
  grid->setVerticalSpacing(10);
  grid->addWidget(Bind(form.lblTitle, WrappedLabel(this)), 0, 0, 1, 2);
  AddBar(*grid, 1, form.sldMin, form.lblMin);
  AddBar(*grid, 2, form.sldSec, form.lblSec);
  AddBar(*grid, 3, form.sldMs, form.lblMs);
  grid->addWidget(Bind(form.lblResult, BoldLabel(this)), 4, 0, 1, 2);
  grid->addWidget(Bind(form.lblDetail, PlainLabel(this)), 5, 0, 1, 2);
  grid->addLayout(MakeButtons({nullptr, &form.cmdApply, &form.cmdCancel}, &form.cmdApply), 6, 0, 1, 2);
  Complete(nullptr);
  Keep(form.RepaintRequested.ConnectScoped([this] { repaint(); }));
}

void DelayView::AddBar(QGridLayout& grid, int row, Slider& bar, Label& label) {
  auto* slider = Bind(bar, new QSlider(Qt::Horizontal, this));
  slider->setPageStep(10);
  slider->setMinimumWidth(300);
  grid.addWidget(slider, row, 0);
  QLabel* value = Bind(label, PlainLabel(this));
  // Room for the longest that it can say; it opens on "0 minutes" in the language in force.
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance("-99" + ToQt(label.GetText())) + 16);
  grid.addWidget(value, row, 1);
}

}  // namespace cuewright
