#include <gtest/gtest.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "core/runtime_error.h"
#include "platform/child_processes.h"
#include "platform/output_files.h"
#include "platform/posix_files.h"
#include "platform/sound_store.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace cuewright {
namespace {

using testing::RunToEnd;
using testing::TempFolder;

TEST(PosixProcesses, HandsArgumentsOverAsTheyStand) {
  const auto child = PosixProcesses().Start(u"printf", {u"%s|", u"a b", u"$HOME", u"'\"; exit 3"});
  const testing::Ended ended = RunToEnd(*child);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output, "a b|$HOME|'\"; exit 3|");
}

TEST(PosixProcesses, TellsTheExitStatus) {
  EXPECT_EQ(RunToEnd(*PosixProcesses().Start(u"sh", {u"-c", u"exit 7"})).status, 7);
  // A wait in vain has the same status as a signal, so what stands before it is looked for too.
  const testing::Ended killed = RunToEnd(*PosixProcesses().Start(u"sh", {u"-c", u"echo now; kill -9 $$"}));
  EXPECT_EQ(killed.status, -1);
  EXPECT_EQ(killed.output, "now\n");
}

TEST(PosixProcesses, AWaitForOutputGoesOnOverErrors) {
  const auto child = PosixProcesses().Start(u"sh", {u"-c", u"echo e >&2; sleep 0.2; echo o"}, {.errors = true});
  child->WaitForOutput(60000);
  EXPECT_EQ(child->TakeOutput(), "o\n");
  EXPECT_EQ(child->TakeErrors(), "e\n");
  // A closed output is nothing to wait for: errors are then.
  const auto silent = PosixProcesses().Start(u"sh", {u"-c", u"exec >&-; sleep 0.2; echo e >&2"}, {.errors = true});
  silent->WaitForOutput(60000);
  EXPECT_EQ(silent->TakeOutput(), "");
  silent->WaitForOutput(60000);
  EXPECT_EQ(silent->TakeErrors(), "e\n");
}

TEST(PosixProcesses, AMissingProgramIsARunTimeError) {
  try {
    PosixProcesses().Start(u"no-such-program-anywhere", {});
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, kErrorFileNotFound);
  }
}

TEST(PosixProcesses, AProcessEndsWithItsObject) {
  pid_t id = 0;
  {
    const auto child = PosixProcesses().Start(u"sh", {u"-c", u"echo $$; while :; do :; done"});
    std::string output;
    while (output.find('\n') == std::string::npos && !child->Ended()) output += child->TakeOutput();
    id = std::atoi(output.c_str());
    ASSERT_GT(id, 0);
    EXPECT_EQ(kill(id, 0), 0);
  }
  EXPECT_EQ(kill(id, 0), -1);
}

TEST(PosixProcesses, AProcessEndsWithAProgramThatIsKilled) {
  // This process starts another one, which starts a third and is killed without a chance to end it.
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  const pid_t middle = fork();
  ASSERT_GE(middle, 0);
  if (middle == 0) {
    const auto child = PosixProcesses().Start(u"sh", {u"-c", u"echo $$; while :; do sleep 0.1; done"});
    std::string id;
    while (id.find('\n') == std::string::npos && !child->Ended()) id += child->TakeOutput();
    const pid_t number = std::atoi(id.c_str());
    const ssize_t told = write(ends[1], &number, sizeof number);
    if (told != sizeof number) _exit(1);
    kill(getpid(), SIGKILL);
  }
  pid_t id = 0;
  ASSERT_EQ(read(ends[0], &id, sizeof id), static_cast<ssize_t>(sizeof id));
  ASSERT_GT(id, 0);
  waitpid(middle, nullptr, 0);
  close(ends[0]);
  close(ends[1]);
  EXPECT_TRUE(testing::WaitForEndOf(id));
}

TEST(PosixProcesses, AMissingFolderIsARunTimeError) {
  EXPECT_THROW(PosixProcesses().Start(u"true", {}, {.folder = u"/no/such/folder"}), RuntimeError);
}

struct SoundStoreTest : ::testing::Test {
  /// A sound of so many bytes for a film of this name.
  Text Keep(const std::string& film, std::size_t size) {
    const Text path = store.PathFor(folder.Write(film, film), 0);
    const Text unfinished = store.Begin(path);
    PosixFiles().Replace(unfinished, [&](ByteSink& sink) { sink.Write(Sound(size)); });
    store.Keep(path);
    // Kept in the past, each a second behind the one before.
    const auto then = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(100 - ++kept_);
    std::filesystem::last_write_time(ToUtf8(path), then);
    return path;
  }
  /// A wave file of so many bytes.
  static std::string Sound(std::size_t size) {
    std::string bytes = "RIFF";
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>((size - 8) >> (8 * i) & 0xFF);
    return bytes + std::string(size - 8, 'x');
  }
  bool There(const Text& path) { return PosixFiles().Exists(path); }

