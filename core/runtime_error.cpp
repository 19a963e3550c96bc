#include "core/runtime_error.h"

namespace cuewright {

void ThrowOverflow() { throw RuntimeError{kErrorOverflow, u"Overflow"}; }

void ThrowInvalidCall() { throw RuntimeError{kErrorInvalidCall, u"Invalid procedure call or argument"}; }

}  // namespace cuewright
