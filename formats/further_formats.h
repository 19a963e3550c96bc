#pragma once

#include <array>

#include "text/text.h"

namespace cuewright {

/// The formats that the data files don't have: they are read by their published rules alone. Those that are also
/// written as new files come first.
inline constexpr std::array<TextView, 2> kFurtherFormats = {u"MPL2", u"TRANSCRIPTJSON"};
inline constexpr int kFurtherFormatsWritten = 2;

/// What "formats.ini" would say of them. Files that count frames tell their rate themselves, so that their times are
/// told without frames here: nobody is asked for a rate.
inline constexpr TextView kFurtherFormatsIni =
    uR"(
[MPL2]
name=MPL2
extension=mpl,txt
timecode=hh:mm:ss.z
lbreak=|
tags=7
[TRANSCRIPTJSON]
name=Transcript (JSON)
extension=json
timecode=hh:mm:ss.zzz
lbreak=\n
)";

}  // namespace cuewright
