#pragma once

#include "capture/main_window.h"
#include "core/folders.h"
#include "core/ports/files.h"
#include "forms/recent_files.h"
#include "settings/store.h"

namespace cuewright {

/// The last files and the last folder, and the items of the File menu that offer them.
class Recall {
 public:
  Recall(MainWindow& window, SettingsStore& store, const Files& files, const Folders& folders);

  /// The folder in which every file dialog opens; before there was a first file that of the user's films or documents.
  Text LastFolder(FileKind kind = FileKind::Subtitle) const;
  /// Keeps the folder of a path.
  void SavePath(TextView path);

  /// Keeps how loud the player is.
  void KeepVolume(int volume);

  /// The path kept under a key ("TFileName", "VFileName", "AFileName").
  Text Path(TextView key) const;
  /// Keeps a path under a key and shows it in its menu item.
  void Remember(TextView key, MenuItem& item, TextView path);

  /// A file was opened or saved: keeps its folder, and its path as `Remember` does, in one write.
  void Keep(TextView key, MenuItem& item, TextView path);

  /// Shows the kept paths that exist; none of a browser's cache.
  void ShowKept();

  /// A path was kept under a key.
  Signal<Recall, TextView, TextView> Remembered;

 private:
  void Show(MenuItem& item, TextView path);

  MainWindow& window_;
  SettingsStore& store_;
  const Files& files_;
  const Folders& folders_;
};

}  // namespace cuewright
