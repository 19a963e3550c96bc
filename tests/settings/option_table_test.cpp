#include "settings/option_table.h"

#include <gtest/gtest.h>

#include <set>

#include "core/numbers.h"
#include "platform/posix_files.h"
#include "settings/options.h"
#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

TEST(OptionTable, HasEachKeyAndEachControlOnce) {
  std::set<Text> keys;
  std::set<std::string_view> controls;
  for (const Option& option : Options()) {
    EXPECT_TRUE(keys.insert(Text(option.key)).second) << ToUtf8(option.key);
    if (!option.letterKey.empty()) {
      EXPECT_TRUE(keys.insert(Text(option.letterKey)).second) << ToUtf8(option.letterKey);
    }
    if (option.control.empty()) continue;
    EXPECT_TRUE(controls.insert(option.control).second) << option.control;
    EXPECT_EQ(OptionOf(option.control).key, option.key);
  }
  EXPECT_GT(keys.size(), 60u);
}

TEST(OptionTable, GivesEachKeyAMemberOfItsOwnThatTakesWhatItStored) {
  for (const Option& option : Options()) {
    const Text byDefault = option.field.stored({});
    AppOptions changed;
    option.field.take(changed, byDefault == u"7" ? u"8" : u"7");
    if (option.field.stored(changed) == byDefault) option.field.take(changed, u"0");
    EXPECT_NE(option.field.stored(changed), byDefault) << ToUtf8(option.key);
    const Text stored = option.field.stored(changed);
    for (const Option& other : Options()) {
      EXPECT_TRUE(&other == &option || other.field.stored(changed) == other.field.stored({}))
          << ToUtf8(option.key) << " changes " << ToUtf8(other.key);
    }
    AppOptions again;
    option.field.take(again, stored);
    EXPECT_EQ(option.field.stored(again), stored) << ToUtf8(option.key);
  }
}

TEST(OptionTable, LetsTheUserChooseEveryDefault) {
  for (const Option& option : Options()) {
    if (option.range.most == 0) continue;
    const double value = LeadingNumber(option.field.stored({}));
    EXPECT_GE(value, option.range.least) << ToUtf8(option.key);
    EXPECT_LE(value, option.range.most) << ToUtf8(option.key);
  }
}

TEST(OptionTable, IsStoredInItsOrder) {
  testing::TempFolder folder;
  PosixFiles files;
  SettingsStore store(files, folder / "settings.ini");
  AppOptions options;
  options.autoSplit = 255;
  SaveDialogSettings(store, options, DefaultHotkeyLetters());
  SaveMainWindowSettings(store, options, 50);
  EXPECT_EQ(folder.Read("settings.ini"),
            "[Brakemoor Works\\Cuewright]\nClassic=0\nAutoSplit=255\nCollision=1\nAutoJoin=1\nNear=200\nDuration=1\n"
            "Duration0=250\nTolerance0=200\nDuration1=120\nTolerance1=200\nDuration2=50\nTolerance2=200\nApplyWhen=0\n"
            "T_CREDITS=1\nT_CREDITSTEXT=@,http,www\nRulesOnLoad=0\nHotKeys=1\nkRewindSecs=5\nkForwardSecs=5\n"
            "hkPlay=90\nkPlay=Z\nhkPause=88\nkPause=X\nhkStop=67\nkStop=C\nhkStart=66\nkStart=B\nhkNext=78\nkNext=N\n"
            "hkEnd=77\nkEnd=M\nhkPrevious=68\nkPrevious=D\nhkJump=70\nkJump=F\nhkRewind=87\nkRewind=W\nhkForward=69\n"
            "kForward=E\nF_FONTNAME=Arial\nF_FONTSIZE=18\nF_FONTBOLD=255\nF_FONTCOLOR=16777215\nF_OPAQUE=0\n"
            "F_SHADOW=255\nF_SHADOWVAL=1\nF_SUBHEIGHT=90\nF_FOLLOW=255\nP_STRETCH=1\nP_UIMODE=full\n"
            "P_VSFILTERMODE=0\nVolume=50\nM_FONTBOLD=0\nM_FONTNAME=Tahoma\nM_FONTSIZE=8\nM_INFOBAR=255\n"
            "InfoBarUnfolded=0\nToolBar=255\nM_AUDIOBAR=0\nM_FULLWAVE=0\nRawMarks=0\nCaptionColumns=\nCaptionTimes=0\n"
            "M_AUDIOBARCOLOR=16776960\nM_WAVSCALE=23000\nWaveZoom=10000\nWaveHeight=180\nWaveLook=0\nWaveCentred=0\n"
            "WaveSnaps=255\nFindShots=255\nShotSense=100\nHardwareDecoding=0\nRetakeStep=0\n"
            "FitOnRelease=255\nFitLanguage=\nHand=0\nPressLate0=0\nPressLate1=0\nPressLate2=0\n"
            "PressSpread0=0\nPressSpread1=0\nPressSpread2=0\nReleaseLate0=0\nReleaseLate1=0\nReleaseLate2=0\n"
            "ReleaseSpread0=0\nReleaseSpread1=0\nReleaseSpread2=0\n");
}

}  // namespace
}  // namespace cuewright
