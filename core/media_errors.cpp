#include "core/media_errors.h"

#include <algorithm>
#include <array>

namespace cuewright {
namespace {

constexpr std::array<std::string_view, 7> kSentences = {
    "Error writing trailer", "Error closing file",      "av_interleaved_write_frame(): ",
    "Error muxing a packet", "No space left on device", "Error submitting a packet to the muxer",
    "Disk quota exceeded"};

}  // namespace

bool TellsOfCutOff(std::string_view log) {
  return std::any_of(kSentences.begin(), kSentences.end(),
                     [&](std::string_view sentence) { return log.find(sentence) != std::string_view::npos; });
}

}  // namespace cuewright
