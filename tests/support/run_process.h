#pragma once

#include <string>
#include <vector>

namespace cuewright::test {

/// What a finished program left behind.
struct ProcessResult {
  int status = -1;  ///< exit status; 128 + signal when a signal ended it; -1 when it could not be started
  std::string out;
  std::string error;
};

struct ProcessOptions {
  std::string folder;            ///< working folder; empty: that of the test
  bool errorIsTerminal = false;  ///< the error stream is a terminal of its own
  std::string outPath;           ///< a file or device for the output in place of `ProcessResult::out`
};

/// Runs a program to its end: the path, then its arguments, as bytes.
ProcessResult RunProcess(const std::vector<std::string>& command, const ProcessOptions& options = {});

}  // namespace cuewright::test
