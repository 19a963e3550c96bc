#pragma once

#include <QFrame>

class QLabel;

namespace cuewright {

class Binder;
class Label;
class Picture;

/// How a word is drawn as a sample. An invalid background is that of the window.
struct SampleStyle {
  QFont font;
  QColor color;
  QColor background;
  Qt::Alignment alignment = Qt::AlignCenter;
  int shadowShift = 0;  ///< pixels, right and down
};

/// A framed area that shows a word as captions will look: a label over the area, and where wanted a shadow under it.
class SampleArea final : public QFrame {
 public:
  /// `shadow` may be null.
  SampleArea(Binder& binder, Picture& area, Label& label, Label* shadow, QWidget* parent);

  void ShowStyle(const SampleStyle& style);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Place();

  QLabel* label_;
  QLabel* shadow_ = nullptr;
  int shift_ = 0;
};

}  // namespace cuewright
