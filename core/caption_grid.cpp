#include "core/caption_grid.h"

#include <algorithm>
#include <utility>

namespace cuewright {

void CaptionGrid::ShowNotice(TextView notice) {
  active_ = false;
  notice_ = notice;
  topRow_ = 1;
  Changed();
}

void CaptionGrid::ShowCaptions() {
  active_ = true;
  topRow_ = 1;
  Changed();
}

void CaptionGrid::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void CaptionGrid::SetHeadings(std::array<Text, 4> headings) {
  headings_ = std::move(headings);
  Changed();
}

void CaptionGrid::SetRightToLeft(bool on) {
  if (rightToLeft_ == on) return;
  rightToLeft_ = on;
  Changed();
}

void CaptionGrid::SetColumnWidths(std::array<int, 4> widths) {
  if (widths_ == widths) return;
  widths_ = widths;
  Changed();
}

void CaptionGrid::SetFont(TextView name, int size, bool bold) {
  fontName_ = name;
  fontSize_ = size;
  fontBold_ = bold;
  Changed();
}

void CaptionGrid::SetTopRow(Row row) {
  topRow_ = std::max(row, 1);
  Scrolled();
}

void CaptionGrid::NoteMetrics(int height, int rowHeight) {
  height_ = height;
  rowHeight_ = std::max(rowHeight, 1);
}

void CaptionGrid::ScrollRow(bool force) {
  const int visible = height_ / rowHeight_ - 1;
  const Row selected = list_.Selected();
  if (selected < topRow_) {
    SetTopRow(selected);
  } else if (selected >= topRow_ + visible || (force && selected > topRow_ + visible - 3)) {
    SetTopRow(std::max(selected - visible + 3, 1));
  }
}

}  // namespace cuewright
