#include "external/update_list.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "core/runtime_error.h"
#include "platform/posix_files.h"
#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

TEST(UpdateList, ItsAddressEndsInTheJoinedPartsOfTheVersion) {
  EXPECT_EQ(UpdateListUrl(u"https://a.example", {1, 2, 5}),
            u"https://a.example/files/updates.php?idprod=qxm&version=125");
  EXPECT_EQ(UpdateListUrl(u"http://a/b//", {0, 0, 1}), u"http://a/b/files/updates.php?idprod=qxm&version=001");
  EXPECT_EQ(UpdateListUrl(u"http://a", {1, 10, 0}), u"http://a/files/updates.php?idprod=qxm&version=1100");
}

TEST(UpdateList, TheMinorPartOfTheLocalVersionWeighsTen) {
  EXPECT_EQ(LocalVersionNumber({1, 2, 5}), u"125");
  EXPECT_EQ(LocalVersionNumber({1, 10, 0}), u"200") << "the same as 2.0.0";
  EXPECT_EQ(LocalVersionNumber({2, 0, 0}), u"200");
  EXPECT_EQ(LocalVersionNumber({0, 9, 9}), u"99");
}

TEST(UpdateList, ALocalVersionBeyondSixteenBitsOverflows) {
  EXPECT_EQ(LocalVersionNumber({327, 6, 7}), u"32767");
  for (const Version& version : {Version{327, 6, 8}, Version{328, 0, 0}, Version{0, 3277, 0}, Version{40000, 0, 0}}) {
    try {
      LocalVersionNumber(version);
      ADD_FAILURE() << version.major;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number, kErrorOverflow);
    }
  }
}

TEST(UpdateList, TheRemoteVersionIsTheNumberOfItsTextWithoutDots) {
  const std::pair<const char16_t*, const char16_t*> rows[] = {{u"1.2.6", u"126"},
                                                              {u"1.10", u"110"},
                                                              {u"01.2", u"12"},
                                                              {u"...9", u"9"},
                                                              {u"1.2 beta", u"12"},
                                                              {u"1,5", u"1"},
                                                              {u"---", u"0"},
                                                              {u"", u"0"},
                                                              {u"1e-2", u"0.01"},
                                                              {u"beta 3", u"0"},
                                                              {u"<html>", u"0"},
                                                              {u"-1.2", u"-12"},
                                                              {u"123456789012345678901", u"1.23456789012346E+20"}};
  for (const auto& [text, number] : rows) EXPECT_EQ(RemoteVersionNumber(text), number) << ToUtf8(text);
}

TEST(UpdateList, ADayIsMadeOfThreeNumbers) {
  EXPECT_EQ(DayOf(u"2026", u"11", u"21"), (Day{2026, 11, 21}));
  EXPECT_EQ(DayOf(u" 2026", u"02", u"1st"), (Day{2026, 2, 1}));
  EXPECT_EQ(DayOf(u"26", u"1", u"1"), (Day{2026, 1, 1}));
  EXPECT_EQ(DayOf(u"99", u"1", u"1"), (Day{1999, 1, 1}));
}

TEST(UpdateList, MonthsAndDaysBeyondTheEndGoOn) {
  EXPECT_EQ(DayOf(u"2026", u"13", u"1"), (Day{2027, 1, 1}));
  EXPECT_EQ(DayOf(u"2026", u"2", u"30"), (Day{2026, 3, 2}));
  EXPECT_EQ(DayOf(u"2024", u"2", u"30"), (Day{2024, 3, 1}));
  EXPECT_EQ(DayOf(u"2026", u"24", u"366"), (Day{2028, 11, 30}));
}

TEST(UpdateList, WhatLacksMakesNoDay) {
  EXPECT_EQ(DayOf(u"---", u"11", u"21"), std::nullopt);
  EXPECT_EQ(DayOf(u"2026", u"---", u"21"), std::nullopt);
  EXPECT_EQ(DayOf(u"2026", u"11", u"0"), std::nullopt);
  EXPECT_EQ(DayOf(u"-5", u"11", u"1"), std::nullopt);
}

TEST(UpdateList, NumbersThatNoDayHasAreErrors) {
  const auto errorOf = [](TextView year, TextView month) {
    try {
      DayOf(year, month, u"1");
    } catch (const RuntimeError& error) {
      return error.number;
    }
    return 0;
  };
  EXPECT_EQ(errorOf(u"99999", u"1"), kErrorOverflow);
  EXPECT_EQ(errorOf(u"10000", u"1"), kErrorInvalidCall);
  EXPECT_EQ(errorOf(u"9999", u"13"), kErrorInvalidCall);
  EXPECT_EQ(errorOf(u"9999", u"12"), 0);
}

