#include "platform/child_processes.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <filesystem>

#include "core/runtime_error.h"
#include "platform/output_files.h"
#include "platform/posix_files.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace cuewright {
namespace {

using testing::Ended;
using testing::NamedPipe;
using testing::RunToEnd;
using testing::TempFolder;

TEST(ChildProcesses, HandOverTheErrorsWhereAskedTo) {
  const auto child = PosixProcesses().Start(u"sh", {u"-c", u"echo out; echo error >&2; exit 3"}, {.errors = true});
  const Ended ended = RunToEnd(*child);
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.output, "out\n");
  EXPECT_EQ(ended.errors, "error\n");
}

TEST(ChildProcesses, StartInTheirFolderWithTheirVariables) {
  const TempFolder folder;
  const auto child = PosixProcesses().Start(u"sh", {u"-c", u"pwd -P; echo $ADDED; echo ${PATH:+path}"},
                                            {.folder = folder / "", .variables = {{u"ADDED", u"a b"}}});
  EXPECT_EQ(RunToEnd(*child).output, std::filesystem::canonical(folder.Path()).string() + "\na b\npath\n");
}

TEST(ChildProcesses, TakeInput) {
  const auto child = PosixProcesses().Start(u"sh", {u"-c", u"read line; echo got $line"}, {.input = true});
  child->Tell("a line\n");
  EXPECT_EQ(RunToEnd(*child).output, "got a line\n");
}

TEST(ChildProcesses, ThatOutliveGoOnWithoutTheirObject) {
  const TempFolder folder;
  const NamedPipe go(folder.Path() / "go");
  const NamedPipe result(folder.Path() / "result");
  {
    const auto child = PosixProcesses().Start(u"sh", {u"-c", u"read word <go; echo done >result"},
                                              {.folder = folder / "", .outlives = true});
    EXPECT_FALSE(child->Ended());
  }
  go.Write("on\n");
  EXPECT_EQ(result.ReadLine(), "done\n");
}

TEST(ChildProcesses, ThatOutliveHaveASessionOfTheirOwn) {
  const TempFolder folder;
  const auto child = PosixProcesses().Start(u"sh", {u"-c", u"ps -o sid= -p $$ >sid; echo $$ >pid"},
                                            {.folder = folder / "", .outlives = true});
  EXPECT_EQ(RunToEnd(*child).status, 0);
  EXPECT_EQ(std::stoi(folder.Read("sid")), std::stoi(folder.Read("pid")));
}

TEST(OutputFiles, StandBesideTheirTargetUntilTheyAreKept) {
  const TempFolder folder;
  PosixOutputFiles outputs;
  folder.Write("target", "old");
  {
    const auto file = outputs.Begin(folder / "target");
    const std::string part = ToUtf8(file->Part());
    EXPECT_EQ(std::filesystem::path(part).parent_path(), folder.Path());
    EXPECT_EQ(std::filesystem::status(part).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_EQ(folder.Read("target"), "old");
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
  const auto file = outputs.Begin(folder / "target");
  PosixFiles().Replace(file->Part(), [](ByteSink& sink) { sink.Write("new"); });
  file->Keep();
  EXPECT_EQ(folder.Read("target"), "new");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST(OutputFiles, AreRefusedWhereTheTargetCannotBeReplaced) {
  const TempFolder folder;
  PosixOutputFiles outputs;
  std::filesystem::create_directory(folder.Path() / "folder");
  folder.Write("locked", "");
  ::chmod(folder.Bytes("locked").c_str(), 0444);
  EXPECT_THROW(outputs.Begin(folder / "folder"), RuntimeError);
  EXPECT_THROW(outputs.Begin(folder / "locked"), RuntimeError);
  EXPECT_THROW(outputs.Begin(folder / "no/where"), RuntimeError);
}

TEST(OutputFiles, AWorkFolderIsPrivateAndGoesWithAllThatStandsInIt) {
  PosixOutputFiles outputs;
  std::string path;
  {
    const auto work = outputs.MakeWorkFolder();
    path = ToUtf8(work->Path());
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms::owner_all);
    work->Write("a", "bytes");
    EXPECT_EQ(std::filesystem::status(path + "a").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(OutputFiles, TellWhetherTwoPathsLeadToOneFile) {
  const TempFolder folder;
  const PosixOutputFiles outputs;
  folder.Write("a", "");
  folder.Write("b", "");
  std::filesystem::create_symlink("a", folder.Path() / "link");
  EXPECT_TRUE(outputs.SameFile(folder / "a", folder / "link"));
  EXPECT_FALSE(outputs.SameFile(folder / "a", folder / "b"));
  EXPECT_FALSE(outputs.SameFile(folder / "no", folder / "no"));
}

}  // namespace
}  // namespace cuewright
