#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// A program that was started; it ends with this object at the latest, unless the start said otherwise.
class ChildProcess {
 public:
  virtual ~ChildProcess() = default;

  /// What it has written to its output since the last call; never waits.
  virtual std::string TakeOutput() = 0;

  /// The same of its error stream, where the start asked for that.
  virtual std::string TakeErrors() { return {}; }

  /// Hands it input, where the start asked for that, and never waits; what a program that doesn't read leaves too much
  /// of is dropped.
  virtual void Tell(std::string_view /*bytes*/) {}

  /// True while it hasn't taken all that it was told.
  virtual bool HasUntold() { return false; }

  /// Returns when there is something to take or it may have ended, at the latest after `ms`.
  virtual void Wait(int /*ms*/) {}

  /// The same, but what it writes to its error stream is no reason to return before `ms`.
  virtual void WaitForOutput(int ms) { Wait(ms); }

  /// Its exit status, -1 when it ended by a signal; empty while it runs.
  virtual std::optional<int> Ended() = 0;
};

/// How a program is started.
struct StartOptions {
  Text folder{};          ///< its working folder; empty: that of this program
  bool errors = false;    ///< what it writes to its error stream can be taken
  bool input = false;     ///< it can be told things
  bool outlives = false;  ///< it goes on when its object goes, and belongs to no terminal; its output goes nowhere
  Text holds{};           ///< of one that outlives: a run's folder that stays while it runs
  std::vector<std::pair<Text, Text>> variables{};  ///< added to its environment, or in place of what is there
};

/// Programs of the system.
class Processes {
 public:
  virtual ~Processes() = default;

  /// Starts a program by its name, looked for as a shell does, with these arguments as they stand and without a shell.
  /// It gets no input, and its errors go nowhere, unless the options say so. Run-time error 53 when there is no such
  /// program.
  std::unique_ptr<ChildProcess> Start(const Text& program, const std::vector<Text>& arguments) {
    return Start(program, arguments, {});
  }
  virtual std::unique_ptr<ChildProcess> Start(const Text& program, const std::vector<Text>& arguments,
                                              const StartOptions& options) = 0;
};

}  // namespace cuewright
