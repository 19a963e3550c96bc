#pragma once

#include <cstdint>

#include "core/ports/file_dialogs.h"
#include "core/ports/pickers.h"
#include "text/text.h"

namespace cuewright {

/// What `ShowColorDialog` gives when no colour was chosen.
inline constexpr std::int32_t kNoColor = -1;

// The five common dialogs. Each blocks until the user has answered, and none raises an error: a failure counts as a
// cancel.

/// The colour chosen, 0x00BBGGRR; -1 on cancel or failure.
std::int32_t ShowColorDialog(Pickers& pickers, std::int32_t initial);

/// Lets the user change a font. False on cancel or failure, and then nothing has changed. A size in points outside the
/// limits becomes the nearest within; a limit of 0 is none.
bool ShowFontDialog(Pickers& pickers, FontChoice& font, int leastSize, int mostSize);

/// The path of an existing file; empty on cancel or failure. The filter is as for `FileDialogs`; the "|" at its end may
/// be left out.
Text ShowOpenDialog(FileDialogs& dialogs, TextView filter, TextView title, TextView folder);

/// The same for a file to write, asked about when it exists; `proposal` is the name offered.
Text ShowSaveDialog(FileDialogs& dialogs, TextView filter, TextView title, TextView folder, TextView proposal);

/// The folder chosen, with a "/" at its end; empty on cancel or failure.
Text BrowseForFolder(Pickers& pickers, TextView prompt);

/// The text up to its first NUL character.
Text CutAtNul(TextView text);

}  // namespace cuewright
