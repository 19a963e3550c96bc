#include "ui/fit_screen.h"

#include <QFrame>
#include <QLayout>
#include <QScreen>
#include <QScrollBar>

namespace cuewright {
namespace {

constexpr QSize kFrame(16, 40);
constexpr int kLeastLines = 6;

}  // namespace

QSize RoomOnScreen(const QWidget& window) { return window.screen()->availableGeometry().size() - kFrame; }

ContentScroll::ContentScroll(QWidget* content, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
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
  return {widget()->minimumSizeHint().width(), fontMetrics().lineSpacing() * kLeastLines};
}

}  // namespace cuewright
