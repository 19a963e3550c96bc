#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "core/finish_first.h"

namespace cuewright {

/// Keeps a slot connected to its signal; the slot is never called again once this is gone.
class [[nodiscard]] Connection {
 public:
  Connection() = default;
  explicit Connection(std::shared_ptr<bool> alive) : alive_(std::move(alive)) {}
  Connection(Connection&&) = default;
  Connection& operator=(Connection&& other) noexcept {
    if (this != &other) Disconnect(), alive_ = std::move(other.alive_);
    return *this;
  }
  ~Connection() { Disconnect(); }

  void Disconnect() {
    if (alive_) *alive_ = false;
    alive_.reset();
  }

 private:
  std::shared_ptr<bool> alive_;
};

/// What slots connect to. It reaches any number of them, in the order of their connecting, on the calling thread. What
/// one throws goes on once all have been reached, so that none is left behind.
template <class... Args>
class Announcement {
 public:
  using Slot = std::function<void(Args...)>;

  Announcement() = default;
  Announcement(const Announcement&) = delete;
  Announcement& operator=(const Announcement&) = delete;

  /// Connects for the life of the signal.
  void Connect(Slot slot) { slots_.push_back({nullptr, std::make_shared<Slot>(std::move(slot))}); }

  /// Connects for as long as the result lives.
  Connection ConnectScoped(Slot slot) {
    auto alive = std::make_shared<bool>(true);
    slots_.push_back({alive, std::make_shared<Slot>(std::move(slot))});
    return Connection(alive);
  }

  /// True while nothing listens.
  bool Empty() const { return slots_.empty(); }

 protected:
  void Announce(Args... args) {
    // A slot may connect or disconnect others while it runs: entries are only appended here, and the
    // dead ones go after the outermost call.
    ++depth_;
    const std::size_t count = slots_.size();
    FinishFirst calls;
    for (std::size_t i = 0; i < count; ++i) {
      if (!slots_[i].alive || *slots_[i].alive) {
        const auto slot = slots_[i].slot;
        calls([&] { (*slot)(args...); });
      }
    }
    if (--depth_ == 0) {
      std::erase_if(slots_, [](const Entry& entry) { return entry.alive && !*entry.alive; });
    }
    calls.Rethrow();
  }

 private:
  struct Entry {
    std::shared_ptr<bool> alive;  // null: connected for good
    std::shared_ptr<Slot> slot;
  };
  std::vector<Entry> slots_;
  int depth_ = 0;
};

/// An announcement that only `Owner` can make, the class that has it as a member.
template <class Owner, class... Args>
class Signal : public Announcement<Args...> {
  friend Owner;
  void operator()(Args... args) { this->Announce(args...); }
};

}  // namespace cuewright
