#include "batch/command_line.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

#include "batch/call_options.h"

namespace cuewright {
namespace {

struct Command {
  std::string_view name;
  std::size_t leastFiles;
  std::size_t mostFiles;
  std::span<const CallOption> (*options)();  ///< those beside the common ones; null: none
  Problem (*check)(const Request&);          ///< null: nothing beyond the number of files
};

constexpr std::size_t kAnyNumber = std::numeric_limits<std::size_t>::max();
constexpr std::array kCommands = {
    Command{"formats", 0, 0, nullptr, nullptr},
    Command{"detect", 1, kAnyNumber, nullptr, nullptr},
    Command{"dump", 1, 1, nullptr, nullptr},
    Command{"peaks", 1, 1, nullptr, nullptr},
    Command{"convert", 0, kAnyNumber, ConvertOptions, CheckConvert},
    Command{"rules", 1, 1, RulesOptions, CheckRules},
    Command{"retime", 1, 1, RetimeOptions, CheckRetime},
    Command{"replace", 1, 1, ReplaceOptions, CheckReplace},
    Command{"profiles", 0, 0, nullptr, nullptr},
    Command{"check", 1, 1, CheckOptions, CheckCheck},
    Command{"shots", 1, 1, nullptr, nullptr},
    Command{"align", 1, 1, AlignOptions, CheckAlign},
    Command{"sync", 1, 1, SyncOptions, CheckSync},
    Command{"fit", 1, 1, FitOptions, CheckFit},
};

const CallOption* Find(std::span<const CallOption> options, std::string_view name) {
  const auto found = std::ranges::find(options, name, &CallOption::name);
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
    if (Problem problem = CheckFps(request_)) return WrongUsage{*problem};
    if (Problem problem = CheckEncoding(request_)) return WrongUsage{*problem};
    if (command_.check != nullptr) {
      if (Problem problem = command_.check(request_)) return WrongUsage{*problem};
    }
    return request_;
  }

 private:
  Problem ReadOption(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    const CallOption* option = Find(CommonOptions(), name);
    if (option == nullptr && command_.options != nullptr) option = Find(command_.options(), name);
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
