#pragma once

#include "core/ports/desktop.h"
#include "core/text.h"

namespace cuewright {

/// The page from which the media player is had, number 800 of the catalogue.
inline constexpr TextView kPlayerPage = u"https://mpv.io/installation/";

/// The address of a path under the product's web site, in the site's Spanish or English part.
Text WebPage(TextView path, TextView language);

/// Opens a path under the product's web site in the browser.
void OpenWebPage(Desktop& desktop, TextView path, TextView language);

}  // namespace cuewright
