#include "ui/audio_bar_widgets.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPolygon>
#include <QPushButton>
#include <QScreen>
#include <QSlider>
#include <QtMath>

#include "ui/binder.h"
#include "ui/key_codes.h"
#include "ui/qt_color.h"
#include "ui/wave_board_view.h"
#include "ui/wave_divider.h"

namespace cuewright {
namespace {

constexpr int kLevelWidth = 21;
constexpr int kGap = 2;
constexpr int kSliderWidth = 24;
constexpr int kScaleWidth = 19;
constexpr int kScaleHeight = 69;
constexpr std::int32_t kMarkColor = 0x0000C0;
constexpr int kArrowWidth = 5;
constexpr int kArrowHeight = 6;
constexpr int kDividerHeight = 8;

/// Width of the widest screen there is, so that the window may go to any of them.
int WidestScreen() {
  int width = 0;
  for (const QScreen* screen : QGuiApplication::screens()) width = std::max(width, screen->geometry().width());
  return width;
}

/// The meter's scale, all of its 33 steps unlit.
QImage MeterScale() {
  QImage scale(kScaleWidth, kScaleHeight, QImage::Format_RGB32);
  scale.fill(QColor(0x20, 0x20, 0x20));
  QPainter painter(&scale);
  for (int i = 0; i <= 32; ++i) {
    painter.setPen(ColorOf(i < 25 ? 0x808000 : i < 29 ? 0x008080 : 0x000080));
    painter.drawLine(2, 66 - 2 * i, 15, 66 - 2 * i);
    if (i % 8 != 0) continue;
    painter.setPen(QColor(0xC0, 0xC0, 0xC0));
    painter.drawLine(17, 66 - 2 * i, 18, 66 - 2 * i);
  }
  return scale;
}

/// The arrow over the play position.
class Arrow final : public QWidget {
 public:
  explicit Arrow(QWidget* parent) : QWidget(parent) {
    setFixedSize(kArrowWidth, kArrowHeight);
    setAttribute(Qt::WA_TransparentForMouseEvents);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().windowText());
    painter.drawPolygon(QPolygon({{0, 0}, {kArrowWidth, 0}, {kArrowWidth / 2 + 1, kArrowHeight}}));
  }
};

/// A line that stands out from a wave of any colour: dark between two light ones.
void DrawMark(QPainter& painter, int x, int height) {
  painter.fillRect(x - 1, 0, 3, height, Qt::white);
  painter.fillRect(x, 0, 1, height, ColorOf(kMarkColor));
}

MouseButton HeldButton(Qt::MouseButtons buttons) {
  if (buttons & Qt::LeftButton) return MouseButton::Left;
  if (buttons & Qt::RightButton) return MouseButton::Right;
  return MouseButton::None;
}

}  // namespace

ImageSurface::ImageSurface(QWidget& shown, int width, int height)
    : shown_(shown), image_(width, height, QImage::Format_RGB32) {
  image_.fill(Qt::black);
}

void ImageSurface::Clear(std::int32_t color) {
  image_.fill(ColorOf(color));
  if (!scale_.isNull()) QPainter(&image_).drawImage(0, 0, scale_);
}

void ImageSurface::SetPixel(int x, int y, std::int32_t color) { DrawLine(x, y, x, y, color); }

void ImageSurface::DrawLine(int x1, int y1, int x2, int y2, std::int32_t color) {
  const int left = std::max(std::min(x1, x2), 0);
  const int right = std::min(std::max(x1, x2), image_.width() - 1);
  const int top = std::max(std::min(y1, y2), 0);
  const int bottom = std::min(std::max(y1, y2), image_.height() - 1);
  if (left > right || top > bottom) return;
  const QRgb rgb = ColorOf(color).rgb();
  const int stride = image_.width();  // lines of 32-bit pixels follow each other without a gap
  QRgb* line = reinterpret_cast<QRgb*>(image_.bits()) + top * stride;
  for (int y = top; y <= bottom; ++y, line += stride) std::fill(line + left, line + right + 1, rgb);
}

WavePicture::WavePicture(AudioBar& bar, QWidget* parent)
    : QWidget(parent), bar_(bar), surface_(*this, WidestScreen() + 1, AudioBar::kHeight) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  connections_.push_back(bar_.MarksChanged.ConnectScoped([this] { ShowMarks(); }));
  connections_.push_back(bar_.WaveChanged.ConnectScoped([this] { update(); }));
}

void WavePicture::UpdateColumn(int x) { update(x - 1, 0, 3, height()); }

void WavePicture::ShowMarks() {
  const WaveMarks& marks = bar_.Marks();
  WaveMarks moved = marks;
  moved.position = shownMarks_.position;
  moved.arrowLeft = shownMarks_.arrowLeft;
  if (moved == shownMarks_) {
    // While the film plays only the position moves.
    UpdateColumn(shownMarks_.position);
    UpdateColumn(marks.position);
  } else {
    update();
  }
  if (marks.seeking != shownMarks_.seeking) {
    marks.seeking ? setCursor(Qt::SplitHCursor) : unsetCursor();
  }
  shownMarks_ = marks;
}

void WavePicture::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.drawImage(event->rect(), surface_.Image(), event->rect());
  const WaveMarks& marks = bar_.Marks();
  if (marks.captionShown) {
    painter.fillRect(marks.spanLeft, 0, marks.spanWidth - 1, height(), QColor(120, 120, 255, 90));
    DrawMark(painter, marks.start, height());
    DrawMark(painter, marks.end, height());
  }
  if (marks.positionShown) painter.fillRect(marks.position, 0, 1, height(), ColorOf(marks.positionColor));
}

void WavePicture::mousePressEvent(QMouseEvent* event) {
  bar_.OnPress(MouseButtonOf(event->button()), qFloor(event->position().x()));
}

