#pragma once

#include "text/text.h"

namespace cuewright {

/// The name that titles bear.
inline constexpr TextView kProductName = u"Tessaly Cuewright";

/// The version as major, minor and revision.
struct Version {
  int major = 1;
  int minor = 0;
  int revision = 0;
};
inline constexpr Version kVersion;

/// "major.minor.revision".
Text VersionText();

/// The product's web site without a slash at its end. Configuration of a release: this build has no site,
/// so the reserved name for examples stands in.
inline constexpr TextView kWebSite = u"https://cuewright.example";

/// The site that is asked for updates, without a slash at its end; empty in a build that asks nobody. A release names
/// its own when it is configured (CUEWRIGHT_UPDATE_SITE).
TextView UpdateSite();

/// The address for suggestions. See `kWebSite`.
inline constexpr TextView kMailAddress = u"suggestions@cuewright.example";

}  // namespace cuewright
