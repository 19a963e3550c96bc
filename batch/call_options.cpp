#include "batch/call_options.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

#include "core/frame_rate.h"
#include "text/digits.h"
#include "text/encoding_names.h"

namespace cuewright {
namespace {

Problem SetFps(Request& request, const std::string& value) {
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

Problem SetReadAs(Request& request, const std::string& value) {
  request.readAs = EncodingByName(FromUtf8(value));
  if (!request.readAs) return "--read-as: there is no encoding " + Quoted(value);
  return {};
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

Problem SetJobs(Request& request, const std::string& value) {
  constexpr int kMostJobs = 256;
  const int jobs = AllDigits(value) && value.size() <= 3 ? std::stoi(value) : 0;
  if (jobs < 1 || jobs > kMostJobs) return "--jobs takes a number from 1 to 256, not " + Quoted(value);
  request.jobs = jobs;
  return {};
}

Problem SetFilesFrom(Request& request, const std::string& value) {
  if (value.empty()) return "--files-from takes the name of a file";
  request.filesFrom = FromUtf8(value);
  return {};
}

constexpr std::array kCommonOptions = {
    CallOption{"--fps", true, SetFps},
    CallOption{"--text", true, SetText},
    CallOption{"--read-as", true, SetReadAs},
    CallOption{"--catalogue", true, SetCatalogue},
    CallOption{"--separator", true, SetSeparator},
    CallOption{"--set", true, SetSetting},
    CallOption{"--settings", true, SetSettingsFile},
    CallOption{"--classic", false, SetClassic},
    CallOption{"--json", false, SetJson},
    CallOption{"--quiet", false, SetQuiet},
};

constexpr std::array kConvertOptions = {
    CallOption{"--to", true, SetTo},
    CallOption{"--out", true, SetOut},
    CallOption{"--folder", true, SetFolder},
    CallOption{"--untimed", true, SetUntimed},
    CallOption{"--rules", false, SetRules},
    CallOption{"--jobs", true, SetJobs},
    CallOption{"--files-from", true, SetFilesFrom},
    CallOption{"--encoding", true, SetEncoding},
};

Problem SetProfile(Request& request, const std::string& value) {
  request.profile = FromUtf8(value);
  return {};
}

constexpr std::array kCheckOptions = {CallOption{"--profile", true, SetProfile}, CallOption{"--film", true, SetFilm}};

constexpr std::array kRulesOptions = {
    CallOption{"--standard", false, SetStandard},
    CallOption{"--detailed", false, SetDetailed},
    CallOption{"--to", true, SetTo},
    CallOption{"--out", true, SetOut},
};

}  // namespace

Problem SetFilm(Request& request, const std::string& value) {
  if (value.empty()) return "--film takes the name of a film";
  request.film = FromUtf8(value);
  return {};
}

Problem SetOut(Request& request, const std::string& value) {
  if (value.empty()) return "--out takes the name of a file";
  request.out = FromUtf8(value);
  return {};
}

Problem SetLanguage(Request& request, const std::string& value) {
  constexpr std::size_t kLongest = 40;
  const bool plain = std::ranges::all_of(value, [](unsigned char c) { return std::isalnum(c) != 0 || c == '-'; });
  if (value.empty() || value.size() > kLongest || !plain || value.front() == '-') {
    return "--language takes a code such as en or pt-BR, not " + Quoted(value);
  }
  request.language = FromUtf8(value);
  return {};
}

Problem SetTo(Request& request, const std::string& value) {
  request.to = ToUpper(FromUtf8(value));
  return {};
}

Problem SetEncoding(Request& request, const std::string& value) {
  request.encodingName = FromUtf8(value);
  request.encoding = EncodingByName(request.encodingName);
  if (!request.encoding) return "--encoding: there is no encoding " + Quoted(value);
  return {};
}

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

bool AllDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit<char>); }

std::span<const CallOption> CommonOptions() { return kCommonOptions; }
std::span<const CallOption> ConvertOptions() { return kConvertOptions; }
std::span<const CallOption> RulesOptions() { return kRulesOptions; }
std::span<const CallOption> CheckOptions() { return kCheckOptions; }

Problem CheckCheck(const Request& request) {
  if (request.profile.empty()) return "check needs --profile with a name that 'profiles' lists";
  if (request.film && request.fps) return "check takes --film or --fps; a film tells its own rate";
  return {};
}

Problem CheckFps(const Request& request) {
  if (!request.fps) return {};
  const std::string& value = *request.fps;
  const FrameRate rate = FrameRate::FromText(FromUtf8(value));
  if (!request.classic) {
    if (rate.IsUsual()) return {};
    return "--fps takes a rate from 1 to 240, such as 25 or 23.976, not " + Quoted(value);
  }
  const float whole = std::floor(rate.AsGiven());
  if (value.size() < 9 && whole >= 15 && whole <= 30) return {};
  return "--fps takes a rate from 15 to 30, such as 25 or 23.976, not " + Quoted(value);
}

Problem CheckEncoding(const Request& request) {
  const bool classicText = request.text && request.text->classic;
  if (request.encoding && classicText) return "--encoding doesn't go with --text classic";
  return {};
}

Problem CheckRules(const Request& request) {
  if (request.out.has_value() == request.to.empty()) return "rules takes --out and --to together";
  return {};
}

Problem CheckConvert(const Request& request) {
  if (request.files.empty() && !request.filesFrom) return "convert needs a file";
  if (request.out.has_value() == request.folder.has_value()) return "convert needs either --out or --folder";
  if (request.out && (request.files.size() > 1 || request.filesFrom))
    return "--out takes one file only; use --folder for more";
  return {};
}

}  // namespace cuewright
