#pragma once

#include "core/ports/player.h"
#include "core/ports/video_filter.h"
#include "forms/settings_page.h"

namespace cuewright {

/// The page of the player and of the filter that would draw subtitles into the film.
class PlayerPage final : public SettingsPage {
 public:
  PlayerPage(const Place& place, Player& player, VideoFilter& filter);

  CheckBox chkStretch{window_, "chkStretch"};
  Label lblUImode{window_, "lblUImode"};
  ComboBox cmbUImode{window_, "cmbUImode"};
  Label lblVSFilter{window_, "lblVSFilter"};
  Picture imgVSHelp{window_, "imgVSHelp"};
  OptionButton optVSDisable{window_, "optVSDisable"};
  OptionButton optVSHide{window_, "optVSHide"};
  Label lblVSNotice{window_, "lblVSNotice"};
  Button cmdVSFilter{window_, "cmdVSFilter"};

  void Fill() override;
  void ApplyLanguage() override;
  /// Takes the entry that is shown for the player's controls; a stored mode that is none of them is shown as the last.
  void TakeUiMode();
  /// Gives the player the options in force.
  void ApplyToPlayer();

 private:
  void ChooseFilterMode(std::uint8_t mode);
  void ShowFilter();

  Player& player_;
  VideoFilter& filter_;
};

}  // namespace cuewright
