// Any bytes as a file of registry text, imported into an empty registry and exported again, and as the registry's own
// file.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "external/registry_access.h"
#include "external/registry_store.h"
#include "fuzz/engine.h"

namespace {

using namespace cuewright;
using namespace cuewright::fuzz;

class NoEvents final : public EventQueue {
 public:
  void Yield() override {}
  void WaitMs(int) override {}
  std::int64_t NowMs() const override { return 0; }
};

constexpr const char16_t* kStored = u"/registry";
constexpr const char16_t* kKept = u"HKEY_USERS\\kept\\by no line";

void CheckStored(MemoryFiles& files) {
  Text why;
  const std::string& bytes = files.contents[kStored];
  const auto tree = ReadRegistry(bytes, why);
  Demand(tree.has_value(), "what was written is read");
  Demand(RegistryBytes(*tree) == bytes, "it is written the same again");
}

void CheckImport(std::string_view bytes) {
  MemoryFiles files;
  NoEvents events;
  const Encodings encodings;
  RegistryStore store(files, kStored);
  clsRegistryAccess registry(store, files, encodings, events);
  Demand(registry.WriteString(kKept, u"n", u"v"), "a value can be written");
  files.contents[u"in.reg"] = std::string(bytes);
  const int result = registry.ImportFromReg(u"in.reg");
  Demand((result == 1) == registry.LastFailure().empty(), "a failure is told");
  Demand(store.OpenKeys() == 0, "all keys are closed");
  Demand(registry.CreateKey(kKept) != 0, "the registry can still be written");
  CheckStored(files);
  for (const Text& root : RegistryRoots()) {
    const Text name = root + u".reg";
    Demand(registry.ExportToReg(root, name, true) == 1, "all of it can be exported");
    Demand(files.contents[name].starts_with("REGEDIT4\r\n\r\n["), "an export begins as it should");
    Demand(registry.ExportToReg(root, name, true) == 0, "an existing file stays");
    registry.ImportFromReg(name);
    CheckStored(files);
  }
}

/// Any bytes as the registry's own file.
void CheckFile(std::string_view bytes) {
  Text why;
  const auto tree = ReadRegistry(bytes, why);
  Demand(tree.has_value() == why.empty(), "a refusal has its reason");
  if (!tree) return;
  const auto again = ReadRegistry(RegistryBytes(*tree), why);
  Demand(again && *again == *tree, "the registry changes when it is written again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckImport(bytes);
  CheckImport("REGEDIT4\r\n[HKCU\\a]\r\n" + std::string(bytes));
  CheckFile(bytes);
  return 0;
}
