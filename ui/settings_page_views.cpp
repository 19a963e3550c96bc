#include "ui/settings_page_views.h"

#include <QComboBox>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

namespace cuewright {

SettingsPageView::SettingsPageView(Picture& area, Binder& binder, QWidget* parent)
    : QWidget(parent), binder_(binder), column_(new QVBoxLayout(this)) {
  Bind(area, this);
  KeepPlace(*this);
  column_->setContentsMargins(0, 0, 0, 0);
  column_->setSpacing(10);
}

QPushButton* SettingsPageView::MakeButton(Button& control, QWidget* parent) {
  auto* button = Bind(control, new QPushButton(parent));
  button->setMinimumWidth(100);
  return button;
}

QComboBox* SettingsPageView::MakeCombo(ComboBox& control) {
  auto* combo = Bind(control, new QComboBox(this));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return combo;
}

QSlider* SettingsPageView::MakeSlider(Slider& control, QWidget* parent) {
  auto* slider = Bind(control, new QSlider(Qt::Horizontal, parent));
  slider->setMinimumWidth(120);
  return slider;
}

}  // namespace cuewright
