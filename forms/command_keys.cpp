#include "forms/command_keys.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/numbers.h"
#include "text/labels.h"
#include "text/utf8.h"

namespace cuewright {
namespace {

constexpr TextView kSection = u"Cuewright\\Keys";
constexpr TextView kSetKey = u"Set";
/// Stored for a command whose key is that of the set.
constexpr TextView kAsTheSet = u"=";
constexpr std::string_view kBetween = "; ";

/// What the menus had before their keys could be chosen.
constexpr std::array<std::string_view, 11> kClassicCommands = {
    "mnuNew",  "mnuOpenText", "mnuSave",    "mnuSaveAs",    "mnuExit",      "mnuUndo",
    "mnuRedo", "mnuFind",     "mnuReplace", "mnuGSettings", "mnuHelpTopics"};

/// Keys in which the other sets are not as the program's own.
struct OtherKeys {
  std::string_view item;
  std::string_view aegisub;
  std::string_view subtitleEdit;
};
constexpr OtherKeys kOtherKeys[] = {
    {"mnuPlayOrPause", "Ctrl+P", "Ctrl+P"},
    {"mnuStartHere", "Ctrl+3", "F11"},
    {"mnuEndHere", "Ctrl+4", "F12"},
    {"mnuPushFromHere", "Ctrl+Shift+3", "F9"},
};

/// Items that stand for files or choices of the moment, and for no command of their own.
constexpr std::array<std::string_view, 5> kNoCommands = {"mnuRecentFile", "mnuTFileName", "mnuVFileName",
                                                         "mnuAFileName", "mnuSeparator"};

bool IsCommand(const MenuItem& item) {
  if (item.IsSeparator() || !item.Items().empty()) return false;
  return std::ranges::none_of(kNoCommands, [&](std::string_view name) { return item.Name().starts_with(name); });
}

void Collect(const MenuItem& menu, std::vector<MenuItem*>& commands) {
  for (MenuItem* item : menu.Items()) {
    if (IsCommand(*item)) commands.push_back(item);
    Collect(*item, commands);
  }
}

/// True when the item stands below the menu; `path` gets the names on the way.
bool FindPath(const MenuItem& menu, const MenuItem& item, Text& path) {
  for (const MenuItem* below : menu.Items()) {
    Text way;
    if (below != &item && !FindPath(*below, item, way)) continue;
    path = WithoutAccessKey(menu.GetText()) + u" > " + (below == &item ? WithoutAccessKey(item.GetText()) : way);
    return true;
  }
  return false;
}

}  // namespace

std::vector<std::string> SingleKeys(const std::string& keys) {
  std::vector<std::string> singles;
  for (std::size_t at = 0; at < keys.size();) {
    const std::size_t end = std::min(keys.find(kBetween, at), keys.size());
    singles.push_back(keys.substr(at, end - at));
    at = end + kBetween.size();
  }
  return singles;
}

bool TypesInTexts(const std::string& key) {
  for (const std::string_view held : {"Ctrl+", "Alt+", "Meta+"}) {
    if (key.find(held) != std::string::npos) return false;
  }
  const std::string last = key.starts_with("Shift+") ? key.substr(6) : key;
  return last.size() == 1 || last == "Space";
}

CommandKeys::CommandKeys(MainWindow& window, SettingsStore& store, const AppOptions& options)
    : window_(window), store_(store), options_(options) {
  for (const MenuItem* item : Commands()) own_[item] = item->Shortcut();
}

std::vector<MenuItem*> CommandKeys::Commands() const {
  std::vector<MenuItem*> commands;
  for (const MenuItem* menu : window_.Menus()) Collect(*menu, commands);
  return commands;
}

Text CommandKeys::PathOf(const MenuItem& item) const {
  Text path;
  for (const MenuItem* menu : window_.Menus()) {
    if (FindPath(*menu, item, path)) break;
  }
  return WithoutDots(path);
}

std::string CommandKeys::KeysInSet(const MenuItem& item) const {
  const std::string& own = own_.at(&item);
  if (set_ == KeySet::Own) return own;
  if (set_ == KeySet::Classic) return std::ranges::count(kClassicCommands, item.Name()) != 0 ? own : "";
  const auto* const other = std::ranges::find(kOtherKeys, item.Name(), &OtherKeys::item);
  if (other == std::end(kOtherKeys)) return own;
  return std::string(set_ == KeySet::Aegisub ? other->aegisub : other->subtitleEdit);
}

void CommandKeys::Load() {
  const bool free = options_.manner.HasEditingKeys();
  const auto stored = static_cast<int>(LeadingNumber(store_.GetSetting(kSection, kSetKey, u"0")));
  set_ = !free ? KeySet::Classic : static_cast<KeySet>(std::clamp(stored, 0, kKeySets - 1));
  for (MenuItem* item : Commands()) {
    const Text keys = free ? store_.GetSetting(kSection, FromUtf8(item->Name()), kAsTheSet) : Text(kAsTheSet);
    item->SetShortcut(keys == kAsTheSet ? KeysInSet(*item) : ToUtf8(keys));
  }
}

void CommandKeys::Choose(KeySet set) {
  std::vector<SettingsStore::KeyValue> values = {{Text(kSetKey), Decimal(static_cast<int>(set))}};
  for (const MenuItem* item : Commands()) {
    Text name = FromUtf8(item->Name());
    if (store_.GetSetting(kSection, name, kAsTheSet) != kAsTheSet) values.emplace_back(std::move(name), kAsTheSet);
  }
  store_.SaveSettings(kSection, values);
  Load();
}

MenuItem* CommandKeys::HolderOf(const std::string& key) const {
  if (key.empty()) return nullptr;
  for (MenuItem* item : Commands()) {
    if (std::ranges::count(SingleKeys(item->Shortcut()), key) != 0) return item;
  }
  return nullptr;
}

void CommandKeys::Assign(MenuItem& item, const std::string& key) {
  const SettingsStore::Batch batch(store_);
  if (MenuItem* holder = HolderOf(key); holder != nullptr && holder != &item) {
    std::string left;
    for (const std::string& single : SingleKeys(holder->Shortcut())) {
      if (single != key) left += left.empty() ? single : std::string(kBetween) + single;
    }
    holder->SetShortcut(left);
    Store(*holder);
  }
  item.SetShortcut(key);
  Store(item);
}

void CommandKeys::Store(const MenuItem& item) {
  const bool asTheSet = item.Shortcut() == KeysInSet(item);
  store_.SaveSetting(kSection, FromUtf8(item.Name()), asTheSet ? Text(kAsTheSet) : FromUtf8(item.Shortcut()));
}

}  // namespace cuewright
