#include "ui/windows.h"

#include <utility>

#include "ui/qt_ports.h"

namespace cuewright {

Windows::~Windows() {
  connections_.clear();
  for (const auto& tool : tools_) delete tool->view;
}

QWidget* Windows::Front() { return BoxOwner(); }

void Windows::AddTool(ToolForm& form, std::function<ToolView*()> make) {
  Tool& tool = *tools_.emplace_back(std::make_unique<Tool>(Tool{std::move(make), {}}));
  connections_.push_back(form.ShowRequested.ConnectScoped([&tool] { Show(tool); }));
  connections_.push_back(form.CloseRequested.ConnectScoped([&tool] { Close(tool); }));
}

void Windows::Show(Tool& tool) {
  if (tool.view == nullptr) tool.view = tool.make();
  tool.view->show();
  tool.view->raise();
  tool.view->activateWindow();
}

void Windows::Close(Tool& tool) {
  if (tool.view == nullptr) return;
  // The view may not be deleted at once: this may run in the click handler of one of its own buttons.
  tool.view->hide();
  tool.view->setObjectName({});
  tool.view->deleteLater();
  tool.view.clear();
}

}  // namespace cuewright
