#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "runner/script.h"

namespace cuewright {

/// An argument of a command: a whole number or a text.
using ScriptArgument = std::variant<std::int64_t, std::string>;

/// One command of a script, "name[index](arguments);".
struct ScriptCall {
  std::string name;         ///< as written, an index in it as "[]"
  std::int64_t index = -1;  ///< the number in the brackets; -1 without any
  std::vector<ScriptArgument> arguments;

  std::int64_t Number(std::size_t at) const { return std::get<std::int64_t>(arguments[at]); }
  const std::string& String(std::size_t at) const { return std::get<std::string>(arguments[at]); }
};

/// What a line holds: nothing, a command, or what can't be read.
using ScriptLine = std::variant<std::monostate, ScriptCall, ScriptProblem>;

/// Takes a line of a script apart. The problem's line number is left at 0.
ScriptLine ReadScriptLine(std::string_view line);

}  // namespace cuewright
