#include "runner/script.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "core/numbers.h"
#include "runner/script_call.h"

namespace cuewright {
namespace {

constexpr std::int64_t kXvid = 0x64697678;  // the four characters, the first in the lowest byte
constexpr std::int64_t kBestQuality = 10000;
constexpr std::int64_t kLeastRate = 1000;
constexpr std::int64_t kMostRate = 192000;
constexpr std::int64_t kMostPixels = 16384;
constexpr std::int64_t kResizeModes = 4;
constexpr std::size_t kMostFilters = 32;
constexpr std::size_t kMostFiles = 256;
constexpr std::size_t kLongestQuote = 60;
constexpr std::string_view kSubtitler = "subtitler";
constexpr std::string_view kResize = "resize";

/// A path as this system has it: a drive letter goes, backslashes separate as "/" does.
Text PathOf(const std::string& written) {
  std::string path = written;
  std::replace(path.begin(), path.end(), '\\', '/');
  if (path.size() > 2 && path[1] == ':' && path[2] == '/' && (path[0] == 'Z' || path[0] == 'z')) path.erase(0, 2);
  return FromUtf8(path);
}

/// What the commands up to a line have set.
struct State {
  RunJob job;
  bool open = false;
  bool compressed = false;
  std::vector<RunJob> written;
};

/// The beginning of a text of any length, as a message shows it.
std::string Quoted(const std::string& text) {
  return text.size() <= kLongestQuote ? text : text.substr(0, kLongestQuote) + "...";
}

[[noreturn]] void Refuse(std::string problem) { throw ScriptProblem{0, std::move(problem)}; }

void Want(bool right, const std::string& expected) {
  if (!right) Refuse("expected " + expected);
}

void Save(State& state, RunJob::Kind kind, const ScriptCall& call) {
  Want(state.open, "VirtualDub.Open before a file is written");
  Want(state.written.size() < kMostFiles, "at most 256 files written by one script");
  if (kind == RunJob::Kind::Avi) {
    Want(state.compressed, "VirtualDub.video.SetCompression before the film is written");
    for (const PictureFilter& filter : state.job.filters) {
      Want(filter.configured, "Config of every filter before the film is written");
    }
  }
  Want(!call.String(0).empty(), "the path of the file to write");
  RunJob job = state.job;
  job.kind = kind;
  job.target = PathOf(call.String(0));
  state.written.push_back(std::move(job));
}

void Configure(State& state, const ScriptCall& call, PictureFilter::Kind kind) {
  const std::size_t at = call.index;
  Want(at < state.job.filters.size(), "the number of a filter that was added before");
  PictureFilter& filter = state.job.filters[at];
  Want(filter.kind == kind, filter.kind == PictureFilter::Kind::Resize
                                ? "Config(width, height, mode) for the filter \"resize\""
                                : "Config(1, \"subtitle file\", 0, 0) for the filter \"subtitler\"");
  filter.configured = true;
  if (kind == PictureFilter::Kind::Subtitler) {
    Want(!call.String(1).empty(), "the path of the subtitle file");
    filter.subtitle = PathOf(call.String(1));
    return;
  }
  for (const std::size_t i : {0U, 1U}) {
    Want(call.Number(i) >= 1 && call.Number(i) <= kMostPixels, "a width and a height from 1 to 16384 pixels");
  }
  Want(call.Number(2) >= 0 && call.Number(2) < kResizeModes, "a mode from 0 to 3");
  filter.width = Checked32(call.Number(0));
  filter.height = Checked32(call.Number(1));
  filter.mode = Checked32(call.Number(2));
}

void SetConversion(State& state, const ScriptCall& call) {
  const std::int64_t rate = call.Number(0);
  Want(rate == 0 || (rate >= kLeastRate && rate <= kMostRate),
       "a sample rate of 0 (as it is) or from 1000 to 192000 Hz");
  for (std::size_t i = 1; i < call.arguments.size(); ++i) {
    Want(call.Number(i) == 0, "0 behind the sample rate: bits and channels stay as they are");
  }
  state.job.sampleRate = Checked32(rate);
}

void AddFilter(State& state, const ScriptCall& call) {
  const std::string& name = call.String(0);
  Want(name == kSubtitler || name == kResize,
       "the filter \"subtitler\" or \"resize\", but found \"" + Quoted(name) + "\"");
  Want(state.job.filters.size() < kMostFilters, "at most 32 filters");
  PictureFilter filter;
  filter.kind = name == kResize ? PictureFilter::Kind::Resize : PictureFilter::Kind::Subtitler;
  state.job.filters.push_back(filter);
}

/// A command: its name, the kinds of its arguments ("i" number, "s" text), and what it does. A command that only sets
/// what is done anyway names the only values that it may have.
struct Command {
  std::string_view name;
  std::string_view arguments;
  void (*run)(State&, const ScriptCall&);
};

template <std::int64_t... values>
void Only(State&, const ScriptCall& call) {
  constexpr std::array<std::int64_t, sizeof...(values)> wanted = {values...};
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (call.Number(i) == wanted[i]) continue;
    std::string expected = call.name + "(";
    for (const std::int64_t value : wanted) expected += (expected.ends_with('(') ? "" : ",") + std::to_string(value);
    Refuse("expected " + expected + "), the only values that can be had here");
  }
}

void Nothing(State&, const ScriptCall&) {}

constexpr std::array kCommands = {
    Command{"VirtualDub.Open", "sii",
            [](State& state, const ScriptCall& call) {
              Want(!call.String(0).empty(), "the path of the film");
              Want(call.Number(1) == 0 && call.Number(2) == 0, "0,0 behind the path of the film");
              state.job.source = PathOf(call.String(0));
              state.open = true;
            }},
    Command{"VirtualDub.Close", "", [](State& state, const ScriptCall&) { state.open = false; }},
    Command{"VirtualDub.SaveAVI", "s",
            [](State& state, const ScriptCall& call) { Save(state, RunJob::Kind::Avi, call); }},
    Command{"VirtualDub.SaveWAV", "s",
            [](State& state, const ScriptCall& call) { Save(state, RunJob::Kind::Wave, call); }},
    Command{"VirtualDub.audio.SetSource", "i",
            [](State& state, const ScriptCall& call) {
              Want(call.Number(0) == 0 || call.Number(0) == 1, "the source 0 (no sound) or 1 (that of the film)");
              state.job.sound = call.Number(0) == 1;
            }},
    Command{"VirtualDub.audio.SetMode", "i",
            [](State& state, const ScriptCall& call) {
              Want(call.Number(0) == 0 || call.Number(0) == 1, "the mode 0 (copied) or 1 (decoded)");
              state.job.soundDecoded = call.Number(0) == 1;
            }},
    Command{"VirtualDub.audio.SetInterleave", "iiiii", Only<1, 500, 1, 0, 0>},
    Command{"VirtualDub.audio.SetClipMode", "ii", Only<1, 1>},
    Command{"VirtualDub.audio.SetConversion", "iii", SetConversion},
    Command{"VirtualDub.audio.SetConversion", "iiiii", SetConversion},
    Command{"VirtualDub.audio.SetVolume", "", Nothing},
    Command{"VirtualDub.audio.SetCompression", "", Nothing},
    Command{"VirtualDub.audio.EnableFilterGraph", "i", Only<0>},
    Command{"VirtualDub.audio.filters.Clear", "", Nothing},
    Command{"VirtualDub.video.SetDepth", "ii", Only<24, 24>},
    Command{"VirtualDub.video.SetInputFormat", "i", Only<0>},
    Command{"VirtualDub.video.SetOutputFormat", "i", Only<7>},
    Command{"VirtualDub.video.SetMode", "i", Only<3>},
    Command{"VirtualDub.video.SetFrameRate", "ii", Only<0, 1>},
    Command{"VirtualDub.video.SetIVTC", "iiii", Only<0, 0, -1, 0>},
    Command{"VirtualDub.video.SetCompression", "iiii",
            [](State& state, const ScriptCall& call) {
              Want(call.Number(0) == kXvid, "0x64697678, the codec XviD, which is the only one written here");
              Want(call.Number(1) == 0 && call.Number(3) == 0 && call.Number(2) >= 0 && call.Number(2) <= kBestQuality,
                   "0, a quality from 0 to 10000, and 0 behind the codec");
              state.compressed = true;
            }},
    Command{"VirtualDub.video.SetRange", "ii",
            [](State& state, const ScriptCall& call) {
              Want(call.Number(0) >= 0 && call.Number(1) >= 0,
                   "the ms left out at the start and at the end, from 0 on");
              state.job.rangeStart = call.Number(0);
              state.job.rangeEnd = call.Number(1);
            }},
    Command{"VirtualDub.video.filters.Clear", "", [](State& state, const ScriptCall&) { state.job.filters.clear(); }},
    Command{"VirtualDub.video.filters.Add", "s", AddFilter},
    Command{"VirtualDub.video.filters.instance[].Config", "isii",
            [](State& state, const ScriptCall& call) { Configure(state, call, PictureFilter::Kind::Subtitler); }},
    Command{"VirtualDub.video.filters.instance[].Config", "iii",
            [](State& state, const ScriptCall& call) { Configure(state, call, PictureFilter::Kind::Resize); }},
};

std::string KindsOf(const ScriptCall& call) {
  std::string kinds;
  for (const ScriptArgument& argument : call.arguments) kinds += argument.index() == 0 ? 'i' : 's';
  return kinds;
}

/// "NAME(number, text)", as the command is written.
std::string FormOf(const Command& command) {
  std::string form = std::string(command.name) + "(";
  for (const char kind : command.arguments) {
    form += (form.ends_with('(') ? "" : ", ") + std::string(kind == 'i' ? "number" : "\"text\"");
  }
  return form + ")";
}

/// The commands that begin like the name, to be told when it isn't known.
std::string CommandsLike(const std::string& name) {
  const std::string group = name.substr(0, name.rfind('.') + 1);
  std::string like;
  std::string all;
  for (const Command& command : kCommands) {
    if (all.ends_with(command.name)) continue;
    const std::string comma = ", ";
    all += (all.empty() ? "" : comma) + std::string(command.name);
    const std::string_view own = command.name.substr(0, command.name.rfind('.') + 1);
    if (own == group) like += (like.empty() ? "" : comma) + std::string(command.name);
  }
  return like.empty() ? all : like;
}

void Run(State& state, const ScriptCall& call) {
  const std::string kinds = KindsOf(call);
  std::string forms;
  for (const Command& command : kCommands) {
    if (command.name != call.name) continue;
    if (command.arguments == kinds) return command.run(state, call);
    forms += (forms.empty() ? "" : " or ") + FormOf(command);
  }
  if (!forms.empty()) Refuse("expected " + forms);
  Refuse("the command \"" + Quoted(call.name) + "\" isn't known; expected one of " + CommandsLike(call.name));
}

}  // namespace

Script ReadScript(std::string_view bytes) {
  State state;
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  int number = 0;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    state.job.line = ++number;
    const auto fail = [&](std::string problem) { return Script{{}, ScriptProblem{number, std::move(problem)}}; };
    if (line.find('\0') != std::string_view::npos) return fail("the line holds a NUL character; expected text");
    const ScriptLine read = ReadScriptLine(line);
    if (const auto* problem = std::get_if<ScriptProblem>(&read)) return fail(problem->problem);
    const auto* call = std::get_if<ScriptCall>(&read);
    if (call == nullptr) continue;
    try {
      Run(state, *call);
    } catch (const ScriptProblem& problem) {
      return fail(problem.problem);
    }
  }
  if (state.written.empty()) {
    return {{},
            ScriptProblem{std::max(number, 1),
                          "the script writes no file; expected VirtualDub.SaveAVI or "
                          "VirtualDub.SaveWAV"}};
  }
  return {std::move(state.written), std::nullopt};
}

}  // namespace cuewright
