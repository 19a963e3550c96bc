#pragma once

namespace cuewright {

/// The code page that Windows gives the language of the user's locale (LC_ALL, LC_CTYPE, LANG): 1252 for one that
/// isn't known.
int AnsiCodePageOfLocale();

}  // namespace cuewright
