#pragma once

#include <gtest/gtest.h>

#include "external/registry_access.h"
#include "external/registry_store.h"
#include "platform/posix_files.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

namespace cuewright::testing {

/// The store, with the creations counted.
class CountingStore final : public RegistryStore {
 public:
  using RegistryStore::RegistryStore;
  std::int32_t RegCreateKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) override {
    ++creations;
    return RegistryStore::RegCreateKeyA(key, subKey, opened);
  }
  int creations = 0;
};

/// A registry on a file in a folder of its own.
struct RegistryFixture : ::testing::Test {
  TempFolder folder;
  PosixFiles files;
  FakeEventQueue events;
  Encodings encodings{kCodePageWestern};
  CountingStore store{files, folder / "user/registry"};
  clsRegistryAccess registry{store, files, encodings, events};
  const Text key = u"HKEY_CURRENT_USER\\Software\\Test";

  /// What another program sees in the same file.
  struct Other {
    explicit Other(RegistryFixture& test)
        : store(test.files, test.folder / "user/registry"), registry(store, test.files, test.encodings, test.events) {}
    RegistryStore store;
    clsRegistryAccess registry;
  };

  /// Sets a value of any type and data.
  void SetRaw(const Text& subKey, const Text& name, std::uint32_t type, const Text& data) {
    registry.CreateKey(u"HKCU\\" + subKey);
    std::uint32_t open = 0;
    ASSERT_EQ(store.RegOpenKeyA(0x80000001, subKey, open), kRegistryOk);
    EXPECT_EQ(store.RegSetValueExA(open, name, type, data), kRegistryOk);
    store.RegCloseKey(open);
  }
  void SetReadOnly(const Text& subKey) {
    std::uint32_t open = 0;
    ASSERT_EQ(store.RegOpenKeyA(0x80000001, subKey, open), kRegistryOk);
    EXPECT_EQ(store.SetReadOnly(open, true), kRegistryOk);
    store.RegCloseKey(open);
  }
  int Import(const std::string& content) { return registry.ImportFromReg(folder.Write("in.reg", content)); }
  std::string Exported(bool recursive = true) {
    files.Remove(folder / "out.reg");
    EXPECT_EQ(registry.ExportToReg(key, folder / "out.reg", recursive), 1);
    return folder.Read("out.reg");
  }
  void TearDown() override { EXPECT_EQ(store.OpenKeys(), 0u) << "every operation ends with its key closed"; }
};

}  // namespace cuewright::testing
