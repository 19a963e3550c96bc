#include "forms/help.h"

#include "forms/web.h"

namespace cuewright {

void OpenHelp(const Folders& folders, TextView language, const LangStrings& strings, const Files& files,
              Messages& messages, Desktop& desktop, HelpWindow& viewer) {
  const auto opened = [&](TextView name) {
    const Text file = folders.AppFolder + u"qxm_" + ToLower(name) + u".chm";
    if (files.Exists(file) && desktop.ShellOpen(file)) return true;
    if (!viewer.Has(name)) return false;
    viewer.OpenFor({});
    return true;
  };
  if (opened(language)) return;
  messages.Show({strings[Message::HelpShownInEnglish], BoxIcon::Information});
  if (opened(u"ENGLISH")) return;
  OpenWebPage(desktop, ProductPage(language) + u"#help", language);
}

}  // namespace cuewright
