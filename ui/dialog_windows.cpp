#include "ui/dialog_windows.h"

#include "ui/about_view.h"
#include "ui/audio_view.h"
#include "ui/audio_wizard_view.h"
#include "ui/delay_view.h"
#include "ui/embed_view.h"
#include "ui/export_view.h"
#include "ui/format_view.h"
#include "ui/qt_ports.h"
#include "ui/settings_view.h"
#include "ui/spell_view.h"
#include "ui/update_view.h"

namespace cuewright {

void ConnectDialogs(Program& program, QWidget& window) {
  program.tools.runDelayDialog = [&] { RunDelayDialog(program.tools.delayDialog, &window); };
  program.audio.runDialog = [&] { RunAudioDialog(program.audio.dialog, &window); };
  program.runExportDialog = [&] { RunExportDialog(program.exportDialog, &window); };
  program.runEmbedWizard = [&] { RunEmbedWizard(program.embedWizard, &window); };
  program.runAudioWizard = [&] { RunAudioWizard(program.audioWizard, &window); };
  program.dialogs.runSettings = [&] { (new SettingsView(program.dialogs.settings, BoxOwner()))->ShowModal(); };
  program.dialogs.runFormat = [&] { (new FormatView(program.dialogs.format, BoxOwner()))->ShowModal(); };
  program.helpDialogs.runAbout = [&] { (new AboutView(program.helpDialogs.about, BoxOwner()))->ShowModal(); };
  program.spelling.runDialog = [&] { RunSpellDialog(program.spelling.dialog, &window); };
  program.helpDialogs.runUpdate = [&] { (new UpdateView(program.helpDialogs.update, BoxOwner()))->ShowModal(); };
}

}  // namespace cuewright
