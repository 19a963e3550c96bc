#include "ui/windows.h"

#include <utility>

#include "ui/about_view.h"
#include "ui/audio_view.h"
#include "ui/audio_wizard_view.h"
#include "ui/delay_view.h"
#include "ui/embed_view.h"
#include "ui/export_view.h"
#include "ui/find_view.h"
#include "ui/format_view.h"
#include "ui/help_view.h"
#include "ui/qt_ports.h"
#include "ui/report_view.h"
#include "ui/settings_view.h"
#include "ui/spell_view.h"
#include "ui/update_view.h"

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
  // The click that closes it is still on its way through the window's own button.
  tool.view->hide();
  tool.view->setObjectName({});
  tool.view->deleteLater();
  tool.view.clear();
}

void AddToolWindows(Windows& windows, Program& program) {
  windows.AddBeside<ReportView>(program.reportWindow);
  windows.AddBeside<FindView>(program.tools.findWindow);
  windows.AddBeside<FindView>(program.tools.replaceWindow);
  windows.AddBeside<HelpView>(program.help);
}

void AddDialogs(Windows& windows, Program& program) {
  windows.AddHolding<DelayView>(program.tools.delayDialog);
  windows.AddHolding<AudioView>(program.audio.dialog);
  windows.AddHolding<ExportView>(program.exportDialog);
  windows.AddHolding<EmbedView>(program.embedWizard);
  windows.AddHolding<AudioWizardView>(program.audioWizard);
  windows.AddHolding<SpellView>(program.spelling.dialog);
  windows.AddFree<SettingsView>(program.dialogs.settings);
  windows.AddFree<FormatView>(program.dialogs.format);
  windows.AddFree<AboutView>(program.helpDialogs.about);
  windows.AddFree<UpdateView>(program.helpDialogs.update);
}

}  // namespace cuewright
