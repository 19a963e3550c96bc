#include "forms/window_title.h"

#include "core/paths.h"
#include "core/product.h"

namespace cuewright {

void WindowTitle::Show() {
  Text title = Text(kProductName) + u" " + VersionText();
  if (bench_.options.manner.TitleNamesTheFile() && bench_.document.HasDocument()) {
    const Text name =
        bench_.document.HasFile() ? FileNameOf(bench_.document.SubtitlePath) : bench_.strings[Message::Untitled];
    title = name + (history_.AtSavedStep() ? u" - " : u"* - ") + title;
  }
  if (title != bench_.window.Title()) bench_.window.SetTitle(title);
}

}  // namespace cuewright
