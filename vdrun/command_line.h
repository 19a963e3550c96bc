#pragma once

#include <string>
#include <vector>

namespace cuewright {

/// What a call of the program asks for.
struct RunRequest {
  enum class Kind { Run, Help, Version, Wrong };
  Kind kind = Kind::Wrong;
  std::string script{};   ///< the script's path, as given
  std::string problem{};  ///< of a wrong call
};

/// Reads the arguments behind the program's name.
RunRequest ReadRunRequest(const std::vector<std::string>& arguments);

/// What "--help" prints.
std::string RunHelp();

}  // namespace cuewright
