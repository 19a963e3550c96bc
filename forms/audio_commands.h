#pragma once

#include <cstdint>
#include <functional>

#include "audio/audio_bar.h"
#include "capture/main_window.h"
#include "core/lang_strings.h"
#include "forms/audio_dialog.h"
#include "forms/ports.h"
#include "forms/recall.h"
#include "settings/languages.h"

namespace cuewright {

/// The menu's ways to the Audio bar and to the player for audio files.
class AudioCommands {
 public:
  AudioCommands(MainWindow& window, DocumentState& document, const LangStrings& strings, const Languages& languages,
                SettingsStore& store, Recall& recall, AudioBar& bar, Ports ports);

  AudioDialog dialog;

  /// The one route of an audio file into the player and the bar; `mode` is what `AudioDialog` gives.
  void OpenAudioFile(TextView path, std::uint8_t mode);

  // Set by the windows' owner.
  std::function<void()> runDialog;  ///< shows the dialog and returns when it has closed
  std::function<void()> closeTools;
  std::function<void()> resetControls;

 private:
  std::uint8_t AskMode();
  void OpenByDialogs();
  void OpenLast();
  void ChooseColor();

  MainWindow& window_;
  DocumentState& document_;
  const LangStrings& strings_;
  const Languages& languages_;
  Recall& recall_;
  AudioBar& bar_;
  Ports ports_;
};

}  // namespace cuewright
