#pragma once

#include <vector>

#include "core/app_options.h"
#include "settings/store.h"

namespace cuewright {

/// Fills the options from the store. A value that doesn't fit its field leaves 0, false or the empty text there.
void LoadSettings(const SettingsReader& store, AppOptions& options);

/// The keys that are stored when the main window closes.
void SaveMainWindowSettings(SettingsStore& store, const AppOptions& options, int volume);

/// A flag as the store holds it: "255" or "0".
Text FlagText(bool flag);

/// Numbers of the store by their leading number; an absent key gives `fallback`, a value that doesn't fit 0.
std::int32_t ReadNumber(const SettingsReader& store, TextView key, std::int32_t fallback);

}  // namespace cuewright
