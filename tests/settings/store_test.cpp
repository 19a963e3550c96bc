#include "settings/store.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "platform/posix_files.h"
#include "settings/options.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

struct StoreTest : ::testing::Test {
  testing::TempFolder folder;
  PosixFiles files;
  Text path = folder / "sub/dir/settings.ini";

  Text Get(TextView key, TextView fallback = u"?") {
    return SettingsStore(files, path).GetSetting(kMainSection, key, fallback);
  }
};

using Store = StoreTest;
using Options = StoreTest;

TEST_F(Store, WhatIsSavedIsThereInTheNextRun) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"TFileName", u"/home/x/a=b.srt");
  store.SaveSetting(u"Cuewright\\SAMI", u"font", u"Tahoma");
  EXPECT_EQ(Get(u"TFileName"), u"/home/x/a=b.srt");
  EXPECT_EQ(SettingsStore(files, path).GetSetting(u"Cuewright\\SAMI", u"font", u""), u"Tahoma");
  EXPECT_EQ(Get(u"font"), u"?");
  EXPECT_EQ(
      folder.Read("sub/dir/settings.ini"),
      "[Brakemoor Works\\Cuewright]\nTFileName=/home/x/a=b.srt\n[Brakemoor Works\\Cuewright\\SAMI]\nfont=Tahoma\n");
}

TEST_F(Store, TheFileIsTheUsersAlone) {
  SettingsStore(files, path).SaveSetting(kMainSection, u"a", u"b");
  struct stat info {};
  ASSERT_EQ(::stat(folder.Bytes("sub/dir").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
}

TEST_F(Store, ValuesSurviveLineEndsBackslashesBlanksAndForeignBytes) {
  for (const Text& value : {Text(u"a\r\nb\\n"), Text(u"  x  "), Text(u""), FromUtf8("/x/\xFF\xFE.srt"), Text(u"\\"),
                            Text(u"[br]"), Text(u"\U0001F600")}) {
    SettingsStore(files, path).SaveSetting(kMainSection, u"key", value);
    EXPECT_EQ(Get(u"key"), value) << ToUtf8(value);
  }
}

TEST_F(Store, KeysAndSectionsIgnoreCase) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"Volume", u"10");
  store.SaveSetting(u"CUEWRIGHT", u"VOLUME", u"20");
  EXPECT_EQ(Get(u"volume"), u"20");
}

TEST_F(Store, ADamagedFileLosesOnlyWhatIsDamaged) {
  std::filesystem::create_directories(folder.Path() / "sub/dir");
  folder.Write("sub/dir/settings.ini",
               std::string("\0\1garbage\n", 10) +
                   "[Brakemoor Works\\Cuewright]\nVolume=33\n=nothing\nno equals sign\n[broken\n"
                   "HotKeys=0\n[Someone Else\\Cuewright]\nVolume=1\n");
  EXPECT_EQ(Get(u"Volume"), u"33");
  EXPECT_EQ(Get(u"HotKeys"), u"0");
  SettingsStore(files, path).SaveSetting(kMainSection, u"Volume", u"44");
  EXPECT_EQ(Get(u"Volume"), u"44");
  EXPECT_EQ(Get(u"HotKeys"), u"0");
  const std::string content = folder.Read("sub/dir/settings.ini");
  EXPECT_NE(content.find("no equals sign\n"), std::string::npos);
  EXPECT_NE(content.find("Volume=44\n"), std::string::npos);
}

TEST_F(Store, AFileThatCantBeReadCountsAsEmptyAndTheProgramGoesOn) {
  std::filesystem::create_directories(folder.Path() / "sub/dir/settings.ini");  // a folder in the file's place
  SettingsStore store(files, path);
  EXPECT_EQ(store.GetSetting(kMainSection, u"Volume", u"75"), u"75");
  store.SaveSetting(kMainSection, u"Volume", u"12");
  EXPECT_EQ(store.GetSetting(kMainSection, u"Volume", u"75"), u"12");
  EXPECT_FALSE(store.LastFailure().empty());
}

TEST_F(Store, AnUnwritableFolderKeepsTheValuesForTheRun) {
  folder.Write("blocked", "a file, no folder");
  SettingsStore store(files, folder / "blocked/settings.ini");
  store.SaveSetting(kMainSection, u"LBREAK", u"/n");
  EXPECT_EQ(store.GetSetting(kMainSection, u"LBREAK", u"|"), u"/n");
  EXPECT_FALSE(store.LastFailure().empty());
  EXPECT_EQ(folder.Read("blocked"), "a file, no folder");
}

