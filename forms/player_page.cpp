#include "forms/player_page.h"

#include <algorithm>
#include <array>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr std::array<TextView, 3> kUiModes = {u"none", u"mini", u"full"};

}  // namespace

PlayerPage::PlayerPage(const Place& place, Player& player, VideoFilter& filter)
    : SettingsPage(place, {Message::PlayerSettings, Message::PlayerPageHint, Message::PlayerPageHint}),
      player_(player),
      filter_(filter) {
  Shows(chkStretch, Message::AutofitVideo, Message::AutofitVideoHint);
  Shows(lblUImode, Message::PlayerControls, Message::PlayerControlsHint);
  Shows(lblVSFilter, Message::VsFilterManagement, Message::VsFilterFound);
  Shows(optVSDisable, Message::VsFilterDisable, Message::VsFilterDisableHint);
  Shows(optVSHide, Message::VsFilterHide, Message::VsFilterHideHint);
  Shows(lblVSNotice, Message::VsFilterRestored);
  Shows(cmdVSFilter, Message::Configure, Message::VsFilterConfigureHint);
  details_.Explain(cmbUImode, Message::PlayerControlsHint);
  details_.Explain(imgVSHelp, Message::VsFilterHint);
  Speaks(cmbUImode, Message::PlayerControls);
  Speaks(imgVSHelp, Message::WhatsThis);
  chkStretch.Clicked.Connect([this] { ApplyToPlayer(); });
  cmbUImode.Chosen.Connect([this] {
    TakeUiMode();
    ApplyToPlayer();
  });
  optVSDisable.Clicked.Connect([this] { ChooseFilterMode(0); });
  optVSHide.Clicked.Connect([this] { ChooseFilterMode(1); });
  cmdVSFilter.Clicked.Connect([this] { filter_.Configure(); });
}

void PlayerPage::Fill() {
  SettingsPage::Fill();
  const int mode = PlaceOf(kUiModes, options_.playerControls);
  cmbUImode.SetIndex(mode >= 0 ? mode : CountOf(kUiModes) - 1);
  ShowFilter();
}

void PlayerPage::ApplyLanguage() {
  SettingsPage::ApplyLanguage();
  ShowItems(cmbUImode, {Message::HideControls, Message::BasicControls, Message::AllControls});
  cmdVSFilter.SetSpokenName(WithoutAccessKey(strings_[Message::Configure]) + u" " +
                            WithoutAccessKey(strings_[Message::VsFilterManagement]));
}

void PlayerPage::TakeUiMode() { options_.playerControls = ItemAt(kUiModes, std::max(cmbUImode.Index(), 0)); }

void PlayerPage::ApplyToPlayer() {
  player_.SetStretchToFit(options_.stretchVideo != 0);
  player_.SetUiMode(options_.playerControls);
}

void PlayerPage::ChooseFilterMode(std::uint8_t mode) {
  options_.filterMode = mode;
  ShowFilter();
}

void PlayerPage::ShowFilter() {
  optVSDisable.SetValue(options_.filterMode == 0);
  optVSHide.SetValue(options_.filterMode != 0);
  const bool installed = filter_.Installed();
  for (Control* control : std::initializer_list<Control*>{&lblVSFilter, &lblVSNotice, &optVSDisable, &optVSHide}) {
    control->SetEnabled(installed);
  }
  cmdVSFilter.SetEnabled(filter_.CanConfigure());
}

}  // namespace cuewright
