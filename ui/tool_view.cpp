#include "ui/tool_view.h"

#include <QEvent>

#include "ui/qt_text.h"

namespace cuewright {

ToolView::ToolView(ToolForm& form, QWidget* owner) : QDialog(owner), binder_(*this, form), form_(form) {
  setObjectName(QString::fromStdString(form.Name()));
  setWindowTitle(ToQt(form.Title()));
  Keep(form.TitleChanged.ConnectScoped([this] { setWindowTitle(ToQt(form_.Title())); }));
  const auto turn = [this] { setLayoutDirection(form_.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight); };
  turn();
  Keep(form.DirectionChanged.ConnectScoped(turn));
}

void ToolView::reject() { form_.Close(); }

void ToolView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) form_.OnActivated();
}

}  // namespace cuewright