TEST(UpdateList, ValuesAreReadFromItsSectionAlone) {
  const Text list =
      u"version=1\r\n[OTHER]\r\nversion=2\r\n[cuewrite]\r\n; version=3\r\n Version = \"1.2.6\" \r\ndate=May\r\n"
      u"version=4\r\n[CUEWRITE]\r\nyear=2026\r\n";
  EXPECT_EQ(GetUpdateValue(list, u"version"), u"1.2.6");
  EXPECT_EQ(GetUpdateValue(list, u"DATE"), u"May");
  EXPECT_EQ(GetUpdateValue(list, u"month"), u"---");
  EXPECT_EQ(GetUpdateValue(list, u"year"), u"---") << "of sections with one name the first counts";
}

TEST(UpdateList, AValueHasAtMost255Characters) {
  const Text list = u"[CUEWRITE]\r\nversion=" + Text(300, u'x') + u"\r\n";
  EXPECT_EQ(GetUpdateValue(list, u"version"), Text(255, u'x'));
}

TEST(UpdateList, AChangeLogMayStandAmongTheKeys) {
  const Text list = u"[CUEWRITE]\r\n<log>\r\n - one\r\nday=1\r\n</log>\r\nversion=2\r\n";
  EXPECT_EQ(ChangesOf(list), (std::vector<Text>{u" - one", u"day=1"}));
  EXPECT_EQ(GetUpdateValue(list, u"version"), u"2");
}

TEST(UpdateList, TheLinesOfTheLogAreTakenAsTheyAre) {
  EXPECT_EQ(ChangesOf(u"x\r\n<log>\r\na\r\n\r\n <log>\r\n<log>\r\nb </log>\r\n</log>\r\nc\r\n"),
            (std::vector<Text>{u"a", u"", u" <log>", u"<log>", u"b </log>"}));
}

TEST(UpdateList, ALogWithoutAnEndGoesOnToTheEndOfTheFile) {
  EXPECT_EQ(ChangesOf(u"<log>\r\na\r\nb"), (std::vector<Text>{u"a", u"b"}));
}

TEST(UpdateList, AListWithoutALogHasNone) {
  EXPECT_EQ(ChangesOf(u"[CUEWRITE]\r\n <log>\r\n<LOG>\r\n"), std::nullopt);
  EXPECT_EQ(ChangesOf(u"</log>\r\n<log>\r\na\r\n"), std::nullopt) << "reading ends at the first end";
  EXPECT_EQ(ChangesOf(u""), std::nullopt);
}

TEST(UpdateList, LinesEndAtCrOrCrLf) {
  EXPECT_EQ(ChangesOf(u"<log>\ra\rb\n\r\nc"), (std::vector<Text>{u"a", u"b\n", u"c"}));
}

struct UpdateFile : ::testing::Test {
  testing::TempFolder folder;
  PosixFiles files;
  Text Normalized(const std::string& content) {
    const Text path = folder.Write("list", content);
    NormalizeUpdateFile(files, path);
    return FromUtf8(folder.Read("list"));
  }
};

TEST_F(UpdateFile, EveryLfBecomesCrLfAndALineEndComesBehind) {
  EXPECT_EQ(Normalized("a\nb\n"), u"a\r\nb\r\n\r\n");
  EXPECT_EQ(Normalized("a"), u"a\r\n");
  EXPECT_EQ(Normalized(""), u"\r\n");
  EXPECT_EQ(Normalized("a\r\nb"), u"a\r\r\nb\r\n");
}

TEST_F(UpdateFile, APlantedLinkIsNotFollowed) {
  const Text victim = folder.Write("victim", "mine");
  folder.Write("list", "a\n");
  std::filesystem::rename(folder.Path() / "list", folder.Path() / "theirs");
  std::filesystem::create_symlink(folder.Path() / "victim", folder.Path() / "list");
  NormalizeUpdateFile(files, folder / "list");
  EXPECT_EQ(folder.Read("victim"), "mine");
  EXPECT_FALSE(std::filesystem::is_symlink(folder.Path() / "list"));
}

TEST_F(UpdateFile, BelongsToTheUserAlone) {
  Normalized("a");
  struct stat info {};
  ASSERT_EQ(::stat(folder.Bytes("list").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST_F(UpdateFile, OneThatIsTooLargeIsNotRead) {
  const Text path = folder.Write("list", std::string(kLongestUpdateList + 1, 'x'));
  EXPECT_THROW(NormalizeUpdateFile(files, path), RuntimeError);
}

TEST(UpdateList, BytesThatAreNoUtf8AreInTheSystemsCodePage) {
  const Encodings encodings(1251);
  EXPECT_EQ(UpdateListText("\xEF\xBB\xBF"
                           "a",
                           encodings),
            u"a");
  EXPECT_EQ(UpdateListText("\xC3\xA9", encodings), u"é");
  EXPECT_EQ(UpdateListText("\xE9x", encodings), u"йx");
}

}  // namespace
}  // namespace cuewright
