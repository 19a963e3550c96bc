#include "ui/sync_line.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "core/counting.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr double kLeastWidth = 4;  ///< of a block, so that it can be seen and met
constexpr double kRound = 3;
constexpr int kMarkWidth = 4;  ///< of the mark at the head of what was set by hand

QColor Faded(QColor color, int alpha) {
  color.setAlpha(alpha);
  return color;
}

}  // namespace

SyncLine::SyncLine(SyncPage& page, QWidget* parent)
    : QWidget(parent), page_(page), connection_(page.Shown.ConnectScoped([this] {
        blocks_ = page_.Blocks();
        update();
      })) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize SyncLine::sizeHint() const { return {200, fontMetrics().lineSpacing() + 12}; }

QRectF SyncLine::PlaceOf(const SyncBlock& block) const {
  Ms last = 1;
  for (const SyncBlock& each : blocks_) last = std::max(last, each.end);
  const double scale = (width() - 2.0) / last.Count();
  const double left = 1 + scale * std::max<Ms>(block.start, 0).Count();
  const double right = 1 + scale * block.end.Count();
  return {left, 1, std::max(kLeastWidth, right - left), height() - 2.0};
}

int SyncLine::BlockAt(const QPointF& point) const {
  const auto at = std::ranges::find_if(blocks_, [&](const SyncBlock& block) { return PlaceOf(block).contains(point); });
  return at == blocks_.end() ? -1 : static_cast<int>(at - blocks_.begin());
}

void SyncLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), palette().base());
  const QColor accent = palette().highlight().color();
  for (const SyncBlock& block : blocks_) {
    const QRectF place = PlaceOf(block);
    const bool doubtful = block.sureness == SyncSureness::Doubtful;
    painter.setPen(QPen(block.chosen ? palette().text().color() : accent, block.chosen ? 2 : 1,
                        doubtful ? Qt::DashLine : Qt::SolidLine));
    painter.setBrush(doubtful ? QBrush(Faded(accent, 150), Qt::BDiagPattern) : QBrush(Faded(accent, 60)));
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), kRound, kRound);
    if (block.sureness == SyncSureness::Fixed) {
      painter.fillRect(QRectF(place.left() + 2, place.top() + 2, kMarkWidth, place.height() - 4), palette().text());
    }
    const QRectF room = place.adjusted(kMarkWidth + 4, 0, -3, 0);
    const QString text = ToQt(block.offset);
    if (fontMetrics().horizontalAdvance(text) > room.width()) continue;
    // Letters over a hatching are hard to read.
    const QRectF words = painter.boundingRect(room, Qt::AlignCenter, text);
    if (doubtful) painter.fillRect(words.adjusted(-3, 0, 3, 0), palette().base());
    painter.setPen(palette().text().color());
    painter.drawText(room, Qt::AlignCenter, text);
  }
}

void SyncLine::mousePressEvent(QMouseEvent* event) {
  const int block = BlockAt(event->position());
  if (event->button() == Qt::LeftButton && block >= 0) page_.lstSegments.Choose(block);
}

bool SyncLine::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const int block = BlockAt(help.pos());
  QToolTip::showText(help.globalPos(), block < 0 ? QString() : ToQt(ItemAt(page_.lstSegments.Items(), block)), this);
  return true;
}

}  // namespace cuewright
