#pragma once

#include <cstdint>
#include <functional>

#include "capture/player_sample.h"
#include "capture/preview_index.h"
#include "capture/sub_window.h"
#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/player.h"
#include "core/runtime_error.h"

namespace cuewright {

/// Where the overlay stands, in pixels of the screen.
struct OverlayPlace {
  int left = 0;
  int top = 0;
  int width = 0;

  bool operator==(const OverlayPlace&) const = default;
};

/// Place of the overlay over a player at (`left`, `top`): 8 pixels inside, `percent` of the way down to 64 pixels
/// above the player's lower edge.
OverlayPlace PlaceOverlay(int left, int top, int playerWidth, int playerHeight, int overlayHeight, int percent);

/// How far down a caption stands, in per cent as above: `usual`, unless its place (as the keys of a number pad) is in
/// the middle or at the top.
int PercentOfPlace(int place, int usual);

/// The caption over the picture: shown while it is timed, and played against the film in preview mode.
class Preview {
 public:
  Preview(Workbench bench, SubWindow& sub, Player& player, const PlayerSample& sample);

  /// The row shown in preview mode (0: none) and the row whose span is watched.
  Row PreviewRow() const { return previewRow_; }
  Row PreviewNextRow() const { return previewNextRow_; }

  /// Applies the settings to the overlay; nothing without one.
  void DrawPreviewStyle();
  /// A film opens: the overlay comes, in the style of the settings.
  void OpenOverlay(CarryOn& step);
  /// Asks the window to put the overlay over the player; nothing without one.
  void PlacePreview();
  /// Shows a caption in the overlay; nothing for a row out of range.
  void ShowPreviewCaption(Row row);
  void ClearPreviewCaption();
  /// Enters or leaves preview mode.
  void SetPreviewMode(bool on);
  /// Finds the row whose span is to be watched at the current position: the first that hasn't ended.
  void GetPreviewCap();
  /// Draws the caption again when it is the one on show in preview mode.
  void Redraw(Row row);

  Signal<Preview> PlaceRequested;

  /// True while the user's hands are on the selected caption: the selection waits for them. Set by the window's owner.
  std::function<bool()> handsOnCaption;

 private:
  void Tick();
  void Follow();

  Workbench bench_;
  SubWindow& sub_;
  Player& player_;
  const PlayerSample& sample_;
  PreviewIndex index_;
  Row previewRow_ = 0;
  Row previewNextRow_ = 0;
  bool followDue_ = false;
  Ms tickedMs_ = 0;  // the position at the last tick
};

}  // namespace cuewright
