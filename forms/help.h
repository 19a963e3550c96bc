#pragma once

#include "core/folders.h"
#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "forms/help_window.h"

namespace cuewright {

/// Opens the help of a language: its help file in the file's default program, else its pages in `viewer`. Where there
/// is neither the user is told and gets the English one in the same way; where that is missing too, the help on the
/// product's web site.
void OpenHelp(const Folders& folders, TextView language, const LangStrings& strings, const Files& files,
              Messages& messages, Desktop& desktop, HelpWindow& viewer);

}  // namespace cuewright
