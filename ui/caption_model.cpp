#include "ui/caption_model.h"

#include <QPalette>
#include <QWidget>
#include <algorithm>

#include "core/counting.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr std::array kClassicColumns = {ListColumn::Number, ListColumn::Start, ListColumn::End, ListColumn::Words};

bool IsTime(ListColumn column) { return column == ListColumn::Start || column == ListColumn::End; }

/// The side that the list's columns keep to, whatever the direction of a cell's own text.
QVariant ColumnAlignment(const CaptionGrid& grid) {
  return QVariant(Qt::AlignVCenter | Qt::AlignAbsolute | (grid.RightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
}

}  // namespace

CaptionModel::CaptionModel(CaptionList& list, CaptionGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), list_(list), grid_(grid) {
  connections_.push_back(list_.Spliced.ConnectScoped([this](const Splice& splice) { OnSplice(splice); }));
  connections_.push_back(grid_.RowsTouched.ConnectScoped([this](Row first, Row last) { OnTouched(first, last); }));
}

int CaptionModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shownRows_; }

int CaptionModel::columnCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  if (!grid_.Active()) return 1;
  return grid_.IsWorkbench() ? int{kListColumns} : CountOf(kClassicColumns);
}

ListColumn CaptionModel::ColumnOf(int section) const {
  return grid_.IsWorkbench() ? static_cast<ListColumn>(section) : ItemAt(kClassicColumns, section);
}

QVariant CaptionModel::data(const QModelIndex& index, int role) const {
  const Row row = index.row() + 1;
  if (!index.isValid() || !list_.InRange(row)) return {};
  if (!grid_.Active()) return role == Qt::DisplayRole ? ToQt(grid_.Notice()) : QVariant();
  switch (role) {
    case Qt::ForegroundRole:
      // Times that a window only proposes have a colour of their own.
      if (IsTime(ColumnOf(index.column())) && grid_.ShowsOtherTimes(row)) {
        return static_cast<const QWidget*>(QObject::parent())->palette().brush(QPalette::Link);
      }
      return {};
    case Qt::AccessibleTextRole:
      // The first cell is the one with the focus: it speaks for the row.
      return index.column() == 0 ? QVariant(ToQt(grid_.SpokenCaption(row))) : QVariant();
    case Qt::TextAlignmentRole:
      return ColumnAlignment(grid_);
    default:
      return grid_.IsWorkbench() ? ShownData(row, index.column(), role) : ClassicData(row, index.column(), role);
  }
}

QVariant CaptionModel::ShownData(Row row, int column, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(grid_.CellText(row, ColumnOf(column)));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return grid_.Remarks(row).empty() ? QVariant() : QVariant(ToQt(grid_.Remarks(row)));
    default:
      return {};
  }
}

QVariant CaptionModel::ClassicData(Row row, int column, int role) const {
  const ListColumn shown = ColumnOf(column);
  if (role == Qt::BackgroundRole && shown == ListColumn::Words && list_.IsCaptionFormatted(row)) {
    return static_cast<const QWidget*>(QObject::parent())->palette().brush(QPalette::Button);
  }
  if (role != Qt::DisplayRole) return {};
  switch (shown) {
    case ListColumn::Number:
      return QString::number(row.Number());
    case ListColumn::Start:
      return QString::number(grid_.ShownTimes(row).start.Count());
    case ListColumn::End:
      return QString::number(grid_.ShownTimes(row).end.Count());
    default:
      return ToQt(grid_.ShownText(row));
  }
}

QVariant CaptionModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount() || !grid_.Active()) return {};
  if (role == Qt::DisplayRole) return ToQt(ItemAt(grid_.Headings(), ColumnOf(section)));
  if (role != Qt::TextAlignmentRole) return {};
  // Headings stand over their figures.
  const bool figures = grid_.IsWorkbench() && ColumnOf(section) != ListColumn::Words;
  return figures ? QVariant(Qt::AlignVCenter | Qt::AlignAbsolute | Qt::AlignRight) : ColumnAlignment(grid_);
}

Qt::ItemFlags CaptionModel::flags(const QModelIndex&) const {
  return grid_.Active() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::ItemFlags();
}

void CaptionModel::ShowAnew() {
  beginResetModel();
  shownRows_ = list_.Count();
  missed_ = false;
  endResetModel();
}

void CaptionModel::OnSplice(const Splice& splice) {
  // A disabled list isn't painted: what it has become is shown at once when it is enabled again.
  if (!list_.Enabled()) {
    missed_ = true;
    return;
  }
  const int first = (splice.first - 1).Number();
  const int changed = std::min(splice.removed, splice.added);
  if (splice.added > splice.removed) {
    beginInsertRows({}, first + changed, first + splice.added - 1);
    shownRows_ += splice.added - splice.removed;
    endInsertRows();
  } else if (splice.removed > splice.added) {
    beginRemoveRows({}, first + changed, first + splice.removed - 1);
    shownRows_ -= splice.removed - splice.added;
    endRemoveRows();
  }
  // The gap of the row in front is that to the first one that changed.
  const int front = grid_.IsWorkbench() ? std::max(first - 1, 0) : first;
  const int last = std::min(first + changed, shownRows_) - 1;
  if (last >= front) emit dataChanged(index(front, 0), index(last, columnCount() - 1));
}

void CaptionModel::OnTouched(Row first, Row last) {
  if (!list_.Enabled() || last > shownRows_) return;
  emit dataChanged(index((first - 1).Number(), 0), index((last - 1).Number(), columnCount() - 1));
}

}  // namespace cuewright
