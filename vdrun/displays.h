#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "core/ports/processes.h"
#include "runner/progress.h"
#include "text/text.h"

namespace cuewright {

/// Shows a run to the user.
class RunDisplay {
 public:
  virtual ~RunDisplay() = default;

  /// Tells how far the run is after `elapsedMs`.
  virtual void Show(const std::string& file, const RunProgress& progress, std::int64_t elapsedMs) = 0;
  /// Something worth knowing, though the run goes on.
  virtual void Note(const std::string& text) = 0;
  /// True once the user has cancelled the run here.
  virtual bool Cancelled() { return false; }
  /// The run has ended; `failure` is empty when it went well. Returns when the user has seen it.
  virtual void End(const std::string& failure) = 0;
};

/// A bar on the terminal of the error stream; without a terminal the messages alone.
std::unique_ptr<RunDisplay> MakeTerminalDisplay();

/// A small window, the program `window`, which opens once the run takes longer than a moment. A failure stays there
/// until the user closes it, or `mustEnd` says that this program has to go.
std::unique_ptr<RunDisplay> MakeWindowDisplay(Processes& processes, Text window, std::function<bool()> mustEnd);

}  // namespace cuewright
