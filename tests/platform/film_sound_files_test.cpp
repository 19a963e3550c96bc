#include <gtest/gtest.h>
#include <sys/types.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "core/runtime_error.h"
#include "platform/child_processes.h"
#include "platform/posix_files.h"
#include "platform/sound_store.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

using testing::TempFolder;

std::optional<int> WaitForEnd(ChildProcess& child, std::string& output) {
  for (int i = 0; i < 2000; ++i) {
    const std::optional<int> status = child.Ended();
    output += child.TakeOutput();
    if (status) return status;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return {};
}

TEST(PosixProcesses, HandsArgumentsOverAsTheyStand) {
  std::string output;
  const auto child = PosixProcesses().Start(u"printf", {u"%s|", u"a b", u"$HOME", u"'\"; exit 3"});
  EXPECT_EQ(WaitForEnd(*child, output), 0);
  EXPECT_EQ(output, "a b|$HOME|'\"; exit 3|");
}

TEST(PosixProcesses, TellsTheExitStatus) {
  std::string output;
  EXPECT_EQ(WaitForEnd(*PosixProcesses().Start(u"sh", {u"-c", u"exit 7"}), output), 7);
  EXPECT_EQ(WaitForEnd(*PosixProcesses().Start(u"sh", {u"-c", u"kill -9 $$"}), output), -1);
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

struct SoundStoreTest : ::testing::Test {
  /// A sound of so many bytes for a film of this name.
  Text Keep(const std::string& film, std::size_t size) {
    const Text path = store.PathFor(folder.Write(film, film), 0);
    const Text unfinished = store.Begin(path);
    PosixFiles().Replace(unfinished, [&](ByteSink& sink) { sink.Write(std::string(size, 'x')); });
    store.Keep(path);
    // Kept in the past, each a second behind the one before.
    const auto then = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(100 - ++kept_);
    std::filesystem::last_write_time(ToUtf8(path), then);
    return path;
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
