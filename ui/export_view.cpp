#include "ui/export_view.h"

#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/binder.h"
#include "ui/qt_text.h"

namespace cuewright {

void RunExportDialog(ExportDialog& form, QWidget* owner) {
  QDialog dialog(owner);
  dialog.setObjectName("frmExport");
  dialog.setWindowTitle(ToQt(form.Title()));
  auto* grid = new QGridLayout(&dialog);
  grid->setContentsMargins(16, 16, 16, 12);
  grid->setVerticalSpacing(10);
  const auto combo = [&](const char* name, const char* spoken) {
    auto* box = new QComboBox(&dialog);
    box->setObjectName(name);
    box->setAccessibleName(spoken);
    return box;
  };
  const auto label = [&](const char* name) {
    auto* made = new QLabel(&dialog);
    made->setObjectName(name);
    return made;
  };
  auto* formats = combo("cboFormats", "Format");
  formats->setMinimumWidth(380);
  grid->addWidget(formats, 0, 0, 1, 2);
  grid->addWidget(label("lblTotal"), 1, 0, 1, 2);
  grid->addWidget(label("lblFPS"), 2, 0);
  grid->addWidget(combo("cmbFPS", "Frames per second"), 2, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"cmdOK", "cmdCancel"}) {
    auto* button = new QPushButton(&dialog);
    button->setObjectName(name);
    buttons->addWidget(button);
  }
  grid->addLayout(buttons, 3, 0, 1, 2);
  dialog.findChild<QPushButton*>("cmdOK")->setDefault(true);
  Binder binder(dialog, form);
  binder.BindAll();
  const Connection closed = form.Closed.ConnectScoped([&dialog] { dialog.accept(); });
  const Connection focus =
      form.FpsFocusRequested.ConnectScoped([&dialog] { dialog.findChild<QComboBox*>("cmbFPS")->setFocus(); });
  dialog.exec();
}

}  // namespace cuewright
