#include "ui/input_instants.h"

#include <QCoreApplication>
#include <QInputEvent>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace cuewright {
namespace {

constexpr double kHalfStamp = 0.0005;  // stamps are cut off to whole ms
constexpr double kEarliest = -0.1;
constexpr double kLatest = 10;  // seconds of the player's history

double Now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

}  // namespace

std::optional<double> InstantOfStamp(quint64 stamp, double now) {
  if (stamp == 0) return std::nullopt;
  // Stamps have 32 bits and begin anew after 49 days.
  const double whole = std::floor(now * 1000);
  const auto late = static_cast<qint32>(static_cast<quint64>(whole) - stamp);
  const double lag = (late + (now * 1000 - whole)) / 1000 - kHalfStamp;
  if (lag < kEarliest || lag > kLatest) return now;
  return now - std::max(lag, 0.0);
}

InputInstants::InputInstants(MainWindow& form) : form_(form) { qApp->installEventFilter(this); }

InputInstants::~InputInstants() { qApp->removeEventFilter(this); }

bool InputInstants::eventFilter(QObject* /*object*/, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
      break;
    default:
      return false;
  }
  form_.inputInstant = InstantOfStamp(static_cast<QInputEvent*>(event)->timestamp(), Now());
  if (!clearing_) {
    clearing_ = true;
    // The instant holds for this event only, not for a timer or a command behind it.
    QMetaObject::invokeMethod(
        this,
        [this] {
          clearing_ = false;
          form_.inputInstant.reset();
        },
        Qt::QueuedConnection);
  }
  return false;
}

}  // namespace cuewright
