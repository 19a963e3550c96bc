#pragma once

#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"

namespace cuewright {

/// Opens the help file of a language in its default program. Where there is none the user is told and gets the English
/// one; where that is missing too, or nothing can open it, the help on the product's web site.
void OpenHelp(const Folders& folders, TextView language, const LangStrings& strings, const Files& files,
              Messages& messages, Desktop& desktop);

}  // namespace cuewright
