#pragma once

#include <exception>
#include <utility>

namespace cuewright {

/// Runs steps that belong together to the last one, whatever one of them throws; the first exception goes on behind
/// them.
class FinishFirst {
 public:
  template <class Step>
  void operator()(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (...) {
      if (!first_) first_ = std::current_exception();
    }
  }

  /// To be called behind the last step.
  void Rethrow() const {
    if (first_) std::rethrow_exception(first_);
  }

 private:
  std::exception_ptr first_;
};

}  // namespace cuewright
