#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "core/ports/files.h"
#include "core/product.h"
#include "text/encodings.h"
#include "text/text.h"

namespace cuewright {

/// Stands for a value that the list doesn't have.
inline constexpr TextView kNoUpdateValue = u"---";
/// The most bytes of an update list that are read.
inline constexpr std::uint64_t kLongestUpdateList = std::uint64_t{4} << 20;

/// The address of the update list on a site.
Text UpdateListUrl(TextView site, const Version& version);

/// The number of this version, in which the minor part weighs ten; run-time error 6 beyond 16 bits.
Text LocalVersionNumber(const Version& version);

/// The number of a version as the list writes it: its dots are removed, and the digits that it then begins with are its
/// number. "0" for a text that begins with none.
Text RemoteVersionNumber(TextView versionText);

/// A day of the calendar.
struct Day {
  int year = 0;
  int month = 0;
  int day = 0;

  bool operator==(const Day&) const = default;
};

/// The day of three numbers; years below 100 are those around 2000, and months and days beyond the end go on into the
/// next year and month. Nothing when one of them isn't above 0; run-time error 6 beyond 16 bits, 5 for a year beyond
/// 9999.
std::optional<Day> DayOf(TextView year, TextView month, TextView day);

/// Makes a list that came with LF read as one with CR LF: each LF becomes CR LF, and a line end comes behind it all.
/// The file is replaced by a private one. Run-time error when that fails.
void NormalizeUpdateFile(Files& files, TextView path);

/// The text of a list's bytes: UTF-8 where they are that, else in the system's code page.
Text UpdateListText(std::string_view bytes, const Encodings& encodings);

/// A value of the list's section; "---" when the list lacks it.
Text GetUpdateValue(TextView list, TextView key);

/// The lines of the change log; nothing when the list has none. One without an end goes on to the end of the text.
std::optional<std::vector<Text>> ChangesOf(TextView list);

}  // namespace cuewright
