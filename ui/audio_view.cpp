#include "ui/audio_view.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace cuewright {

AudioView::AudioView(AudioDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(10);
  column->addWidget(Bind(form.lblTop, PlainLabel(this)));
  column->addWidget(Bind(form.chkAudio, new QCheckBox(this)));
  column->addWidget(Bind(form.chkPlayer, new QCheckBox(this)));
  QLabel* formats = Bind(form.lblFormats, PlainLabel(this));
  formats->setMinimumWidth(formats->fontMetrics().horizontalAdvance("WAV, MP3, SND, AU, AIF, WMA") + 60);
  column->addWidget(formats);
  column->addLayout(MakeButtons({nullptr, &form.cmdOK, &form.cmdCancel}, &form.cmdOK));
  Complete(nullptr);
}

}  // namespace cuewright
