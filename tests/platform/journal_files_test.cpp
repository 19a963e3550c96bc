#include "platform/journal_files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "core/journal.h"
#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

namespace fs = std::filesystem;

std::string Snapshot(TextView text, std::size_t captions = 1) {
  JournalDocument document;
  document.path = u"/a.srt";
  document.captions.assign(captions, Caption{1, 2, Text(text)});
  return JournalSnapshot(document);
}

/// A batch that sets the first caption's text.
std::string Change(TextView text) {
  AppOptions options;
  bool modified = false;
  CaptionList list(options, modified);
  JournalBatch batch;
  list.Spliced.Connect([&](const Splice& splice) { batch.Add(list, splice); });
  list.SetCaptionText(1, text);
  return batch.Take(1, 1, u"|");
}

struct JournalFilesTest : ::testing::Test {
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder.Path() / "journals", none)) {
      names.push_back(entry.path().filename());
    }
    return names;
  }
  Text Where() const { return folder / "journals"; }
  static std::string FirstText(const LeftJournal& left) {
    const JournalReading reading = ReadJournal(left.bytes);
    return reading.document ? ToUtf8(reading.document->captions[0].text) : "none";
  }
  /// Leaves a journal as a program does that ends by accident: its locks go with it, its file stays.
  void Leave(const std::string& snapshot, const std::vector<std::string>& changes = {}) const {
    const pid_t child = ::fork();
    if (child == 0) {
      JournalFiles files(Where());
      files.Begin(snapshot);
      for (const std::string& change : changes) files.Append(change);
      files.Wait();
      ::_exit(0);
    }
    ASSERT_GT(child, 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
  }

  testing::TempFolder folder;
};

using JournalFolder = JournalFilesTest;

