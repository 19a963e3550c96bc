#pragma once

#include <QWidget>

#include "ui/binder.h"
#include "ui/labels.h"

class QComboBox;
class QPushButton;
class QVBoxLayout;

namespace cuewright {

/// A page of the settings dialog on the toolkit: a column of widgets.
class SettingsPageView : public QWidget {
 protected:
  SettingsPageView(Picture& area, Binder& binder, QWidget* parent);

  /// Binds a widget, as `Binder::Bind` does.
  template <class ControlType, class Widget>
  Widget* Bind(ControlType& control, Widget* widget) {
    return binder_.Bind(control, widget);
  }
  QPushButton* MakeButton(Button& control, QWidget* parent);
  QComboBox* MakeCombo(ComboBox& control);
  QSlider* MakeSlider(Slider& control, QWidget* parent);

  Binder& binder_;
  QVBoxLayout* column_;
};

}  // namespace cuewright
