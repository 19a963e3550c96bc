#pragma once

#include <string>

#include "platform/descriptor.h"
#include "text/text.h"

namespace cuewright {

/// A folder for one run alone, with a name nobody can guess and for this user only (mode 0700). It goes with this
/// object, and all that stands in it, unless a program that was started to hold it still runs; then the next run
/// removes it.
class RunFolder {
 public:
  /// Makes it, and removes those that nobody holds any more. Run-time error when it can't be made.
  RunFolder();
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  ~RunFolder();

  /// With a "/" at its end.
  const Text& Path() const { return shown_; }

 private:
  std::string path_;
  Text shown_;
  Descriptor hold_;
};

/// Opens a folder so that it counts as held until the descriptor and its copies are closed; none when that fails.
Descriptor HoldFolder(const std::string& path);

}  // namespace cuewright
