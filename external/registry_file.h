#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "external/registry_calls.h"

namespace cuewright {

/// A key with its values in the order in which they were set first.
struct RegistryKey {
  Text path;              ///< from the root's short form on, as it was written first
  bool readOnly = false;  ///< it can be read, and neither it nor its values changed
  std::vector<RegistryValue> values;

  bool operator==(const RegistryKey&) const = default;
};

/// All keys by `RegistryPlace`: a key stands right before those below it.
using RegistryTree = std::map<Text, RegistryKey, std::less<>>;

/// Where a key stands: its path in upper case, with NULs for backslashes, so that no other name comes between a key
/// and what is below it.
Text RegistryPlace(TextView path);

/// The short forms of the seven roots.
const std::vector<Text>& RegistryRoots();

/// The seven roots, empty.
RegistryTree EmptyRegistry();

/// The bytes of a registry file: UTF-8 text that people can read, with a checksum at its end.
std::string RegistryBytes(const RegistryTree& tree);

/// The registry of a file's bytes; nothing, with the reason in `why`, when a byte of the file is missing or wrong.
std::optional<RegistryTree> ReadRegistry(std::string_view bytes, Text& why);

}  // namespace cuewright
