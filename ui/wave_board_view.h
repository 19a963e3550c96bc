#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

#include "audio/wave_board.h"

class QGestureEvent;

namespace cuewright {

/// The wave to work in, `picBoard`: shows what `WaveBoard` paints, writes its words, and hands it what hands and keys
/// do. Time runs from left to right in every language.
class WaveBoardView final : public QWidget {
 public:
  WaveBoardView(WaveBoard& board, QWidget* parent);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void Repaint();
  void WriteWords();
  void ShowPosition();
  void ShowPointer(int x, int y, BoardHeld held);
  void Speak();
  bool OnGesture(const QGestureEvent& event);

  WaveBoard& board_;
  QImage image_;
  bool painted_ = false;
  int position_ = -1;  ///< where the position is shown
  std::vector<Connection> connections_;
};

}  // namespace cuewright
