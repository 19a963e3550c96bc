#pragma once

#include <QStyledItemDelegate>

#include "ui/caption_model.h"

namespace cuewright {

/// Paints the cells of the caption list: figures one below the other, texts in their styles and each in its own
/// direction, a bar and a sign for what is found of a row, and where the film is. In the classic manner plain cells.
class CaptionDelegate final : public QStyledItemDelegate {
 public:
  CaptionDelegate(const CaptionList& list, const CaptionGrid& grid, const CaptionModel& model, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  /// The width that a column needs for what usually stands in it, and for its heading.
  int UsualWidth(ListColumn column, const QFont& font) const;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  void PaintGround(QPainter& painter, const QStyleOptionViewItem& option, Row row) const;
  /// Bar and signs of the row; the rest of the cell is left to the number.
  QRect PaintSigns(QPainter& painter, const QStyleOptionViewItem& option, Row row) const;
  void PaintMove(QPainter& painter, const QStyleOptionViewItem& option, const QPointF& middle,
                 RowMoves::Kind move) const;
  void PaintText(QPainter& painter, const QStyleOptionViewItem& option, Row row) const;
  QColor TextColor(const QStyleOptionViewItem& option, Row row) const;

  const CaptionList& list_;
  const CaptionGrid& grid_;
  const CaptionModel& model_;
};

}  // namespace cuewright
