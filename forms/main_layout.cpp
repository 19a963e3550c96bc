#include "forms/main_layout.h"

#include <algorithm>

namespace cuewright {
namespace {

constexpr int kMargin = 8;
constexpr int kListOfOld = 330;
constexpr int kBesidePlayer = 24;  // the margins at both sides and the divider
constexpr int kLeastPlayer = 182;
constexpr int kDividerFromLeft = 64;
constexpr int kDividerFromRight = 180;
constexpr int kStatusFull = 56;
constexpr int kStatusLine = 34;
constexpr int kStatusOff = 8;
constexpr int kGapsWithWave = 20;
constexpr int kGapsWithoutWave = 16;
constexpr int kStripHeight = 73;  // of the Audio bar at its lowest
constexpr int kLeastList = 120;
constexpr int kBesideWave = 28;  // room for the scale's slider

}  // namespace

void MainLayout::SetBars(Band band, int waveHeight, int bottomHeight) {
  band_ = band;
  statusHeight_ = band == Band::Off ? kStatusOff : band == Band::Line ? kStatusLine : kStatusFull;
  waveHeight_ = waveHeight;
  bottomHeight_ = bottomHeight;
  Apply();
}

void MainLayout::SetInner(int width, int height) {
  width_ = width;
  height_ = height;
  Apply();
}

void MainLayout::DragDivider(int left) {
  if (left < kDividerFromLeft || left > width_ - kDividerFromRight) return;
  SetListWidth(left - kMargin);
}

void MainLayout::SetListWidth(int width) {
  wantedList_ = width;
  Apply();
}

void MainLayout::ShareAlike(bool on) {
  shared_ = on;
  Apply();
}

int MainLayout::WantedListWidth() const {
  return wantedList_.value_or(shared_ ? (width_ - kBesidePlayer) / 2 : kListOfOld);
}

void MainLayout::Apply() {
  // A narrow window squeezes the list, not the player.
  const int listWidth = std::max(std::min(WantedListWidth(), width_ - kBesidePlayer - kLeastPlayer), 0);
  const int room = height_ - statusHeight_ - bottomHeight_;
  // However high the user makes the wave, part of the list stays in view.
  const int most = std::max(room - kGapsWithWave - kLeastList, kStripHeight);
  const int wave = std::min(waveHeight_, most);
  const int gaps = wave > 0 ? wave + kGapsWithWave : kGapsWithoutWave;
  const int listHeight = std::max(room - gaps, 0);
  status_ = {0, 0, width_, statusHeight_};
  list_ = {kMargin, statusHeight_, listWidth, listHeight};
  divider_ = {kMargin + listWidth, statusHeight_, kMargin, listHeight};
  player_ = {2 * kMargin + listWidth, statusHeight_, width_ - listWidth - kBesidePlayer, listHeight};
  wave_ = {kMargin, statusHeight_ + listHeight + kMargin, std::max(width_ - kBesideWave - kMargin, 0), wave};
  bottom_ = {0, height_ - bottomHeight_, width_, bottomHeight_};
}

std::array<int, 4> MainLayout::ColumnWidths(int listWidth, int paneWidth, int scrollBarWidth) {
  std::array<int, 4> widths = {34, 58, 58, 0};
  if (listWidth > paneWidth - 2) widths = {listWidth * 8 / 100, listWidth * 15 / 100, listWidth * 15 / 100, 0};
  widths[3] = std::max(listWidth - widths[0] - widths[1] - widths[2] - scrollBarWidth - 8, 0);
  return widths;
}

}  // namespace cuewright
