#pragma once

#include <QDialog>
#include <vector>

#include "form/dialog.h"
#include "ui/binder.h"

class QBoxLayout;
class QLabel;

namespace cuewright {

/// Gives a widget the name by which its control finds it.
template <class Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(name);
  return widget;
}

/// "name(index)".
QString Indexed(const char* name, std::size_t index);

/// A dialog window of the toolkit: title, reading direction and closing follow its form.
class DialogView : public QDialog {
 public:
  DialogView(Dialog& form, QWidget* owner);

  /// Shows the window over all others of the program, and goes when it closes. Returns at once.
  void ShowModal();

  void reject() override;

 protected:
  /// To be called when all widgets are there: binds them, and makes `first` take the focus.
  void Bind(QWidget* first);
  /// Gives the window at least the size of its content, also where texts wrap.
  void FitContent();
  /// Keeps a connection as long as the window.
  void Keep(Connection connection) { connections_.push_back(std::move(connection)); }

  QLabel* MakeLabel(const QString& name, QWidget* parent, bool wraps = false);
  /// The label names what stands beside it. Screen readers know a box of choices by that alone.
  void Names(const char* label, const char* widget);
  QLabel* MakeHeading(const char* name, QWidget* parent);
  /// A row of push buttons at the window's foot; "" leaves room. The one named `standard` is the default.
  QBoxLayout* MakeButtons(std::initializer_list<const char*> names, const char* standard = "cmdOK");

 private:
  void AlignLabels();

  Dialog& form_;
  Binder binder_;
  std::vector<Connection> connections_;
  bool goes_ = false;  // deletes itself when it closes
};

}  // namespace cuewright
