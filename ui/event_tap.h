#pragma once

#include <QObject>
#include <utility>

namespace cuewright {

/// Hands each event of `watched` to a function while `owner` lives; true from the function keeps it from the widget.
template <class Handle>
class EventTap final : public QObject {
 public:
  EventTap(QObject& owner, QObject& watched, Handle handle) : QObject(&owner), handle_(std::move(handle)) {
    watched.installEventFilter(this);
  }

  bool eventFilter(QObject* /*object*/, QEvent* event) override { return handle_(*event); }

 private:
  Handle handle_;
};

}  // namespace cuewright
