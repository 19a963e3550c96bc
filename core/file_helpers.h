#pragma once

#include "core/ports/event_queue.h"
#include "core/ports/files.h"
#include "text/text.h"

namespace cuewright {

/// Removes a file that exists. With `wait` it is looked for every 100 ms, for at most 3000 ms, until it is gone, while
/// events go on being handled. True when nothing stands at the path any more.
bool DeleteFileWait(Files& files, EventQueue& events, TextView path, bool wait);

/// True when a path can stand in the scripts of external tools as it is: it holds no double quote, no backslash, no
/// control character and no byte that is no UTF-8.
bool IsPlainPath(TextView path);

/// The path that external tools are given: the path itself when it is plain, else a private link of a plain name in
/// `tempFolder` that leads to it. Run-time error when the link can't be made.
Text ShortPathOf(Files& files, TextView path, TextView tempFolder);

}  // namespace cuewright
