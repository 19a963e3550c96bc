#pragma once

#include <cstdint>

#include "text/text.h"

namespace cuewright {

/// The sounds of films as wave files, kept in the user's cache folder. Failures are run-time errors.
class SoundStore {
 public:
  virtual ~SoundStore() = default;

  /// The wave file for a track of a film, whether it is there or not. A film that was changed has another one.
  virtual Text PathFor(TextView film, int track) = 0;

  /// True when the wave file is there; it counts as used now.
  virtual bool Has(TextView path) = 0;

  /// The file beside it that is to be written. Whole, it becomes the wave file by `Keep`, which removes those not used
  /// for the longest time until the store is no larger than it may be; `Discard` removes it.
  virtual Text Begin(TextView path) = 0;
  virtual void Keep(TextView path) = 0;
  virtual void Discard(TextView path) = 0;

  /// Removes all of them.
  virtual void Empty() = 0;
};

}  // namespace cuewright
