#pragma once

#include <functional>

#include "capture/main_window.h"
#include "core/app_options.h"
#include "core/document.h"
#include "core/lang_strings.h"

namespace cuewright {

/// The main window's title: the document's name, with a star when it isn't as it was loaded or saved, and the product;
/// in the classic manner the product alone.
class WindowTitle {
 public:
  WindowTitle(MainWindow& window, const DocumentState& document, const AppOptions& options, const LangStrings& strings);

  /// Tells whether the document has something to save. Set by the program.
  std::function<bool()> unsaved;
  /// The document, its captions or the language have changed.
  void Show();

 private:
  MainWindow& window_;
  const DocumentState& document_;
  const AppOptions& options_;
  const LangStrings& strings_;
};

}  // namespace cuewright
