#pragma once

#include <functional>
#include <vector>

#include "capture/main_window.h"
#include "core/lang_strings.h"
#include "core/ports/files.h"
#include "settings/store.h"

namespace cuewright {

enum class FileKind { Subtitle, Film, Sound };

/// The kind of a file that the user hands over, by what stands behind its last "."; what isn't known as a film or a
/// sound counts as a subtitle, which the import then looks at.
FileKind KindOfFile(TextView path);

/// The files used last, newest first, as the submenu `mnuRecent` offers them.
class RecentFiles {
 public:
  RecentFiles(MainWindow& window, SettingsStore& store, const Files& files);

  /// Puts a file in front and keeps the list; the oldest beyond ten goes.
  void Add(FileKind kind, TextView path);
  void Clear();
  /// Fills the submenu with the files that are still there; without any it is hidden.
  void Show();

  /// Opens a file that the user chose. Set by the owner of the windows.
  Signal<RecentFiles, FileKind, const Text&> Chosen;

 private:
  struct Entry {
    FileKind kind;
    Text path;

    bool operator==(const Entry&) const = default;
  };
  std::vector<Entry> Kept() const;
  void Keep(const std::vector<Entry>& entries);

  MainWindow& window_;
  SettingsStore& store_;
  const Files& files_;
  std::vector<Entry> shown_;
};

}  // namespace cuewright
