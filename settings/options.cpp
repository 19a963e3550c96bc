#include "settings/options.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "text/units.h"

namespace cuewright {
namespace {

/// How many characters of the player's mode are read.
constexpr std::size_t kPlayerModeLength = 4;

/// Puts right the values that can't be used as they are stored.
void PutRight(AppOptions& options) {
  if (options.language == u"BPORTUGUESE") options.language = u"PORTUGUESE_BR";
  if (options.language == u"FARSI") options.language = u"PERSIAN";
  options.hand = std::min<std::uint8_t>(options.hand, 2);
  // A separator of no characters would join every line.
  if (options.lineSeparator.empty()) options.lineSeparator = AppOptions().lineSeparator;
  if (IsBlank(options.creditWords)) options.removeCredits = 0;
  options.playerControls.resize(std::min(options.playerControls.size(), kPlayerModeLength));
}

/// Calls `take` with each shortcut and its place among the letters.
template <class Call>
void ForEachHotkey(Call call) {
  std::size_t index = 0;
  for (const Option& option : Options()) {
    if (!option.letterKey.empty()) call(option, index++);
  }
}

}  // namespace

Text FlagText(bool flag) { return flag ? u"255" : u"0"; }

std::int32_t ReadNumber(const SettingsReader& store, TextView key, std::int32_t fallback) {
  std::int32_t number = 0;
  CarryOn step;
  step([&] { number = RoundToInt32(LeadingNumber(store.GetSetting(kMainSection, key, Decimal(fallback)))); });
  return number;
}

void LoadSettings(const SettingsReader& store, AppOptions& options) {
  options = AppOptions();
  for (const Option& option : Options()) {
    option.field.take(options, store.GetSetting(kMainSection, option.key, option.field.stored(options)));
  }
  PutRight(options);
}

void SaveMainWindowSettings(SettingsStore& store, const AppOptions& options, int volume) {
  std::vector<SettingsStore::KeyValue> values = {{u"Volume", Decimal(volume)}};
  for (const Option& option : Options()) {
    if (option.place == OptionPlace::MainWindow) values.emplace_back(option.key, option.field.stored(options));
  }
  store.SaveSettings(kMainSection, values);
}

HotkeyLetters ReadHotkeyLetters(const SettingsReader& store) {
  HotkeyLetters letters = DefaultHotkeyLetters();
  ForEachHotkey([&](const Option& option, std::size_t index) {
    letters[index] = store.GetSetting(kMainSection, option.letterKey, letters[index]);
  });
  return letters;
}

HotkeyLetters DefaultHotkeyLetters() {
  HotkeyLetters letters;
  ForEachHotkey([&](const Option& option, std::size_t index) {
    letters[index] = Text(1, LowUnit(LeadingInt(option.field.stored({}))));
  });
  return letters;
}

void SaveDialogSettings(SettingsStore& store, const AppOptions& options, const HotkeyLetters& letters) {
  std::vector<SettingsStore::KeyValue> values;
  auto letter = letters.begin();
  for (const Option& option : Options()) {
    if (option.place == OptionPlace::Elsewhere || option.place == OptionPlace::MainWindow) continue;
    values.emplace_back(option.key, option.field.stored(options));
    if (!option.letterKey.empty()) values.emplace_back(option.letterKey, *letter++);
  }
  store.SaveSettings(kMainSection, values);
}

void ResetOptions(AppOptions& options, OptionPlace place) {
  const AppOptions defaults;
  for (const Option& option : Options()) {
    if (option.place != place) continue;
    option.field.take(options, option.resetTo.empty() ? option.field.stored(defaults) : Text(option.resetTo));
  }
}

}  // namespace cuewright
