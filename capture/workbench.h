#pragma once

#include "capture/caption_grid.h"
#include "capture/main_window.h"
#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/document.h"
#include "core/lang_strings.h"

namespace cuewright {

/// What nearly every part of the main window works on: its controls, the captions and how they are listed, what is
/// open, the settings and the texts. All of it outlives the parts.
struct Workbench {
  MainWindow& window;
  CaptionList& list;
  CaptionGrid& grid;
  DocumentState& document;
  AppOptions& options;
  const LangStrings& strings;
};

}  // namespace cuewright
