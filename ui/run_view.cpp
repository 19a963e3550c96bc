#include "ui/run_view.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace cuewright {
namespace {

constexpr int kWidth = 420;

}  // namespace

RunView::RunView(RunWindow& form, QWidget* owner) : DialogView(form, owner) {
  setWindowFlag(Qt::WindowMinimizeButtonHint);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 14);
  column->setSpacing(10);
  column->addWidget(MakeLabel("lblFile", this, true));
  auto* bar = Named(new QProgressBar(this), "barProgress");
  bar->setMinimumWidth(kWidth);
  column->addWidget(bar);
  column->addWidget(MakeLabel("lblLeft", this));
  QLabel* failure = MakeLabel("lblFailure", this, true);
  failure->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  column->addWidget(failure);
  column->addStretch();
  column->addLayout(MakeButtons({"", "cmdCancel"}));
  Bind(findChild<QPushButton*>("cmdCancel"));
  Keep(form.FailureShown.ConnectScoped([this] {
    FitContent();
    showNormal();
    raise();
    activateWindow();
  }));
}

}  // namespace cuewright
