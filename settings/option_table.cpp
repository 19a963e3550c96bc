#include "settings/option_table.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "settings/options.h"

namespace cuewright {
namespace {

constexpr int kNoIndex = -1;

template <auto Member, int Index>
auto& In(auto& options) {
  if constexpr (Index == kNoIndex) {
    return options.*Member;
  } else {
    return (options.*Member)[Index];
  }
}

template <auto Member>
constexpr Option::Field kText = {[](const AppOptions& o) { return o.*Member; },
                                 [](AppOptions& o, TextView value) { o.*Member = value; }};

template <auto Member, int Index = kNoIndex>
constexpr Option::Field kNumber = {[](const AppOptions& o) { return Decimal(In<Member, Index>(o)); },
                                   [](AppOptions& o, TextView value) {
                                     auto& number = In<Member, Index>(o);
                                     number = 0;
                                     CarryOn step;
                                     step([&] {
                                       using T = std::remove_reference_t<decltype(number)>;
                                       number = Checked<T>(RoundToInt32(LeadingNumber(value))).Value();
                                     });
                                   }};

/// A flag that is stored as the number of its byte. -1 has been stored as well as 255.
template <auto Member>
constexpr Option::Field kByteFlag = {kNumber<Member>.stored, [](AppOptions& o, TextView value) {
                                       kNumber<Member>.take(o, LeadingNumber(value) == -1 ? u"255" : value);
                                     }};

/// A flag that is stored as "255" or "0".
template <auto Member>
constexpr Option::Field kFlag = {[](const AppOptions& o) { return FlagText(o.*Member); },
                                 [](AppOptions& o, TextView value) { o.*Member = LeadingNumber(value) != 0; }};

/// A flag that is stored as "1" or "0".
template <auto Member>
constexpr Option::Field kDigitFlag = {[](const AppOptions& o) { return Decimal(o.*Member ? 1 : 0); },
                                      kFlag<Member>.take};

constexpr Option::Field kManner = {
    [](const AppOptions& o) { return Decimal(o.manner.Classic() ? 1 : 0); },
    [](AppOptions& o, TextView value) { o.manner.SetClassic(LeadingNumber(value) != 0); }};

using enum OptionPlace;
using O = AppOptions;
constexpr Option::Range kLengths = {10, 350, 10};
constexpr Option::Range kTolerances = {10, 300, 10};
constexpr Option::Range kSeconds = {2, 600};
constexpr Option::Range kFontSizes = {8, 48};

constexpr auto kOptions = std::to_array<Option>({
    {u"Language", kText<&O::language>},
    {u"LBREAK", kText<&O::lineSeparator>},
    {u"T_READAS", kText<&O::readAs>},
    {u"CheckProfile", kText<&O::checkProfile>},
    {u"Classic", kManner, Language, "chkClassic"},
    {u"AutoSplit", kByteFlag<&O::autoSplit>, Rules, "chkAutoSplit"},
    {u"Collision", kByteFlag<&O::avoidCollision>, Rules, "chkCollision"},
    {u"AutoJoin", kByteFlag<&O::autoJoin>, Rules, "chkAutoJoin"},
    {u"Near", kNumber<&O::nearMs>, Rules, "sldAutoJoin", {10, 400, 10}},
    {u"Duration", kByteFlag<&O::limitDuration>, Rules, "chkDuration"},
    {u"Duration0", kNumber<&O::durationPerCharacter, 0>, Rules, "sldDuration(0)", kLengths},
    {u"Tolerance0", kNumber<&O::durationTolerance, 0>, Rules, "sldTolerance(0)", kTolerances},
    {u"Duration1", kNumber<&O::durationPerCharacter, 1>, Rules, "sldDuration(1)", kLengths},
    {u"Tolerance1", kNumber<&O::durationTolerance, 1>, Rules, "sldTolerance(1)", kTolerances},
    {u"Duration2", kNumber<&O::durationPerCharacter, 2>, Rules, "sldDuration(2)", kLengths},
    {u"Tolerance2", kNumber<&O::durationTolerance, 2>, Rules, "sldTolerance(2)", kTolerances},
    {u"ApplyWhen", kNumber<&O::applyWhen>, Rules, "cmbApply", {0, 2}},
    {u"T_CREDITS", kByteFlag<&O::removeCredits>, Rules, "chkCredits", {}, {}, u"0"},
    {u"T_CREDITSTEXT", kText<&O::creditWords>, Rules, "txtCredits"},
    {u"RulesOnLoad", kDigitFlag<&O::changeOnLoad>, Rules, "chkRulesOnLoad"},
    {u"HotKeys", kByteFlag<&O::hotkeysOn>, Keys, "chkKeys"},
    {u"kRewindSecs", kNumber<&O::rewindSeconds>, Keys, "txtPosition(0)", kSeconds},
    {u"kForwardSecs", kNumber<&O::forwardSeconds>, Keys, "txtPosition(1)", kSeconds},
    {u"hkPlay", kNumber<&O::playKey>, Keys, "txtHotkey(0)", {}, u"kPlay"},
    {u"hkPause", kNumber<&O::pauseKey>, Keys, "txtHotkey(1)", {}, u"kPause"},
    {u"hkStop", kNumber<&O::stopKey>, Keys, "txtHotkey(2)", {}, u"kStop"},
    {u"hkStart", kNumber<&O::startKey>, Keys, "txtHotkey(3)", {}, u"kStart"},
    {u"hkNext", kNumber<&O::nextKey>, Keys, "txtHotkey(4)", {}, u"kNext"},
    {u"hkEnd", kNumber<&O::endKey>, Keys, "txtHotkey(5)", {}, u"kEnd"},
    {u"hkPrevious", kNumber<&O::previousKey>, Keys, "txtHotkey(6)", {}, u"kPrevious"},
    {u"hkJump", kNumber<&O::jumpKey>, Keys, "txtHotkey(7)", {}, u"kJump"},
    {u"hkRewind", kNumber<&O::rewindKey>, Keys, "txtHotkey(8)", {}, u"kRewind"},
    {u"hkForward", kNumber<&O::forwardKey>, Keys, "txtHotkey(9)", {}, u"kForward"},
    {u"F_FONTNAME", kText<&O::previewFontName>, Preview},
    {u"F_FONTSIZE", kNumber<&O::previewFontSize>, Preview, "cmdFont", kFontSizes},
    {u"F_FONTBOLD", kFlag<&O::previewFontBold>, Preview},
    {u"F_FONTCOLOR", kNumber<&O::previewColor>, Preview, "cmdColor"},
    {u"F_OPAQUE", kFlag<&O::previewOpaque>, Preview, "optOpaque"},
    {u"F_SHADOW", kFlag<&O::previewShadow>, Preview, "optShadow"},
    {u"F_SHADOWVAL", kNumber<&O::previewShadowDepth>, Preview, "sldShadow", {1, 4}},
    {u"F_SUBHEIGHT", kNumber<&O::previewHeight>, Preview, "sldHeight", {10, 100}},
    {u"F_FOLLOW", kFlag<&O::followCaptions>, Preview, "chkFollow"},
    {u"P_STRETCH", kByteFlag<&O::stretchVideo>, Player, "chkStretch"},
    {u"P_UIMODE", kText<&O::playerControls>, Player, "cmbUImode"},
    {u"P_VSFILTERMODE", kNumber<&O::filterMode>, Player},
    {u"M_FONTBOLD", kFlag<&O::listFontBold>, MainWindow},
    {u"M_FONTNAME", kText<&O::listFontName>, MainWindow},
    {u"M_FONTSIZE", kNumber<&O::listFontSize>, MainWindow},
    {u"M_INFOBAR", kFlag<&O::infoBarOn>, MainWindow, "mnuInfoBar"},
    {u"InfoBarUnfolded", kFlag<&O::infoBarUnfolded>, MainWindow, "mnuUnfoldInfoBar"},
    {u"ToolBar", kFlag<&O::toolBarOn>, MainWindow, "mnuToolBar"},
    {u"M_AUDIOBAR", kFlag<&O::audioBarOn>, MainWindow, "mnuAudioBar"},
    {u"M_FULLWAVE", kFlag<&O::fullWave>, MainWindow, "mnuFullWave"},
    {u"RawMarks", kFlag<&O::rawMarks>, MainWindow, "mnuRawMarks"},
    {u"CaptionColumns", kText<&O::listColumns>, MainWindow},
    {u"CaptionTimes", kNumber<&O::listTimes>, MainWindow},
    {u"M_AUDIOBARCOLOR", kNumber<&O::waveColor>, MainWindow},
    {u"M_WAVSCALE", kNumber<&O::waveScale>, MainWindow, "sldWavScale"},
    {u"WaveZoom", kNumber<&O::waveZoom>, MainWindow},
    {u"WaveHeight", kNumber<&O::waveHeight>, MainWindow},
    {u"WaveLook", kNumber<&O::waveLook>, MainWindow},
    {u"WaveCentred", kFlag<&O::waveCentred>, MainWindow, "mnuWaveCentred"},
    {u"WaveSnaps", kFlag<&O::waveSnaps>, MainWindow, "mnuWaveSnaps"},
    {u"FindShots", kFlag<&O::findShots>, MainWindow},
    {u"ShotSense", kNumber<&O::shotSense>, MainWindow},
    {u"HardwareDecoding", kFlag<&O::hardwareDecoding>, MainWindow, "mnuHardware"},
    {u"RetakeStep", kNumber<&O::retakeStep>, MainWindow},
    {u"FitOnRelease", kFlag<&O::fitOnRelease>, MainWindow, "mnuFitOnRelease"},
    {u"FitLanguage", kText<&O::fitLanguage>, MainWindow},
    {u"Hand", kNumber<&O::hand>, MainWindow},
    {u"PressLate0", kNumber<&O::pressLate, 0>, MainWindow},
    {u"PressLate1", kNumber<&O::pressLate, 1>, MainWindow},
    {u"PressLate2", kNumber<&O::pressLate, 2>, MainWindow},
    {u"PressSpread0", kNumber<&O::pressSpread, 0>, MainWindow},
    {u"PressSpread1", kNumber<&O::pressSpread, 1>, MainWindow},
    {u"PressSpread2", kNumber<&O::pressSpread, 2>, MainWindow},
    {u"ReleaseLate0", kNumber<&O::releaseLate, 0>, MainWindow},
    {u"ReleaseLate1", kNumber<&O::releaseLate, 1>, MainWindow},
    {u"ReleaseLate2", kNumber<&O::releaseLate, 2>, MainWindow},
    {u"ReleaseSpread0", kNumber<&O::releaseSpread, 0>, MainWindow},
    {u"ReleaseSpread1", kNumber<&O::releaseSpread, 1>, MainWindow},
    {u"ReleaseSpread2", kNumber<&O::releaseSpread, 2>, MainWindow},
});

}  // namespace

std::span<const Option> Options() { return kOptions; }

const Option& OptionOf(std::string_view control) {
  const auto* row =
      std::find_if(kOptions.begin(), kOptions.end(), [&](const Option& o) { return o.control == control; });
  assert(row != kOptions.end());
  return *row;
}

}  // namespace cuewright
