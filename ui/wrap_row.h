#pragma once

#include <QLayout>
#include <vector>

#include "core/counting.h"

namespace cuewright {

/// Puts its items beside each other, in the reading direction, and goes on in a new line where the width ends.
class WrapRow final : public QLayout {
 public:
  /// `gap` is the distance in pixels between items and `lineGap` that between lines.
  WrapRow(QWidget* parent, int gap, int lineGap);
  ~WrapRow() override;

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  int count() const override { return CountOf(items_); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return Arrange({0, 0, width, 0}, false); }
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

 private:
  int Arrange(const QRect& rect, bool place) const;

  std::vector<QLayoutItem*> items_;
  int gap_;
  int lineGap_;
};

}  // namespace cuewright
