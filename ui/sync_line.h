#pragma once

#include <QWidget>
#include <vector>

#include "forms/sync_page.h"

namespace cuewright {

/// The time line of `SyncPage`: each segment where its captions will be in the film, with its offset. A doubtful one
/// is hatched, one that was set by hand has a mark at its head; a click chooses. Time runs from left to right in every
/// language.
class SyncLine final : public QWidget {
 public:
  SyncLine(SyncPage& page, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// Where a block is, left and right within the widget.
  QRectF PlaceOf(const SyncBlock& block) const;
  /// The block under a point; -1: none.
  int BlockAt(const QPointF& point) const;

  SyncPage& page_;
  std::vector<SyncBlock> blocks_;
  Connection connection_;
};

}  // namespace cuewright
