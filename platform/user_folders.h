#pragma once

#include <string>
#include <vector>

#include "text/text.h"

namespace cuewright {

/// The user's settings file, in the XDG configuration folder.
Text SettingsFilePath();

/// The user's registry, beside the settings.
Text RegistryFilePath();

/// The folder of the words that the user added to spelling dictionaries, with a "/" at its end; empty without a home.
Text WordsFolderPath();

/// The folder of the journals of unsaved documents, in the user's state folder; empty without a home.
Text JournalFolderPath();

/// The folder of the sounds taken from films, in the user's cache folder; empty without a home.
Text SoundFolder();

/// Where the private folder of a run may stand, the best place first; without a "/" at their ends.
std::vector<std::string> RunFolderBases();

/// The system folder of the user's Wine, for programs of 32 bits, with a "/" at the end; empty without a home. It
/// needn't exist.
Text WineSystemFolder();

/// The folder that the program's own file stands in, with a "/" at the end.
Text ProgramFolder();

/// The folder of the files that the programs share (the formats, languages and help), with a "/" at its end: beside the
/// program in a build, in the data folder of the prefix once it is installed.
Text DataFolder();

/// The path of an existing file made absolute; a text that is no existing file's path stays.
Text AbsoluteIfExists(TextView path);

}  // namespace cuewright
