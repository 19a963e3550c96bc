#include "ui/update_view.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include "ui/link_button.h"

namespace cuewright {
namespace {

constexpr int kLogWidth = 480;
constexpr int kLogHeight = 260;

}  // namespace

UpdateView::UpdateView(UpdateDialog& form, QWidget* owner) : DialogView(form, owner), form_(form) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(20, 16, 20, 14);
  column->setSpacing(10);
  column->addWidget(MakeHeading("lblStatus", this));
  auto* log = Named(new QPlainTextEdit(this), "txtStatus");
  log->setReadOnly(true);
  log->setTabChangesFocus(true);
  log->setMinimumSize(kLogWidth, kLogHeight);
  QTextOption reading = log->document()->defaultTextOption();
  reading.setTextDirection(layoutDirection());
  log->document()->setDefaultTextOption(reading);
  column->addWidget(log, 1);
  auto* link = Named(new LinkButton(this), "lblWhatsNew");
  column->addWidget(link, 0, Qt::AlignLeading);
  column->addLayout(MakeButtons({"", "cmdOK"}));
  Bind(log);
  // The end of the log is what is new.
  Keep(form.txtStatus.Changed.ConnectScoped([log] { log->moveCursor(QTextCursor::End); }));
  Keep(form.lblWhatsNew.Changed.ConnectScoped([this] { FitContent(); }));
  Keep(form.DefaultRequested.ConnectScoped([this] {
    auto* ok = findChild<QPushButton*>("cmdOK");
    ok->setDefault(true);
    ok->setFocus();
  }));
}

void UpdateView::changeEvent(QEvent* event) {
  DialogView::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  // The check waits, and may outlive this window.
  QTimer::singleShot(0, qApp, [self = QPointer<UpdateView>(this)] {
    if (self != nullptr) self->form_.OnActivated();
  });
}

}  // namespace cuewright
