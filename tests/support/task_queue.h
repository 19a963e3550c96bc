#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace cuewright::test {

/// Stands in for the window's event loop: tasks posted on any thread run on the thread that waits.
class TaskQueue {
 public:
  using Task = std::function<void()>;

  void Post(Task task) {
    {
      const std::lock_guard lock(mutex_);
      tasks_.push_back(std::move(task));
    }
    wake_.notify_one();
  }

  /// What a player takes to post its tasks.
  std::function<void(Task)> Poster() {
    return [this](Task task) { Post(std::move(task)); };
  }

  /// Runs tasks until the condition holds; false when it didn't within the time.
  bool RunUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit = std::chrono::seconds(20)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
      if (std::chrono::steady_clock::now() > end) return false;
      Task task;
      {
        std::unique_lock lock(mutex_);
        // Conditions that depend on a clock have nobody who posts.
        wake_.wait_for(lock, std::chrono::milliseconds(2), [this] { return !tasks_.empty(); });
        if (tasks_.empty()) continue;
        task = std::move(tasks_.front());
        tasks_.pop_front();
      }
      task();
    }
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<Task> tasks_;
};

}  // namespace cuewright::test
