#include "core/file_helpers.h"

#include <gtest/gtest.h>

#include "platform/posix_files.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

struct HelpersTest : ::testing::Test {
  testing::TempFolder folder;
  PosixFiles files;
  testing::FakeEventQueue events;
};

using DeleteFile = HelpersTest;
using ShortPath = HelpersTest;

TEST_F(DeleteFile, RemovesAFileAndIsContentWithoutOne) {
  const Text path = folder.Write("a", "x");
  EXPECT_TRUE(DeleteFileWait(files, events, path, true));
  EXPECT_FALSE(files.Exists(path));
  EXPECT_TRUE(DeleteFileWait(files, events, path, true));
  EXPECT_EQ(events.now, 0);
}

TEST_F(DeleteFile, WaitsThreeSecondsForAFileThatStays) {
  std::filesystem::create_directory(folder.Path() / "stays");
  EXPECT_FALSE(DeleteFileWait(files, events, folder / "stays", true));
  EXPECT_EQ(events.now, 3000);
  EXPECT_FALSE(DeleteFileWait(files, events, folder / "stays", false));
  EXPECT_EQ(events.now, 3000);
}

TEST_F(ShortPath, APlainPathStaysWithBlanksAndAccents) {
  for (const char16_t* path : {u"/a/b c.avi", u"/\u00E9t\u00E9/\U0001F600.mkv", u"/-x;$(y)'.srt"}) {
    EXPECT_EQ(ShortPathOf(files, path, folder / ""), path);
  }
}

TEST_F(ShortPath, AnyOtherGetsALinkOfAPlainNameThatLeadsToIt) {
  int number = 0;
  for (const std::string& name : {std::string("a\"b.avi"), std::string("back\\slash.avi"), std::string("new\nline.avi"),
                                  std::string("bytes\xFF.avi")}) {
    folder.Write(name, name);
    const Text link = ShortPathOf(files, folder / name, folder / "");
    EXPECT_TRUE(IsPlainPath(link));
    EXPECT_EQ(link, folder / ("link" + std::to_string(++number) + ".avi"));
    EXPECT_EQ(files.Read(link, 100), name);
    EXPECT_EQ(ShortPathOf(files, folder / name, folder / ""), link);
  }
}

}  // namespace
}  // namespace cuewright
