#include "ui/caption_columns.h"

#include <algorithm>

#include "core/counting.h"

namespace cuewright {
namespace {

constexpr int kLeastWidth = 16;
constexpr int kLeastLetters = 28;  // of a text
/// A narrow list does without these, in this order.
constexpr ListColumn kFirstToGo[] = {ListColumn::Gap, ListColumn::Duration, ListColumn::Speed, ListColumn::End};

}  // namespace

CaptionColumns::CaptionColumns(QTableView& table, const CaptionGrid& grid, const CaptionModel& model,
                               const CaptionDelegate& delegate)
    : table_(table), header_(*table.horizontalHeader()), grid_(grid), model_(model), delegate_(delegate) {
  header_.setMinimumSectionSize(kLeastWidth);
  header_.setHighlightSections(false);
  header_.setSectionsClickable(true);
  QObject::connect(&header_, &QHeaderView::sectionResized, &table,
                   [this](int section, int, int width) { TakeWidth(section, width); });
  QObject::connect(&header_, &QHeaderView::sectionMoved, &table,
                   [this](int, int from, int to) { TakeOrder(from, to); });
  QObject::connect(&header_, &QHeaderView::sectionHandleDoubleClicked, &table,
                   [this](int section) { GiveWidthBack(section); });
}

int CaptionColumns::WidthOf(const ColumnOrder::Place& column) const {
  return column.width > 0 ? column.width : delegate_.UsualWidth(column.column, table_.font());
}

std::vector<ListColumn> CaptionColumns::Crowded() const {
  const int leastText = kLeastLetters * table_.fontMetrics().averageCharWidth();
  int left = table_.viewport()->width();
  for (const ColumnOrder::Place& column : grid_.Columns().All()) {
    if (column.shown && column.column != ListColumn::Words) left -= WidthOf(column);
  }
  std::vector<ListColumn> crowded;
  for (const ListColumn column : kFirstToGo) {
    if (left >= leastText) break;
    const ColumnOrder::Place& place = grid_.Columns().Of(column);
    if (!place.shown) continue;
    left += WidthOf(place);
    crowded.push_back(column);
  }
  return crowded;
}

void CaptionColumns::Show() {
  const auto showing = Hold();
  const bool workbench = IsWorkbench();
  header_.setVisible(grid_.Active());
  header_.setSectionsMovable(workbench);
  workbench ? ShowWorkbench() : ShowClassic();
}

void CaptionColumns::Fit() {
  if (!grid_.Active()) table_.setColumnWidth(0, table_.width() - 4);
  if (!IsWorkbench()) return;
  const auto showing = Hold();
  ShowWorkbench();
}

void CaptionColumns::ShowWorkbench() {
  const std::vector<ListColumn> crowded = Crowded();
  int place = 0;
  for (const ColumnOrder::Place& column : grid_.Columns().All()) {
    const int section = static_cast<int>(column.column);
    header_.moveSection(header_.visualIndex(section), place++);
    header_.setSectionHidden(section, !column.shown || std::ranges::count(crowded, column.column) != 0);
    const bool text = column.column == ListColumn::Words;
    header_.setSectionResizeMode(section, text ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (!text && !header_.isSectionHidden(section)) table_.setColumnWidth(section, WidthOf(column));
  }
}

void CaptionColumns::ShowClassic() {
  header_.setSectionResizeMode(QHeaderView::Interactive);
  for (int section = 0; section < header_.count(); ++section) {
    header_.moveSection(header_.visualIndex(section), section);
    header_.setSectionHidden(section, false);
  }
  if (!grid_.Active()) return table_.setColumnWidth(0, table_.width() - 4);
  for (int column = 0; column < kClassic; ++column) {
    table_.setColumnWidth(column, ItemAt(grid_.ColumnWidths(), column));
  }
}

void CaptionColumns::TakeWidth(int section, int width) {
  if (showing_ || !grid_.Active()) return;
  if (grid_.IsWorkbench()) {
    // The text takes what the others leave.
    const ListColumn column = model_.ColumnOf(section);
    if (column == ListColumn::Words || width == 0) return;
    ColumnOrder order = grid_.Columns();
    order.SetWidth(column, width);
    return Arranged(order);
  }
  std::array<int, kClassic> widths = {};
  for (int column = 0; column < kClassic; ++column) {
    ItemAt(widths, column) = table_.columnWidth(column);
  }
  Chosen(&widths);
}

void CaptionColumns::TakeOrder(int from, int to) {
  if (showing_ || !IsWorkbench()) return;
  ColumnOrder order = grid_.Columns();
  order.Move(SizeOf(from), SizeOf(to));
  Arranged(order);
}

void CaptionColumns::GiveWidthBack(int section) {
  if (!grid_.IsWorkbench()) return Chosen(nullptr);
  ColumnOrder order = grid_.Columns();
  order.SetWidth(model_.ColumnOf(section), 0);
  Arranged(order);
}

}  // namespace cuewright
