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
  reader.Read(u"Language", o.Language);
  reader.Read(u"LBREAK", o.LineSeparator);
  // A separator of no characters would join every line.
  if (o.LineSeparator.empty()) o.LineSeparator = AppOptions().LineSeparator;
  if (o.Language == u"BPORTUGUESE") o.Language = u"PORTUGUESE_BR";
  if (o.Language == u"FARSI") o.Language = u"PERSIAN";
  reader.Read(u"T_READAS", o.T_READAS);
}

void ReadRules(const Reader& reader, AppOptions& o) {
  reader.ReadFlag(u"AutoSplit", o.AutoSplit);
  reader.ReadFlag(u"Collision", o.Collision);
  reader.ReadFlag(u"AutoJoin", o.AutoJoin);
  reader.Read(u"Near", o.Near);
  reader.ReadFlag(u"Duration", o.DurationOn);
  for (std::size_t k = 0; k < o.Duration.size(); ++k) {
    const Text digit = Decimal(static_cast<long long>(k));
    reader.Read(u"Duration" + digit, o.Duration[k]);
    reader.Read(u"Tolerance" + digit, o.Tolerance[k]);
  }
  reader.Read(u"ApplyWhen", o.ApplyWhen);
  reader.ReadFlag(u"T_CREDITS", o.T_CREDITS);
  reader.Read(u"RulesOnLoad", o.RulesOnLoad);
  reader.Read(u"T_CREDITSTEXT", o.T_CREDITSTEXT);
  if (IsBlank(o.T_CREDITSTEXT)) o.T_CREDITS = 0;
}

void ReadKeys(const Reader& reader, AppOptions& o) {
  reader.ReadFlag(u"HotKeys", o.HotKeys);
  reader.Read(u"kRewindSecs", o.kRewindSecs);
  reader.Read(u"kForwardSecs", o.kForwardSecs);
  reader.Read(u"hkPlay", o.hkPlay);
  reader.Read(u"hkPause", o.hkPause);
  reader.Read(u"hkStop", o.hkStop);
  reader.Read(u"hkStart", o.hkStart);
  reader.Read(u"hkNext", o.hkNext);
  reader.Read(u"hkEnd", o.hkEnd);
  reader.Read(u"hkPrevious", o.hkPrevious);
  reader.Read(u"hkJump", o.hkJump);
  reader.Read(u"hkRewind", o.hkRewind);
  reader.Read(u"hkForward", o.hkForward);
}

void ReadPreviewAndPlayer(const Reader& reader, AppOptions& o) {
  reader.Read(u"F_FONTNAME", o.F_FONTNAME);
  reader.Read(u"F_FONTSIZE", o.F_FONTSIZE);
  reader.Read(u"F_FONTBOLD", o.F_FONTBOLD);
  reader.Read(u"F_FONTCOLOR", o.F_FONTCOLOR);
  reader.Read(u"F_OPAQUE", o.F_OPAQUE);
  reader.Read(u"F_SHADOW", o.F_SHADOW);
  reader.Read(u"F_SHADOWVAL", o.F_SHADOWVAL);
  reader.Read(u"F_SUBHEIGHT", o.F_SUBHEIGHT);
  reader.Read(u"F_FOLLOW", o.F_FOLLOW);
  reader.ReadFlag(u"P_STRETCH", o.P_STRETCH);
  reader.Read(u"P_UIMODE", o.P_UIMODE);
  // The field holds four characters.
  o.P_UIMODE.resize(std::min<std::size_t>(o.P_UIMODE.size(), 4));
  reader.Read(u"P_VSFILTERMODE", o.P_VSFILTERMODE);
}

void ReadMainWindow(const Reader& reader, AppOptions& o) {
  reader.Read(u"M_FONTNAME", o.M_FONTNAME);
  reader.Read(u"M_FONTSIZE", o.M_FONTSIZE);
  reader.Read(u"M_FONTBOLD", o.M_FONTBOLD);
  reader.Read(u"M_INFOBAR", o.M_INFOBAR);
  reader.Read(u"M_AUDIOBAR", o.M_AUDIOBAR);
  reader.Read(u"M_FULLWAVE", o.M_FULLWAVE);
  reader.Read(u"M_AUDIOBARCOLOR", o.M_AUDIOBARCOLOR);
  reader.Read(u"M_WAVSCALE", o.M_WAVSCALE);
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
                                    {u"M_FONTBOLD", FlagText(options.M_FONTBOLD)},
                                    {u"M_FONTNAME", options.M_FONTNAME},
                                    {u"M_FONTSIZE", Decimal(options.M_FONTSIZE)},
                                    {u"M_INFOBAR", FlagText(options.M_INFOBAR)},
                                    {u"M_AUDIOBAR", FlagText(options.M_AUDIOBAR)},
                                    {u"M_FULLWAVE", FlagText(options.M_FULLWAVE)},
                                    {u"M_AUDIOBARCOLOR", Decimal(options.M_AUDIOBARCOLOR)},
                                    {u"M_WAVSCALE", Decimal(options.M_WAVSCALE)}});
}

}  // namespace cuewright
