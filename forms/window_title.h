#pragma once

#include "capture/workbench.h"
#include "core/edit_history.h"

namespace cuewright {

/// The main window's title: the document's name, with a star when it isn't as it was loaded or saved, and the product;
/// in the classic manner the product alone.
class WindowTitle {
 public:
  WindowTitle(Workbench bench, const EditHistory& history) : bench_(bench), history_(history) {}

  /// The document, its captions or the language have changed.
  void Show();

 private:
  Workbench bench_;
  const EditHistory& history_;
};

}  // namespace cuewright