TEST_F(JournalFolder, IsMadeWithTheFirstJournalAndForTheUserAlone) {
  JournalFiles files(Where());
  EXPECT_TRUE(files.TakeLeft().empty());
  EXPECT_FALSE(fs::exists(folder.Path() / "journals"));
  files.Begin(Snapshot(u"one"));
  files.Wait();
  struct stat info {};
  ASSERT_EQ(::stat(folder.Bytes("journals").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
  ASSERT_EQ(Names().size(), 1u);
  ASSERT_EQ(::stat((folder.Path() / "journals" / Names()[0]).c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
  EXPECT_FALSE(files.TakeFailure());
}

TEST_F(JournalFolder, AJournalThatIsRemovedLeavesNothing) {
  JournalFiles files(Where());
  files.Begin(Snapshot(u"one"));
  files.Append(Change(u"two"));
  files.Remove();
  files.Wait();
  EXPECT_TRUE(Names().empty());
}

TEST_F(JournalFolder, AJournalOfARunningProgramIsNotTaken) {
  JournalFiles running(Where());
  running.Begin(Snapshot(u"one"));
  running.Wait();
  JournalFiles other(Where());
  EXPECT_TRUE(other.TakeLeft().empty());
  other.Begin(Snapshot(u"two"));
  other.Wait();
  EXPECT_EQ(Names().size(), 2u);
  other.Remove();
  other.Wait();
  EXPECT_EQ(Names().size(), 1u);
}

TEST_F(JournalFolder, WhatAProgramLeftIsTakenByOneOther) {
  Leave(Snapshot(u"one"), {Change(u"two"), Change(u"three")});
  JournalFiles files(Where());
  const auto left = files.TakeLeft();
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(FirstText(left[0]), "three");
  JournalFiles other(Where());
  EXPECT_TRUE(other.TakeLeft().empty());
  files.LeaveAgain(left[0].id);
  const auto again = other.TakeLeft();
  ASSERT_EQ(again.size(), 1u);
  other.Discard(again[0].id);
  EXPECT_TRUE(Names().empty());
}

TEST_F(JournalFolder, TheNewestLeftComesFirst) {
  Leave(Snapshot(u"old"));
  const fs::path old = folder.Path() / "journals" / Names()[0];
  fs::last_write_time(old, fs::last_write_time(old) - std::chrono::seconds(5));
  Leave(Snapshot(u"new"));
  JournalFiles files(Where());
  const auto left = files.TakeLeft();
  ASSERT_EQ(left.size(), 2u);
  EXPECT_EQ(FirstText(left[0]), "new");
  EXPECT_EQ(FirstText(left[1]), "old");
}

TEST_F(JournalFolder, AnAdoptedJournalGoesOnBehindItsWholeRecords) {
  Leave(Snapshot(u"one"), {Change(u"two")});
  const fs::path path = folder.Path() / "journals" / Names()[0];
  const auto whole = fs::file_size(path);
  std::ofstream(path, std::ios::app | std::ios::binary) << "torn";
  {
    JournalFiles files(Where());
    const auto left = files.TakeLeft();
    ASSERT_EQ(left.size(), 1u);
    const JournalReading reading = ReadJournal(left[0].bytes);
    EXPECT_EQ(reading.validBytes, whole);
    files.Adopt(left[0].id, reading.validBytes);
    files.Append(Change(u"three"));
    files.Wait();
    EXPECT_FALSE(files.TakeFailure());
  }
  JournalFiles next(Where());
  const auto left = next.TakeLeft();
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(FirstText(left[0]), "three");
}

TEST_F(JournalFolder, ANewBeginningTakesThePlaceOfTheFileBefore) {
  JournalFiles files(Where());
  files.Begin(Snapshot(u"one"));
  files.Begin(Snapshot(u"two"));
  files.Wait();
  EXPECT_EQ(Names().size(), 1u);
}

TEST_F(JournalFolder, ThatCannotBeMadeIsTold) {
  folder.Write("journals", "a file");
  JournalFiles files(Where());
  files.Begin(Snapshot(u"one"));
  files.Append(Change(u"two"));
  files.Wait();
  EXPECT_TRUE(files.TakeFailure());
  EXPECT_FALSE(files.TakeFailure());
}

TEST_F(JournalFolder, AFullDiskKeepsTheRecordsBeforeAndTakesNoneBehind) {
  JournalFiles files(Where());
  files.Begin(Snapshot(u"one"));
  files.Append(Change(u"two"));
  files.Wait();
  const fs::path path = folder.Path() / "journals" / Names()[0];
  const auto whole = fs::file_size(path);
  // No file grows beyond this size, as on a disk that is full.
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  rlimit small = limit;
  small.rlim_cur = whole + 20;
  ::setrlimit(RLIMIT_FSIZE, &small);
  files.Append(Change(u"too long for what is left on the disk"));
  files.Append(Change(u"x"));
  files.Wait();
  ::setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, before);
  const auto failure = files.TakeFailure();
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number, kErrorDiskFull);
  EXPECT_EQ(fs::file_size(path), whole);
  // Room again, but the changes between are missing: only a new beginning helps.
  files.Append(Change(u"y"));
  files.Wait();
  EXPECT_EQ(fs::file_size(path), whole);
  files.Begin(Snapshot(u"anew"));
  files.Append(Change(u"z"));
  files.Wait();
  EXPECT_FALSE(files.TakeFailure());
  ASSERT_EQ(Names().size(), 1u);
  EXPECT_EQ(FirstText({1, folder.Read("journals/" + Names()[0]), 0}), "z");
}

TEST_F(JournalFolder, TellsThatTheFileWasTakenAwayAndBeginsAnew) {
  JournalFiles files(Where());
  files.Begin(Snapshot(u"one"));
  files.Wait();
  EXPECT_FALSE(files.TakeLost());
  fs::remove_all(folder.Path() / "journals");
  files.Append(Change(u"two"));
  files.Wait();
  EXPECT_TRUE(files.TakeLost());
  EXPECT_FALSE(files.TakeLost());
  EXPECT_FALSE(files.TakeFailure());
  files.Begin(Snapshot(u"anew"));
  files.Append(Change(u"three"));
  files.Wait();
  ASSERT_EQ(Names().size(), 1u);
  EXPECT_EQ(FirstText({1, folder.Read("journals/" + Names()[0]), 0}), "three");
}

TEST_F(JournalFolder, OneThatIsLeftIsFoundByTheNextStart) {
  JournalFiles files(Where());
  files.Begin(Snapshot(u"one"));
  files.Append(Change(u"two"));
  files.Wait();
  JournalFiles other(Where());
  EXPECT_TRUE(other.TakeLeft().empty()) << "its program runs";
  files.Leave();
  files.Wait();
  const auto left = other.TakeLeft();
  ASSERT_EQ(left.size(), 1u);
  EXPECT_EQ(FirstText(left[0]), "two");
}

TEST_F(JournalFolder, KnowsOfWhichOnesTheUserWasTold) {
  Leave(Snapshot(u"one"));
  {
    JournalFiles files(Where());
    const auto left = files.TakeLeft();
    ASSERT_EQ(left.size(), 1u);
    EXPECT_FALSE(left[0].told);
    EXPECT_EQ(ToUtf8(left[0].path), (folder.Path() / "journals" / Names()[0]).string());
    files.LeaveTold(left[0].id);
  }
  JournalFiles files(Where());
  const auto left = files.TakeLeft();
  ASSERT_EQ(left.size(), 1u);
  EXPECT_TRUE(left[0].told);
  files.Discard(left[0].id);
  EXPECT_TRUE(Names().empty());
}

TEST_F(JournalFolder, OneThatCannotBeReadIsGivenWithTheReason) {
  Leave(Snapshot(u"one"));
  fs::resize_file(folder.Path() / "journals" / Names()[0], (std::uintmax_t{1} << 30) + 1);
  JournalFiles files(Where());
  const auto left = files.TakeLeft();
  ASSERT_EQ(left.size(), 1u);
  EXPECT_TRUE(left[0].unreadable);
  EXPECT_TRUE(left[0].bytes.empty());
  files.LeaveAgain(left[0].id);
  EXPECT_EQ(Names().size(), 1u);
}

TEST_F(JournalFolder, AnUnfinishedFileIsRemovedOnceItIsOld) {
  Leave(Snapshot(u"one"));
  folder.Write("journals/1-aaaaaa.journal.new", "begun");
  folder.Write("journals/1-bbbbbb.journal.new", "begun");
  const fs::path old = folder.Path() / "journals" / "1-bbbbbb.journal.new";
  fs::last_write_time(old, fs::last_write_time(old) - std::chrono::minutes(2));
  JournalFiles files(Where());
  EXPECT_EQ(files.TakeLeft().size(), 1u);
  EXPECT_FALSE(fs::exists(old));
  EXPECT_EQ(Names().size(), 2u);
}

TEST_F(JournalFolder, WithoutAPathKeepsNothing) {
  JournalFiles files({});
  files.Begin(Snapshot(u"one"));
  files.Wait();
  EXPECT_TRUE(files.TakeLeft().empty());
  EXPECT_FALSE(files.TakeFailure());
}

TEST_F(JournalFolder, TellsTimesAsTheUserReadsThem) {
  JournalFiles files(Where());
  EXPECT_EQ(files.LocalTime(files.Now()).size(), 19u);
}

}  // namespace
}  // namespace cuewright
