#include "ui/shots_view.h"

#include <QCheckBox>
#include <QSlider>
#include <QVBoxLayout>

namespace cuewright {

ShotsView::ShotsView(ShotsDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(10);
  auto* slider = Bind(form.sldSense, new QSlider(Qt::Horizontal, this));
  slider->setPageStep(25);
  slider->setMinimumWidth(340);
  column->addWidget(MakeLabelOf(form.lblSense, slider));
  column->addWidget(slider);
  column->addWidget(Bind(form.lblCount, PlainLabel(this)));
  column->addWidget(Bind(form.chkFind, new QCheckBox(this)));
  column->addLayout(MakeButtons({nullptr, &form.cmdClose}, &form.cmdClose));
  Complete(slider);
}

}  // namespace cuewright
