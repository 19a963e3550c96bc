#include "settings/dialog_options.h"

#include "settings/options.h"

namespace cuewright {
namespace {

using KeyValues = std::vector<SettingsStore::KeyValue>;

void AddRules(KeyValues& values, const AppOptions& o) {
  values.insert(values.end(), {{u"AutoSplit", Decimal(o.autoSplit)},
                               {u"Collision", Decimal(o.avoidCollision)},
                               {u"AutoJoin", Decimal(o.autoJoin)},
                               {u"Near", Decimal(o.nearMs)},
                               {u"Duration", Decimal(o.limitDuration)}});
  for (std::size_t k = 0; k < o.durationPerCharacter.size(); ++k) {
    const Text digit = Decimal(static_cast<long long>(k));
    values.push_back({u"Duration" + digit, Decimal(o.durationPerCharacter[k])});
    values.push_back({u"Tolerance" + digit, Decimal(o.durationTolerance[k])});
  }
  values.insert(values.end(), {{u"ApplyWhen", Decimal(o.applyWhen)},
                               {u"T_CREDITS", Decimal(o.removeCredits)},
                               {u"T_CREDITSTEXT", o.creditWords},
                               {u"RulesOnLoad", o.changeOnLoad ? u"1" : u"0"}});
}

void AddKeys(KeyValues& values, const AppOptions& o, const HotkeyLetters& letters) {
  values.insert(values.end(), {{u"HotKeys", Decimal(o.hotkeysOn)},
                               {u"kRewindSecs", Decimal(o.rewindSeconds)},
                               {u"kForwardSecs", Decimal(o.forwardSeconds)}});
  for (std::size_t k = 0; k < kHotkeys.size(); ++k) {
    values.push_back({Text(kHotkeys[k].codeKey), Decimal(o.*kHotkeys[k].field)});
    values.push_back({Text(kHotkeys[k].letterKey), letters[k]});
  }
}

void AddPreviewAndPlayer(KeyValues& values, const AppOptions& o) {
  values.insert(values.end(), {{u"F_FONTNAME", o.previewFontName},
                               {u"F_FONTSIZE", Decimal(o.previewFontSize)},
                               {u"F_FONTBOLD", FlagText(o.previewFontBold)},
                               {u"F_FONTCOLOR", Decimal(o.previewColor)},
                               {u"F_OPAQUE", FlagText(o.previewOpaque)},
                               {u"F_SHADOW", FlagText(o.previewShadow)},
                               {u"F_SHADOWVAL", Decimal(o.previewShadowDepth)},
                               {u"F_SUBHEIGHT", Decimal(o.previewHeight)},
                               {u"F_FOLLOW", FlagText(o.followCaptions)},
                               {u"P_STRETCH", Decimal(o.stretchVideo)},
                               {u"P_UIMODE", o.playerControls},
                               {u"P_VSFILTERMODE", Decimal(o.filterMode)}});
}

}  // namespace

HotkeyLetters ReadHotkeyLetters(const SettingsReader& store) {
  HotkeyLetters letters = DefaultHotkeyLetters();
  for (std::size_t k = 0; k < kHotkeys.size(); ++k) {
    letters[k] = store.GetSetting(kMainSection, kHotkeys[k].letterKey, letters[k]);
  }
  return letters;
}

HotkeyLetters DefaultHotkeyLetters() {
  HotkeyLetters letters;
  for (std::size_t k = 0; k < kHotkeys.size(); ++k) letters[k] = Text(1, kHotkeys[k].fallback);
  return letters;
}

void SaveDialogSettings(SettingsStore& store, const AppOptions& options, const HotkeyLetters& letters) {
  KeyValues values = {{u"Classic", options.manner.Classic() ? u"1" : u"0"}};
  AddRules(values, options);
  AddKeys(values, options, letters);
  AddPreviewAndPlayer(values, options);
  store.SaveSettings(kMainSection, values);
}

void ResetRuleSettings(AppOptions& options) {
  const AppOptions fallback;
  options.autoSplit = fallback.autoSplit;
  options.avoidCollision = fallback.avoidCollision;
  options.autoJoin = fallback.autoJoin;
  options.nearMs = fallback.nearMs;
  options.limitDuration = fallback.limitDuration;
  options.durationPerCharacter = fallback.durationPerCharacter;
  options.durationTolerance = fallback.durationTolerance;
  options.applyWhen = fallback.applyWhen;
  options.changeOnLoad = fallback.changeOnLoad;
  options.removeCredits = 0;
  options.creditWords = fallback.creditWords;
}

void ResetKeySettings(AppOptions& options) {
  const AppOptions fallback;
  options.hotkeysOn = fallback.hotkeysOn;
  options.rewindSeconds = fallback.rewindSeconds;
  options.forwardSeconds = fallback.forwardSeconds;
  for (const HotkeySetting& key : kHotkeys) options.*key.field = key.fallback;
}

void ResetPreviewSettings(AppOptions& options) {
  const AppOptions fallback;
  options.previewFontName = fallback.previewFontName;
  options.previewFontSize = fallback.previewFontSize;
  options.previewFontBold = fallback.previewFontBold;
  options.previewColor = fallback.previewColor;
  options.previewOpaque = fallback.previewOpaque;
  options.previewShadow = fallback.previewShadow;
  options.previewShadowDepth = fallback.previewShadowDepth;
  options.previewHeight = fallback.previewHeight;
  options.followCaptions = fallback.followCaptions;
}

void ResetPlayerSettings(AppOptions& options) {
  const AppOptions fallback;
  options.stretchVideo = fallback.stretchVideo;
  options.playerControls = fallback.playerControls;
  options.filterMode = fallback.filterMode;
}

}  // namespace cuewright
