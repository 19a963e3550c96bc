#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// One step on the way of the pictures from the film to the file.
struct PictureFilter {
  enum class Kind { Subtitler, Resize };
  Kind kind = Kind::Subtitler;
  bool configured = false;
  Text subtitle;   ///< of the subtitler: the subtitle file
  int width = 0;   ///< of the resize, in pixels
  int height = 0;  ///< of the resize, in pixels
  int mode = 0;    ///< of the resize: 0 standard, 1 bilinear, 2 bicubic, 3 precise bilinear
};

/// One file that a script wants written.
struct RunJob {
  enum class Kind { Avi, Wave };
  Kind kind = Kind::Avi;
  int line = 0;                        ///< of the command that writes, counted from 1
  Text source;                         ///< the film
  Text target;                         ///< the file to write
  bool sound = true;                   ///< the film's sound goes along
  bool soundDecoded = false;           ///< the sound becomes uncompressed samples; else it is copied
  int sampleRate = 0;                  ///< of decoded sound, in Hz; 0: that of the film
  std::int64_t rangeStart = 0;         ///< ms left out at the film's start
  std::int64_t rangeEnd = 0;           ///< ms left out at its end
  std::vector<PictureFilter> filters;  ///< in their order
};

/// Why a script was refused.
struct ScriptProblem {
  int line = 0;         ///< counted from 1
  std::string problem;  ///< what is wrong and what was expected
};

/// The content of a script: its jobs, or its first problem and no jobs.
struct Script {
  std::vector<RunJob> jobs;
  std::optional<ScriptProblem> problem;
};

/// Reads the bytes of a script, one command a line. A command that can't be carried out just as it stands is a problem.
Script ReadScript(std::string_view bytes);

}  // namespace cuewright
