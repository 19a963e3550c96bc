#include "forms/recent_files.h"

#include <algorithm>
#include <array>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/paths.h"

namespace cuewright {
namespace {

constexpr TextView kSection = u"Recent";
/// The letter before the path in a stored value, and the kind of file that it stands for.
constexpr TextView kLetters = u"TVA";
constexpr std::array kKinds = {FileKind::Subtitle, FileKind::Film, FileKind::Sound};

Text KeyOf(std::size_t index) { return u"File" + Decimal(index); }

bool IsOneOf(TextView extension, std::initializer_list<TextView> all) {
  return std::find(all.begin(), all.end(), extension) != all.end();
}

}  // namespace

FileKind KindOfFile(TextView path) {
  const Text name = FileNameOf(path);
  const std::size_t dot = name.rfind(u'.');
  const Text extension = dot == Text::npos ? Text() : ToLower(TextView(name).substr(dot + 1));
  if (IsOneOf(extension, {u"mpeg", u"mpg", u"mpe", u"m1v", u"m2v",  u"mp2v", u"mpeg2", u"mp4", u"m4v",
                          u"wmv",  u"wm",  u"asf", u"avi", u"divx", u"xvid", u"mkv",   u"ogm", u"ogv",
                          u"webm", u"mov", u"flv", u"ts",  u"mts",  u"m2ts", u"vob",   u"3gp"})) {
    return FileKind::Film;
  }
  if (IsOneOf(extension, {u"wav", u"mp2", u"mp3", u"m4a", u"aac", u"ac3", u"flac", u"ogg", u"oga", u"opus", u"wma",
                          u"mka", u"w64"})) {
    return FileKind::Sound;
  }
  return FileKind::Subtitle;
}

RecentFiles::RecentFiles(MainWindow& window, SettingsStore& store, const Files& files)
    : window_(window), store_(store), files_(files) {
  window_.mnuFile.AboutToShow.Connect([this] { Show(); });
  for (std::size_t i = 0; i < window_.mnuRecentFile.size(); ++i) {
    window_.mnuRecentFile[i].Clicked.Connect([this, i] {
      if (i >= shown_.size()) return;
      const Entry entry = shown_[i];  // opening it changes the list
      Chosen(entry.kind, entry.path);
    });
  }
  window_.mnuClearRecent.Clicked.Connect([this] { Clear(); });
}

std::vector<RecentFiles::Entry> RecentFiles::Kept() const {
  std::vector<Entry> entries;
  for (std::size_t i = 0; i < window_.mnuRecentFile.size(); ++i) {
    const Text value = store_.GetSetting(kSection, KeyOf(i), {});
    const int kind = value.empty() ? -1 : PlaceOf(kLetters, value[0]);
    if (kind >= 0 && value.size() > 1) entries.push_back({ItemAt(kKinds, kind), value.substr(1)});
  }
  return entries;
}

void RecentFiles::Keep(const std::vector<Entry>& entries) {
  std::vector<SettingsStore::KeyValue> values;
  for (std::size_t i = 0; i < window_.mnuRecentFile.size(); ++i) {
    Text value;
    if (i < entries.size()) value = ItemAt(kLetters, entries[i].kind) + entries[i].path;
    values.emplace_back(KeyOf(i), value);
  }
  store_.SaveSettings(kSection, values);
}

void RecentFiles::Add(FileKind kind, TextView path) {
  const Entry added{kind, Text(path)};
  std::vector<Entry> entries = Kept();
  std::erase(entries, added);
  entries.insert(entries.begin(), added);
  if (entries.size() > window_.mnuRecentFile.size()) entries.pop_back();
  Keep(entries);
  Show();
}

void RecentFiles::Clear() {
  Keep({});
  Show();
}

void RecentFiles::Show() {
  shown_ = Kept();
  std::erase_if(shown_, [this](const Entry& entry) { return !files_.Exists(entry.path); });
  for (std::size_t i = 0; i < window_.mnuRecentFile.size(); ++i) {
    MenuItem& item = window_.mnuRecentFile[i];
    // An ampersand in a name is no mark of a key.
    if (i < shown_.size()) item.SetText(ReplaceAll(ShortenPath(shown_[i].path), u"&", u"&&"));
    item.SetVisible(i < shown_.size());
  }
  window_.mnuRecent.SetVisible(!shown_.empty());
  if (!shown_.empty()) window_.mnuLine0b.SetVisible(true);
}

}  // namespace cuewright
