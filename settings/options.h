#pragma once

#include <array>

#include "settings/option_table.h"
#include "settings/store.h"

namespace cuewright {

/// Fills the options from the store. A value that doesn't fit its field leaves 0, false or the empty text there.
void LoadSettings(const SettingsReader& store, AppOptions& options);

/// The keys that are stored when the main window closes.
void SaveMainWindowSettings(SettingsStore& store, const AppOptions& options, int volume);

/// The letters of the keyboard shortcuts, as the settings dialog alone reads and shows them, in the order of the table.
using HotkeyLetters = std::array<Text, 10>;
HotkeyLetters ReadHotkeyLetters(const SettingsReader& store);
/// The letters of the default key codes.
HotkeyLetters DefaultHotkeyLetters();

/// Stores all that the settings dialog edits but the language, changed or not, in one write.
void SaveDialogSettings(SettingsStore& store, const AppOptions& options, const HotkeyLetters& letters);

/// Takes the options of a place back to what its page of the settings dialog begins with.
void ResetOptions(AppOptions& options, OptionPlace place);

/// A flag as the store holds it: "255" or "0".
Text FlagText(bool flag);

/// Numbers of the store by their leading number; an absent key gives `fallback`, a value that doesn't fit 0.
std::int32_t ReadNumber(const SettingsReader& store, TextView key, std::int32_t fallback);

}  // namespace cuewright
