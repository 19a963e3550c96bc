#include "ui/audio_view.h"

#include <QCheckBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/binder.h"
#include "ui/qt_text.h"

namespace cuewright {

void RunAudioDialog(AudioDialog& form, QWidget* owner) {
  QDialog dialog(owner);
  dialog.setObjectName("frmAudio");
  dialog.setWindowTitle(ToQt(form.Title()));
  dialog.setLayoutDirection(form.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  auto* column = new QVBoxLayout(&dialog);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(10);
  const auto add = [&](QWidget* widget, const char* name) {
    widget->setObjectName(name);
    column->addWidget(widget);
  };
  add(new QLabel(&dialog), "lblTop");
  add(new QCheckBox(&dialog), "chkAudio");
  add(new QCheckBox(&dialog), "chkPlayer");
  auto* formats = new QLabel(&dialog);
  formats->setTextFormat(Qt::PlainText);
  formats->setMinimumWidth(formats->fontMetrics().horizontalAdvance("WAV, MP3, SND, AU, AIF, WMA") + 60);
  add(formats, "lblFormats");
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"cmdOK", "cmdCancel"}) {
    auto* button = new QPushButton(&dialog);
    button->setObjectName(name);
    buttons->addWidget(button);
  }
  column->addLayout(buttons);
  dialog.findChild<QPushButton*>("cmdOK")->setDefault(true);
  Binder binder(dialog, form);
  binder.BindAll();
  const Connection closed = form.Closed.ConnectScoped([&dialog] { dialog.accept(); });
  dialog.exec();
  form.Close();
}

}  // namespace cuewright
