#include "settings/options.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

/// Reads one key after another; what fails leaves its field at the neutral value.
class Reader {
 public:
  explicit Reader(const SettingsReader& store) : store_(store) {}

  void Read(TextView key, Text& field) const { field = store_.GetSetting(kMainSection, key, field); }

  void Read(TextView key, bool& field) const {
    const Text value = store_.GetSetting(kMainSection, key, FlagText(field));
    field = LeadingNumber(value) != 0;
  }

  /// A byte that is a flag; -1 has been stored as well as 255.
  void ReadFlag(TextView key, std::uint8_t& field) const {
    const bool minusOne = LeadingNumber(store_.GetSetting(kMainSection, key, Decimal(field))) == -1;
    Read(key, field);
    if (minusOne) field = 255;
  }

  template <std::integral T>
  void Read(TextView key, T& field) const {
    const Text value = store_.GetSetting(kMainSection, key, Decimal(field));
    field = 0;
    CarryOn step;
    step([&] { field = Checked<T>(RoundToInt32(LeadingNumber(value))).Value(); });
  }

 private:
  const SettingsReader& store_;
};

void ReadLanguage(const Reader& reader, AppOptions& o) {
  bool classic = o.manner.Classic();
  reader.Read(u"Classic", classic);
  o.manner.SetClassic(classic);
  reader.Read(u"Language", o.language);
  reader.Read(u"LBREAK", o.lineSeparator);
  // A separator of no characters would join every line.
  if (o.lineSeparator.empty()) o.lineSeparator = AppOptions().lineSeparator;
  if (o.language == u"BPORTUGUESE") o.language = u"PORTUGUESE_BR";
  if (o.language == u"FARSI") o.language = u"PERSIAN";
  reader.Read(u"T_READAS", o.readAs);
}

void ReadRules(const Reader& reader, AppOptions& o) {
  reader.ReadFlag(u"AutoSplit", o.autoSplit);
  reader.ReadFlag(u"Collision", o.avoidCollision);
  reader.ReadFlag(u"AutoJoin", o.autoJoin);
  reader.Read(u"Near", o.nearMs);
  reader.ReadFlag(u"Duration", o.limitDuration);
  for (std::size_t k = 0; k < o.durationPerCharacter.size(); ++k) {
    const Text digit = Decimal(static_cast<long long>(k));
    reader.Read(u"Duration" + digit, o.durationPerCharacter[k]);
    reader.Read(u"Tolerance" + digit, o.durationTolerance[k]);
  }
  reader.Read(u"ApplyWhen", o.applyWhen);
  reader.ReadFlag(u"T_CREDITS", o.removeCredits);
  reader.Read(u"RulesOnLoad", o.changeOnLoad);
  reader.Read(u"T_CREDITSTEXT", o.creditWords);
  if (IsBlank(o.creditWords)) o.removeCredits = 0;
}

void ReadKeys(const Reader& reader, AppOptions& o) {
  reader.ReadFlag(u"HotKeys", o.hotkeysOn);
  reader.Read(u"kRewindSecs", o.rewindSeconds);
  reader.Read(u"kForwardSecs", o.forwardSeconds);
  reader.Read(u"hkPlay", o.playKey);
  reader.Read(u"hkPause", o.pauseKey);
  reader.Read(u"hkStop", o.stopKey);
  reader.Read(u"hkStart", o.startKey);
  reader.Read(u"hkNext", o.nextKey);
  reader.Read(u"hkEnd", o.endKey);
  reader.Read(u"hkPrevious", o.previousKey);
  reader.Read(u"hkJump", o.jumpKey);
  reader.Read(u"hkRewind", o.rewindKey);
  reader.Read(u"hkForward", o.forwardKey);
}

void ReadPreviewAndPlayer(const Reader& reader, AppOptions& o) {
  reader.Read(u"F_FONTNAME", o.previewFontName);
  reader.Read(u"F_FONTSIZE", o.previewFontSize);
  reader.Read(u"F_FONTBOLD", o.previewFontBold);
  reader.Read(u"F_FONTCOLOR", o.previewColor);
  reader.Read(u"F_OPAQUE", o.previewOpaque);
  reader.Read(u"F_SHADOW", o.previewShadow);
  reader.Read(u"F_SHADOWVAL", o.previewShadowDepth);
  reader.Read(u"F_SUBHEIGHT", o.previewHeight);
  reader.Read(u"F_FOLLOW", o.followCaptions);
  reader.ReadFlag(u"P_STRETCH", o.stretchVideo);
  reader.Read(u"P_UIMODE", o.playerControls);
  // The field holds four characters.
  o.playerControls.resize(std::min<std::size_t>(o.playerControls.size(), 4));
  reader.Read(u"P_VSFILTERMODE", o.filterMode);
}

void ReadMainWindow(const Reader& reader, AppOptions& o) {
  reader.Read(u"M_FONTNAME", o.listFontName);
  reader.Read(u"M_FONTSIZE", o.listFontSize);
  reader.Read(u"M_FONTBOLD", o.listFontBold);
  reader.Read(u"M_INFOBAR", o.infoBarOn);
  reader.Read(u"M_AUDIOBAR", o.audioBarOn);
  reader.Read(u"M_FULLWAVE", o.fullWave);
  reader.Read(u"M_AUDIOBARCOLOR", o.waveColor);
  reader.Read(u"M_WAVSCALE", o.waveScale);
}

}  // namespace

Text FlagText(bool flag) { return flag ? u"255" : u"0"; }

std::int32_t ReadNumber(const SettingsReader& store, TextView key, std::int32_t fallback) {
  std::int32_t number = fallback;
  Reader(store).Read(key, number);
  return number;
}

void LoadSettings(const SettingsReader& store, AppOptions& options) {
  options = AppOptions();
  const Reader reader(store);
  ReadLanguage(reader, options);
  ReadRules(reader, options);
  ReadKeys(reader, options);
  ReadPreviewAndPlayer(reader, options);
  ReadMainWindow(reader, options);
}

void SaveMainWindowSettings(SettingsStore& store, const AppOptions& options, int volume) {
  store.SaveSettings(kMainSection, {{u"Volume", Decimal(volume)},
                                    {u"M_FONTBOLD", FlagText(options.listFontBold)},
                                    {u"M_FONTNAME", options.listFontName},
                                    {u"M_FONTSIZE", Decimal(options.listFontSize)},
                                    {u"M_INFOBAR", FlagText(options.infoBarOn)},
                                    {u"M_AUDIOBAR", FlagText(options.audioBarOn)},
                                    {u"M_FULLWAVE", FlagText(options.fullWave)},
                                    {u"M_AUDIOBARCOLOR", Decimal(options.waveColor)},
                                    {u"M_WAVSCALE", Decimal(options.waveScale)}});
}

}  // namespace cuewright
