#include "ui/settings_page_views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace cuewright {

PlayerPageView::PlayerPageView(PlayerPage& page, Picture& area, Binder& binder, QWidget* parent)
    : SettingsPageView(area, binder, parent) {
  column_->addWidget(Bind(page.chkStretch, new QCheckBox(this)));
  auto* mode = new QHBoxLayout;
  QLabel* label = Bind(page.lblUImode, PlainLabel(this));
  QComboBox* modes = MakeCombo(page.cmbUImode);
  label->setBuddy(modes);
  mode->addWidget(label);
  mode->addWidget(modes);
  mode->addStretch();
  column_->addLayout(mode);
  column_->addSpacing(14);
  auto* heading = new QHBoxLayout;
  heading->addWidget(Bind(page.lblVSFilter, BoldLabel(this)));
  auto* help = Bind(page.imgVSHelp, new SvgPicture(":/help.svg", this));
  help->setFixedSize(20, 20);
  help->setFocusPolicy(Qt::TabFocus);
  heading->addWidget(help);
  heading->addStretch();
  column_->addLayout(heading);
  for (OptionButton* option : {&page.optVSDisable, &page.optVSHide}) {
    column_->addWidget(Bind(*option, new QRadioButton(this)));
  }
  column_->addWidget(Bind(page.lblVSNotice, WrappedLabel(this)));
  column_->addWidget(MakeButton(page.cmdVSFilter, this), 0, Qt::AlignLeft);
  column_->addStretch();
}

}  // namespace cuewright
