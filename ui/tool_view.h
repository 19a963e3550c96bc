#pragma once

#include <QDialog>
#include <vector>

#include "forms/tool_form.h"
#include "ui/binder.h"
#include "ui/labels.h"

namespace cuewright {

/// A tool form's window on the toolkit: it closes with its form, and its frame closes the form.
class ToolView : public QDialog {
 public:
  ToolView(ToolForm& form, QWidget* owner);

 protected:
  void reject() override;
  void changeEvent(QEvent* event) override;

  /// Binds a widget, as `Binder::Bind` does.
  template <class ControlType, class Widget>
  Widget* Bind(ControlType& control, Widget* widget) {
    return binder_.Bind(control, widget);
  }
  /// OK, which Return presses, and Cancel at the end of a row of their own.
  QWidget* MakeButtons(Button& ok, Button& cancel);
  /// The label of a widget beside it, whose letter goes to that.
  QLabel* MakeLabelOf(Label& label, QWidget* widget);
  /// Keeps a connection for the window's life.
  void Keep(Connection connection) { connections_.push_back(std::move(connection)); }

  Binder binder_;

 private:
  ToolForm& form_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
