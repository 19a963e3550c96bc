#pragma once

#include <cstdint>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "tests/formats/plain_rules.h"

// What plain rules of several formats share.

namespace cuewright::testing {

using Lines = std::vector<std::string>;

/// The end of a caption that the file doesn't tell.
constexpr std::int64_t kNoEnd = -1;

/// A pattern, made once, since to make one takes far longer than to use it.
const std::regex& Regex(const std::string& pattern);
/// The groups of a pattern that fits all of a line.
std::optional<std::smatch> Match(const std::string& line, const std::string& pattern);
std::string Replaced(const std::string& text, const char* pattern, const char* with);

/// The lines of a file whose ends may mix.
Lines LinesOf(const std::string& file);
std::string Trimmed(const std::string& line);
bool IsBlankLine(const std::string& line);
/// Lines with "|" between them.
std::string Joined(const Lines& lines);

/// "00:01:02,5", with two parts or three, as ms.
std::int64_t MsOf(const std::string& clock);

/// Tags around all of the text, or around each of its lines, are a marker in front of it.
std::string WithMarker(const std::string& text);

/// Ends the captions that have no end. Those without a text are no captions: they end what is seen at their time.
PlainCaptions WithEnds(const PlainCaptions& read);

}  // namespace cuewright::testing
