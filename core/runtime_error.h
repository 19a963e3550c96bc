#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "text/text.h"

namespace cuewright {

/// A failure that the user is told by number and description. Helpers throw it; only `CarryOn` and the
/// edges that say so catch it. Any other exception is a bug.
struct RuntimeError {
  int number = 0;
  Text description;
};

/// The numbers in use, those that users of such programs know from other tools' messages.
inline constexpr int kErrorOverflow = 6;
inline constexpr int kErrorOutOfMemory = 7;
inline constexpr int kErrorInvalidCall = 5;
inline constexpr int kErrorFileNotFound = 53;
inline constexpr int kErrorDeviceIo = 57;
inline constexpr int kErrorDiskFull = 61;
inline constexpr int kErrorPathFileAccess = 75;
inline constexpr int kErrorPathNotFound = 76;

/// Throws run-time error 6, "Overflow".
[[noreturn]] void ThrowOverflow();

/// Throws run-time error 5, "Invalid procedure call or argument".
[[noreturn]] void ThrowInvalidCall();

/// Runs steps one after another; a failed one is noted, the next still runs.
class CarryOn {
 public:
  /// False when the step failed; whatever it had done by then stays done.
  template <class Step>
  bool operator()(Step&& step) {
    try {
      std::forward<Step>(step)();
      return true;
    } catch (const RuntimeError& error) {
      Note(error);
      return false;
    }
  }

  /// The failure of the last step that failed; empty when none did or after `Clear`.
  const std::optional<RuntimeError>& Last() const { return last_; }

  /// Notes a failure that was found without a throw.
  void Note(RuntimeError error) {
    last_ = std::move(error);
    if (noted) noted();
  }

  void Clear() { last_.reset(); }

  std::function<void()> noted;  ///< a step has just failed; for those who keep where that was

 private:
  std::optional<RuntimeError> last_;
};

}  // namespace cuewright
