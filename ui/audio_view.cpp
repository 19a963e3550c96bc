#include "ui/audio_view.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace cuewright {

AudioView::AudioView(AudioDialog& form, QWidget* owner) : DialogView(form, owner) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(10);
  column->addWidget(MakeLabel("lblTop", this));
  column->addWidget(Named(new QCheckBox(this), "chkAudio"));
  column->addWidget(Named(new QCheckBox(this), "chkPlayer"));
  QLabel* formats = MakeLabel("lblFormats", this);
  formats->setMinimumWidth(formats->fontMetrics().horizontalAdvance("WAV, MP3, SND, AU, AIF, WMA") + 60);
  column->addWidget(formats);
  column->addLayout(MakeButtons({"", "cmdOK", "cmdCancel"}));
  Bind(nullptr);
}

}  // namespace cuewright
