#include <array>

#include "batch/call_options.h"

namespace cuewright {
namespace {

Problem SetOther(Request& request, const std::string& value) {
  if (value.empty()) return "--with takes the name of a film or of another subtitle";
  request.other = FromUtf8(value);
  return {};
}

constexpr std::array kAlignOptions = {
    CallOption{"--film", true, SetFilm}, CallOption{"--language", true, SetLanguage}, CallOption{"--out", true, SetOut},
    CallOption{"--to", true, SetTo},     CallOption{"--encoding", true, SetEncoding},
};

constexpr std::array kSyncOptions = {
    CallOption{"--with", true, SetOther},
    CallOption{"--out", true, SetOut},
    CallOption{"--to", true, SetTo},
    CallOption{"--encoding", true, SetEncoding},
};

}  // namespace

std::span<const CallOption> SyncOptions() { return kSyncOptions; }

std::span<const CallOption> AlignOptions() { return kAlignOptions; }

Problem CheckAlign(const Request& request) {
  if (!request.film) return "align needs --film with the name of a film";
  if (request.language.empty()) return "align needs --language with a code such as en";
  if (!request.out) return "align needs --out with the name of a file";
  return {};
}

Problem CheckSync(const Request& request) {
  if (!request.other) return "sync needs --with with the name of a film or of another subtitle";
  if (!request.out) return "sync needs --out with the name of a file";
  return {};
}

}  // namespace cuewright
