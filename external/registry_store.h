#pragma once

#include <optional>
#include <string>

#include "core/ports/files.h"
#include "external/registry_file.h"

namespace cuewright {

/// The user's registry in one file. Every change is written beside it and renamed over it, and the file is read
/// again before each first use of a key, so that what another program stored is seen. A damaged file is never written.
class RegistryStore : public RegistryCalls {
 public:
  /// `path` is the file; an empty one keeps everything in memory. A missing file is a registry of empty roots.
  RegistryStore(Files& files, Text path);

  std::int32_t RegOpenKeyExA(std::uint32_t key, TextView subKey, std::uint32_t access, std::uint32_t& opened) override;
  std::int32_t RegOpenKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) override;
  std::int32_t RegCreateKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) override;
  std::int32_t RegCloseKey(std::uint32_t key) override;
  std::int32_t RegDeleteKeyA(std::uint32_t key, TextView subKey) override;
  std::int32_t RegDeleteValueA(std::uint32_t key, TextView name) override;
  std::int32_t RegEnumKeyExA(std::uint32_t key, std::uint32_t index, Text& name) override;
  std::int32_t RegEnumValueA(std::uint32_t key, std::uint32_t index, RegistryValue& value) override;
  std::int32_t RegQueryValueExA(std::uint32_t key, TextView name, std::uint32_t& type, Text& data) override;
  std::int32_t RegSetValueExA(std::uint32_t key, TextView name, std::uint32_t type, TextView data) override;
  bool BeginBatch() override;
  bool EndBatch() override;
  const Text& Failure() const override { return readFailure_.empty() ? writeFailure_ : readFailure_; }

  /// Makes an open key read-only or not: its values stay, and no key comes or goes right below it.
  std::int32_t SetReadOnly(std::uint32_t key, bool readOnly);
  /// Keys that are open.
  std::size_t OpenKeys() const { return handles_.size(); }

 private:
  struct Handle {
    Text place;
    bool mayWrite = false;
    std::uint32_t index = 0;  ///< the key below that was asked for last, and where it stands
    Text at;
  };

  bool Load();
  std::int32_t Commit();
  bool Write();
  std::uint32_t NewHandle(Text place, bool mayWrite);
  const Handle* Find(std::uint32_t key) const;
  RegistryKey* KeyOf(std::uint32_t key, bool toWrite, std::int32_t& result);
  std::optional<Text> PathOf(std::uint32_t key, TextView subKey) const;

  Files& files_;
  Text path_;
  std::string bytes_;  ///< what `tree_` was read of; empty when it has to be read anew
  RegistryTree tree_ = EmptyRegistry();
  std::map<std::uint32_t, Handle> handles_;
  std::uint32_t lastHandle_ = 0;
  int batches_ = 0;
  bool changed_ = false;
  Text readFailure_;
  Text writeFailure_;  ///< why the last write failed; empty after one that went well
};

}  // namespace cuewright
