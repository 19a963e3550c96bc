#include "ui/wave_board_view.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QWheelEvent>
#include <QtMath>
#include <cmath>
#include <optional>

#include "ui/key_codes.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr double kUnitsATurn = 120;  // of the wheel
constexpr QColor kPosition(255, 240, 90);

BoardHeld HeldOf(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier)};
}

std::optional<BoardKey> BoardKeyOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return BoardKey::Left;
    case Qt::Key_Right:
      return BoardKey::Right;
    case Qt::Key_Up:
      return BoardKey::Up;
    case Qt::Key_Down:
      return BoardKey::Down;
    case Qt::Key_PageUp:
      return BoardKey::PageUp;
    case Qt::Key_PageDown:
      return BoardKey::PageDown;
    case Qt::Key_Home:
      return BoardKey::Home;
    case Qt::Key_End:
      return BoardKey::End;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return BoardKey::Enter;
    case Qt::Key_Escape:
      return BoardKey::Escape;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return BoardKey::Nearer;
    case Qt::Key_Minus:
      return BoardKey::Farther;
    default:
      return {};
  }
}

/// Words that are longer than their place are cut, without the cost of measuring them.
void Write(QPainter& painter, const QRect& place, const QString& words) {
  painter.save();
  painter.setClipRect(place);
  const Qt::Alignment side = words.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
  painter.drawText(place, Qt::TextSingleLine | (side | Qt::AlignAbsolute | Qt::AlignVCenter).toInt(), words);
  painter.restore();
}

}  // namespace

WaveBoardView::WaveBoardView(WaveBoard& board, QWidget* parent) : QWidget(parent), board_(board) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setLayoutDirection(Qt::LeftToRight);
  grabGesture(Qt::PinchGesture);
  connections_.push_back(board_.Changed.ConnectScoped([this] {
    painted_ = false;
    update();
  }));
  connections_.push_back(board_.PositionChanged.ConnectScoped([this] { ShowPosition(); }));
  connections_.push_back(board_.SpokenChanged.ConnectScoped([this] { Speak(); }));
}

void WaveBoardView::Repaint() {
  if (image_.size() != size()) image_ = QImage(size(), QImage::Format_RGB32);
  if (image_.isNull()) return;
  // Lines of 32-bit pixels follow each other without a gap.
  const int stride = image_.width();
  board_.Paint({reinterpret_cast<std::uint32_t*>(image_.bits()), stride, image_.width(), image_.height()});
  WriteWords();
  painted_ = true;
}

void WaveBoardView::WriteWords() {
  QPainter painter(&image_);
  QFont small = font();
  small.setPointSizeF(std::max(small.pointSizeF() * 0.85, 6.0));
  for (const BoardWord& word : board_.Words()) {
    const QString text = ToQt(word.text);
    QRect place(word.left, word.band.top, word.width, word.band.Height());
    if (word.kind == BoardWord::Kind::Snap) {
      painter.setFont(small);
      place.setSize({painter.fontMetrics().horizontalAdvance(text) + 8, painter.fontMetrics().height() + 2});
      if (place.right() > width()) place.moveRight(word.left - 12);
      painter.fillRect(place, QColor(0x10, 0x30, 0x10));
      painter.setPen(QColor(0x90, 0xFF, 0x90));
      Write(painter, place.adjusted(4, 0, 0, 0), text);
      continue;
    }
    const bool time = word.kind == BoardWord::Kind::Time;
    painter.setFont(time ? small : font());
    painter.setPen(time ? QColor(0x9A, 0x9A, 0x9A) : QColor(Qt::white));
    Write(painter, place, text);
  }
}

void WaveBoardView::paintEvent(QPaintEvent* event) {
  if (!painted_) Repaint();
  QPainter painter(this);
  painter.drawImage(event->rect(), image_, event->rect());
  const std::optional<int> x = board_.PositionX();
  position_ = x.value_or(-1);
  if (x) painter.fillRect(*x, 0, 1, height(), kPosition);
  if (hasFocus()) {
    painter.setPen(palette().highlight().color());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

void WaveBoardView::ShowPosition() {
  update(position_ - 1, 0, 3, height());
  update(board_.PositionX().value_or(-1) - 1, 0, 3, height());
}

void WaveBoardView::resizeEvent(QResizeEvent*) {
  board_.SetSize(width(), height());
  painted_ = false;
}

void WaveBoardView::mousePressEvent(QMouseEvent* event) {
  board_.Press(MouseButtonOf(event->button()), qFloor(event->position().x()), qFloor(event->position().y()),
               HeldOf(event->modifiers()));
}

void WaveBoardView::mouseMoveEvent(QMouseEvent* event) {
  const int x = qFloor(event->position().x());
  const int y = qFloor(event->position().y());
  board_.Move(x, y, HeldOf(event->modifiers()));
  ShowPointer(x, y, HeldOf(event->modifiers()));
}

void WaveBoardView::mouseReleaseEvent(QMouseEvent* event) {
  board_.Release(HeldOf(event->modifiers()));
  unsetCursor();
}

void WaveBoardView::ShowPointer(int x, int y, BoardHeld held) {
  switch (board_.PointerAt(x, y, held)) {
    case BoardPointer::Edge:
      return setCursor(Qt::SizeHorCursor);
    case BoardPointer::Move:
      return setCursor(Qt::ClosedHandCursor);
    case BoardPointer::Seek:
      return setCursor(Qt::PointingHandCursor);
    case BoardPointer::Usual:
      return unsetCursor();
  }
}

void WaveBoardView::wheelEvent(QWheelEvent* event) {
  const QPoint angle = event->angleDelta();
  const int units = std::abs(angle.x()) > std::abs(angle.y()) ? angle.x() : angle.y();
  board_.Wheel(units / kUnitsATurn, qFloor(event->position().x()), HeldOf(event->modifiers()));
  event->accept();
}

bool WaveBoardView::OnGesture(const QGestureEvent& event) {
  const auto* pinch = static_cast<const QPinchGesture*>(event.gesture(Qt::PinchGesture));
  if (pinch == nullptr) return false;
  board_.Pinch(pinch->scaleFactor(), mapFromGlobal(pinch->centerPoint().toPoint()).x());
  return true;
}

bool WaveBoardView::event(QEvent* event) {
  if (event->type() == QEvent::Gesture && OnGesture(*static_cast<QGestureEvent*>(event))) return true;
  if (event->type() == QEvent::NativeGesture) {
    const auto* native = static_cast<QNativeGestureEvent*>(event);
    if (native->gestureType() == Qt::ZoomNativeGesture) {
      board_.Pinch(1 + native->value(), qFloor(native->position().x()));
      return true;
    }
  }
  return QWidget::event(event);
}

void WaveBoardView::keyPressEvent(QKeyEvent* event) {
  const std::optional<BoardKey> key = BoardKeyOf(event->key());
  if (!key || !board_.Press(*key, HeldOf(event->modifiers()))) QWidget::keyPressEvent(event);
}

void WaveBoardView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  Speak();
}

void WaveBoardView::Speak() {
  setAccessibleDescription(ToQt(board_.Spoken()));
  QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&changed);
}

void WaveBoardView::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

}  // namespace cuewright
