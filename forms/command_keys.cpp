#include "forms/command_keys.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "core/counting.h"
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

/// A command whose keys another set has otherwise than the program's own set.
struct OtherKeys {
  std::string_view item;
  std::string_view keys;
};

/// What Aegisub 3.2 has for the same commands when it is new, as far as it has them and its letters aren't those of
/// captioning, and no keys for what would be in their way.
constexpr OtherKeys kAegisub[] = {
    {"mnuPlayOrPause", "Ctrl+P"},   {"mnuPlayCaption", "R; S"},   {"mnuPlayBeforeStart", "Q"},
    {"mnuStartHere", "Ctrl+3"},     {"mnuEndHere", "Ctrl+4"},     {"mnuSnapTimes", "Ctrl+5"},
    {"mnuGoToPosition", "Ctrl+G"},  {"mnuSplitAtFilm", "Ctrl+D"}, {"mnuDuplicate", ""},
    {"mnuRemove", "Ctrl+Del; Del"}, {"mnuShift", "Ctrl+I"},       {"mnuItalic", ""},
    {"mnuSave", "Ctrl+S; F2"},
};

/// The same of Subtitle Edit 5, with F9 and Ctrl+P of its version 4.
constexpr OtherKeys kSubtitleEdit[] = {
    {"mnuPlayOrPause", "Space; Ctrl+Space; Ctrl+P"},
    {"mnuPushFromHere", "F9"},
    {"mnuGoTo", "Ctrl+G"},
    {"mnuJoinSelected", "Ctrl+Shift+M"},
    {"mnuShotHere", ""},
    {"mnuInsertAbove", "Ctrl+Shift+Ins"},
    {"mnuInsertStretch", ""},
    {"mnuSplitAtCaret", "Ctrl+Alt+V"},
    {"mnuBreakLines", "Ctrl+Alt+B"},
    {"mnuLowerCase", "Ctrl+U"},
    {"mnuUnderline", ""},
    {"mnuMeetNext", "Ctrl+Shift+E"},
    {"mnuSentenceCase", ""},
    {"mnuNextInPane", "Alt+Down; Ctrl+Return"},
    {"mnuMoveUp", ""},
    {"mnuMoveDown", ""},
    {"mnuCheck", "Ctrl+F8"},
    {"mnuClean", "Ctrl+Shift+F"},
    {"mnuSpell", "Alt+F7"},
    {"mnuRetime", "Ctrl+Shift+A"},
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
  std::span<const OtherKeys> others = kAegisub;
  if (set_ == KeySet::SubtitleEdit) others = kSubtitleEdit;
  const auto other = std::ranges::find(others, item.Name(), &OtherKeys::item);
  return other == others.end() ? own : std::string(other->keys);
}

void CommandKeys::Load() {
  const bool free = options_.manner.HasEditingKeys();
  const auto stored = LeadingInt(store_.GetSetting(kSection, kSetKey, u"0"));
  set_ = !free ? KeySet::Classic : ItemAt(kKeySets, std::clamp(stored, 0, CountOf(kKeySets) - 1));
  for (MenuItem* item : Commands()) {
    const Text keys = free ? store_.GetSetting(kSection, FromUtf8(item->Name()), kAsTheSet) : Text(kAsTheSet);
    item->SetShortcut(keys == kAsTheSet ? KeysInSet(*item) : ToUtf8(keys));
  }
}

void CommandKeys::Choose(KeySet set) {
  std::vector<SettingsStore::KeyValue> values = {{Text(kSetKey), Decimal(PlaceOf(kKeySets, set))}};
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
