#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "batch/command_line.h"

namespace cuewright {

/// What is wrong with a call, in one sentence; empty when nothing is.
using Problem = std::optional<std::string>;

/// An option, and the function that puts its value into the request.
struct CallOption {
  std::string_view name;
  bool takesValue;
  Problem (*set)(Request&, const std::string&);
};

std::string Quoted(std::string_view text);
bool AllDigits(std::string_view text);

/// The options of every command, and those that a command has beside them.
std::span<const CallOption> CommonOptions();
std::span<const CallOption> ConvertOptions();
std::span<const CallOption> RulesOptions();
std::span<const CallOption> RetimeOptions();
std::span<const CallOption> ReplaceOptions();
std::span<const CallOption> CheckOptions();
std::span<const CallOption> SyncOptions();
std::span<const CallOption> FitOptions();
std::span<const CallOption> AlignOptions();

/// Takes the encoding of what is written.
Problem SetEncoding(Request& request, const std::string& value);
/// Take the values of options that several commands have.
Problem SetFilm(Request& request, const std::string& value);
Problem SetOut(Request& request, const std::string& value);
Problem SetRows(Request& request, const std::string& value);
Problem SetTo(Request& request, const std::string& value);
/// Takes the language of a text; letters, digits and hyphens.
Problem SetLanguage(Request& request, const std::string& value);

/// What is wrong with a request as a whole.
Problem CheckEncoding(const Request& request);
Problem CheckFps(const Request& request);
Problem CheckConvert(const Request& request);
Problem CheckRules(const Request& request);
Problem CheckRetime(const Request& request);
Problem CheckReplace(const Request& request);
Problem CheckCheck(const Request& request);
Problem CheckSync(const Request& request);
Problem CheckFit(const Request& request);
Problem CheckAlign(const Request& request);

}  // namespace cuewright
