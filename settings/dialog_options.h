#pragma once

#include <array>
#include <cstdint>

#include "core/app_options.h"
#include "settings/store.h"

namespace cuewright {

/// A keyboard shortcut: its field of the options, its key code by default, and the keys under which code and letter
/// are stored.
struct HotkeySetting {
  std::uint8_t AppOptions::*field;
  std::uint8_t fallback;
  TextView codeKey;
  TextView letterKey;
};

/// The ten shortcuts in the order of the dialog.
inline constexpr std::array<HotkeySetting, 10> kHotkeys = {{{&AppOptions::playKey, 90, u"hkPlay", u"kPlay"},
                                                            {&AppOptions::pauseKey, 88, u"hkPause", u"kPause"},
                                                            {&AppOptions::stopKey, 67, u"hkStop", u"kStop"},
                                                            {&AppOptions::startKey, 66, u"hkStart", u"kStart"},
                                                            {&AppOptions::nextKey, 78, u"hkNext", u"kNext"},
                                                            {&AppOptions::endKey, 77, u"hkEnd", u"kEnd"},
                                                            {&AppOptions::previousKey, 68, u"hkPrevious", u"kPrevious"},
                                                            {&AppOptions::jumpKey, 70, u"hkJump", u"kJump"},
                                                            {&AppOptions::rewindKey, 87, u"hkRewind", u"kRewind"},
                                                            {&AppOptions::forwardKey, 69, u"hkForward", u"kForward"}}};

/// The letters as the dialog shows them, one text a shortcut.
using HotkeyLetters = std::array<Text, kHotkeys.size()>;

/// The letters of the store, which the dialog alone reads.
HotkeyLetters ReadHotkeyLetters(const SettingsReader& store);

/// The letters of the default key codes.
HotkeyLetters DefaultHotkeyLetters();

/// Stores all that the settings dialog edits but the language, changed or not, in one write.
void SaveDialogSettings(SettingsStore& store, const AppOptions& options, const HotkeyLetters& letters);

// The defaults that the dialog's pages go back to.

/// All correction rules; removing credits goes off, although a store without it has it on.
void ResetRuleSettings(AppOptions& options);
void ResetKeySettings(AppOptions& options);
void ResetPreviewSettings(AppOptions& options);
void ResetPlayerSettings(AppOptions& options);

}  // namespace cuewright
