#pragma once

#include "text/text.h"

namespace cuewright {

/// What the program asks of the desktop around it.
class Desktop {
 public:
  virtual ~Desktop() = default;

  /// Opens a URL or a file in its default program; false when that can't be started.
  virtual bool ShellOpen(TextView target) = 0;

  /// Starts the desktop's panel of language and region; false when none is found.
  virtual bool OpenRegionalSettings() = 0;

  virtual bool ClipboardHasText() const = 0;
  virtual Text ClipboardText() const = 0;

  /// The pointer shows that the program is at work.
  virtual void SetBusy(bool busy) = 0;
};

}  // namespace cuewright
