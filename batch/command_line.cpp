#include "batch/command_line.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

#include "core/numbers.h"
#include "text/digits.h"

namespace cuewright {
namespace {

using Problem = std::optional<std::string>;

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

bool AllDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit<char>); }

/// The rate as the frame rate question takes it: at most eight characters, from 15 to 30 by its whole part.
Problem SetFps(Request& request, const std::string& value) {
  const std::size_t sign = value.find_first_of(".,");
  const std::string_view whole = std::string_view(value).substr(0, sign);
  const std::string_view rest = sign == std::string::npos ? "0" : std::string_view(value).substr(sign + 1);
  const bool isNumber = AllDigits(whole) && AllDigits(rest) && value.size() < 9;
  const double rate = isNumber ? LeadingNumber(FromUtf8(whole)) : 0;
  if (rate < 15 || rate > 30) return "--fps takes a rate from 15 to 30, such as 25 or 23.976, not " + Quoted(value);
  request.fps = value;
  return {};
}

Problem SetText(Request& request, const std::string& value) {
  constexpr std::string_view kClassicPage = "classic:";
  if (value == "auto" || value == "classic") {
    request.text = TextChoice{value == "classic", 0};
    request.classic = request.classic || request.text->classic;
    return {};
  }
  const std::string_view page =
      value.starts_with(kClassicPage) ? std::string_view(value).substr(kClassicPage.size()) : std::string_view();
  if (AllDigits(page) && page.size() <= 5 && page != "0") {
    request.text = TextChoice{true, std::stoi(std::string(page))};
    request.classic = true;
    return {};
  }
  return "--text takes auto, classic or classic:CODEPAGE, not " + Quoted(value);
}

Problem SetCatalogue(Request& request, const std::string& value) {
  request.catalogue = FromUtf8(value);
  return {};
}

Problem SetSeparator(Request& request, const std::string& value) {
  if (value.empty()) return "--separator takes the text that stands for a line break";
  request.separator = FromUtf8(value);
  return {};
}

/// SECTION is the name behind "Cuewright\", or "Cuewright" for the general settings.
Problem SetSetting(Request& request, const std::string& value) {
  const std::size_t equals = value.find('=');
  const std::size_t slash = value.rfind('/', equals);
  if (equals == std::string::npos || slash == std::string::npos || slash == 0 || slash + 1 == equals) {
    return "--set takes SECTION/KEY=VALUE, not " + Quoted(value);
  }
  constexpr TextView kMain = u"Cuewright";
  Text section = ReplaceAll(FromUtf8(value.substr(0, slash)), u"/", u"\\");
  if (!EqualLoose(section, kMain) && !EqualLoose(TextView(section).substr(0, kMain.size() + 1), u"Cuewright\\")) {
    section = Text(kMain) + u'\\' + section;
  }
  request.settings.push_back(
      {section, FromUtf8(value.substr(slash + 1, equals - slash - 1)), FromUtf8(value.substr(equals + 1))});
  return {};
}

Problem SetSettingsFile(Request& request, const std::string& value) {
  request.settingsFile = FromUtf8(value);
  return {};
}

Problem SetClassic(Request& request, const std::string&) {
  request.classic = true;
  return {};
}

Problem SetJson(Request& request, const std::string&) {
  request.json = true;
  return {};
}

Problem SetQuiet(Request& request, const std::string&) {
  request.quiet = true;
  return {};
}

Problem SetTo(Request& request, const std::string& value) {
  request.to = ToUpper(FromUtf8(value));
  return {};
}

Problem SetOut(Request& request, const std::string& value) {
  if (value.empty()) return "--out takes the name of a file";
  request.out = FromUtf8(value);
  return {};
}

Problem SetFolder(Request& request, const std::string& value) {
  if (value.empty()) return "--folder takes the name of a folder";
  request.folder = FromUtf8(value);
  return {};
}

Problem SetUntimed(Request& request, const std::string& value) {
  if (value != "keep" && value != "drop") return "--untimed takes keep or drop, not " + Quoted(value);
  request.keepUntimed = value == "keep";
  return {};
}

Problem SetRules(Request& request, const std::string&) {
  request.rules = true;
  return {};
}

Problem SetStandard(Request& request, const std::string&) {
  request.detailed = false;
  return {};
}

Problem SetDetailed(Request& request, const std::string&) {
  request.detailed = true;
  return {};
}

struct Option {
  std::string_view name;
  bool takesValue;
  Problem (*set)(Request&, const std::string&);
};

