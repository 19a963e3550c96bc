#pragma once

#include "core/lang_strings.h"
#include "core/ports/desktop.h"
#include "core/ports/messages.h"
#include "text/text.h"

namespace cuewright {

/// The page from which the media player is had, number 800 of the catalogue.
inline constexpr TextView kPlayerPage = u"https://mpv.io/installation/";

/// The address of a path under the product's web site, in the site's Spanish or English part. The file "go.php" has its
/// place above both, and is told the language in its query.
Text WebPage(TextView path, TextView language);

/// Opens a path under the product's web site in the browser.
void OpenWebPage(Desktop& desktop, TextView path, TextView language);

/// The product's own page, in the program's language.
Text ProductPage(TextView language);

/// Hands a URL or a mail link to the desktop.
void OpenExternal(Desktop& desktop, TextView target);

/// A mail to the makers: a link that the desktop's mail program understands, whatever the subject holds.
Text MailLink(TextView subject);

/// Asks for a language that the makers read, and begins a mail to them.
void MailAuthor(Desktop& desktop, Messages& messages, TextView subject);

/// Opens the desktop's panel of language and region; where there is none, a box says so.
void ShowRegionalSettings(Desktop& desktop, Messages& messages, const LangStrings& strings);

}  // namespace cuewright
