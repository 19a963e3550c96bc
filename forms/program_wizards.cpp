#include "forms/program.h"

namespace cuewright {

WizardParts Program::PartsOfWizards() {
  return {document, options, strings, languages, store, recall, folders, openForms, environment_.processes, ports_};
}

void Program::ConnectWizards() {
  window.mnuEmbed.Clicked.Connect([this] { OpenEmbedWizard(); });
  window.mnuAudioExtract.Clicked.Connect([this] { OpenAudioWizard(); });
  embedWizard.closeDocuments = [this] {
    document.SubtitlePath.clear();
    document.VideoPath.clear();
    preview.SetPreviewMode(false);
    files.resetControls();
    files.DocumentClosed();
    notices.Clear();
  };
}

void Program::OpenEmbedWizard() {
  if (embedWizard.IsOpen() || !embedWizard.CheckEmbedDocument()) return;
  // The wizard works on the file, and closes the document in its end.
  if (!files.PromptForSave()) return;
  for (const char* name : {"frmFind", "frmReplace", "frmReport"}) openForms.UnloadForm(name);
  embedWizard.Open();
  if (runEmbedWizard) runEmbedWizard();
}

void Program::OpenAudioWizard() {
  if (audioWizard.IsOpen() || !audioWizard.CheckFilm()) return;
  files.closeTools();
  ports_.player.Stop();
  audioWizard.Open();
  if (runAudioWizard) runAudioWizard();
  const Text& pending = audioWizard.PendingAudioFile();
  if (!pending.empty() && ports_.files.Exists(pending)) audio.OpenAudioFile(pending, kAudioToBar);
}

}  // namespace cuewright
