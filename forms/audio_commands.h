#pragma once

#include <cstdint>

#include "audio/audio_bar.h"
#include "capture/workbench.h"
#include "forms/audio_dialog.h"
#include "forms/document_session.h"
#include "forms/ports.h"
#include "forms/recall.h"

namespace cuewright {

/// The menu's ways to the Audio bar and to the player for audio files.
class AudioCommands {
 public:
  AudioCommands(Workbench bench, DocumentSession& session, SettingsStore& store, Recall& recall, AudioBar& bar,
                Ports ports);

  AudioDialog dialog;

  /// The one route of an audio file into the player and the bar; `mode` is what `AudioDialog` gives.
  void OpenAudioFile(TextView path, std::uint8_t mode);

 private:
  std::uint8_t AskMode();
  void OpenByDialogs();
  void OpenLast();
  void ChooseColor();

  Workbench bench_;
  DocumentSession& session_;
  Recall& recall_;
  AudioBar& bar_;
  Ports ports_;
};

}  // namespace cuewright
