#pragma once

#include "core/ports/processes.h"

namespace cuewright {

/// `Processes` on the system's own calls.
class PosixProcesses final : public Processes {
 public:
  using Processes::Start;
  std::unique_ptr<ChildProcess> Start(const Text& program, const std::vector<Text>& arguments,
                                      const StartOptions& options) override;
};

}  // namespace cuewright