constexpr std::array kCommonOptions = {
    Option{"--fps", true, SetFps},
    Option{"--text", true, SetText},
    Option{"--catalogue", true, SetCatalogue},
    Option{"--separator", true, SetSeparator},
    Option{"--set", true, SetSetting},
    Option{"--settings", true, SetSettingsFile},
    Option{"--classic", false, SetClassic},
    Option{"--json", false, SetJson},
    Option{"--quiet", false, SetQuiet},
};

constexpr std::array kConvertOptions = {
    Option{"--to", true, SetTo},           Option{"--out", true, SetOut},      Option{"--folder", true, SetFolder},
    Option{"--untimed", true, SetUntimed}, Option{"--rules", false, SetRules},
};

constexpr std::array kRulesOptions = {
    Option{"--standard", false, SetStandard},
    Option{"--detailed", false, SetDetailed},
    Option{"--to", true, SetTo},
    Option{"--out", true, SetOut},
};

Problem CheckRules(const Request& request) {
  if (request.out.has_value() == request.to.empty()) return "rules takes --out and --to together";
  return {};
}

Problem CheckConvert(const Request& request) {
  if (request.to.empty()) return "convert needs --to with the identifier of a format";
  if (request.out.has_value() == request.folder.has_value()) return "convert needs either --out or --folder";
  if (request.out && request.files.size() > 1) return "--out takes one file only; use --folder for more";
  return {};
}

struct Command {
  std::string_view name;
  std::size_t leastFiles;
  std::size_t mostFiles;
  std::span<const Option> options;   ///< those beside the common ones
  Problem (*check)(const Request&);  ///< null: nothing beyond the number of files
};

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();
constexpr std::array kCommands = {
    Command{"formats", 0, 0, {}, nullptr},
    Command{"detect", 1, kAnyNumber, {}, nullptr},
    Command{"dump", 1, 1, {}, nullptr},
    Command{"peaks", 1, 1, {}, nullptr},
    Command{"convert", 1, kAnyNumber, kConvertOptions, CheckConvert},
    Command{"rules", 1, 1, kRulesOptions, CheckRules},
};

const Option* Find(std::span<const Option> options, std::string_view name) {
  const auto found = std::ranges::find(options, name, &Option::name);
  return found == options.end() ? nullptr : &*found;
}

Problem CheckFiles(const Command& command, std::size_t count) {
  if (command.mostFiles == 0 && count > 0) return std::string(command.name) + " takes no file";
  if (count < command.leastFiles) return std::string(command.name) + " needs a file";
  if (count > command.mostFiles) return std::string(command.name) + " takes one file only";
  return {};
}

/// Reads the arguments behind the command's name into the request.
class Reader {
 public:
  Reader(const Command& command, const std::vector<std::string>& arguments) : command_(command), arguments_(arguments) {
    request_.command = command.name;
  }

  CommandLine Read() {
    for (at_ = 1; at_ < arguments_.size(); ++at_) {
      const std::string& argument = arguments_[at_];
      if (onlyFiles_ || argument.size() < 2 || argument[0] != '-') {
        if (argument.empty()) return WrongUsage{"a file name is empty"};
        request_.files.push_back(FromUtf8(argument));
      } else if (argument == "--") {
        onlyFiles_ = true;
      } else if (argument == "--help") {
        return HelpWanted{request_.command};
      } else if (Problem problem = ReadOption(argument)) {
        return WrongUsage{*problem};
      }
    }
    if (Problem problem = CheckFiles(command_, request_.files.size())) return WrongUsage{*problem};
    if (command_.check != nullptr) {
      if (Problem problem = command_.check(request_)) return WrongUsage{*problem};
    }
    return request_;
  }

 private:
  Problem ReadOption(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    const Option* option = Find(kCommonOptions, name);
    if (option == nullptr) option = Find(command_.options, name);
    if (option == nullptr) return request_.command + " has no option " + Quoted(name);
    if (!option->takesValue) {
      if (equals != std::string::npos) return name + " takes no value";
      return option->set(request_, {});
    }
    if (equals != std::string::npos) return option->set(request_, argument.substr(equals + 1));
    if (at_ + 1 == arguments_.size()) return name + " needs a value";
    return option->set(request_, arguments_[++at_]);
  }

  const Command& command_;
  const std::vector<std::string>& arguments_;
  Request request_;
  std::size_t at_ = 0;
  bool onlyFiles_ = false;
};

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
  if (arguments.empty()) return WrongUsage{"no command was given"};
  const std::string& first = arguments.front();
  if (first == "--help" || first == "help") return HelpWanted{};
  if (first == "--version") return VersionWanted{};
  const auto command = std::ranges::find(kCommands, first, &Command::name);
  if (command == kCommands.end()) return WrongUsage{"there is no command " + Quoted(first)};
  return Reader(*command, arguments).Read();
}

}  // namespace cuewright
