#include "external/video_tool.h"

#include "core/file_helpers.h"
#include "core/paths.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr TextView kRunner = u"vdrun";
constexpr TextView kProgram = u"VirtualDub.exe";
constexpr int kPollMs = 20;
constexpr int kLongestAskMs = 10000;

/// One of the lists that FFmpeg prints of what it can do; empty when it can't be read.
std::string FfmpegList(Processes& processes, EventQueue& events, TextView list) {
  std::string output;
  CarryOn step;
  step([&] {
    const auto child = processes.Start(u"ffmpeg", {u"-v", u"quiet", Text(list)});
    for (int waited = 0; !child->Ended() && waited < kLongestAskMs; waited += kPollMs) {
      output += child->TakeOutput();
      events.WaitMs(kPollMs);
    }
    output += child->TakeOutput();
  });
  return output;
}

/// True when a line of the list has the name as its second word: "TYPE NAME ...".
bool Lists(const std::string& list, std::string_view name) {
  return list.find(" " + std::string(name) + " ") != std::string::npos;
}

Text Quoted(const Text& text) { return u"\"" + text + u"\""; }

}  // namespace

VideoTool FindVideoTool(const Files& files, TextView folder) {
  const Text runner = Text(folder) + Text(kRunner);
  if (files.IsRegular(runner)) return {VideoTool::Kind::Runner, runner};
  for (const Text& name : files.Names(folder)) {
    if (EqualLoose(name, kProgram)) return {VideoTool::Kind::Wine, Text(folder) + name};
  }
  return {VideoTool::Kind::None, Text(folder) + Text(kProgram)};
}

ToolCommand CommandFor(const VideoTool& tool, TextView script) {
  if (tool.kind != VideoTool::Kind::Wine) return {tool.path, {u"/s", Text(script), u"/x"}};
  return {u"wine", {tool.path, u"/s", ToolPath(tool, script), u"/x"}};
}

Text ToolPath(const VideoTool& tool, TextView path) {
  if (tool.kind != VideoTool::Kind::Wine) return Text(path);
  return u"Z:" + ReplaceAll(path, u"/", u"\\");
}

Text QuotedDoubled(const VideoTool& tool, TextView path) {
  return Quoted(ReplaceAll(ToolPath(tool, path), u"\\", u"\\\\"));
}

Text QuotedSlashed(const VideoTool& tool, TextView path) {
  return Quoted(ReplaceAll(ToolPath(tool, path), u"\\", u"/"));
}

Text ShortTarget(Files& files, TextView target, TextView tempFolder) {
  const Text name = FileNameOf(target);
  if (!IsPlainPath(name)) return ShortPathOf(files, target, tempFolder);
  const Text folder = FolderOfPath(target);
  return IsPlainPath(folder) ? Text(target) : WithSlash(ShortPathOf(files, folder, tempFolder)) + name;
}

bool FfmpegDrawsSubtitles(Processes& processes, EventQueue& events) {
  return Lists(FfmpegList(processes, events, u"-filters"), "subtitles");
}

bool FfmpegEncodesMpeg4(Processes& processes, EventQueue& events) {
  const std::string list = FfmpegList(processes, events, u"-encoders");
  return Lists(list, "libxvid") || Lists(list, "mpeg4");
}

}  // namespace cuewright
