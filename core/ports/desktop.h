#pragma once

#include <string>

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
  /// Captions that a window of this program has put there, as it wrote them; empty when there are none.
  virtual std::string ClipboardCaptions() const { return {}; }
  /// Puts captions there: as text for other programs, and as written for windows of this one.
  virtual void PutOnClipboard(TextView /*text*/, const std::string& /*captions*/) {}

  /// The pointer shows that the program is at work.
  virtual void SetBusy(bool busy) = 0;
};

}  // namespace cuewright
