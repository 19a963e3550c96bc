#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace cuewright::testing {

/// A caption as the rule of its format gives it: times in ms, the text in UTF-8 with "|" between its lines.
struct PlainCaption {
  std::int64_t start = 0;
  std::int64_t end = 0;
  std::string text;

  friend bool operator==(const PlainCaption&, const PlainCaption&) = default;
};
using PlainCaptions = std::vector<PlainCaption>;

/// The plain rules of formats: each reads a whole file in UTF-8, slowly and by nothing that the readers use. A style of
/// all of a text is a marker in front of it; a caption without an end lasts until the next time, and at most 250 ms a
/// character up to 5 of them, 120 up to 15, else 50.
PlainCaptions PlainSubRip(const std::string& file);
PlainCaptions PlainWebVtt(const std::string& file);
PlainCaptions PlainMicroDvd(const std::string& file);
PlainCaptions PlainMpl2(const std::string& file);
PlainCaptions PlainSbv(const std::string& file);
PlainCaptions PlainSubViewer2(const std::string& file);
PlainCaptions PlainLyrics(const std::string& file);
PlainCaptions PlainTmPlayer(const std::string& file);
PlainCaptions PlainSubStation(const std::string& file);
PlainCaptions PlainSami(const std::string& file);
PlainCaptions PlainQuickTime(const std::string& file);
PlainCaptions PlainTtml(const std::string& file);
PlainCaptions PlainTranscript(const std::string& file);
/// The same for what broadcasters use, from the file's bytes. Places are those of a number pad, as "{\an8}".
PlainCaptions PlainEbu(const std::string& file);
PlainCaptions PlainScc(const std::string& file);

}  // namespace cuewright::testing
