#pragma once

#include <QHash>
#include <QObject>
#include <QPoint>
#include <QWidget>
#include <unordered_map>
#include <utility>
#include <vector>

#include "form/controls.h"
#include "ui/bindings.h"

namespace cuewright {

/// The widget can show the control: `ui/bindings.h` has the pair.
template <class Widget, class ControlType>
concept Shows = requires(Binder& binder, ControlType& control, Widget& widget) {
  Attach(binder, control, widget);
};

/// Binds the controls of a form to the widgets of a window: the widgets show the form's state, and what the user does
/// to them reaches the form.
class Binder final : public QObject {
 public:
  Binder(QWidget& root, Form& form);

  /// Binds a widget, which has its parent, and gives it the control's name.
  template <class ControlType, Shows<ControlType> Widget>
  Widget* Bind(ControlType& control, Widget* widget) {
    Introduce(control, *widget);
    Attach(*this, control, *widget);
    return widget;
  }
  /// Makes the clock of a timer.
  void Bind(Timer& timer);

  /// The widget of a control, which must have been bound.
  QWidget& WidgetOf(const Control& control) const { return *widgets_.at(&control); }

  // What the bindings need.

  /// Runs `show` now and after each change of the control.
  template <class Show>
  void Watch(Control& control, Show show) {
    show();
    Keep(control.Changed.ConnectScoped(std::move(show)));
  }
  void Keep(Connection connection) { connections_.push_back(std::move(connection)); }
  /// A text as the window shows it: a path or a number keeps its order in a window that is read from the right.
  QString Shown(TextView text) const;
  /// Shows a control whose text goes by `Shown` anew when the window's direction changes.
  void FollowDirection(Control& control);
  /// The user chose an option; which of its group is chosen now is for the form to say.
  Signal<Binder> OptionChosen;
  void NoteOptionChosen() { OptionChosen(); }

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Introduce(Control& control, QWidget& widget);
  static void ShowCommon(const Control& control, QWidget& widget);

  QWidget& root_;
  Form& form_;
  std::vector<Connection> connections_;
  std::unordered_map<const Control*, QWidget*> widgets_;
  QHash<QObject*, Control*> hovered_;
  QPoint hoveredAt_{-1, -1};  // of the pointer, on the screen, when it was last told
};

}  // namespace cuewright
