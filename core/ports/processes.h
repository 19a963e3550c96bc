#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/text.h"

namespace cuewright {

/// A program that was started; it ends with this object at the latest.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;

  /// What it has written to its output since the last call; never waits.
  virtual std::string TakeOutput() = 0;

  /// Its exit status, -1 when it ended by a signal; empty while it runs.
  virtual std::optional<int> Ended() = 0;
};

/// Programs of the system.
class Processes {
 public:
  virtual ~Processes() = default;

  /// Starts a program by its name, looked for as a shell does, with these arguments as they stand and without a shell.
  /// It gets no input, and its errors go nowhere. Run-time error 53 when there is no such program.
  virtual std::unique_ptr<ChildProcess> Start(const Text& program, const std::vector<Text>& arguments) = 0;
};

}  // namespace cuewright
