#pragma once

#include "text/text.h"

namespace cuewright {

/// The folders and files worked out at start, each folder with a "/" at its end.
struct Folders {
  Text AppFolder;       ///< the program's own
  Text TempFolder;      ///< private to the user and this run
  Text FormatIniPath;   ///< "formats.ini" beside the program
  Text FormatDatPath;   ///< "formats.dat" beside the program
  Text Documents{};     ///< the user's; empty where none is known
  Text Films{};         ///< the user's; empty where none is known
  Text SystemFolder{};  ///< that of the system on which foreign programs run, under Wine
};

/// The one path of a command line, which counts only when it holds a "/" and a "." and is at least 8 characters long;
/// every double quote is removed. Else the empty text.
Text StartFileOf(TextView commandLine);

}  // namespace cuewright
