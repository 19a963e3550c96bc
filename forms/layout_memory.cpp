#include "forms/layout_memory.h"

#include <algorithm>
#include <limits>

#include "core/numbers.h"
#include "settings/options.h"

namespace cuewright {
namespace {

constexpr TextView kListWidth = u"ListWidth";
constexpr TextView kColumns = u"ListColumns";
constexpr TextView kLeft = u"WindowLeft";
constexpr TextView kTop = u"WindowTop";
constexpr int kWhole = 1000;
constexpr int kLeastColumn = 16;
constexpr int kUnset = std::numeric_limits<int>::min();

}  // namespace

LayoutMemory::LayoutMemory(SettingsStore& store, MainLayout& layout) : store_(store), layout_(layout) {}

void LayoutMemory::Load() {
  const int width = ReadNumber(store_, kListWidth, 0);
  if (width > 0) layout_.SetListWidth(width);
  loadedList_ = layout_.WantedListWidth();
  shares_.reset();
  const std::vector<Text> parts = Split(store_.GetSetting(kMainSection, kColumns, {}), u",");
  if (parts.size() != 3) return;
  std::array<int, 3> shares = {};
  int sum = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    shares[i] = std::clamp(LeadingInt(parts[i]), 0, kWhole);
    sum += shares[i];
  }
  keptColumns_ = true;
  if (sum > 0 && sum < kWhole) shares_ = shares;
}

void LayoutMemory::Save() {
  std::vector<SettingsStore::KeyValue> values;
  if (layout_.ListWasMoved() && layout_.WantedListWidth() != loadedList_) {
    values.emplace_back(kListWidth, Decimal(layout_.WantedListWidth()));
  }
  Text columns;
  if (shares_) columns = Decimal((*shares_)[0]) + u"," + Decimal((*shares_)[1]) + u"," + Decimal((*shares_)[2]);
  if (shares_ || keptColumns_) values.emplace_back(kColumns, columns);
  if (!values.empty()) store_.SaveSettings(kMainSection, values);
}

std::optional<LayoutMemory::Corner> LayoutMemory::WindowCorner() const {
  const Corner corner{ReadNumber(store_, kLeft, kUnset), ReadNumber(store_, kTop, kUnset)};
  if (corner.left == kUnset || corner.top == kUnset) return {};
  return corner;
}

void LayoutMemory::SaveWindowCorner(const Corner& corner) {
  store_.SaveSettings(kMainSection, {{Text(kLeft), Decimal(corner.left)}, {Text(kTop), Decimal(corner.top)}});
}

void LayoutMemory::NoteColumns(const std::array<int, 4>& widths, int listWidth) {
  if (listWidth <= 0) return;
  std::array<int, 3> shares = {};
  int left = kWhole - 1;
  for (int i = 0; i < 3; ++i) {
    shares[i] = std::clamp(widths[i] * kWhole / listWidth, 1, left - 2 + i);
    left -= shares[i];
  }
  shares_ = shares;
}

std::array<int, 4> LayoutMemory::Columns(int listWidth, int paneWidth, int scrollBarWidth) const {
  std::array<int, 4> widths = MainLayout::ColumnWidths(listWidth, paneWidth, scrollBarWidth);
  if (!shares_) return widths;
  const int whole = widths[0] + widths[1] + widths[2] + widths[3];
  int left = whole;
  for (std::size_t i = 0; i < 3; ++i) {
    widths[i] = std::max((listWidth * (*shares_)[i] + kWhole / 2) / kWhole, kLeastColumn);
    left -= widths[i];
  }
  widths[3] = std::max(left, 0);
  return widths;
}

}  // namespace cuewright
