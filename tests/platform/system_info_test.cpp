#include "platform/system_info.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

namespace cuewright {
namespace {

struct SystemInfoTest : ::testing::Test {
  SystemInfoTest() {
    for (const char* path : {"etc", "usr/lib", "proc/sys/kernel"}) {
      std::filesystem::create_directories(folder.Path() / path);
    }
  }
  testing::TempFolder folder;
  LinuxSystemInfo system{folder.Bytes("")};
};

TEST_F(SystemInfoTest, TheNameIsThatOfTheDistributionAndTheVersionThatOfTheKernel) {
  folder.Write("etc/os-release", "NAME=\"x\"\nPRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\nID=debian\n");
  folder.Write("proc/sys/kernel/osrelease", "6.1.0-13-amd64\n");
  const auto name = system.SystemName();
  ASSERT_TRUE(name);
  EXPECT_EQ(name->name, u"Debian GNU/Linux 12 (bookworm)");
  EXPECT_EQ(name->major, 6);
  EXPECT_EQ(name->minor, 1);
}

TEST_F(SystemInfoTest, QuotesAndBackslashesOfTheNameAreReadAsTheShellWould) {
  folder.Write("proc/sys/kernel/osrelease", "5.10\n");
  const std::pair<const char*, const char16_t*> rows[] = {{"Plain", u"Plain"},
                                                          {"'single'", u"single"},
                                                          {"\"a \\\"b\\\" \\$c\"", u"a \"b\" $c"},
                                                          {"\"Ü\"", u"Ü"},
                                                          {"\"open", u"\"open"}};
  for (const auto& [value, wanted] : rows) {
    folder.Write("etc/os-release", std::string("PRETTY_NAME=") + value + "\n");
    EXPECT_EQ(system.SystemName()->name, wanted) << value;
  }
}

TEST_F(SystemInfoTest, TheSecondPlaceOfTheNameCountsWhereTheFirstLacks) {
  folder.Write("usr/lib/os-release", "PRETTY_NAME=Other\n");
  folder.Write("proc/sys/kernel/osrelease", "6.8\n");
  EXPECT_EQ(system.SystemName()->name, u"Other");
}

TEST_F(SystemInfoTest, WithoutAFileOfTheDistributionTheNameIsThatOfTheKernel) {
  folder.Write("proc/sys/kernel/osrelease", "6.8.1\n");
  EXPECT_EQ(system.SystemName()->name, u"Linux");
}

TEST_F(SystemInfoTest, WithoutAKernelThereIsNoName) { EXPECT_FALSE(system.SystemName().has_value()); }

TEST_F(SystemInfoTest, MemoryIsWhatProgramsCouldStillHave) {
  EXPECT_EQ(system.AvailableMemory(), 0u);
  folder.Write("proc/meminfo", "MemTotal:       16000000 kB\nMemFree:         100 kB\nMemAvailable:   12345678 kB\n");
  EXPECT_EQ(system.AvailableMemory(), 12345678ull * 1024);
}

TEST(LinuxSystemInfo, ThisSystemTellsItsNameAndItsMemory) {
  const LinuxSystemInfo system;
  ASSERT_TRUE(system.SystemName());
  EXPECT_GE(system.SystemName()->major, 2);
  EXPECT_GT(system.AvailableMemory(), 0u);
}

}  // namespace

}  // namespace cuewright
