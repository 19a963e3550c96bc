#include "platform/posix_files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/child_processes.h"
#include "platform/run_folder.h"
#include "platform/user_folders.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace cuewright {
namespace {

struct FilesTest : ::testing::Test {
  testing::TempFolder folder;
  PosixFiles files;

  static int ErrorOf(const std::function<void()>& step) {
    try {
      step();
    } catch (const RuntimeError& error) {
      return error.number;
    }
    return 0;
  }
  void Save(const Text& path, const std::string& bytes) {
    files.Replace(path, [&](ByteSink& sink) { sink.Write(bytes); });
  }
  std::size_t Entries() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }
};

using ReadFile = FilesTest;
using ReplaceFile = FilesTest;
using WritePrivateFile = FilesTest;
using UserFolders = FilesTest;

/// Runs a step in a process of its own; its result is the step's.
int InChild(const std::function<int()>& step) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(step());
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The same as a user who is no superuser.
int AsNobody(const std::function<int()>& step) {
  return InChild([&] { return ::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0) ? 99 : step(); });
}

TEST_F(ReadFile, GivesTheBytes) {
  EXPECT_EQ(files.Read(folder.Write("a", std::string("x\0y", 3)), 100), std::string("x\0y", 3));
  EXPECT_EQ(files.Read(folder.Write("empty", ""), 100), "");
}

TEST_F(ReadFile, TellsWhyItCant) {
  EXPECT_EQ(ErrorOf([&] { files.Read(folder / "missing", 10); }), kErrorFileNotFound);
  EXPECT_EQ(ErrorOf([&] { files.Read(folder / "", 10); }), kErrorPathFileAccess);
  EXPECT_EQ(ErrorOf([&] { files.Read(u"/dev/zero", 10); }), kErrorPathFileAccess);
  EXPECT_EQ(ErrorOf([&] { files.Read(folder.Write("big", "12345678901"), 10); }), kErrorOutOfMemory);
  ::mkfifo(folder.Bytes("pipe").c_str(), 0600);
  EXPECT_EQ(ErrorOf([&] { files.Read(folder / "pipe", 10); }), kErrorPathFileAccess);
}

TEST_F(ReadFile, AnUnreadableFileIsAnAccessError) {
  const Text path = folder.Write("secret", "x");
  std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
  ::chmod(folder.Bytes("secret").c_str(), 0);
  EXPECT_EQ(AsNobody([&] { return ErrorOf([&] { files.Read(path, 10); }); }), kErrorPathFileAccess);
}

TEST_F(ReplaceFile, MakesANewFileWithThePlainMode) {
  Save(folder / "new", "abc");
  EXPECT_EQ(folder.Read("new"), "abc");
  struct stat info {};
  ::stat(folder.Bytes("new").c_str(), &info);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  EXPECT_EQ(info.st_mode & 0777, 0666u & ~mask);
}

TEST_F(ReplaceFile, KeepsThePermissionsOfTheOldFile) {
  folder.Write("old", "before");
  ::chmod(folder.Bytes("old").c_str(), 0640);
  Save(folder / "old", "after");
  struct stat info {};
  ::stat(folder.Bytes("old").c_str(), &info);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_EQ(folder.Read("old"), "after");
  EXPECT_EQ(Entries(), 1u);
}

TEST_F(ReplaceFile, WritesBehindALinkAndKeepsTheLink) {
  folder.Write("target", "before");
  std::filesystem::create_symlink("target", folder.Path() / "link");
  Save(folder / "link", "after");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path() / "link"));
  EXPECT_EQ(folder.Read("target"), "after");
}

TEST_F(ReplaceFile, AReadOnlyFileStaysWhole) {
  folder.Write("locked", "before");
  ::chmod(folder.Bytes("locked").c_str(), 0444);
  EXPECT_EQ(ErrorOf([&] { Save(folder / "locked", "after"); }), kErrorPathFileAccess);
  EXPECT_EQ(folder.Read("locked"), "before");
  EXPECT_EQ(Entries(), 1u);
}

TEST_F(ReplaceFile, AReadOnlyFolderIsAnAccessErrorAndTheOldFileStays) {
  const Text path = folder.Write("file", "before");
  ::chmod(folder.Bytes("file").c_str(), 0666);
  ::chmod(folder.Path().c_str(), 0555);
  EXPECT_EQ(AsNobody([&] { return ErrorOf([&] { Save(path, "after"); }); }), kErrorPathFileAccess);
  ::chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(folder.Read("file"), "before");
}

TEST_F(ReplaceFile, AVanishedFolderIsAPathError) {
  EXPECT_EQ(ErrorOf([&] { Save(folder / "gone/file", "x"); }), kErrorPathNotFound);
}

TEST_F(ReplaceFile, ADirectoryInTheFilesPlaceIsAnAccessError) {
  std::filesystem::create_directory(folder.Path() / "dir");
  EXPECT_EQ(ErrorOf([&] { Save(folder / "dir", "x"); }), kErrorPathFileAccess);
}

TEST_F(ReplaceFile, AFullDiskLeavesTheOldFileWholeAndNothingBehind) {
  const Text path = folder.Write("file", "before");
  const int error = InChild([&] {
    // A limit on the size of files stands for the disk's end: it holds for a superuser as well.
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{100000, 100000};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    return ErrorOf([&] { Save(path, std::string(300000, 'x')); });
  });
  EXPECT_EQ(error, kErrorDiskFull);
  EXPECT_EQ(folder.Read("file"), "before");
  EXPECT_EQ(Entries(), 1u);
}

