#include "forms/recall.h"

#include "core/paths.h"

namespace cuewright {

Recall::Recall(MainWindow& window, SettingsStore& store, const Files& files, const Folders& folders)
    : window_(window), store_(store), files_(files), folders_(folders) {}

Text Recall::LastFolder(FileKind kind) const {
  const Text& own = kind == FileKind::Subtitle ? folders_.Documents : folders_.Films;
  Text kept = store_.GetSetting(kMainSection, u"LastFolder", {});
  if (!kept.empty()) return kept;
  return own.empty() ? folders_.AppFolder : own;
}

void Recall::SavePath(TextView path) { store_.SaveSetting(kMainSection, u"LastFolder", FolderOfPath(path)); }

Text Recall::Path(TextView key) const { return store_.GetSetting(kMainSection, key, {}); }

void Recall::Remember(TextView key, MenuItem& item, TextView path) {
  store_.SaveSetting(kMainSection, key, path);
  Show(item, path);
  Remembered(key, path);
}

void Recall::Keep(TextView key, MenuItem& item, TextView path) {
  const SettingsStore::Batch once(store_);
  SavePath(path);
  Remember(key, item, path);
}

void Recall::Show(MenuItem& item, TextView path) {
  // An ampersand in a name is no mark of a key.
  item.SetText(ReplaceAll(ShortenPath(path), u"&", u"&&"));
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

void Recall::KeepVolume(int volume) { store_.SaveSetting(kMainSection, u"Volume", Decimal(volume)); }

}  // namespace cuewright
