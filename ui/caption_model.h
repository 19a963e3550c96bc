#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "capture/caption_grid.h"
#include "core/caption_list.h"

namespace cuewright {

/// The rows of the caption list for a table view. It holds nothing: cells are read from the list when they are painted.
/// Its columns are those of `ListColumn`; in the classic manner number, start, end and text alone.
class CaptionModel final : public QAbstractTableModel {
 public:
  CaptionModel(CaptionList& list, CaptionGrid& grid, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// What a column of the view shows.
  ListColumn ColumnOf(int section) const;

  void ShowAnew();
  /// The list has changed while it was disabled.
  bool Missed() const { return missed_; }

 private:
  void OnSplice(const Splice& splice);
  void OnTouched(Row first, Row last);
  QVariant ClassicData(Row row, int column, int role) const;
  QVariant ShownData(Row row, int column, int role) const;

  CaptionList& list_;
  CaptionGrid& grid_;
  int shownRows_ = 0;
  bool missed_ = false;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
