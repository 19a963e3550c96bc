#include "ui/tool_view.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

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

QWidget* ToolView::MakeButtons(Button& ok, Button& cancel) {
  auto* row = BareRow(this);
  QWidget* buttons = row->parentWidget();
  row->addStretch();
  auto* taken = Bind(ok, new QPushButton(buttons));
  taken->setDefault(true);
  row->addWidget(taken);
  auto* left = Bind(cancel, new QPushButton(buttons));
  left->setAutoDefault(false);
  row->addWidget(left);
  return buttons;
}

QLabel* ToolView::MakeLabelOf(Label& label, QWidget* widget) {
  auto* made = Bind(label, PlainLabel(widget->parentWidget()));
  made->setBuddy(widget);
  return made;
}

}  // namespace cuewright