TEST_F(Store, TwoProgramsDontUndoEachOther) {
  SettingsStore one(files, path);
  SettingsStore two(files, path);
  one.SaveSetting(kMainSection, u"a", u"1");
  two.SaveSetting(kMainSection, u"b", u"2");
  one.SaveSetting(kMainSection, u"c", u"3");
  EXPECT_EQ(Get(u"a"), u"1");
  EXPECT_EQ(Get(u"b"), u"2");
  EXPECT_EQ(Get(u"c"), u"3");
}

TEST_F(Options, AnEmptyStoreYieldsTheDefaults) {
  AppOptions o;
  o.nearMs = 1;
  LoadSettings(SettingsStore(files, path), o);
  EXPECT_EQ(o.language, u"---");
  EXPECT_EQ(o.lineSeparator, u"|");
  EXPECT_EQ(o.autoSplit, 1);
  EXPECT_EQ(o.avoidCollision, 1);
  EXPECT_EQ(o.autoJoin, 1);
  EXPECT_EQ(o.nearMs, 200);
  EXPECT_EQ(o.limitDuration, 1);
  EXPECT_EQ(o.durationPerCharacter, (std::array<std::int16_t, 3>{250, 120, 50}));
  EXPECT_EQ(o.durationTolerance, (std::array<std::int16_t, 3>{200, 200, 200}));
  EXPECT_EQ(o.applyWhen, 0);
  EXPECT_EQ(o.removeCredits, 1);
  EXPECT_EQ(o.creditWords, u"@,http,www");
  EXPECT_EQ(o.readAs, u"auto");
  EXPECT_EQ(o.hotkeysOn, 1);
  EXPECT_EQ(o.rewindSeconds, 5);
  EXPECT_EQ(o.forwardSeconds, 5);
  const std::array<int, 10> keys = {o.playKey, o.pauseKey,    o.stopKey, o.startKey,  o.nextKey,
                                    o.endKey,  o.previousKey, o.jumpKey, o.rewindKey, o.forwardKey};
  EXPECT_EQ(keys, (std::array<int, 10>{90, 88, 67, 66, 78, 77, 68, 70, 87, 69}));
  EXPECT_EQ(o.previewFontName, u"Arial");
  EXPECT_EQ(o.previewFontSize, 18);
  EXPECT_TRUE(o.previewFontBold);
  EXPECT_EQ(o.previewColor, 16777215);
  EXPECT_FALSE(o.previewOpaque);
  EXPECT_TRUE(o.previewShadow);
  EXPECT_EQ(o.previewShadowDepth, 1);
  EXPECT_EQ(o.previewHeight, 90);
  EXPECT_TRUE(o.followCaptions);
  EXPECT_EQ(o.stretchVideo, 1);
  EXPECT_EQ(o.playerControls, u"full");
  EXPECT_EQ(o.filterMode, 0);
  EXPECT_EQ(o.listFontName, u"Tahoma");
  EXPECT_EQ(o.listFontSize, 8);
  EXPECT_FALSE(o.listFontBold);
  EXPECT_TRUE(o.infoBarOn);
  EXPECT_FALSE(o.audioBarOn);
  EXPECT_FALSE(o.fullWave);
  EXPECT_EQ(o.waveColor, 16776960);
  EXPECT_EQ(o.waveScale, 23000);
}

TEST_F(Options, OldLanguageNamesAreMapped) {
  struct Case {
    const char16_t *stored, *read;
  };
  for (const Case& c : {Case{u"FARSI", u"PERSIAN"}, Case{u"BPORTUGUESE", u"PORTUGUESE_BR"}, Case{u"GREEK", u"GREEK"}}) {
    SettingsStore store(files, path);
    store.SaveSetting(kMainSection, u"Language", c.stored);
    AppOptions o;
    LoadSettings(store, o);
    EXPECT_EQ(o.language, c.read);
  }
}

