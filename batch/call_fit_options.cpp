#include <array>

#include "batch/call_options.h"

namespace cuewright {
namespace {

Problem SetReaction(Request& request, const std::string& value) {
  constexpr int kMost = 2000;
  request.fit.reaction.reset();
  if (value == "auto") return {};
  const bool early = value.starts_with('-');
  const std::string digits = value.substr(early ? 1 : 0);
  const int ms = AllDigits(digits) && digits.size() <= 4 ? std::stoi(digits) : kMost + 1;
  if (ms > kMost) return "--reaction takes auto or milliseconds from -2000 to 2000, not " + Quoted(value);
  request.fit.reaction = early ? -ms : ms;
  return {};
}

}  // namespace

std::span<const CallOption> FitOptions() {
  static constexpr std::array kOptions = {
      CallOption{"--film", true, SetFilm},         CallOption{"--language", true, SetLanguage},
      CallOption{"--reaction", true, SetReaction}, CallOption{"--rows", true, SetRows},
      CallOption{"--out", true, SetOut},           CallOption{"--to", true, SetTo},
      CallOption{"--encoding", true, SetEncoding},
  };
  return kOptions;
}

Problem CheckFit(const Request& request) {
  if (!request.film) return "fit needs --film with the film of the captions";
  if (!request.out) return "fit needs --out with the name of a file";
  return {};
}

}  // namespace cuewright
