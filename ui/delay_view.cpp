#include "ui/delay_view.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "ui/binder.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

QLabel* MakeLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

/// A bar and what it stands for, with room for the longest that it can say.
void AddBar(QGridLayout& grid, int row, const char* bar, const Label& label, int pageStep, QWidget* parent) {
  auto* slider = new QSlider(Qt::Horizontal, parent);
  slider->setObjectName(bar);
  slider->setPageStep(pageStep);
  slider->setMinimumWidth(300);
  grid.addWidget(slider, row, 0);
  QLabel* value = MakeLabel(label.Name().c_str(), parent);
  // It opens on "0 minutes" in the language in force.
  value->setMinimumWidth(value->fontMetrics().horizontalAdvance("-99" + ToQt(label.GetText())) + 16);
  grid.addWidget(value, row, 1);
}

}  // namespace

void RunDelayDialog(DelayDialog& form, QWidget* owner) {
  QDialog dialog(owner);
  dialog.setObjectName("frmDelay");
  dialog.setWindowTitle(ToQt(form.Title()));
  dialog.setLayoutDirection(form.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  auto* grid = new QGridLayout(&dialog);
  grid->setContentsMargins(16, 16, 16, 12);
  grid->setVerticalSpacing(10);
  QLabel* title = MakeLabel("lblTitle", &dialog);
  title->setWordWrap(true);
  grid->addWidget(title, 0, 0, 1, 2);
  AddBar(*grid, 1, "sldMin", form.lblMin, 10, &dialog);
  AddBar(*grid, 2, "sldSec", form.lblSec, 10, &dialog);
  AddBar(*grid, 3, "sldMs", form.lblMs, 10, &dialog);
  QLabel* result = MakeLabel("lblResult", &dialog);
  QFont bold = result->font();
  bold.setBold(true);
  result->setFont(bold);
  grid->addWidget(result, 4, 0, 1, 2);
  grid->addWidget(MakeLabel("lblDetail", &dialog), 5, 0, 1, 2);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  for (const char* name : {"cmdApply", "cmdCancel"}) {
    auto* button = new QPushButton(&dialog);
    button->setObjectName(name);
    buttons->addWidget(button);
  }
  grid->addLayout(buttons, 6, 0, 1, 2);
  dialog.findChild<QPushButton*>("cmdApply")->setDefault(true);
  Binder binder(dialog, form);
  binder.BindAll();
  const Connection closed = form.Closed.ConnectScoped([&dialog] { dialog.accept(); });
  const Connection painted = form.RepaintRequested.ConnectScoped([&dialog] { dialog.repaint(); });
  dialog.exec();
  form.Close();  // by the frame or by Escape
}

}  // namespace cuewright
