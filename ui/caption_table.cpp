#include "ui/caption_table.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPalette>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "ui/key_codes.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kColumns = 4;
constexpr int kRowPadding = 6;

/// The side that the list's columns keep to, whatever the direction of a cell's own text.
QVariant ColumnAlignment(const CaptionGrid& grid) {
  return QVariant(Qt::AlignVCenter | Qt::AlignAbsolute | (grid.RightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
}

/// Draws each text in its own direction, so that the full stop of an English caption stays at its end.
class CaptionDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->direction = option->text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
  }
};

}  // namespace

CaptionModel::CaptionModel(CaptionList& list, CaptionGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), list_(list), grid_(grid) {
  connections_.push_back(list_.Spliced.ConnectScoped([this](const Splice& splice) { OnSplice(splice); }));
}

int CaptionModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shownRows_; }

int CaptionModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : grid_.Active() ? kColumns : 1;
}

QVariant CaptionModel::data(const QModelIndex& index, int role) const {
  const Row row = index.row() + 1;
  if (!index.isValid() || !list_.InRange(row)) return {};
  if (!grid_.Active()) return role == Qt::DisplayRole ? ToQt(grid_.Notice()) : QVariant();
  switch (role) {
    case Qt::DisplayRole:
      switch (index.column()) {
        case 0:
          return QString::number(row);
        case 1:
          return QString::number(grid_.ShownTimes(row).start);
        case 2:
          return QString::number(grid_.ShownTimes(row).end);
        default:
          return ToQt(grid_.ShownText(row));
      }
    case Qt::AccessibleTextRole:
      // The first cell is the one with the focus: it speaks for the row.
      return index.column() == 0 ? QVariant(ToQt(grid_.SpokenCaption(row))) : QVariant();
    case Qt::TextAlignmentRole:
      return ColumnAlignment(grid_);
    case Qt::ForegroundRole:
      // Times that aren't taken yet stand out.
      if ((index.column() == 1 || index.column() == 2) && grid_.ShowsOtherTimes(row)) {
        return static_cast<const QWidget*>(QObject::parent())->palette().brush(QPalette::Link);
      }
      return {};
    case Qt::BackgroundRole:
      if (index.column() == kColumns - 1 && list_.IsCaptionFormatted(row)) {
        return static_cast<const QWidget*>(QObject::parent())->palette().brush(QPalette::Button);
      }
      return {};
    default:
      return {};
  }
}

QVariant CaptionModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= kColumns || !grid_.Active()) return {};
  if (role == Qt::DisplayRole) return ToQt(grid_.Headings()[static_cast<std::size_t>(section)]);
  if (role == Qt::TextAlignmentRole) return ColumnAlignment(grid_);
  return {};
}

Qt::ItemFlags CaptionModel::flags(const QModelIndex&) const {
  return grid_.Active() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::ItemFlags();
}

void CaptionModel::ShowAnew() {
  beginResetModel();
  shownRows_ = list_.Rows() - 1;
  missed_ = false;
  endResetModel();
}

void CaptionModel::OnSplice(const Splice& splice) {
  // A disabled list isn't painted: what it has become is shown at once when it is enabled again.
  if (!list_.Enabled()) {
    missed_ = true;
    return;
  }
  const int first = splice.first - 1;
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
  if (changed > 0) emit dataChanged(index(first, 0), index(first + changed - 1, columnCount() - 1));
}

CaptionTable::CaptionTable(CaptionList& list, CaptionGrid& grid, CaptionCommands& commands, QMenu& menu,
                           QWidget* parent)
    : QTableView(parent), list_(list), grid_(grid), commands_(commands), menu_(menu), model_(list, grid, this) {
  setObjectName("grdSubs");
  setAccessibleName("Captions");
  setModel(&model_);
  setItemDelegate(new CaptionDelegate(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(true);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setMinimumSectionSize(16);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(true);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  connections_.push_back(grid_.Changed.ConnectScoped([this] { ShowState(); }));
  connections_.push_back(grid_.Scrolled.ConnectScoped([this] { ShowTopRow(); }));
  connections_.push_back(grid_.FocusRequested.ConnectScoped([this] { setFocus(); }));
  connections_.push_back(list_.SelectionChanged.ConnectScoped([this](Row row) { ShowSelection(row); }));
  connections_.push_back(list_.EnabledChanged.ConnectScoped([this](bool on) {
    setUpdatesEnabled(on);
    if (on) ShowMissed();
  }));
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int top) { grid_.NoteTopRow(top + 1); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] { TakeColumns(); });
  connect(horizontalHeader(), &QHeaderView::sectionHandleDoubleClicked, this, [this] { ColumnsChosen(nullptr); });
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this] { commands_.OnListUp(0); });
  model_.ShowAnew();
  ShowState();
}

void CaptionTable::ShowMissed() {
  const Row top = grid_.TopRow();
  if (model_.Missed()) model_.ShowAnew();
  ShowState();
  grid_.SetTopRow(std::min(top, list_.Rows() - 1));
}