TEST_F(ReplaceFile, AFailingWriterLeavesNothingBehind) {
  folder.Write("file", "before");
  EXPECT_EQ(ErrorOf([&] {
              files.Replace(folder / "file", [](ByteSink& sink) {
                sink.Write("half");
                ThrowOverflow();
              });
            }),
            kErrorOverflow);
  EXPECT_EQ(folder.Read("file"), "before");
  EXPECT_EQ(Entries(), 1u);
}

TEST_F(WritePrivateFile, MakesAFileForTheUserAlone) {
  const mode_t old = ::umask(0);
  files.WritePrivate(folder / "a", std::string("x\0y", 3));
  ::umask(old);
  EXPECT_EQ(folder.Read("a"), std::string("x\0y", 3));
  struct stat info {};
  ASSERT_EQ(::stat(folder.Bytes("a").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST_F(WritePrivateFile, TakesThePlaceOfALinkAndOfAFileWithoutTouchingThem) {
  folder.Write("victim", "mine");
  std::filesystem::create_symlink(folder.Path() / "victim", folder.Path() / "link");
  std::filesystem::create_symlink(folder.Path() / "nothing", folder.Path() / "dangling");
  std::filesystem::create_hard_link(folder.Path() / "victim", folder.Path() / "twin");
  for (const char* name : {"link", "dangling", "twin"}) {
    files.WritePrivate(folder / name, "new");
    EXPECT_EQ(folder.Read(name), "new") << name;
    EXPECT_FALSE(std::filesystem::is_symlink(folder.Path() / name)) << name;
  }
  EXPECT_EQ(folder.Read("victim"), "mine");
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "nothing"));
}

TEST_F(WritePrivateFile, AFolderInItsPlaceStays) {
  std::filesystem::create_directory(folder.Path() / "a");
  EXPECT_NE(ErrorOf([&] { files.WritePrivate(folder / "a", "x"); }), 0);
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path() / "a"));
}

TEST_F(UserFolders, TheRunFolderIsPrivateAndDifferentEachTime) {
  Text path;
  {
    const RunFolder one;
    const RunFolder two;
    path = one.Path();
    EXPECT_NE(path, two.Path());
    EXPECT_TRUE(path.ends_with(u'/'));
    struct stat info {};
    ASSERT_EQ(::stat(ToUtf8(path).c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700u);
    files.WritePrivate(path + u"script", "x");
  }
  EXPECT_FALSE(std::filesystem::exists(ToUtf8(path))) << "with what stood in it";
}

TEST_F(UserFolders, TheRunFolderStaysWhileAProgramThatHoldsItRunsAndGoesAtTheNextRun) {
  ::setenv("XDG_RUNTIME_DIR", folder.Path().c_str(), 1);
  const testing::NamedPipe go(folder.Path() / "go");
  std::unique_ptr<ChildProcess> child;
  std::string path;
  {
    const RunFolder run;
    path = ToUtf8(run.Path());
    files.WritePrivate(run.Path() + u"script", "x");
    const Text wait = u"read word <" + (folder / "go") + u"; cat script >" + (folder / "read");
    child = PosixProcesses().Start(u"sh", {u"-c", wait}, {.folder = run.Path(), .outlives = true, .holds = run.Path()});
  }
  const auto makeOld = [&] {
    const timespec old[2] = {{1, 0}, {1, 0}};
    ::utimensat(AT_FDCWD, path.c_str(), old, 0);
  };
  makeOld();
  { const RunFolder next; }
  ASSERT_TRUE(std::filesystem::exists(path + "script")) << "somebody needs it";
  go.Write("on\n");
  EXPECT_EQ(testing::RunToEnd(*child).status, 0);
  EXPECT_EQ(folder.Read("read"), "x");
  makeOld();
  { const RunFolder next; }
  EXPECT_FALSE(std::filesystem::exists(path));
  ::unsetenv("XDG_RUNTIME_DIR");
}

TEST_F(UserFolders, TheSettingsFileFollowsTheDesktopsFolder) {
  ::setenv("XDG_CONFIG_HOME", "/cfg", 1);
  EXPECT_EQ(SettingsFilePath(), u"/cfg/tessaly-cuewright/settings.ini");
  ::setenv("XDG_CONFIG_HOME", "relative", 1);
  ::setenv("HOME", "/home/x", 1);
  EXPECT_EQ(SettingsFilePath(), u"/home/x/.config/tessaly-cuewright/settings.ini");
  ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(UserFolders, TheRegistryStandsBesideTheSettings) {
  ::setenv("XDG_CONFIG_HOME", "/cfg", 1);
  EXPECT_EQ(RegistryFilePath(), u"/cfg/tessaly-cuewright/registry");
  ::unsetenv("XDG_CONFIG_HOME");
  ::setenv("HOME", "/home/x", 1);
  EXPECT_EQ(RegistryFilePath(), u"/home/x/.config/tessaly-cuewright/registry");
}

TEST_F(UserFolders, AnExistingFilesPathBecomesAbsolute) {
  const Text file = folder.Write("film.mkv", "x");
  EXPECT_EQ(AbsoluteIfExists(file), file);
  EXPECT_EQ(AbsoluteIfExists(u"no such file"), u"no such file");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_EQ(AbsoluteIfExists(u"./film.mkv"), FromUtf8((std::filesystem::current_path() / "film.mkv").string()));
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace cuewright
