#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "capture/main_window.h"
#include "core/app_options.h"
#include "settings/store.h"

namespace cuewright {

/// A set of keys, after the habits of one program.
enum class KeySet { Own, Classic, Aegisub, SubtitleEdit };
inline constexpr std::array kKeySets = {KeySet::Own, KeySet::Classic, KeySet::Aegisub, KeySet::SubtitleEdit};

/// The keys of the commands in the menus: those of a set, and what the user changed. Keys are written as "Ctrl+S",
/// several of one command as "Ctrl+S; Ctrl+D".
class CommandKeys {
 public:
  /// The keys that the items have now are the program's own set.
  CommandKeys(MainWindow& window, SettingsStore& store, const AppOptions& options);

  /// Gives the items the keys that are stored; in the classic manner the classic ones.
  void Load();

  /// The items that are commands, in the order of the menus.
  std::vector<MenuItem*> Commands() const;
  /// The item's name with the menus above it, as "Edit > Find", without access keys.
  Text PathOf(const MenuItem& item) const;

  KeySet Set() const { return set_; }
  /// The keys of the set are in force, and what the user changed is forgotten.
  void Choose(KeySet set);
  /// The command has this key and no other, an empty one: none. Another command that has it loses it.
  void Assign(MenuItem& item, const std::string& key);
  /// The command that has a key; null: none.
  MenuItem* HolderOf(const std::string& key) const;

 private:
  std::string KeysInSet(const MenuItem& item) const;
  void Store(const MenuItem& item);

  MainWindow& window_;
  SettingsStore& store_;
  const AppOptions& options_;
  std::map<const MenuItem*, std::string> own_;
  KeySet set_ = KeySet::Own;
};

/// True for a key that types something, so that in a text it isn't a command.
bool TypesInTexts(const std::string& key);

/// The single keys of "Ctrl+S; Ctrl+D".
std::vector<std::string> SingleKeys(const std::string& keys);

}  // namespace cuewright
