#include "external/vs_filter.h"

#include "tests/external/registry_fixture.h"

namespace cuewright {
namespace {

/// A registry that counts who asks for a value and who sets one.
class WatchedStore final : public RegistryStore {
 public:
  using RegistryStore::RegistryStore;
  std::int32_t RegQueryValueExA(std::uint32_t key, TextView name, std::uint32_t& type, Text& data) override {
    ++reads;
    return RegistryStore::RegQueryValueExA(key, name, type, data);
  }
  std::int32_t RegSetValueExA(std::uint32_t key, TextView name, std::uint32_t type, TextView data) override {
    ++writes;
    return RegistryStore::RegSetValueExA(key, name, type, data);
  }
  int reads = 0;
  int writes = 0;
};

struct VsFilterTest : ::testing::Test {
  testing::TempFolder folder;
  PosixFiles files;
  testing::FakeEventQueue events;
  Encodings encodings{kCodePageWestern};
  WatchedStore store{files, folder / "registry"};
  clsRegistryAccess registry{store, files, encodings, events};
  AppOptions options;
  VsFilter filter{registry, options};
  const Text key = u"HKEY_CURRENT_USER\\Software\\Orbek\\VSFilter\\General";

  void Install(std::int32_t hide, std::int32_t loadLevel) {
    registry.WriteDWORD(key, u"Hide", hide);
    registry.WriteDWORD(key, u"LoadLevel", loadLevel);
  }
  std::int32_t Hide() { return registry.ReadDWORD(key, u"Hide", -1); }
  std::int32_t LoadLevel() { return registry.ReadDWORD(key, u"LoadLevel", -1); }
};

TEST_F(VsFilterTest, WithoutTheVSFilterKeyNoneOfTheTwoValuesIsReadOrWritten) {
  registry.CreateKey(u"HKCU\\Software\\Orbek\\VSFilter");
  EXPECT_FALSE(filter.HasVSFilter());
  filter.ApplyVSFilterMode();
  filter.RestoreVSFilter();
  EXPECT_EQ(store.reads, 0);
  EXPECT_EQ(store.writes, 0);
  EXPECT_FALSE(registry.KeyExists(key));
}

TEST_F(VsFilterTest, WithTheKeyItIsInstalled) {
  EXPECT_FALSE(filter.Installed());
  registry.CreateKey(key);
  EXPECT_TRUE(filter.Installed());
  EXPECT_FALSE(filter.CanConfigure());
}

TEST_F(VsFilterTest, TheSafeModeKeepsTheFilterFromLoading) {
  Install(0, 1);
  options.filterMode = 0;
  filter.ApplyVSFilterMode();
  EXPECT_EQ(LoadLevel(), 2);
  EXPECT_EQ(Hide(), 0);
  filter.RestoreVSFilter();
  EXPECT_EQ(LoadLevel(), 1);
  EXPECT_EQ(Hide(), 0);
}

TEST_F(VsFilterTest, TheOtherModeHidesTheSubtitlesAndKeepsTheLoading) {
  Install(0, 1);
  for (const std::uint8_t mode : {std::uint8_t{1}, std::uint8_t{7}}) {
    options.filterMode = mode;
    filter.ApplyVSFilterMode();
    EXPECT_EQ(Hide(), 1);
    EXPECT_EQ(LoadLevel(), 1);
    filter.RestoreVSFilter();
    EXPECT_EQ(Hide(), 0);
    EXPECT_EQ(LoadLevel(), 1);
  }
}

TEST_F(VsFilterTest, ASecondRestoreWritesTheRememberedValuesAgain) {
  Install(1, 0);
  filter.ApplyVSFilterMode();
  filter.RestoreVSFilter();
  Install(0, 1);
  filter.RestoreVSFilter();
  EXPECT_EQ(Hide(), 1);
  EXPECT_EQ(LoadLevel(), 0);
}

TEST_F(VsFilterTest, NothingIsRestoredThatWasNeverRemembered) {
  Install(1, 0);
  store.writes = 0;
  filter.RestoreVSFilter();
  EXPECT_EQ(store.writes, 0);
}

TEST_F(VsFilterTest, AKeyThatMayOnlyBeReadCountsAsNoFilter) {
  Install(0, 1);
  std::uint32_t open = 0;
  ASSERT_EQ(store.RegOpenKeyA(0x80000001, u"Software\\Orbek\\VSFilter\\General", open), kRegistryOk);
  store.SetReadOnly(open, true);
  store.RegCloseKey(open);
  filter.ApplyVSFilterMode();
  EXPECT_EQ(LoadLevel(), 1);
}

}  // namespace
}  // namespace cuewright
