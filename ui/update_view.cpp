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
  column->addWidget(Bind(form.lblStatus, HeadingLabel(this)));
  auto* log = Bind(form.txtStatus, new QPlainTextEdit(this));
  log->setReadOnly(true);
  log->setTabChangesFocus(true);
  log->setMinimumSize(kLogWidth, kLogHeight);
  QTextOption reading = log->document()->defaultTextOption();
  reading.setTextDirection(layoutDirection());
  log->document()->setDefaultTextOption(reading);
  column->addWidget(log, 1);
  column->addWidget(Bind(form.lblWhatsNew, new LinkButton(this)), 0, Qt::AlignLeading);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  QPushButton* ok = MakeButton(form.cmdOK);
  ok->setDefault(true);
  buttons->addWidget(ok);
  column->addLayout(buttons);
  Complete(log);
  // New lines are added at the end of the log.
  Keep(form.txtStatus.Changed.ConnectScoped([log] { log->moveCursor(QTextCursor::End); }));
  Keep(form.lblWhatsNew.Changed.ConnectScoped([this] { FitContent(); }));
  Keep(form.DefaultRequested.ConnectScoped([ok] {
    ok->setDefault(true);
    ok->setFocus();
  }));
}

void UpdateView::changeEvent(QEvent* event) {
  DialogView::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  // The check runs for a while and handles events, so that this window may be gone when it ends.
  QTimer::singleShot(0, qApp, [self = QPointer<UpdateView>(this)] {
    if (self != nullptr) self->form_.OnActivated();
  });
}

}  // namespace cuewright
