#pragma once

#include <cstdint>

#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "settings/store.h"

namespace cuewright {

/// Where an audio file goes: a sum of the two.
inline constexpr std::uint8_t kAudioToNowhere = 0;
inline constexpr std::uint8_t kAudioToBar = 1;
inline constexpr std::uint8_t kAudioToPlayer = 2;

/// The dialog `frmAudio`, which asks whether an audio file goes to the Audio bar, to the player, or to both.
class AudioDialog final : public Dialog {
 public:
  AudioDialog(const LangStrings& strings, SettingsStore& store);

  Label lblTop{*this, "lblTop"};
  CheckBox chkAudio{*this, "chkAudio"};
  CheckBox chkPlayer{*this, "chkPlayer"};
  Label lblFormats{*this, "lblFormats"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  /// Fills the controls by the choice of the last time.
  void Open(bool rightToLeft);

  /// What the dialog closed with; `kAudioToNowhere` when it was cancelled.
  std::uint8_t AudioLoadMode() const { return chosen_; }

 private:
  std::uint8_t Mode() const;
  void ShowMode();
  void ShowFormats(TextView list);
  void Accept();

  const LangStrings& strings_;
  SettingsStore& store_;
  std::uint8_t chosen_ = kAudioToNowhere;
};

}  // namespace cuewright
