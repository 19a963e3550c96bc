#pragma once

#include <string_view>

namespace cuewright {

/// True for a text of FFmpeg's log by which what it wrote is not all of it. Its exit status may say that all went well.
bool TellsOfCutOff(std::string_view log);

}  // namespace cuewright
