#include "ui/run_view.h"

#include <QProgressBar>
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
  column->addWidget(Bind(form.lblFile, WrappedLabel(this)));
  auto* bar = Bind(form.barProgress, new QProgressBar(this));
  bar->setMinimumWidth(kWidth);
  column->addWidget(bar);
  column->addWidget(Bind(form.lblLeft, PlainLabel(this)));
  QLabel* failure = Bind(form.lblFailure, WrappedLabel(this));
  failure->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  column->addWidget(failure);
  column->addStretch();
  column->addLayout(MakeButtons({nullptr, &form.cmdCancel}));
  Complete(&binder_.WidgetOf(form.cmdCancel));
  Keep(form.FailureShown.ConnectScoped([this] {
    FitContent();
    showNormal();
    raise();
    activateWindow();
  }));
}

}  // namespace cuewright
