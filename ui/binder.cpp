#include "ui/binder.h"

#include <QMouseEvent>
#include <QTimer>

#include "ui/qt_text.h"

namespace cuewright {

Binder::Binder(QWidget& root, Form& form) : QObject(&root), root_(root), form_(form) {
  if (!form_.Hovered.Empty()) {
    root_.setMouseTracking(true);
    root_.installEventFilter(this);
  }
  Keep(form_.FocusRequested.ConnectScoped([this](Control& control) { WidgetOf(control).setFocus(); }));
}

void Binder::Bind(Timer& timer) {
  auto* clock = new QTimer(this);
  clock->setObjectName(QString::fromStdString(timer.Name()));
  clock->setTimerType(Qt::PreciseTimer);
  clock->setInterval(timer.Interval());
  Watch(timer, [&timer, clock] {
    if (timer.Enabled() == clock->isActive()) return;
    timer.Enabled() ? clock->start() : clock->stop();
  });
  connect(clock, &QTimer::timeout, this, [&timer] {
    if (timer.Enabled()) timer.Pass();
  });
}

QString Binder::Shown(TextView text) const {
  return ToQt(form_.RightToLeft() ? InItsOrderFromRight(text) : Text(text));
}

void Binder::FollowDirection(Control& control) {
  Keep(form_.DirectionChanged.ConnectScoped([&control] { control.ShowAnew(); }));
}

void Binder::Introduce(Control& control, QWidget& widget) {
  widget.setObjectName(QString::fromStdString(control.Name()));
  widgets_[&control] = &widget;
  Watch(control, [&control, &widget] { ShowCommon(control, widget); });
  if (control.Hovered.Empty()) return;
  widget.setMouseTracking(true);
  hovered_.insert(&widget, &control);
  widget.installEventFilter(this);
}

void Binder::ShowCommon(const Control& control, QWidget& widget) {
  if (widget.isEnabled() != control.Enabled()) widget.setEnabled(control.Enabled());
  if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
  const QString tip = ToQt(control.ToolTip());
  if (widget.toolTip() != tip) widget.setToolTip(tip);
  const QString spoken = ToQt(control.SpokenName());
  if (!spoken.isEmpty() && widget.accessibleName() != spoken) widget.setAccessibleName(spoken);
  const auto direction = control.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
  if (widget.testAttribute(Qt::WA_SetLayoutDirection) || control.RightToLeft()) {
    if (widget.layoutDirection() != direction) widget.setLayoutDirection(direction);
  }
  if (widget.font().underline() != control.Underlined()) {
    QFont font = widget.font();
    font.setUnderline(control.Underlined());
    widget.setFont(font);
  }
}

bool Binder::eventFilter(QObject* object, QEvent* event) {
  Control* control = hovered_.value(object);
  if (event->type() == QEvent::FocusIn && control != nullptr) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const bool keyboard =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    if (keyboard) control->Hover();
  }
  if (event->type() != QEvent::MouseMove) return false;
  // The toolkit hands a motion to the innermost widget and then to its parents: only the first one is told.
  const QPoint at = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
  if (at == hoveredAt_) return false;
  if (control != nullptr) {
    hoveredAt_ = at;
    control->Hover();
  } else if (object == &root_ && !form_.Hovered.Empty()) {
    hoveredAt_ = at;
    form_.Hover();
  }
  return false;
}

}  // namespace cuewright
