#include <array>
#include <charconv>

#include "batch/call_options.h"

namespace cuewright {
namespace {

/// The whole number that a text is, with or without a sign; nothing for any other text and beyond 32 bits.
std::optional<std::int32_t> WholeNumber(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

Problem SetShift(Request& request, const std::string& value) {
  request.retime.shift = WholeNumber(value);
  if (!request.retime.shift) return "--shift takes a number of milliseconds, such as -1500, not " + Quoted(value);
  return {};
}

Problem SetSpeed(Request& request, const std::string& value) {
  request.retime.speed = SpeedRatio::FromText(FromUtf8(value));
  if (!request.retime.speed) {
    return "--speed takes a ratio of two numbers of up to nine digits, such as 25/24, not " + Quoted(value);
  }
  return {};
}

Problem SetRate(FrameRate& rate, const std::string& option, const std::string& value) {
  rate = FrameRate::FromText(FromUtf8(value));
  if (rate.IsUsual()) return {};
  return option + " takes a rate from 1 to 240, such as 25 or 23.976, not " + Quoted(value);
}

Problem SetFpsFrom(Request& request, const std::string& value) {
  return SetRate(request.retime.fpsFrom, "--fps-from", value);
}

Problem SetFpsTo(Request& request, const std::string& value) {
  return SetRate(request.retime.fpsTo, "--fps-to", value);
}

Problem AddPoint(Request& request, const std::string& value) {
  const std::size_t equals = value.find('=');
  const std::string_view all = value;
  const std::optional<std::int32_t> row = WholeNumber(all.substr(0, equals));
  const std::optional<Ms> ms = equals == std::string::npos ? std::nullopt : WholeNumber(all.substr(equals + 1));
  if (!row || *row < 1 || !ms) {
    return "--point takes a caption's number and its new start in milliseconds, such as 12=65000, not " + Quoted(value);
  }
  request.retime.points.push_back({*row, *ms});
  return {};
}

Problem SetFind(Request& request, const std::string& value) {
  request.replace.find = FromUtf8(value);
  return {};
}

Problem SetWith(Request& request, const std::string& value) {
  request.replace.with = FromUtf8(value);
  request.replaceGiven = true;
  return {};
}

Problem SetRegex(Request& request, const std::string&) {
  request.replace.regex = true;
  return {};
}

Problem SetCase(Request& request, const std::string&) {
  request.replace.matchCase = true;
  return {};
}

constexpr std::array kReplaceOptions = {
    CallOption{"--find", true, SetFind},    CallOption{"--with", true, SetWith},
    CallOption{"--regex", false, SetRegex}, CallOption{"--case", false, SetCase},
    CallOption{"--rows", true, SetRows},    CallOption{"--out", true, SetOut},
    CallOption{"--to", true, SetTo},        CallOption{"--encoding", true, SetEncoding},
};

constexpr std::array kRetimeOptions = {
    CallOption{"--shift", true, SetShift},       CallOption{"--speed", true, SetSpeed},
    CallOption{"--fps-from", true, SetFpsFrom},  CallOption{"--fps-to", true, SetFpsTo},
    CallOption{"--point", true, AddPoint},       CallOption{"--rows", true, SetRows},
    CallOption{"--out", true, SetOut},           CallOption{"--to", true, SetTo},
    CallOption{"--encoding", true, SetEncoding},
};

}  // namespace

Problem SetRows(Request& request, const std::string& value) {
  const std::size_t dash = value.find('-');
  const auto bound = [&](std::string_view text, Row open) -> std::optional<Row> {
    if (text.empty() && dash != std::string::npos) return open;
    const std::optional<std::int32_t> number = AllDigits(text) ? WholeNumber(text) : std::nullopt;
    return number && *number > 0 ? number : std::nullopt;
  };
  const std::string_view all = value;
  const std::optional<Row> first = bound(all.substr(0, dash), 1);
  const std::optional<Row> last = dash == std::string::npos ? first : bound(all.substr(dash + 1), kMaxRow);
  if (!first || !last || *first > *last || value == "-") {
    return "--rows takes the numbers of the first and the last caption, such as 10-20, 10- or 10, not " + Quoted(value);
  }
  request.rows = {*first, *last};
  return {};
}

std::span<const CallOption> RetimeOptions() { return kRetimeOptions; }
std::span<const CallOption> ReplaceOptions() { return kReplaceOptions; }

Problem CheckReplace(const Request& request) {
  if (request.replace.find.empty()) return "replace needs --find with a text";
  if (!request.replaceGiven) return "replace needs --with, which may be empty";
  if (!request.out) return "replace needs --out with the name of a file";
  return {};
}

Problem CheckRetime(const Request& request) {
  const RetimeChoice& choice = request.retime;
  const bool from(choice.fpsFrom);
  const bool to(choice.fpsTo);
  if (from != to) return "retime takes --fps-from and --fps-to together";
  const int ways =
      int{choice.shift.has_value()} + int{choice.speed.has_value()} + int{from} + int{!choice.points.empty()};
  if (ways != 1) return "retime needs one of --shift, --speed, --fps-from with --fps-to, and --point";
  if (!request.out) return "retime needs --out with the name of a file";
  return {};
}

}  // namespace cuewright
