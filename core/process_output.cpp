#include "core/process_output.h"

#include "core/runtime_error.h"

namespace cuewright {

std::string OutputOf(Processes& processes, const Text& program, const std::vector<Text>& arguments) {
  constexpr int kWaitMs = 100;
  std::unique_ptr<ChildProcess> child;
  CarryOn errors;
  errors([&] { child = processes.Start(program, arguments); });
  std::string said;
  std::optional<int> status;
  while (child && !status) {
    child->Wait(kWaitMs);
    // Asked before its output is taken: a program that has ended by now has written all there is to take.
    status = child->Ended();
    said += child->TakeOutput();
  }
  return said;
}

}  // namespace cuewright
