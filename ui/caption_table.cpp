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
#include <algorithm>
#include <iterator>
#include <utility>

#include "ui/key_codes.h"
#include "ui/larger_font.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kClassicPadding = 6;
constexpr int kCalmPadding = 11;

/// Keys that go through the rows; the names of how a table's cursor moves are the toolkit's.
constexpr std::pair<int, bool> kSteps[] = {{Qt::Key_Up, false},      {Qt::Key_Down, true},  {Qt::Key_PageUp, false},
                                           {Qt::Key_PageDown, true}, {Qt::Key_Home, false}, {Qt::Key_End, true}};

}  // namespace

CaptionTable::CaptionTable(CaptionList& list, CaptionGrid& grid, CaptionCommands& commands, QMenu& menu,
                           QWidget* parent)
    : QTableView(parent),
      list_(list),
      grid_(grid),
      commands_(commands),
      menu_(menu),
      model_(list, grid, this),
      delegate_(new CaptionDelegate(list, grid, model_, this)),
      columns_(*this, grid, model_, *delegate_) {
  setObjectName("grdSubs");
  setAccessibleName("Captions");
  setModel(&model_);
  setItemDelegate(delegate_);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  WireHeader();
  Follow();
  model_.ShowAnew();
  ShowState();
}

void CaptionTable::WireHeader() {
  QHeaderView& header = *horizontalHeader();
  header.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&header, &QHeaderView::sectionClicked, this, [this] { commands_.OnListUp(0); });
  connect(&header, &QHeaderView::customContextMenuRequested, this, [this](const QPoint& place) {
    if (grid_.Active() && grid_.IsWorkbench()) HeaderMenuAsked(horizontalHeader()->mapToGlobal(place));
  });
}

void CaptionTable::Follow() {
  connections_.push_back(grid_.Changed.ConnectScoped([this] { ShowState(); }));
  connections_.push_back(grid_.Scrolled.ConnectScoped([this] { ShowTopRow(); }));
  connections_.push_back(grid_.FocusRequested.ConnectScoped([this] { setFocus(); }));
  connections_.push_back(list_.SelectionChanged.ConnectScoped([this](Row row) { ShowSelection(row); }));
  connections_.push_back(list_.EnabledChanged.ConnectScoped([this](bool on) {
    setUpdatesEnabled(on);
    if (on) ShowMissed();
  }));
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int top) { grid_.NoteTopRow(top + 1); });
}

void CaptionTable::ShowMissed() {
  const Row top = grid_.TopRow();
  if (model_.Missed()) model_.ShowAnew();
  ShowState();
  grid_.SetTopRow(std::min(top, list_.Rows() - 1));
}

