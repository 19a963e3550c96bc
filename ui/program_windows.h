#pragma once

#include <memory>

#include "forms/program.h"
#include "ui/main_window_view.h"

namespace cuewright {

/// The main window with the windows beside it. It takes the player's widget over.
std::unique_ptr<MainWindowView> MakeMainWindow(Program& program, QWidget* video);
/// The views that the windows beside the main one get.
void AddToolWindows(Windows& windows, Program& program);
/// The views that the dialogs get.
void AddDialogs(Windows& windows, Program& program);

}  // namespace cuewright
