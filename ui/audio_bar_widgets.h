#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

#include "audio/audio_bar.h"
#include "audio/wave_board.h"

class QLabel;
class QPushButton;
class QSlider;

namespace cuewright {

class Binder;
class WaveBoardView;
class WaveDivider;

/// A picture in memory that the Audio bar paints on.
class ImageSurface final : public WaveSurface {
 public:
  ImageSurface(QWidget& shown, int width, int height);

  int InnerWidth() const override { return shown_.width(); }
  int InnerHeight() const override { return image_.height(); }
  void Clear(std::int32_t color) override;
  void SetPixel(int x, int y, std::int32_t color) override;
  void DrawLine(int x1, int y1, int x2, int y2, std::int32_t color) override;

  /// Shown by `Clear` instead of a colour.
  void SetScale(const QImage& scale) { scale_ = scale; }
  const QImage& Image() const { return image_; }

 private:
  QWidget& shown_;
  QImage image_;
  QImage scale_;
};

/// The wave `picWave` with the marks over it.
class WavePicture final : public QWidget {
 public:
  WavePicture(AudioBar& bar, QWidget* parent);

  ImageSurface& Surface() { return surface_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void ShowMarks();
  void UpdateColumn(int x);

  AudioBar& bar_;
  ImageSurface surface_;
  WaveMarks shownMarks_;
  std::vector<Connection> connections_;
};

/// The meter `picLevel` with its scale.
class LevelMeter final : public QWidget {
 public:
  LevelMeter(AudioBar& bar, QWidget* parent);

  ImageSurface& Surface() { return surface_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ImageSurface surface_;
  Connection changed_;
};

/// The Audio bar's widgets in the main window.
class AudioBarWidgets final : public AudioBarView {
 public:
  /// The widgets become children of `area`.
  AudioBarWidgets(AudioBar& bar, WaveBoard& board, Binder& binder, QWidget* area);
  ~AudioBarWidgets() override;

  /// Puts the widgets into the strip, which has the height of the wave in the manner in force.
  void Place(const QRect& strip);

  WaveSurface& Wave() override { return wave_->Surface(); }
  WaveSurface& Level() override { return level_->Surface(); }
  int ScreenWidth() const override;
  int WaveLeft() const override;

 private:
  void PlaceMarks();
  void PlaceArrow();
  bool IsWorkbench() const { return bar_.Window().picBoard.Visible(); }

  AudioBar& bar_;
  WaveBoard& board_;
  QWidget* area_;
  WavePicture* wave_;
  LevelMeter* level_;
  WaveBoardView* boardView_;
  WaveDivider* divider_;
  QSlider* slider_;
  QWidget* arrow_;
  QLabel* tip_;
  QLabel* progress_;
  QPushButton* stop_;
  int height_ = 0;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
