#include "forms/web.h"

#include "core/product.h"
#include "text/digits.h"
#include "text/units.h"

namespace cuewright {
namespace {

constexpr TextView kRootPage = u"go.php?";

/// The text for a part of a URL: everything but letters, digits and "-._~" as the percent codes of its bytes.
Text PercentEncoded(TextView text) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text encoded;
  for (const char byte : ToUtf8(text)) {
    const unsigned char code = ByteOf(byte);
    const bool plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || IsDigit(byte) || byte == '-' ||
                       byte == '.' || byte == '_' || byte == '~';
    if (plain) {
      encoded += code;
    } else {
      encoded += {u'%', kDigits[code >> 4], kDigits[code & 0xF]};
    }
  }
  return encoded;
}

}  // namespace

Text WebPage(TextView path, TextView language) {
  const bool spanish = language == u"SPANISH";
  const Text site = Text(kWebSite) + u"/";
  if (path.starts_with(kRootPage)) {
    return site + Text(kRootPage) + (spanish ? u"es=1&" : u"") + Text(path.substr(kRootPage.size()));
  }
  return site + (spanish ? u"es/" : u"en/") + Text(path);
}

void OpenWebPage(Desktop& desktop, TextView path, TextView language) { desktop.ShellOpen(WebPage(path, language)); }

Text ProductPage(TextView language) { return u"cuewright.php?lang=" + ToLower(language); }

void OpenExternal(Desktop& desktop, TextView target) { desktop.ShellOpen(target); }

Text MailLink(TextView subject) { return u"mailto:" + Text(kMailAddress) + u"?subject=" + PercentEncoded(subject); }

void MailAuthor(Desktop& desktop, Messages& messages, TextView subject) {
  messages.Show(
      {u"When contacting the author please do it in english or spanish only.\r\n\r\n"
       u"Al contactar al autor por favor hazlo en inglés o español únicamente.",
       BoxIcon::Information, BoxButtons::Ok, u"Email the Author"});
  OpenExternal(desktop, MailLink(subject));
}

void ShowRegionalSettings(Desktop& desktop, Messages& messages, const LangStrings& strings) {
  if (!desktop.OpenRegionalSettings()) messages.Show({strings[Message::NoRegionalPanel], BoxIcon::Information});
}

}  // namespace cuewright
