#include "forms/recall.h"

#include "core/paths.h"

namespace cuewright {

Recall::Recall(MainWindow& window, SettingsStore& store, const Files& files, const Folders& folders)
    : window_(window), store_(store), files_(files), folders_(folders) {}

Text Recall::LastFolder() const { return store_.GetSetting(kMainSection, u"LastFolder", folders_.AppFolder); }

void Recall::SavePath(TextView path) { store_.SaveSetting(kMainSection, u"LastFolder", FolderOfPath(path)); }

Text Recall::Path(TextView key) const { return store_.GetSetting(kMainSection, key, {}); }

void Recall::Remember(TextView key, MenuItem& item, TextView path) {
  store_.SaveSetting(kMainSection, key, path);
  Show(item, path);
  Remembered(key, path);
}

void Recall::Show(MenuItem& item, TextView path) {
  item.SetText(ShortenPath(path));
  item.SetVisible(true);
  window_.mnuLine0b.SetVisible(true);
}

void Recall::ShowKept() {
  const auto show = [&](TextView key, MenuItem& item) {
    const Text path = Path(key);
    if (path.empty() || !files_.Exists(path)) return;
    if (ToLower(path).find(u"temporary internet files") != Text::npos) return;
    Show(item, path);
  };
  show(u"TFileName", window_.mnuTFileName);
  show(u"VFileName", window_.mnuVFileName);
  show(u"AFileName", window_.mnuAFileName);
}

}  // namespace cuewright
