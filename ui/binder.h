#pragma once

#include <QAction>
#include <QHash>
#include <QMenu>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "form/controls.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QSlider;

namespace cuewright {

/// Binds the controls of a form to the widgets of a window by their object names: the widgets show the form's state,
/// and what the user does to them reaches the form. A label may be bound to a button, which the keyboard reaches.
class Binder final : public QObject {
 public:
  /// A label whose property of this name is true shows the text of a caption, without the mark of its access key.
  static const char* const kCaptionProperty;

  Binder(QWidget& root, Form& form);
  ~Binder() override;

  /// Makes the actions of all items below `parent` (null: the top) and puts them into the menu.
  void FillMenu(QMenu& menu, const MenuItem& parent);
  /// Makes an action for one item, with a menu when others stand below it.
  QAction* MakeAction(MenuItem& item, QObject* owner);

  /// Shows the items, which stand side by side, with a letter each by which the keyboard chooses them.
  void GiveMnemonics(const std::vector<MenuItem*>& items);

  /// Binds every control that isn't bound yet. Returns the names of controls without a widget.
  QStringList BindAll();

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  std::vector<MenuItem*> ItemsBelow(const MenuItem& parent) const;
  /// A text as the window shows it: a path or a number keeps its order in a window that is read from the right.
  QString Shown(TextView text) const;
  bool BindOne(Control& control);
  void BindWidget(Control& control, QWidget& widget);
  void BindLabel(Label& label, QWidget& widget);
  static void ShowStyle(const Label& label, QLabel& shown);
  void BindButton(Button& button, QAbstractButton& widget);
  void BindCheck(CheckBox& check, QCheckBox& widget);
  void BindSlider(Slider& slider, QSlider& widget);
  void BindProgress(ProgressBar& bar, QProgressBar& widget);
  void BindList(ListBox& list, QListWidget& widget);
  void BindOption(OptionButton& option, QAbstractButton& widget);
  /// Shows which of the form's options are chosen.
  void ShowOptions();
  void ShowChosen(const OptionButton& option, QAbstractButton& widget);
  void BindTextBox(TextBox& box, QWidget& widget);
  void BindTimer(Timer& timer);
  void BindCombo(ComboBox& combo, QComboBox& widget);
  void ShowCommon(const Control& control, QWidget& widget);
  void Watch(Control& control, std::function<void()> show);
  void WatchHover(Control& control, QWidget& widget);
  void FilterHover(QObject* object, QEvent& event);
  bool FilterCombo(ComboBox& combo, QLineEdit& editor, QEvent& event);
  bool FilterButton(Button& button, QEvent& event);
  bool FilterTextBox(TextBox& box, QWidget& widget, QEvent& event);
  void TakeText(TextBox& box, QWidget& widget);

  QWidget& root_;
  Form& form_;
  std::vector<Connection> connections_;
  QHash<const Control*, QObject*> bound_;
  QHash<QObject*, Control*> filtered_;
  QHash<QObject*, Control*> hovered_;
  QPoint hoveredAt_{-1, -1};       // of the pointer, on the screen, when it was last told
  bool taking_ = false;            // the widget's own change is on its way to the form
  bool showing_ = false;           // the form's state is on its way to a widget
  const Control* told_ = nullptr;  // the option that was chosen by its check, before the click comes
};

}  // namespace cuewright
