#pragma once

#include "forms/player_page.h"
#include "ui/settings_page_view.h"

namespace cuewright {

/// The page of the player.
class PlayerPageView final : public SettingsPageView {
 public:
  PlayerPageView(PlayerPage& page, Picture& area, Binder& binder, QWidget* parent);
};

}  // namespace cuewright
