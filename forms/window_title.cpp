#include "forms/window_title.h"

#include "core/paths.h"
#include "core/product.h"

namespace cuewright {

WindowTitle::WindowTitle(MainWindow& window, const DocumentState& document, const AppOptions& options,
                         const LangStrings& strings)
    : window_(window), document_(document), options_(options), strings_(strings) {}

void WindowTitle::Show() {
  Text title = Text(kProductName) + u" " + VersionText();
  if (options_.manner.TitleNamesTheFile() && document_.HasDocument()) {
    const Text name = document_.HasFile() ? FileNameOf(document_.SubtitlePath) : strings_[Message::Untitled];
    title = name + (unsaved && unsaved() ? u"* - " : u" - ") + title;
  }
  if (title != window_.Title()) window_.SetTitle(title);
}

}  // namespace cuewright
