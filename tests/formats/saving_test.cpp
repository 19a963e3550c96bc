#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "tests/formats/format_rig.h"

// A save is written beside the file and renamed over it: whatever goes wrong, the old file is there, whole.

namespace cuewright::testing {
namespace {

namespace fs = std::filesystem;

/// A document of one caption over a file that was there before.
struct SaveRig : FormatRig {
  SaveRig() {
    folder.Write("saved", "old");
    Fill({{1000, 2000, u"new"}});
    modified = true;
  }

  std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()));
  }
  fs::path Saved() const { return folder.Path() / "saved"; }
};

const std::string kNew = "1\r\n00:00:01,000 --> 00:00:02,000\r\nnew\r\n\r\n";

mode_t ModeOf(const fs::path& path) {
  struct stat info {};
  EXPECT_EQ(::stat(path.c_str(), &info), 0);
  return info.st_mode & 07777;
}

TEST(Saving, PutsTheNewFileInThePlaceOfTheOldOne) {
  SaveRig rig;
  EXPECT_EQ(rig.Save(u"SUBRIP"), kNew);
  EXPECT_EQ(rig.FilesInFolder(), 1u);
  EXPECT_FALSE(rig.modified);
}

TEST(Saving, KeepsTheOldFileUntilTheNewOneIsWhole) {
  SaveRig rig;
  const fs::path other = rig.folder.Path() / "other";
  fs::create_hard_link(rig.Saved(), other);
  rig.Save(u"SUBRIP");
  EXPECT_EQ(rig.folder.Read("other"), "old") << "the old file's bytes were never touched";
}

TEST(Saving, TellsAReadOnlyFileWithMessage306) {
  SaveRig rig;
  ::chmod(rig.Saved().c_str(), 0444);
  EXPECT_EQ(rig.Save(u"SUBRIP"), "old");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_EQ(rig.messages.shown[0].text, u"Failed to save file " + rig.path + u". The file is probably read-only.");
  EXPECT_EQ(rig.messages.shown[0].icon, BoxIcon::Warning);
  EXPECT_TRUE(rig.modified);
  EXPECT_EQ(rig.progress.stages[FileStage::SaveEnds], 1);
  EXPECT_EQ(rig.FilesInFolder(), 1u);
}

TEST(Saving, TellsAFolderInThePlaceOfTheFileWithMessage306) {
  SaveRig rig;
  fs::create_directory(rig.folder.Path() / "folder");
  rig.Save(u"SUBRIP", 0, "folder");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"Failed to save file"));
  EXPECT_TRUE(rig.modified);
}

TEST(Saving, TellsAVanishedFolderWithItsError) {
  SaveRig rig;
  rig.Save(u"SUBRIP", 0, "gone/saved");
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.starts_with(u"An error ocurred while saving the file "));
  EXPECT_TRUE(rig.messages.shown[0].text.find(u"Error #76: Path not found") != Text::npos);
  EXPECT_TRUE(rig.modified) << "nothing was saved";
}

/// Bounds the size of files that this process writes, for as long as it lives.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    rlimit limit = old_;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit old_{};
  void (*handler_)(int);
};

TEST(Saving, LeavesTheOldFileWholeWhenTheDiskFillsUp) {
  SaveRig rig;
  rig.Fill(std::vector<Caption>(2000, Caption{1000, 2000, u"some words that take room"}));
  {
    const FileSizeLimit limit(4096);
    rig.Save(u"SUBRIP");
  }
  EXPECT_EQ(rig.folder.Read("saved"), "old");
  EXPECT_EQ(rig.FilesInFolder(), 1u);
  EXPECT_TRUE(rig.modified);
  ASSERT_EQ(rig.messages.shown.size(), 1u);
  EXPECT_TRUE(rig.messages.shown[0].text.find(u"Disk full") != Text::npos);
}

TEST(Saving, WritesTheTargetOfALinkAndKeepsTheLink) {
  SaveRig rig;
  fs::create_directory(rig.folder.Path() / "sub");
  rig.folder.Write("sub/target", "old");
  fs::create_symlink("sub/target", rig.folder.Path() / "link");
  EXPECT_EQ(rig.Save(u"SUBRIP", 0, "link"), kNew);
  EXPECT_TRUE(fs::is_symlink(rig.folder.Path() / "link"));
  EXPECT_EQ(rig.folder.Read("sub/target"), kNew);
}

TEST(Saving, KeepsPermissionsAndOwner) {
  SaveRig rig;
  ::chmod(rig.Saved().c_str(), 0640);
  struct stat before {};
  ::stat(rig.Saved().c_str(), &before);
  rig.Save(u"SUBRIP");
  struct stat after {};
  ::stat(rig.Saved().c_str(), &after);
  EXPECT_EQ(after.st_mode & 07777, 0640u);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST(Saving, KeepsTheGroupAndOwnerOfAnotherUserWhereTheSystemAllowsIt) {
  if (::geteuid() != 0) GTEST_SKIP() << "only a superuser may give files away";
  SaveRig rig;
  ASSERT_EQ(::chown(rig.Saved().c_str(), 12345, 23456), 0);
  rig.Save(u"SUBRIP");
  struct stat after {};
  ::stat(rig.Saved().c_str(), &after);
  EXPECT_EQ(after.st_uid, 12345u);
  EXPECT_EQ(after.st_gid, 23456u);
}

TEST(Saving, GivesANewFileThePlainPermissions) {
  SaveRig rig;
  const mode_t mask = ::umask(022);
  rig.Save(u"SUBRIP", 0, "fresh");
  ::umask(mask);
  EXPECT_EQ(ModeOf(rig.folder.Path() / "fresh"), 0644u);
}

TEST(Saving, KeepsTheDocumentsEncodingWhenNothingWasWritten) {
  SaveRig rig;
  rig.state.Encoding = {1252, false};
  rig.Fill({{1000, 2000, u"ő"}});
  rig.Save(u"SUBRIP", 0, "gone/saved");
  EXPECT_EQ(rig.state.Encoding, (DocumentEncoding{1252, false}));
  EXPECT_TRUE(rig.savedAsUtf8.empty());
}

}  // namespace
}  // namespace cuewright::testing
