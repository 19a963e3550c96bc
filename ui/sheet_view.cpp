#include "ui/sheet_view.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <algorithm>

#include "core/counting.h"
#include "ui/binder.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

/// Rows that decide how wide a column is.
constexpr int kMeasuredRows = 200;
constexpr int kWidestColumn = 340;
constexpr int kMostLines = 3;
constexpr int kRowRoom = 6;

/// A cell on its lines; more than a few would make the rows hard to compare.
QString Shown(const Text& cell) {
  QStringList lines = ToQt(cell).split(u'\n');
  if (lines.size() > kMostLines) lines = lines.mid(0, kMostLines) << QStringLiteral("\u2026");
  return lines.join(u'\n');
}

/// Rows with room between them.
class RowDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kRowRoom);
  }
};

}  // namespace

int SheetModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : CountOf(sheet_.Rows()); }

int SheetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : CountOf(sheet_.Headings());
}

QVariant SheetModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const SheetRow& row = ItemAt(sheet_.Rows(), index.row());
  const std::size_t column = SizeOf(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return column < row.cells.size() ? Shown(row.cells[column]) : QString();
    case Qt::ToolTipRole:
      return column < row.cells.size() ? ToQt(row.cells[column]) : QString();
    case Qt::CheckStateRole:
      if (!sheet_.Tickable() || column != 0) return {};
      return row.ticked ? Qt::Checked : Qt::Unchecked;
    case Qt::TextAlignmentRole:
      return (Qt::AlignVCenter | Qt::AlignLeading).toInt();
    default:
      return {};
  }
}

bool SheetModel::setData(const QModelIndex& index, const QVariant& /*value*/, int role) {
  if (role != Qt::CheckStateRole || !sheet_.Tickable()) return false;
  sheet_.Tick(index.row());
  return true;
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  if (role == Qt::TextAlignmentRole) return (Qt::AlignVCenter | Qt::AlignLeading).toInt();
  return role == Qt::DisplayRole ? ToQt(ItemAt(sheet_.Headings(), section)) : QVariant();
}

Qt::ItemFlags SheetModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  if (sheet_.Tickable() && index.column() == 0) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

void SheetModel::Follow(bool whole) {
  if (whole) {
    beginResetModel();
    endResetModel();
  } else if (rowCount() > 0 && columnCount() > 0) {
    emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
  }
}

SheetView::SheetView(QWidget* parent) : QTreeView(parent) {
  setItemDelegate(new RowDelegate(this));
  setRootIsDecorated(false);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  header()->setStretchLastSection(true);
  header()->setSectionsMovable(false);
}

void SheetView::Attach(Binder& binder, Sheet& sheet) {
  sheet_ = &sheet;
  model_ = new SheetModel(sheet, this);
  setModel(model_);
  binder.Watch(sheet, [this] { ShowState(); });
  connect(this, &QTreeView::doubleClicked, this, [this] { sheet_->Activate(); });
}

void SheetView::ShowState() {
  const QScopedValueRollback<bool> following(following_, true);
  const bool whole = edition_ != sheet_->Edition() || model_->columnCount() != header()->count();
  edition_ = sheet_->Edition();
  model_->Follow(whole);
  if (whole) SetWidths();
  const QModelIndex wanted = model_->index(sheet_->Index(), 0);
  if (currentIndex().row() != sheet_->Index()) {
    setCurrentIndex(wanted);
    scrollTo(wanted);
  }
}

/// Columns are as wide as their first rows need; the last one takes what is left.
void SheetView::SetWidths() {
  const int columns = model_->columnCount();
  for (int column = 0; column + 1 < columns; ++column) {
    int width = header()->sectionSizeHint(column);
    for (int row = 0; row < std::min(model_->rowCount(), kMeasuredRows); ++row) {
      width = std::max(width, sizeHintForIndex(model_->index(row, column)).width());
    }
    setColumnWidth(column, std::min(width + 12, kWidestColumn));
  }
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Where a row means nothing by itself the key is the window's.
  if (enter && sheet_->Index() >= 0 && event->modifiers() == Qt::NoModifier && !sheet_->Activated.Empty()) {
    sheet_->Activate();
    return;
  }
  QTreeView::keyPressEvent(event);
}

void SheetView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  if (!following_ && current.row() != sheet_->Index()) sheet_->Choose(current.row());
}

void Attach(Binder& binder, Sheet& sheet, SheetView& widget) { widget.Attach(binder, sheet); }

}  // namespace cuewright
