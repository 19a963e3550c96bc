#pragma once

#include <QDialog>
#include <vector>

#include "form/dialog.h"
#include "ui/binder.h"
#include "ui/labels.h"

class QBoxLayout;
class QPushButton;

namespace cuewright {

/// A dialog window of the toolkit: title, reading direction and closing follow its form.
class DialogView : public QDialog {
 public:
  DialogView(Dialog& form, QWidget* owner);

  /// Shows the window over all others of the program, and goes when it closes. Returns at once.
  void ShowModal();

  void reject() override;

 protected:
  /// Binds a widget, as `Binder::Bind` does.
  template <class ControlType, class Widget>
  Widget* Bind(ControlType& control, Widget* widget) {
    return binder_.Bind(control, widget);
  }
  /// A label for what stands beside it. Screen readers know a box of choices by that alone.
  QLabel* MakeLabelOf(Label& label, QWidget* widget);
  /// To be called when all widgets are there; `first` takes the focus.
  void Complete(QWidget* first);
  /// Gives the window at least the size of its content, also where texts wrap.
  void FitContent();
  /// Keeps a connection as long as the window.
  void Keep(Connection connection) { connections_.push_back(std::move(connection)); }

  QPushButton* MakeButton(Button& control);
  /// A row of push buttons at the window's foot; null leaves room. The standard one is what Enter presses.
  QBoxLayout* MakeButtons(std::initializer_list<Button*> buttons, const Button* standard = nullptr);
  /// The pointer moves the window from here on.
  void MoveByPointer();

  Binder binder_;

 private:
  void AlignLabels();

  Dialog& form_;
  std::vector<Connection> connections_;
  bool goes_ = false;  // deletes itself when it closes
};

}  // namespace cuewright
