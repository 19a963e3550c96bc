#pragma once

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "core/form/controls.h"

class QAbstractButton;
class QComboBox;

namespace cuewright {

/// Binds the controls of a form to the widgets of a window by their object names: the widgets show the form's state,
/// and what the user does to them reaches the form.
class Binder final : public QObject {
 public:
  Binder(QWidget& root, Form& form);
  ~Binder() override;

  /// Makes the actions of all items below `parent` (null: the top) and puts them into the menu.
  void FillMenu(QMenu& menu, const MenuItem& parent);
  /// Makes an action for one item, with a menu when others stand below it.
  QAction* MakeAction(MenuItem& item, QObject* owner);

  /// Binds every control that isn't bound yet. Returns the names of controls without a widget.
  QStringList BindAll();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool BindOne(Control& control);
  void BindButton(Button& button, QAbstractButton& widget);
  void BindOption(OptionButton& option, QAbstractButton& widget);
  void BindTextBox(TextBox& box, QWidget& widget);
  void BindTimer(Timer& timer);
  void BindCombo(ComboBox& combo, QComboBox& widget);
  void ShowCommon(const Control& control, QWidget& widget);
  void Watch(Control& control, std::function<void()> show);
  bool FilterButton(Button& button, QEvent& event);
  bool FilterTextBox(TextBox& box, QWidget& widget, QEvent& event);
  void TakeText(TextBox& box, QWidget& widget);

  QWidget& root_;
  Form& form_;
  std::vector<Connection> connections_;
  QHash<const Control*, QObject*> bound_;
  QHash<QObject*, Control*> filtered_;
  bool taking_ = false;  // the widget's own change is on its way to the form
};

}  // namespace cuewright
