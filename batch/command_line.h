#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "core/frame_rate.h"
#include "text/encodings.h"
#include "text/text.h"
#include "tools/replace_text.h"
#include "tools/retime.h"
#include "tools/row_range.h"

namespace cuewright {

/// How bytes of text files are read, as `--text` says it.
struct TextChoice {
  bool classic = false;
  int codePage = 0;  ///< for the classic way alone; 0: that of the locale
};

/// One value of the settings store for this run.
struct SettingValue {
  Text section;
  Text key;
  Text value;
};

/// How times are to be changed; one of the ways is chosen.
struct RetimeChoice {
  /// A caption and the time at which it is to begin.
  struct Point {
    Row row = 0;
    Ms ms = 0;
  };

  std::optional<Ms> shift;
  std::optional<SpeedRatio> speed;
  FrameRate fpsFrom;  ///< this and `fpsTo` together are one of the ways
  FrameRate fpsTo;
  std::vector<Point> points;
};

/// How captions are fitted to a film's voice.
struct FitWish {
  std::optional<int> reaction;  ///< the median lateness of presses in ms; empty: found from the film
};

/// A call of the program, read and checked as far as that goes without a file.
struct Request {
  std::string command;
  std::vector<Text> files;

  // Common options.
  std::optional<std::string> fps;          ///< empty: 25, unless the file tells its own
  std::optional<TextChoice> text;          ///< empty: as the settings say
  std::optional<DocumentEncoding> readAs;  ///< empty: as `text` says
  std::optional<Text> catalogue;
  std::optional<Text> separator;
  std::optional<Text> settingsFile;
  std::vector<SettingValue> settings;
  bool classic = false;  ///< the classic manner
  bool json = false;
  bool quiet = false;

  // Options of `convert`; the first two of `rules` as well.
  std::optional<DocumentEncoding> encoding;  ///< of what is written; empty: the file's own
  Text encodingName;                         ///< as it was given
  Text to;                                   ///< empty: the file's own
  std::optional<Text> out;
  std::optional<Text> folder;
  bool keepUntimed = true;
  bool rules = false;             ///< the correction rules run on the way
  int jobs = 0;                   ///< how many files are in work at once; 0: as many as there are cores
  std::optional<Text> filesFrom;  ///< the file that names further files

  // Options of `check`; the second of `fit` as well.
  Text profile;              ///< the house rules
  std::optional<Text> film;  ///< the film that the captions belong to

  // Options of the commands that listen to a film.
  Text language;              ///< that is spoken, of a text or of captions; empty: their words aren't used
  std::optional<Text> other;  ///< what captions are synchronised with: a film or another subtitle
  FitWish fit;

  // Option of `rules`.
  bool detailed = false;

  // Options of the commands that edit captions.
  RowRange rows;
  RetimeChoice retime;
  ReplaceOrder replace;
  bool replaceGiven = false;  ///< `--with` was given
};

/// A call that can't be carried out; one sentence for the user.
struct WrongUsage {
  std::string problem;
};

/// What `--help` and `--version` ask for.
struct HelpWanted {
  std::string command;  ///< empty: the program as a whole
};
struct VersionWanted {};

using CommandLine = std::variant<Request, WrongUsage, HelpWanted, VersionWanted>;

/// Reads the arguments behind the program's name.
CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

/// The help of a command, or of the program for an empty name.
std::string HelpText(std::string_view command);

}  // namespace cuewright
