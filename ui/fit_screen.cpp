#include "ui/fit_screen.h"

#include <QFrame>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

namespace cuewright {
namespace {

constexpr QSize kFrame(4, 40);
constexpr int kLeastLines = 6;

}  // namespace

QSize RoomOnScreen(const QWidget& window) { return window.screen()->availableGeometry().size() - kFrame; }

ContentScroll::ContentScroll(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  setWidget(content);
  // The window's own ground shows.
  content->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
}

QSize ContentScroll::sizeHint() const {
  // The minimum of a content that wraps is that of its least width.
  return widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
}

QSize ContentScroll::minimumSizeHint() const {
  const int least = fontMetrics().lineSpacing() * kLeastLines;
  return {std::min(widget()->minimumSizeHint().width(), 4 * least), least};
}

}  // namespace cuewright
