#include "forms/help.h"

#include "forms/web.h"

namespace cuewright {

void OpenHelp(const Folders& folders, TextView language, const LangStrings& strings, const Files& files,
              Messages& messages, Desktop& desktop) {
  const auto pathOf = [&](TextView name) { return folders.AppFolder + u"qxm_" + ToLower(name) + u".chm"; };
  Text path = pathOf(language);
  if (!files.Exists(path)) {
    messages.Show({strings[160], BoxIcon::Information});
    path = pathOf(u"ENGLISH");
  }
  if (files.Exists(path) && desktop.ShellOpen(path)) return;
  OpenWebPage(desktop, ProductPage(language) + u"#help", language);
}

}  // namespace cuewright
