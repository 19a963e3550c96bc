#pragma once

#include <QAbstractTableModel>
#include <QTreeView>

#include "form/sheet.h"

namespace cuewright {

class Binder;

/// The rows of a sheet for a view. Cells are read when they are painted.
class SheetModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  SheetModel(Sheet& sheet, QObject* parent) : QAbstractTableModel(parent), sheet_(sheet) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// Takes over what the sheet holds; `whole` when its rows are others.
  void Follow(bool whole);

 private:
  Sheet& sheet_;
};

/// A table of rows, of which the keyboard chooses and ticks one.
class SheetView final : public QTreeView {
  Q_OBJECT

 public:
  explicit SheetView(QWidget* parent);

  /// Binds the view to its sheet; the binder calls it.
  void Attach(Binder& binder, Sheet& sheet);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void ShowState();
  void SetWidths();

  Sheet* sheet_ = nullptr;
  SheetModel* model_ = nullptr;
  int edition_ = -1;
  bool following_ = false;  // the view follows the sheet, not the other way
};

}  // namespace cuewright
