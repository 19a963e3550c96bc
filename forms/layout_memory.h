#pragma once

#include <array>
#include <optional>

#include "forms/main_layout.h"
#include "settings/store.h"

namespace cuewright {

/// Where the user put the window, its divider and the list's columns, from one run to the next. Sizes are in pixels;
/// what the user never moved stays as the program lays it out.
class LayoutMemory {
 public:
  LayoutMemory(SettingsStore& store, MainLayout& layout);

  /// Takes the divider and the columns of the last run.
  void Load();
  /// Keeps the divider and the columns.
  void Save();

  /// Left and top of the window with its frame.
  struct Corner {
    int left = 0;
    int top = 0;
  };
  std::optional<Corner> WindowCorner() const;
  void SaveWindowCorner(const Corner& corner);

  /// The user drew the first three columns to these widths in a list of the width.
  void NoteColumns(const std::array<int, 4>& widths, int listWidth);
  /// The columns are the program's own again.
  void ForgetColumns() { shares_.reset(); }
  /// The user's columns for a list of the width, or else the program's.
  std::array<int, 4> Columns(int listWidth, int paneWidth, int scrollBarWidth) const;

 private:
  SettingsStore& store_;
  MainLayout& layout_;
  int loadedList_ = 0;
  bool keptColumns_ = false;
  std::optional<std::array<int, 3>> shares_;  // of the first three columns, in thousandths of the list
};

}  // namespace cuewright