void CaptionTable::ShowState() {
  following_ = true;
  const auto held = columns_.Hold();
  const bool active = grid_.Active();
  if (model_.rowCount() != list_.Count() || horizontalHeader()->count() != model_.columnCount()) {
    model_.ShowAnew();
  }
  ShowFont();
  const bool workbench = active && grid_.IsWorkbench();
  setSelectionMode(workbench ? ExtendedSelection : SingleSelection);
  setShowGrid(active && !workbench);
  setEnabled(grid_.Enabled() || active);
  columns_.Show();
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

void CaptionTable::ShowFont() {
  QFont rowFont = grid_.IsWorkbench() ? LargerFont() : font();
  if (!grid_.FontName().empty()) {
    rowFont = QFont(ToQt(grid_.FontName()), grid_.FontSize(), grid_.FontBold() ? QFont::Bold : QFont::Normal);
  }
  if (font() != rowFont) setFont(rowFont);
  const int padding = grid_.Active() && grid_.IsWorkbench() ? kCalmPadding : kClassicPadding;
  const int rowHeight = QFontMetrics(rowFont).height() + padding;
  if (verticalHeader()->defaultSectionSize() == rowHeight) return;
  verticalHeader()->setMinimumSectionSize(rowHeight);
  verticalHeader()->setDefaultSectionSize(rowHeight);
}

void CaptionTable::ShowSelection(Row row) {
  if (!grid_.Active() || row > model_.rowCount()) return;
  const QModelIndex index = model_.index((row - 1).Number(), 0);
  const RowSet& rows = list_.SelectedRows();
  const bool alone = rows == RowSet(row);
  if (alone && currentIndex() == index && selectionModel()->isRowSelected(index.row()) &&
      selectionModel()->selection().size() == 1 && selectionModel()->selection().front().height() == 1) {
    return;
  }
  following_ = true;
  const int top = verticalScrollBar()->value();
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  MirrorSelection();
  // The list decides itself which row is the first on show.
  verticalScrollBar()->setValue(top);
  following_ = false;
}

void CaptionTable::MirrorSelection() {
  QItemSelection selection;
  const int last = model_.columnCount() - 1;
  for (const RowSet::Stretch& stretch : list_.SelectedRows().Stretches()) {
    if (stretch.last > model_.rowCount()) break;
    selection.select(model_.index((stretch.first - 1).Number(), 0), model_.index((stretch.last - 1).Number(), last));
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void CaptionTable::ShowTopRow() {
  // Rows that have just come need their places before the bar can reach them.
  if (verticalScrollBar()->maximum() < grid_.TopRow() - 1) updateGeometries();
  verticalScrollBar()->setValue((grid_.TopRow() - 1).Number());
}

void CaptionTable::NoteMetrics() {
  grid_.NoteMetrics(viewport()->height() + verticalHeader()->defaultSectionSize(),
                    verticalHeader()->defaultSectionSize());
}

void CaptionTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  columns_.Fit();
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
  if (following_ || selected.isEmpty()) return;
  // A screen reader selects a row without making it the current one.
  const int row = selected.front().top();
  QMetaObject::invokeMethod(
      this,
      [this, row] {
        if (row < model_.rowCount() && row != currentIndex().row()) setCurrentIndex(model_.index(row, 0));
      },
      Qt::QueuedConnection);
}

QItemSelectionModel::SelectionFlags CaptionTable::selectionCommand(const QModelIndex& index,
                                                                   const QEvent* event) const {
  // What is selected is the list's alone; the view mirrors it.
  if (grid_.Active() && grid_.IsWorkbench()) return QItemSelectionModel::NoUpdate;
  return QTableView::selectionCommand(index, event);
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
  const QRect row = visualRect(model_.index((list_.Selected() - 1).Number(), model_.columnCount() - 1));
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
  if (key.handled || TakeSelectionKey(*event)) {
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

Row CaptionTable::TargetOf(const QKeyEvent& event) {
  const auto* const step = std::ranges::find(kSteps, event.key(), &std::pair<int, bool>::first);
  if (step == std::end(kSteps)) return 0;
  const Row row = list_.Selected();
  const int page = std::max(viewport()->height() / verticalHeader()->defaultSectionSize() - 1, 1);
  const bool ends = event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
  const int far = ends ? list_.Count() : event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown ? page : 1;
  return std::clamp<Row>(row + (step->second ? far : -far), 1, list_.Rows() - 1);
}

bool CaptionTable::TakeSelectionKey(const QKeyEvent& event) {
  if (!grid_.Active() || !grid_.IsWorkbench() || (event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0) {
    return false;
  }
  const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
  const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
  if (event.key() == Qt::Key_Space && control) {
    grid_.selection.Toggle(list_.Selected());
    return true;
  }
  const Row target = TargetOf(event);
  if (target == 0) return false;
  const bool ends = event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
  if (shift && control && !ends) {
    grid_.selection.AddTo(target, true);
  } else if (shift) {
    grid_.selection.ExtendTo(target, true);
  } else if (control && !ends) {
    grid_.selection.MoveCurrent(target);
  } else {
    list_.MoveSelection(target);
  }
  return true;
}

Row CaptionTable::PointedRow(int y) const {
  const Row row = grid_.TopRow() + (y / std::max(verticalHeader()->defaultSectionSize(), 1) - (y < 0 ? 1 : 0));
  return std::clamp<Row>(row, 1, list_.Rows() - 1);
}

void CaptionTable::TakeRow(const QMouseEvent& event) {
  const QModelIndex index = indexAt(event.position().toPoint());
  drawing_ = index.isValid();
  if (!index.isValid()) return;
  const Row row = index.row() + 1;
  const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
  if ((event.modifiers() & Qt::ShiftModifier) != 0) {
    control ? grid_.selection.AddTo(row) : grid_.selection.ExtendTo(row);
  } else if (control) {
    grid_.selection.Toggle(row);
    drawing_ = false;
  } else {
    list_.MoveSelection(row, false);
  }
}

void CaptionTable::mousePressEvent(QMouseEvent* event) {
  // The list's rule counts from the control's top, where the heading has the height of a row.
  const int y = event->position().toPoint().y() + verticalHeader()->defaultSectionSize();
  if (event->button() == Qt::RightButton) {
    if (commands_.OnListRightDown(y)) menu_.popup(event->globalPosition().toPoint());
    return;
  }
  if (grid_.Active() && grid_.IsWorkbench()) {
    if (event->button() == Qt::LeftButton) TakeRow(*event);
    event->accept();
    return;
  }
  // The row must not move away below the pointer: its release and a second click are for the same one.
  pointing_ = true;
  QTableView::mousePressEvent(event);
  pointing_ = false;
}

void CaptionTable::mouseMoveEvent(QMouseEvent* event) {
  if (grid_.Active() && grid_.IsWorkbench()) {
    const int y = event->position().toPoint().y();
    const Row row = PointedRow(y);
    const bool outside = y < 0 || y >= viewport()->height();
    if (drawing_ && event->buttons() == Qt::LeftButton && row != list_.Selected()) {
      grid_.selection.ExtendTo(row, outside);
    }
    return;
  }
  pointing_ = true;
  QTableView::mouseMoveEvent(event);
  pointing_ = false;
}

void CaptionTable::mouseReleaseEvent(QMouseEvent* event) {
  const bool drawn = std::exchange(drawing_, false);
  if (!grid_.Active() || !grid_.IsWorkbench()) {
    QTableView::mouseReleaseEvent(event);
  } else if (drawn || indexAt(event->position().toPoint()).isValid()) {
    return;
  }
  if (event->button() == Qt::LeftButton) {
    commands_.OnListUp(event->position().toPoint().y() + verticalHeader()->defaultSectionSize());
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
