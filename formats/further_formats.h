#pragma once

#include <array>

#include "text/text.h"

namespace cuewright {

/// The formats that the data files don't have: they are read by their published rules alone. Those that are also
/// written as new files come first.
inline constexpr std::array<TextView, 4> kFurtherFormats = {u"MPL2", u"TRANSCRIPTJSON", u"EBUSTL", u"SCC"};
inline constexpr int kFurtherFormatsWritten = 2;

/// What "formats.ini" would say of them. Files of these formats that count frames tell the rate themselves, so their
/// times are described as if without frames: the user must not be asked for a rate.
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
[EBUSTL]
name=EBU subtitling data exchange (STL)
extension=stl
timecode=hh:mm:ss.zzz
lbreak=[enter]
tags=6
[SCC]
name=Scenarist closed captions
extension=scc
timecode=hh:mm:ss.zzz
lbreak=[enter]
tags=6
)";

}  // namespace cuewright
