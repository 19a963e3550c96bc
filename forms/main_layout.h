#pragma once

#include <array>
#include <optional>

namespace cuewright {

/// A rectangle in pixels of the window's inner area.
struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const Rect&) const = default;
};

/// Where the parts of the main window stand. All sizes are pixels of the inner area below the menu.
class MainLayout {
 public:
  static constexpr int kLeastWidth = 700;
  static constexpr int kLeastHeight = 570;

  /// How much of the information band there is.
  enum class Band { Off, Line, Full };

  /// The bars: the information band, the height of the Audio bar (0: off) and of the bottom panel.
  void SetBars(Band band, int waveHeight, int bottomHeight);
  /// The window's inner size has changed.
  void SetInner(int width, int height);
  /// The divider was dragged to a horizontal position; ignored nearer than 64 to the left or 180 to the right.
  void DragDivider(int left);

  /// Until the divider was ever moved, list and player share the width alike, or the list has the width of old.
  void ShareAlike(bool on);

  int ListWidth() const { return list_.width; }
  void SetListWidth(int width);
  /// The user has given the list a width.
  bool ListWasMoved() const { return wantedList_.has_value(); }
  /// The width that the list has where the window leaves it room.
  int WantedListWidth() const;

  const Rect& Status() const { return status_; }
  const Rect& List() const { return list_; }
  const Rect& Divider() const { return divider_; }
  const Rect& Player() const { return player_; }
  const Rect& Wave() const { return wave_; }
  const Rect& Bottom() const { return bottom_; }
  /// Width of the file labels in the information bar, and whether the bar has room for the logo.
  bool ShowsLogo() const { return band_ == Band::Full && width_ >= kLogoFrom; }
  Band InformationBand() const { return band_; }

  /// Widths of the list's four columns for a list and a text pane of these widths.
  static std::array<int, 4> ColumnWidths(int listWidth, int paneWidth, int scrollBarWidth);

 private:
  static constexpr int kLogoFrom = 910;
  void Apply();

  int width_ = kLeastWidth;
  int height_ = kLeastHeight;
  std::optional<int> wantedList_;  // by the user
  bool shared_ = false;
  Band band_ = Band::Full;
  int statusHeight_ = 56;
  int waveHeight_ = 0;
  int bottomHeight_ = 150;
  Rect status_, list_, divider_, player_, wave_, bottom_;
};

}  // namespace cuewright