void WavePicture::mouseMoveEvent(QMouseEvent* event) {
  bar_.OnMove(HeldButton(event->buttons()), qFloor(event->position().x()));
}

void WavePicture::mouseReleaseEvent(QMouseEvent* event) { bar_.OnRelease(MouseButtonOf(event->button())); }

void WavePicture::leaveEvent(QEvent*) { bar_.OnPointerElsewhere(); }

void WavePicture::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

LevelMeter::LevelMeter(AudioBar& bar, QWidget* parent)
    : QWidget(parent), surface_(*this, kLevelWidth, AudioBar::kHeight) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  surface_.SetScale(MeterScale());
  surface_.Clear(0);
  changed_ = bar.LevelChanged.ConnectScoped([this] { update(); });
}

void LevelMeter::paintEvent(QPaintEvent*) { QPainter(this).drawImage(0, 0, surface_.Image()); }

AudioBarWidgets::AudioBarWidgets(AudioBar& bar, WaveBoard& board, Binder& binder, QWidget* area)
    : bar_(bar),
      board_(board),
      area_(area),
      wave_(binder.Bind(bar.Window().picWave, new WavePicture(bar, area))),
      level_(binder.Bind(bar.Window().picLevel, new LevelMeter(bar, area))),
      boardView_(binder.Bind(bar.Window().picBoard, new WaveBoardView(board, area))),
      divider_(binder.Bind(bar.Window().imgWaveSize, new WaveDivider(area))),
      slider_(binder.Bind(bar.Window().sldWavScale, new QSlider(Qt::Vertical, area))),
      arrow_(binder.Bind(bar.Window().imgWavPos, new Arrow(area))),
      tip_(binder.Bind(bar.Window().lblWaveTip, new QLabel(wave_))),
      progress_(binder.Bind(bar.Window().lblWave, new QLabel(area))),
      stop_(binder.Bind(bar.Window().cmdStopSound, new QPushButton(area))) {
  slider_->setPageStep(4000);
  slider_->setSingleStep(1000);
  progress_->setAutoFillBackground(true);
  progress_->setContentsMargins(6, 2, 6, 2);
  tip_->setAutoFillBackground(true);
  tip_->setBackgroundRole(QPalette::ToolTipBase);
  tip_->setForegroundRole(QPalette::ToolTipText);
  tip_->setContentsMargins(4, 1, 4, 1);
  tip_->setAttribute(Qt::WA_TransparentForMouseEvents);
  connections_.push_back(bar_.MarksChanged.ConnectScoped([this] { PlaceMarks(); }));
  MainWindow& window = bar_.Window();
  for (Control* control : std::initializer_list<Control*>{&window.lblWave, &window.lblWaveTip, &window.cmdStopSound}) {
    connections_.push_back(control->Changed.ConnectScoped([this] { PlaceMarks(); }));
  }
  connections_.push_back(board_.PositionChanged.ConnectScoped([this] { PlaceArrow(); }));
  connections_.push_back(board_.Changed.ConnectScoped([this] { PlaceArrow(); }));
  divider_->Moved.Connect([this](int by) { board_.SetHeight(boardView_->height() + by); });
  bar_.SetView(this);
}

AudioBarWidgets::~AudioBarWidgets() { bar_.SetView(nullptr); }

// Where the strip isn't shown nothing is painted into it.
int AudioBarWidgets::ScreenWidth() const { return IsWorkbench() ? 0 : WidestScreen(); }

int AudioBarWidgets::WaveLeft() const { return wave_->x(); }

void AudioBarWidgets::Place(const QRect& strip) {
  level_->setGeometry(strip.left(), strip.top(), kLevelWidth, std::min(strip.height(), AudioBar::kHeight));
  const int left = strip.left() + kLevelWidth + kGap;
  wave_->setGeometry(left, strip.top(), std::max(strip.right() + 1 - left, 0), strip.height());
  boardView_->setGeometry(wave_->geometry());
  divider_->setGeometry(strip.left(), strip.top() - kDividerHeight, strip.width(), kDividerHeight);
  // The strip leaves room for the bar at the window's far side.
  const bool mirrored = area_->layoutDirection() == Qt::RightToLeft;
  slider_->setGeometry(mirrored ? strip.left() - kGap - kSliderWidth : strip.right() + 1 + kGap, strip.top(),
                       kSliderWidth, strip.height());
  arrow_->raise();
  PlaceMarks();
  if (strip.height() == height_) return;
  height_ = strip.height();
  bar_.Repaint();
}

void AudioBarWidgets::PlaceArrow() {
  if (!IsWorkbench()) return arrow_->move(bar_.Marks().arrowLeft, wave_->y() - kArrowHeight);
  const std::optional<int> position = board_.PositionX();
  // Out of the picture there is no position to point at.
  arrow_->move(position ? boardView_->x() + *position - kArrowWidth / 2 : -kArrowWidth, wave_->y() - kArrowHeight);
}

void AudioBarWidgets::PlaceMarks() {
  PlaceArrow();
  tip_->adjustSize();
  progress_->adjustSize();
  stop_->adjustSize();
  // Over the strip they stand at its top, over the other wave below the captions.
  constexpr int kMargin = 6;
  const int top = IsWorkbench() ? wave_->height() - stop_->height() - kMargin : kMargin;
  progress_->move(wave_->x() + kMargin, wave_->y() + top);
  stop_->move(progress_->geometry().right() + 7, progress_->y() + (progress_->height() - stop_->height()) / 2);
  const int most = std::max(wave_->width() - tip_->width(), 0);
  tip_->move(std::clamp(bar_.Marks().start + 4, 0, most), wave_->height() - tip_->height() - 2);
}

}  // namespace cuewright
