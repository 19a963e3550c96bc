#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <vector>

#include "capture/caption_grid.h"
#include "core/caption_list.h"
#include "forms/caption_commands.h"

namespace cuewright {

/// The rows of the caption list for a table view. It holds nothing: cells are read from the list when they are painted.
class CaptionModel final : public QAbstractTableModel {
 public:
  CaptionModel(CaptionList& list, CaptionGrid& grid, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  void ShowAnew();
  /// The list has changed while it was disabled.
  bool Missed() const { return missed_; }

 private:
  void OnSplice(const Splice& splice);

  CaptionList& list_;
  CaptionGrid& grid_;
  int shownRows_ = 0;
  bool missed_ = false;
  std::vector<Connection> connections_;
};

/// The list control `grdSubs`.
class CaptionTable final : public QTableView {
 public:
  CaptionTable(CaptionList& list, CaptionGrid& grid, CaptionCommands& commands, QMenu& menu, QWidget* parent);

  /// Height and row height go to the headless state.
  void NoteMetrics();

  /// The user drew the columns to these widths, or asked for the program's own (no widths).
  Signal<CaptionTable, const std::array<int, 4>*> ColumnsChosen;

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
  void changeEvent(QEvent* event) override;

 private:
  void ShowState();
  void ShowMissed();
  void TakeColumns();
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
  bool following_ = false;  // the view follows the list, not the other way
  bool pointing_ = false;   // the selection moves by the pointer
  std::vector<Connection> connections_;
};

}  // namespace cuewright
