#pragma once

#include <QLabel>

namespace cuewright {

/// A line of plain text that is shortened in its middle, where a path can spare most, when it has less room than it
/// needs. Then the whole of it is its tool tip.
class ElidedLabel final : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent);

  QSize minimumSizeHint() const override;
  /// The text as it is seen.
  QString ShownText() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextRect() const;
};

}  // namespace cuewright
