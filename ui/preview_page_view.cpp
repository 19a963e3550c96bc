#include "ui/settings_page_views.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include "ui/qt_color.h"
#include "ui/qt_text.h"

namespace cuewright {

PreviewPageView::PreviewPageView(PreviewPage& page, Picture& area, Binder& binder, QWidget* parent)
    : SettingsPageView(area, binder, parent), page_(page) {
  column_->addWidget(Bind(page.lblFormat, WrappedLabel(this)));
  auto* buttons = new QHBoxLayout;
  for (Button* button : {&page.cmdFont, &page.cmdColor}) buttons->addWidget(MakeButton(*button, this));
  buttons->addStretch();
  column_->addLayout(buttons);
  auto* ground = new QHBoxLayout;
  ground->setSpacing(20);
  for (OptionButton* option : {&page.optOpaque, &page.optShadow})
    ground->addWidget(Bind(*option, new QRadioButton(this)));
  ground->addStretch();
  column_->addLayout(ground);
  auto* bars = new QGridLayout;
  bars->setHorizontalSpacing(16);
  bars->addWidget(Bind(page.lblShadow, PlainLabel(this)), 0, 0);
  QSlider* shadow = MakeSlider(page.sldShadow, this);
  shadow->setTickPosition(QSlider::TicksBelow);
  shadow->setPageStep(1);
  bars->addWidget(shadow, 0, 1);
  bars->addWidget(Bind(page.lblHeight, PlainLabel(this)), 1, 0);
  bars->addWidget(MakeSlider(page.sldHeight, this), 1, 1);
  bars->setColumnStretch(1, 1);
  column_->addLayout(bars);
  sample_ = new SampleArea(binder_, page.picSample, page.lblSample, &page.lblSampleShadow, this);
  column_->addWidget(sample_, 1);
  column_->addWidget(Bind(page.chkFollow, new QCheckBox(this)));
  changed_ = page.SampleChanged.ConnectScoped([this] { ShowSample(); });
}

void PreviewPageView::ShowSample() {
  const PreviewPage::Sample& sample = page_.GetSample();
  SampleStyle style;
  style.font = QFont(ToQt(sample.fontName), sample.fontSize, sample.bold ? QFont::Bold : QFont::Normal);
  style.color = ColorOf(sample.color);
  if (!sample.windowBackground) style.background = ColorOf(sample.background);
  style.shadowShift = sample.shadowShift;
  sample_->ShowStyle(style);
}

}  // namespace cuewright
