#pragma once

#include <QTableView>
#include <vector>

#include "capture/caption_grid.h"
#include "core/caption_list.h"
#include "forms/caption_commands.h"
#include "ui/caption_columns.h"
#include "ui/caption_delegate.h"
#include "ui/caption_model.h"

namespace cuewright {

/// The list control `grdSubs`.
class CaptionTable final : public QTableView {
 public:
  CaptionTable(CaptionList& list, CaptionGrid& grid, CaptionCommands& commands, QMenu& menu, QWidget* parent);

  /// Height and row height go to the headless state.
  void NoteMetrics();

  CaptionColumns& Columns() { return columns_; }
  /// The menu of the columns is to open here.
  Signal<CaptionTable, const QPoint&> HeaderMenuAsked;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyboardSearch(const QString&) override {}  // letters are shortcuts here
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  bool viewportEvent(QEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;
  void changeEvent(QEvent* event) override;

 private:
  void Follow();
  void WireHeader();
  void ShowState();
  void ShowFont();
  void ShowMissed();
  /// What a press of the left button selects; the row that the pointer is at, also above and below the list.
  void TakeRow(const QMouseEvent& event);
  Row PointedRow(int y) const;
  /// Keys that select several rows; false when the key is none of them.
  bool TakeSelectionKey(const QKeyEvent& event);
  /// The row to which a key goes from the current one; 0 for a key that goes to none.
  Row TargetOf(const QKeyEvent& event);
  void MirrorSelection();
  void ShowSelection(Row row);
  void ShowTopRow();
  void OpenMenu();
  /// A screen reader hears of the caption that has the focus.
  void SpeakCurrent();

  CaptionList& list_;
  CaptionGrid& grid_;
  CaptionCommands& commands_;
  QMenu& menu_;
  CaptionModel model_;
  CaptionDelegate* delegate_;
  CaptionColumns columns_;
  bool following_ = false;  // the view follows the list, not the other way
  bool pointing_ = false;   // the selection moves by the pointer
  bool drawing_ = false;    // a stretch of rows is drawn by the pointer
  std::vector<Connection> connections_;
};

}  // namespace cuewright
