#include "forms/program.h"

namespace cuewright {

WizardParts Program::PartsOfWizards() {
  return {document, options, strings, languages, store, recall, folders, openForms, environment_.processes, ports_};
}

void Program::ConnectWizards() {
  window.mnuEmbed.Clicked.Connect([this] { OpenEmbedWizard(); });
  window.mnuAudioExtract.Clicked.Connect([this] { OpenAudioWizard(); });
  embedWizard.FilesNeeded.Connect([this] {
    document.VideoPath.clear();
    preview.SetPreviewMode(false);
    session.End();
  });
}

void Program::OpenEmbedWizard() {
  if (embedWizard.IsOpen() || !embedWizard.CheckEmbedDocument()) return;
  // The wizard works on the file, and closes the document in its end.
  if (!documentFiles.PromptForSave()) return;
  session.CloseTools();
  embedWizard.Open();
}

void Program::OpenAudioWizard() {
  if (audioWizard.IsOpen() || !audioWizard.CheckFilm()) return;
  session.CloseTools();
  ports_.player.Stop();
  audioWizard.Open();
  const Text& pending = audioWizard.PendingAudioFile();
  if (!pending.empty() && ports_.files.Exists(pending)) audio.OpenAudioFile(pending, kAudioToBar);
}

}  // namespace cuewright
