#include "settings/dialog_options.h"

#include "settings/options.h"

namespace cuewright {
namespace {

using KeyValues = std::vector<SettingsStore::KeyValue>;

void AddRules(KeyValues& values, const AppOptions& o) {
  values.insert(values.end(), {{u"AutoSplit", Decimal(o.AutoSplit)},
                               {u"Collision", Decimal(o.Collision)},
                               {u"AutoJoin", Decimal(o.AutoJoin)},
                               {u"Near", Decimal(o.Near)},
                               {u"Duration", Decimal(o.DurationOn)}});
  for (std::size_t k = 0; k < o.Duration.size(); ++k) {
    const Text digit = Decimal(static_cast<long long>(k));
    values.push_back({u"Duration" + digit, Decimal(o.Duration[k])});
    values.push_back({u"Tolerance" + digit, Decimal(o.Tolerance[k])});
  }
  values.insert(values.end(), {{u"ApplyWhen", Decimal(o.ApplyWhen)},
                               {u"T_CREDITS", Decimal(o.T_CREDITS)},
                               {u"T_CREDITSTEXT", o.T_CREDITSTEXT},
                               {u"RulesOnLoad", o.RulesOnLoad ? u"1" : u"0"}});
}

void AddKeys(KeyValues& values, const AppOptions& o, const HotkeyLetters& letters) {
  values.insert(values.end(), {{u"HotKeys", Decimal(o.HotKeys)},
                               {u"kRewindSecs", Decimal(o.kRewindSecs)},
                               {u"kForwardSecs", Decimal(o.kForwardSecs)}});
  for (std::size_t k = 0; k < kHotkeys.size(); ++k) {
    values.push_back({Text(kHotkeys[k].codeKey), Decimal(o.*kHotkeys[k].field)});
    values.push_back({Text(kHotkeys[k].letterKey), letters[k]});
  }
}

void AddPreviewAndPlayer(KeyValues& values, const AppOptions& o) {
  values.insert(values.end(), {{u"F_FONTNAME", o.F_FONTNAME},
                               {u"F_FONTSIZE", Decimal(o.F_FONTSIZE)},
                               {u"F_FONTBOLD", FlagText(o.F_FONTBOLD)},
                               {u"F_FONTCOLOR", Decimal(o.F_FONTCOLOR)},
                               {u"F_OPAQUE", FlagText(o.F_OPAQUE)},
                               {u"F_SHADOW", FlagText(o.F_SHADOW)},
                               {u"F_SHADOWVAL", Decimal(o.F_SHADOWVAL)},
                               {u"F_SUBHEIGHT", Decimal(o.F_SUBHEIGHT)},
                               {u"F_FOLLOW", FlagText(o.F_FOLLOW)},
                               {u"P_STRETCH", Decimal(o.P_STRETCH)},
                               {u"P_UIMODE", o.P_UIMODE},
                               {u"P_VSFILTERMODE", Decimal(o.P_VSFILTERMODE)}});
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
  options.AutoSplit = fallback.AutoSplit;
  options.Collision = fallback.Collision;
  options.AutoJoin = fallback.AutoJoin;
  options.Near = fallback.Near;
  options.DurationOn = fallback.DurationOn;
  options.Duration = fallback.Duration;
  options.Tolerance = fallback.Tolerance;
  options.ApplyWhen = fallback.ApplyWhen;
  options.RulesOnLoad = fallback.RulesOnLoad;
  options.T_CREDITS = 0;
  options.T_CREDITSTEXT = fallback.T_CREDITSTEXT;
}

void ResetKeySettings(AppOptions& options) {
  const AppOptions fallback;
  options.HotKeys = fallback.HotKeys;
  options.kRewindSecs = fallback.kRewindSecs;
  options.kForwardSecs = fallback.kForwardSecs;
  for (const HotkeySetting& key : kHotkeys) options.*key.field = key.fallback;
}

void ResetPreviewSettings(AppOptions& options) {
  const AppOptions fallback;
  options.F_FONTNAME = fallback.F_FONTNAME;
  options.F_FONTSIZE = fallback.F_FONTSIZE;
  options.F_FONTBOLD = fallback.F_FONTBOLD;
  options.F_FONTCOLOR = fallback.F_FONTCOLOR;
  options.F_OPAQUE = fallback.F_OPAQUE;
  options.F_SHADOW = fallback.F_SHADOW;
  options.F_SHADOWVAL = fallback.F_SHADOWVAL;
  options.F_SUBHEIGHT = fallback.F_SUBHEIGHT;
  options.F_FOLLOW = fallback.F_FOLLOW;
}

void ResetPlayerSettings(AppOptions& options) {
  const AppOptions fallback;
  options.P_STRETCH = fallback.P_STRETCH;
  options.P_UIMODE = fallback.P_UIMODE;
  options.P_VSFILTERMODE = fallback.P_VSFILTERMODE;
}

}  // namespace cuewright
