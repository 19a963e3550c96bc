#include "ui/program_windows.h"

#include "ui/about_view.h"
#include "ui/audio_view.h"
#include "ui/audio_wizard_view.h"
#include "ui/check_view.h"
#include "ui/delay_view.h"
#include "ui/embed_view.h"
#include "ui/export_view.h"
#include "ui/find_view.h"
#include "ui/format_view.h"
#include "ui/hand_view.h"
#include "ui/help_view.h"
#include "ui/keys_view.h"
#include "ui/list_view.h"
#include "ui/palette_view.h"
#include "ui/proposals_view.h"
#include "ui/reopen_view.h"
#include "ui/report_view.h"
#include "ui/retime_view.h"
#include "ui/settings_view.h"
#include "ui/shots_view.h"
#include "ui/spell_view.h"
#include "ui/update_view.h"

namespace cuewright {

std::unique_ptr<MainWindowView> MakeMainWindow(Program& program, QWidget* video) {
  const MainWindowParts parts = {program.window,        program.list,      program.grid,           program.commands,
                                 program.listView,      program.sub,       program.preview,        program.capture,
                                 program.audioBar,      program.waveBoard, program.shell,          program.document,
                                 program.documentFiles, program.session,   program.router,         program.help,
                                 program.options,       program.strings,   program.LanguageChanged};
  auto window = std::make_unique<MainWindowView>(parts, video);
  AddToolWindows(window->Views(), program);
  return window;
}

void AddToolWindows(Windows& windows, Program& program) {
  windows.AddBeside<ReportView>(program.reportWindow);
  windows.AddBeside<CheckView>(program.checkWindow);
  windows.AddBeside<FindView>(program.tools.findWindow);
  windows.AddBeside<FindView>(program.tools.replaceWindow);
  windows.AddBeside<RetimeView>(program.retime);
  windows.AddBeside<HandView>(program.hand);
  windows.AddBeside<HelpView>(program.help);
}

void AddDialogs(Windows& windows, Program& program) {
  windows.AddHolding<DelayView>(program.tools.delayDialog);
  windows.AddHolding<AudioView>(program.audio.dialog);
  windows.AddHolding<ExportView>(program.exportDialog);
  windows.AddHolding<ListDialogView>(program.saveCheck.dialog);
  windows.AddHolding<ReopenView>(program.reopening.dialog);
  windows.AddFree<ListDialogView>(program.linesReport.dialog);
  windows.AddHolding<EmbedView>(program.embedWizard);
  windows.AddHolding<AudioWizardView>(program.audioWizard);
  windows.AddHolding<SpellView>(program.spelling.dialog);
  windows.AddHolding<ProposalsView>(program.proposals.dialog);
  windows.AddFree<SettingsView>(program.dialogs.settings);
  windows.AddFree<FormatView>(program.dialogs.format);
  windows.AddFree<KeysView>(program.keysDialog);
  windows.AddFree<PaletteView>(program.palette);
  windows.AddFree<ShotsView>(program.shotsDialog);
  windows.AddFree<AboutView>(program.helpDialogs.about);
  windows.AddFree<UpdateView>(program.helpDialogs.update);
}

}  // namespace cuewright
