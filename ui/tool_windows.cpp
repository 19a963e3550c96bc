#include "ui/tool_windows.h"

#include <QEvent>

#include "ui/find_view.h"
#include "ui/help_view.h"
#include "ui/qt_text.h"
#include "ui/report_view.h"

namespace cuewright {

ToolView::ToolView(ToolForm& form, QWidget* owner) : QDialog(owner), form_(form) {
  setObjectName(QString::fromStdString(form.Name()));
  setWindowTitle(ToQt(form.Title()));
  Keep(form.TitleChanged.ConnectScoped([this] { setWindowTitle(ToQt(form_.Title())); }));
  const auto turn = [this] { setLayoutDirection(form_.RightToLeft() ? Qt::RightToLeft : Qt::LeftToRight); };
  turn();
  Keep(form.DirectionChanged.ConnectScoped(turn));
}

void ToolView::reject() { form_.Close(); }

void ToolView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) form_.OnActivated();
}

ToolWindows::ToolWindows(Program& program, QWidget& owner) : helpKey_(program.help) {
  Add(program.reportWindow, [&] { return new ReportView(program.reportWindow, &owner); });
  Add(program.tools.findWindow, [&] { return new FindView(program.tools.findWindow, &owner); });
  Add(program.tools.replaceWindow, [&] { return new FindView(program.tools.replaceWindow, &owner); });
  Add(program.help, [&] { return new HelpView(program.help, &owner); });
}

ToolWindows::~ToolWindows() {
  connections_.clear();
  for (const auto& entry : entries_) delete entry->view;
}

void ToolWindows::Add(ToolForm& form, Maker make) {
  Entry& entry = *entries_.emplace_back(std::make_unique<Entry>(Entry{form, std::move(make), {}}));
  connections_.push_back(form.ShowRequested.ConnectScoped([&entry] { Show(entry); }));
  connections_.push_back(form.CloseRequested.ConnectScoped([&entry] { Close(entry); }));
}

void ToolWindows::Show(Entry& entry) {
  if (entry.view == nullptr) entry.view = entry.make();
  entry.view->show();
  entry.view->raise();
  entry.view->activateWindow();
}

void ToolWindows::Close(Entry& entry) {
  if (entry.view == nullptr) return;
  // The click that closes it is still on its way through the window's own button.
  entry.view->hide();
  entry.view->setObjectName({});
  entry.view->deleteLater();
  entry.view.clear();
}

}  // namespace cuewright
