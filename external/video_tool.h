#pragma once

#include <optional>
#include <vector>

#include "core/ports/event_queue.h"
#include "core/ports/files.h"
#include "core/ports/processes.h"
#include "text/text.h"

namespace cuewright {

/// The program that carries scripts out: our own runner, or VirtualDub under Wine.
struct VideoTool {
  enum class Kind { None, Runner, Wine };
  Kind kind = Kind::None;
  Text path;  ///< of the program; where there is none, the one that was looked for
};

/// Looks for the tool in a folder with a "/" at its end: "vdrun", then "VirtualDub.exe" in any case of letters.
VideoTool FindVideoTool(const Files& files, TextView folder);

/// The program to start for a script, and its arguments.
struct ToolCommand {
  Text program;
  std::vector<Text> arguments;
};
ToolCommand CommandFor(const VideoTool& tool, TextView script);

/// A path as the tool knows it, with the separators that it shows: Wine has the system's files on a drive of its own.
Text ToolPath(const VideoTool& tool, TextView path);

/// The path as a text of the script, in quotes: each backslash doubled.
Text QuotedDoubled(const VideoTool& tool, TextView path);
/// The path as a text of the script, in quotes: each backslash turned into "/".
Text QuotedSlashed(const VideoTool& tool, TextView path);

/// The target with its folder in the form that scripts can hold, its last part unchanged. Where that part can't be held
/// either, a link to the whole. Run-time error when a link can't be made.
Text ShortTarget(Files& files, TextView target, TextView tempFolder);

/// True when FFmpeg draws subtitles, that is, has libass. Asks it, while events go on being handled.
bool FfmpegDrawsSubtitles(Processes& processes, EventQueue& events);
/// True when FFmpeg has an encoder for films that XviD's decoders read.
bool FfmpegEncodesMpeg4(Processes& processes, EventQueue& events);

}  // namespace cuewright
