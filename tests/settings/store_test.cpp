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
  o.Near = 1;
  LoadSettings(SettingsStore(files, path), o);
  EXPECT_EQ(o.Language, u"---");
  EXPECT_EQ(o.LineSeparator, u"|");
  EXPECT_EQ(o.AutoSplit, 1);
  EXPECT_EQ(o.Collision, 1);
  EXPECT_EQ(o.AutoJoin, 1);
  EXPECT_EQ(o.Near, 200);
  EXPECT_EQ(o.DurationOn, 1);
  EXPECT_EQ(o.Duration, (std::array<std::int16_t, 3>{250, 120, 50}));
  EXPECT_EQ(o.Tolerance, (std::array<std::int16_t, 3>{200, 200, 200}));
  EXPECT_EQ(o.ApplyWhen, 0);
  EXPECT_EQ(o.T_CREDITS, 1);
  EXPECT_EQ(o.T_CREDITSTEXT, u"@,http,www");
  EXPECT_EQ(o.T_READAS, u"auto");
  EXPECT_EQ(o.HotKeys, 1);
  EXPECT_EQ(o.kRewindSecs, 5);
  EXPECT_EQ(o.kForwardSecs, 5);
  const std::array<int, 10> keys = {o.hkPlay, o.hkPause,    o.hkStop, o.hkStart,  o.hkNext,
                                    o.hkEnd,  o.hkPrevious, o.hkJump, o.hkRewind, o.hkForward};
  EXPECT_EQ(keys, (std::array<int, 10>{90, 88, 67, 66, 78, 77, 68, 70, 87, 69}));
  EXPECT_EQ(o.F_FONTNAME, u"Arial");
  EXPECT_EQ(o.F_FONTSIZE, 18);
  EXPECT_TRUE(o.F_FONTBOLD);
  EXPECT_EQ(o.F_FONTCOLOR, 16777215);
  EXPECT_FALSE(o.F_OPAQUE);
  EXPECT_TRUE(o.F_SHADOW);
  EXPECT_EQ(o.F_SHADOWVAL, 1);
  EXPECT_EQ(o.F_SUBHEIGHT, 90);
  EXPECT_TRUE(o.F_FOLLOW);
  EXPECT_EQ(o.P_STRETCH, 1);
  EXPECT_EQ(o.P_UIMODE, u"full");
  EXPECT_EQ(o.P_VSFILTERMODE, 0);
  EXPECT_EQ(o.M_FONTNAME, u"Tahoma");
  EXPECT_EQ(o.M_FONTSIZE, 8);
  EXPECT_FALSE(o.M_FONTBOLD);
  EXPECT_TRUE(o.M_INFOBAR);
  EXPECT_FALSE(o.M_AUDIOBAR);
  EXPECT_FALSE(o.M_FULLWAVE);
  EXPECT_EQ(o.M_AUDIOBARCOLOR, 16776960);
  EXPECT_EQ(o.M_WAVSCALE, 23000);
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
    EXPECT_EQ(o.Language, c.read);
  }
}

TEST_F(Options, ABlankCreditsTextTurnsTheRuleOffInMemoryOnly) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"T_CREDITS", u"1");
  store.SaveSetting(kMainSection, u"T_CREDITSTEXT", u"   ");
  AppOptions o;
  LoadSettings(store, o);
  EXPECT_EQ(o.T_CREDITS, 0);
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
    EXPECT_EQ(o.F_OPAQUE, c.read) << ToUtf8(c.stored);
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
  for (const std::uint8_t flag : {o.AutoSplit, o.Collision, o.AutoJoin, o.DurationOn, o.HotKeys, o.P_STRETCH}) {
    EXPECT_NE(flag, 0);
  }
  EXPECT_EQ(o.T_CREDITS, 0);
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
  EXPECT_EQ(o.F_FONTSIZE, 0);
  EXPECT_EQ(o.Near, 0);
  EXPECT_EQ(o.Duration[1], 0);
  EXPECT_EQ(o.F_SHADOWVAL, 4);
  EXPECT_EQ(o.Duration[2], 50);
}

TEST_F(Options, ThePlayerModeHoldsFourCharacters) {
  SettingsStore store(files, path);
  store.SaveSetting(kMainSection, u"P_UIMODE", u"invisible");
  AppOptions o;
  LoadSettings(store, o);
  EXPECT_EQ(o.P_UIMODE, u"invi");
}

TEST_F(Options, TheMainWindowsKeysAreWrittenAsTexts) {
  SettingsStore store(files, path);
  AppOptions o;
  o.M_INFOBAR = false;
  o.M_FULLWAVE = true;
  SaveMainWindowSettings(store, o, 42);
  EXPECT_EQ(Get(u"Volume"), u"42");
  EXPECT_EQ(Get(u"M_INFOBAR"), u"0");
  EXPECT_EQ(Get(u"M_FULLWAVE"), u"255");
  EXPECT_EQ(Get(u"M_FONTNAME"), u"Tahoma");
  EXPECT_EQ(Get(u"M_WAVSCALE"), u"23000");
}

}  // namespace
}  // namespace cuewright
