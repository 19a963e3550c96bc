#include <array>

#include "batch/call_options.h"

namespace cuewright {
namespace {

Problem SetOther(Request& request, const std::string& value) {
  if (value.empty()) return "--with takes the name of a film or of another subtitle";
  request.other = FromUtf8(value);
  return {};
}

Problem SetOut(Request& request, const std::string& value) {
  if (value.empty()) return "--out takes the name of a file";
  request.out = FromUtf8(value);
  return {};
}

Problem SetTo(Request& request, const std::string& value) {
  request.to = ToUpper(FromUtf8(value));
  return {};
}

constexpr std::array kSyncOptions = {
    CallOption{"--with", true, SetOther},
    CallOption{"--out", true, SetOut},
    CallOption{"--to", true, SetTo},
    CallOption{"--encoding", true, SetEncoding},
};

}  // namespace

std::span<const CallOption> SyncOptions() { return kSyncOptions; }

Problem CheckSync(const Request& request) {
  if (!request.other) return "sync needs --with with the name of a film or of another subtitle";
  if (!request.out) return "sync needs --out with the name of a file";
  return {};
}

}  // namespace cuewright