void CaptionTable::ShowState() {
  following_ = true;
  const bool active = grid_.Active();
  if (model_.rowCount() != list_.Rows() - 1 || horizontalHeader()->count() != (active ? kColumns : 1)) {
    model_.ShowAnew();
  }
  QFont rowFont = font();
  if (!grid_.FontName().empty()) {
    rowFont = QFont(ToQt(grid_.FontName()), grid_.FontSize(), grid_.FontBold() ? QFont::Bold : QFont::Normal);
  }
  if (font() != rowFont) setFont(rowFont);
  const int rowHeight = QFontMetrics(rowFont).height() + kRowPadding;
  if (verticalHeader()->defaultSectionSize() != rowHeight) {
    verticalHeader()->setMinimumSectionSize(rowHeight);
    verticalHeader()->setDefaultSectionSize(rowHeight);
  }
  horizontalHeader()->setVisible(active);
  setShowGrid(active);
  setEnabled(grid_.Enabled() || active);
  if (active) {
    for (int column = 0; column < kColumns; ++column) {
      setColumnWidth(column, grid_.ColumnWidths()[static_cast<std::size_t>(column)]);
    }
  } else {
    setColumnWidth(0, width() - 4);
  }
  QPalette colors = palette();
  const QColor wanted = QPalette().color(active ? QPalette::Base : QPalette::Button);
  if (colors.color(QPalette::Base) != wanted) {
    colors.setColor(QPalette::Base, wanted);
    setPalette(colors);
  }
  horizontalHeader()->viewport()->update();
  viewport()->update();
  NoteMetrics();
  following_ = false;
  if (active) ShowSelection(list_.Selected());
}

void CaptionTable::TakeColumns() {
  if (following_ || !grid_.Active()) return;
  std::array<int, 4> widths = {};
  for (int column = 0; column < kColumns; ++column) {
    widths[static_cast<std::size_t>(column)] = columnWidth(column);
  }
  ColumnsChosen(&widths);
}

void CaptionTable::ShowSelection(Row row) {
  if (!grid_.Active() || row > model_.rowCount()) return;
  const QModelIndex index = model_.index(row - 1, 0);
  if (currentIndex() == index && selectionModel()->isRowSelected(row - 1)) return;
  following_ = true;
  const int top = verticalScrollBar()->value();
  setCurrentIndex(index);
  selectRow(row - 1);
  // The list decides itself which row is the first on show.
  verticalScrollBar()->setValue(top);
  following_ = false;
}

void CaptionTable::ShowTopRow() {
  // Rows that have just come need their places before the bar can reach them.
  if (verticalScrollBar()->maximum() < grid_.TopRow() - 1) updateGeometries();
  verticalScrollBar()->setValue(grid_.TopRow() - 1);
}

void CaptionTable::NoteMetrics() {
  grid_.NoteMetrics(viewport()->height() + verticalHeader()->defaultSectionSize(),
                    verticalHeader()->defaultSectionSize());
}

void CaptionTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (!grid_.Active()) setColumnWidth(0, width() - 4);
  NoteMetrics();
}

void CaptionTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::StyleChange) NoteMetrics();
}

void CaptionTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  setAttribute(Qt::WA_InputMethodEnabled, false);  // the base class turns it on again
  if (following_ || !current.isValid() || !grid_.Active()) return;
  list_.MoveSelection(current.row() + 1, !pointing_);
}

void CaptionTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (following_) return;
  // A screen reader selects a row without making it the current one.
  QMetaObject::invokeMethod(
      this,
      [this] {
        const QModelIndexList rows = selectionModel()->selectedRows();
        if (rows.size() == 1 && rows.front().row() != currentIndex().row()) setCurrentIndex(rows.front());
      },
      Qt::QueuedConnection);
}

void CaptionTable::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  // Behind the toolkit's own word that the table as a whole has the focus.
  QMetaObject::invokeMethod(this, &CaptionTable::SpeakCurrent, Qt::QueuedConnection);
}

void CaptionTable::SpeakCurrent() {
  if (!QAccessible::isActive() || !hasFocus() || !grid_.Active() || !currentIndex().isValid()) return;
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(this);
  if (table == nullptr || table->tableInterface() == nullptr) return;
  QAccessibleInterface* cell = table->tableInterface()->cellAt(currentIndex().row(), 0);
  if (cell == nullptr) return;
  QAccessibleEvent focus(cell, QAccessible::Focus);
  QAccessible::updateAccessibility(&focus);
}

void CaptionTable::contextMenuEvent(QContextMenuEvent* event) {
  // By the pointer the menu comes with the press.
  if (event->reason() == QContextMenuEvent::Keyboard) OpenMenu();
  event->accept();
}

void CaptionTable::OpenMenu() {
  if (!grid_.Active()) return;
  grid_.ScrollRow(false);
  const QRect row = visualRect(model_.index(list_.Selected() - 1, kColumns - 1));
  const int heading = verticalHeader()->defaultSectionSize();
  if (!commands_.OnListRightDown(row.center().y() + heading)) return;
  menu_.popup(viewport()->mapToGlobal(row.center()));
}

void CaptionTable::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    event->accept();
    return OpenMenu();
  }
  KeyEvent key = KeyEventOf(*event);
  commands_.OnListKey(key);
  if (key.handled) {
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

void CaptionTable::mousePressEvent(QMouseEvent* event) {
  // The list's rule counts from the control's top, where the heading has the height of a row.
  const int y = static_cast<int>(event->position().y()) + verticalHeader()->defaultSectionSize();
  if (event->button() == Qt::RightButton) {
    if (commands_.OnListRightDown(y)) menu_.popup(event->globalPosition().toPoint());
    return;
  }
  // The row must not move away below the pointer: its release and a second click are for the same one.
  pointing_ = true;
  QTableView::mousePressEvent(event);
  pointing_ = false;
}

void CaptionTable::mouseMoveEvent(QMouseEvent* event) {
  pointing_ = true;
  QTableView::mouseMoveEvent(event);
  pointing_ = false;
}

void CaptionTable::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) {
    commands_.OnListUp(static_cast<int>(event->position().y()) + verticalHeader()->defaultSectionSize());
  }
}

void CaptionTable::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) commands_.OnListDoubleClick();
}

bool CaptionTable::viewportEvent(QEvent* event) {
  // The menu comes by the press; the context-menu event would open it twice.
  if (event->type() == QEvent::ContextMenu &&
      static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse) {
    return true;
  }
  return QTableView::viewportEvent(event);
}

}  // namespace cuewright
