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
  grid->addWidget(MakeLabel("lblTitle", this, true), 0, 0, 1, 2);
  AddBar(*grid, 1, "sldMin", form.lblMin);
  AddBar(*grid, 2, "sldSec", form.lblSec);
  AddBar(*grid, 3, "sldMs", form.lblMs);
  QLabel* result = MakeLabel("lblResult", this);
  QFont bold = result->font();
  bold.setBold(true);
  result->setFont(bold);
  grid->addWidget(result, 4, 0, 1, 2);
  grid->addWidget(MakeLabel("lblDetail", this), 5, 0, 1, 2);
  grid->addLayout(MakeButtons({"", "cmdApply", "cmdCancel"}, "cmdApply"), 6, 0, 1, 2);
  Bind(nullptr);
  Keep(form.RepaintRequested.ConnectScoped([this] { repaint(); }));
}

void DelayView::AddBar(QGridLayout& grid, int row, const char* bar, const Label& label) {
  auto* slider = Named(new QSlider(Qt::Horizontal, this), bar);
  slider->setPageStep(10);
  slider->setMinimumWidth(300);
  grid.addWidget(slider, row, 0);
  QLabel* value = MakeLabel(QString::fromStdString(label.Name()), this);
  // Room for the longest that it can say; it opens on "0 minutes" in the language in force.
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance("-99" + ToQt(label.GetText())) + 16);
  grid.addWidget(value, row, 1);
}

}  // namespace cuewright
