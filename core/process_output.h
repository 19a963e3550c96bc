#pragma once

#include <string>
#include <vector>

#include "core/ports/processes.h"

namespace cuewright {

/// Runs a program to its end and gives what it wrote to its output; nothing when it can't be started.
std::string OutputOf(Processes& processes, const Text& program, const std::vector<Text>& arguments);

}  // namespace cuewright
