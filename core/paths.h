#pragma once

#include "text/text.h"

namespace cuewright {

/// The path without its last "." and what follows; a path with no "." stays.
Text StripExtension(TextView path);

/// The part behind the last "/".
Text FileNameOf(TextView path);

/// Everything up to and including the last "/"; empty when there is none.
Text FolderOfPath(TextView path);

/// The folder with one "/" at its end; the empty text becomes "/".
Text WithSlash(TextView folder);

/// A path that fits a menu item: from 33 characters on, everything up to the first "/", "...",
/// and the part from the last "/" on.
Text ShortenPath(TextView path);

/// What stands behind the first "." of the whole path, in lower case; empty without one.
Text StartExtension(TextView path);

}  // namespace cuewright