TEST_F(Options, ABlankCreditsTextTurnsTheRuleOffInMemoryOnly) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"T_CREDITS", u"1");
  store.SaveSetting(kMainSection, u"T_CREDITSTEXT", u"   ");
  AppOptions o;
  LoadSettings(store, o);
  EXPECT_EQ(o.removeCredits, 0);
  EXPECT_EQ(Get(u"T_CREDITS"), u"1");
}

TEST_F(Options, FlagsReadAnyNumberButZeroAsTrue) {
  struct Case {
    const char16_t* stored;
    bool read;
  };
  for (const Case& c :
       {Case{u"255", true}, Case{u"0", false}, Case{u"-1", true}, Case{u"1x", true}, Case{u"yes", false}}) {
    SettingsStore store(files, path);
    store.SaveSetting(kMainSection, u"F_OPAQUE", c.stored);
    AppOptions o;
    LoadSettings(store, o);
    EXPECT_EQ(o.previewOpaque, c.read) << ToUtf8(c.stored);
  }
}

TEST_F(Options, ByteFlagsStoredAsMinusOneAreTrue) {
  for (const char16_t* key : {u"AutoSplit", u"Collision", u"AutoJoin", u"Duration", u"HotKeys", u"P_STRETCH"}) {
    SettingsStore store(files, path);
    store.SaveSetting(kMainSection, key, u"-1");
  }
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"T_CREDITS", u"300");
  AppOptions o;
  LoadSettings(store, o);
  for (const std::uint8_t flag :
       {o.autoSplit, o.avoidCollision, o.autoJoin, o.limitDuration, o.hotkeysOn, o.stretchVideo}) {
    EXPECT_NE(flag, 0);
  }
  EXPECT_EQ(o.removeCredits, 0);
}

TEST_F(Options, AFileThatCannotBeReadIsNeverWritten) {
  SettingsStore before(files, path);
  before.SaveSetting(kMainSection, u"Near", u"123");
  const std::string content = folder.Read("sub/dir/settings.ini");
  std::filesystem::resize_file(folder.Path() / "sub/dir/settings.ini", (16u << 20) + 1);
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"Volume", u"42");
  EXPECT_EQ(store.GetSetting(kMainSection, u"Volume", {}), u"42");
  EXPECT_FALSE(store.LastFailure().empty());
  EXPECT_EQ(std::filesystem::file_size(folder.Path() / "sub/dir/settings.ini"), (16u << 20) + 1);
  // It can be read again: both are there.
  folder.Write("sub/dir/settings.ini", content);
  store.SaveSetting(kMainSection, u"WindowState", u"2");
  EXPECT_EQ(Get(u"Near"), u"123");
  EXPECT_EQ(Get(u"Volume"), u"42");
}

TEST_F(Options, AValueThatDoesntFitLeavesTheNeutralOneAndTheNextKeyIsRead) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"F_FONTSIZE", u"300");
  store.SaveSetting(kMainSection, u"Near", u"99999999999");
  store.SaveSetting(kMainSection, u"Duration1", u"40000");
  store.SaveSetting(kMainSection, u"F_SHADOWVAL", u"3.5");
  AppOptions o;
  LoadSettings(store, o);
  EXPECT_EQ(o.previewFontSize, 0);
  EXPECT_EQ(o.nearMs, 0);
  EXPECT_EQ(o.durationPerCharacter[1], 0);
  EXPECT_EQ(o.previewShadowDepth, 4);
  EXPECT_EQ(o.durationPerCharacter[2], 50);
}

TEST_F(Options, ThePlayerModeHoldsFourCharacters) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"P_UIMODE", u"invisible");
  AppOptions o;
  LoadSettings(store, o);
  EXPECT_EQ(o.playerControls, u"invi");
}

TEST_F(Options, TheMainWindowsKeysAreWrittenAsTexts) {
  SettingsStore store(files, path);
  AppOptions o;
  o.infoBarOn = false;
  o.fullWave = true;
  SaveMainWindowSettings(store, o, 42);
  EXPECT_EQ(Get(u"Volume"), u"42");
  EXPECT_EQ(Get(u"M_INFOBAR"), u"0");
  EXPECT_EQ(Get(u"M_FULLWAVE"), u"255");
  EXPECT_EQ(Get(u"M_FONTNAME"), u"Tahoma");
  EXPECT_EQ(Get(u"M_WAVSCALE"), u"23000");
}

}  // namespace
}  // namespace cuewright
