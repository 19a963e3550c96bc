#include "forms/web.h"

#include "core/product.h"

namespace cuewright {

Text WebPage(TextView path, TextView language) {
  return Text(kWebSite) + (language == u"SPANISH" ? u"/es/" : u"/en/") + Text(path);
}

void OpenWebPage(Desktop& desktop, TextView path, TextView language) { desktop.ShellOpen(WebPage(path, language)); }

}  // namespace cuewright