  TempFolder folder;
  FolderSoundStore store{folder / "cache/sounds", 1000};

 private:
  int kept_ = 0;
};

TEST_F(SoundStoreTest, EachTrackOfEachFilmHasAPlaceOfItsOwn) {
  const Text film = folder.Write("a.mkv", "a");
  const Text place = store.PathFor(film, 0);
  EXPECT_EQ(store.PathFor(film, 0), place);
  EXPECT_NE(store.PathFor(film, 1), place);
  EXPECT_NE(store.PathFor(folder.Write("b.mkv", "a"), 0), place);
  folder.Write("a.mkv", "other");
  EXPECT_NE(store.PathFor(film, 0), place);
  EXPECT_THROW(store.PathFor(folder / "none.mkv", 0), RuntimeError);
}

TEST_F(SoundStoreTest, TheSoundsNotUsedForTheLongestTimeMakeRoom) {
  const Text a = Keep("a.mkv", 400);
  const Text b = Keep("b.mkv", 400);
  EXPECT_TRUE(store.Has(a));  // used now
  const Text c = Keep("c.mkv", 400);
  EXPECT_TRUE(There(a));
  EXPECT_FALSE(There(b));
  EXPECT_TRUE(There(c));
}

TEST_F(SoundStoreTest, TheNewestStaysHoweverLargeItIs) {
  const Text a = Keep("a.mkv", 100);
  const Text b = Keep("b.mkv", 5000);
  EXPECT_FALSE(There(a));
  EXPECT_TRUE(There(b));
}

TEST_F(SoundStoreTest, ASoundThatWasCutOffIsMadeAgain) {
  const Text path = Keep("a.mkv", 400);
  ASSERT_TRUE(store.Has(path));
  std::filesystem::resize_file(ToUtf8(path), 300);
  EXPECT_FALSE(store.Has(path));
  EXPECT_FALSE(There(path));
  // One whose header was never brought up to date, too.
  folder.Write("cache/sounds/b.wav", "RIFF\xFF\xFF\xFF\xFFWAVE");
  EXPECT_FALSE(store.Has(folder / "cache/sounds/b.wav"));
}

TEST_F(SoundStoreTest, WhatAKilledProgramLeftGoesWithTheNextSound) {
  Keep("a.mkv", 400);
  const Text stray = folder.Write("cache/sounds/0123.wav.part", "x");
  const Text busy = folder.Write("cache/sounds/4567.wav.part", "x");
  std::filesystem::last_write_time(ToUtf8(stray),
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  store.Begin(store.PathFor(folder / "a.mkv", 1));
  EXPECT_FALSE(There(stray));
  EXPECT_TRUE(There(busy));
}

TEST(OutputFiles, RemoveWhatKilledRunsHaveLeftBesideTheTarget) {
  TempFolder folder;
  const auto age = [](const Text& path) {
    std::filesystem::last_write_time(ToUtf8(path),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  };
  const Text stray = folder.Write(".cuewright-abcdef", "half a film");
  age(stray);
  const auto busy = PosixOutputFiles().Begin(folder / "busy.avi");
  age(busy->Part());
  const auto next = PosixOutputFiles().Begin(folder / "next.avi");
  EXPECT_FALSE(PosixFiles().Exists(stray));
  EXPECT_TRUE(PosixFiles().Exists(busy->Part()));
  next->Keep();
  EXPECT_TRUE(PosixFiles().Exists(folder / "next.avi"));
}

TEST_F(SoundStoreTest, UnfinishedSoundsAreNoSounds) {
  const Text path = store.PathFor(folder.Write("a.mkv", "a"), 0);
  const Text unfinished = store.Begin(path);
  PosixFiles().Replace(unfinished, [](ByteSink& sink) { sink.Write("x"); });
  EXPECT_FALSE(store.Has(path));
  store.Discard(path);
  EXPECT_FALSE(There(unfinished));
  EXPECT_THROW(store.Keep(path), RuntimeError);
}

TEST_F(SoundStoreTest, CanBeEmptied) {
  const Text a = Keep("a.mkv", 100);
  store.Empty();
  EXPECT_FALSE(There(a));
  store.Empty();
}

}  // namespace
}  // namespace cuewright
