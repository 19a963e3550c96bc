#pragma once

#include <cstdint>

#include "text/text.h"

namespace cuewright {

/// Types of registry values.
inline constexpr std::uint32_t kRegistryString = 1;
inline constexpr std::uint32_t kRegistryBinary = 3;
inline constexpr std::uint32_t kRegistryDword = 4;

/// The results of the calls; 0 is success.
inline constexpr std::int32_t kRegistryOk = 0;
inline constexpr std::int32_t kRegistryNotFound = 2;
inline constexpr std::int32_t kRegistryAccessDenied = 5;
inline constexpr std::int32_t kRegistryInvalidHandle = 6;
inline constexpr std::int32_t kRegistryInvalidName = 87;
inline constexpr std::int32_t kRegistryNoMoreItems = 259;
inline constexpr std::int32_t kRegistryDamaged = 1009;
inline constexpr std::int32_t kRegistryIoFailed = 1016;

/// Rights with which a key is opened.
inline constexpr std::uint32_t kRegistryRead = 0x20019;
inline constexpr std::uint32_t kRegistryWrite = 0x20006;
inline constexpr std::uint32_t kRegistryAllAccess = 0xF003F;

/// A value of a key. Data of type 1 is text with a NUL at its end; of any other type each character is a byte.
struct RegistryValue {
  Text name;
  std::uint32_t type = kRegistryString;
  Text data;

  bool operator==(const RegistryValue&) const = default;
};

/// A registry by handles: keys below seven roots, values of several types. Names keep their case and are found in any.
class RegistryCalls {
 public:
  virtual ~RegistryCalls() = default;

  /// Opens an existing key below a root or an open key; an empty `subKey` is that key itself.
  virtual std::int32_t RegOpenKeyExA(std::uint32_t key, TextView subKey, std::uint32_t access,
                                     std::uint32_t& opened) = 0;
  /// The same with as many rights as the key gives.
  virtual std::int32_t RegOpenKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) = 0;
  /// Opens a key, and makes it and those above it before when they are missing.
  virtual std::int32_t RegCreateKeyA(std::uint32_t key, TextView subKey, std::uint32_t& opened) = 0;
  virtual std::int32_t RegCloseKey(std::uint32_t key) = 0;
  /// Removes a key that has no keys below it.
  virtual std::int32_t RegDeleteKeyA(std::uint32_t key, TextView subKey) = 0;
  virtual std::int32_t RegDeleteValueA(std::uint32_t key, TextView name) = 0;
  /// The name of the key below at a 0-based place.
  virtual std::int32_t RegEnumKeyExA(std::uint32_t key, std::uint32_t index, Text& name) = 0;
  virtual std::int32_t RegEnumValueA(std::uint32_t key, std::uint32_t index, RegistryValue& value) = 0;
  virtual std::int32_t RegQueryValueExA(std::uint32_t key, TextView name, std::uint32_t& type, Text& data) = 0;
  /// Sets a value; a string gets its NUL here.
  virtual std::int32_t RegSetValueExA(std::uint32_t key, TextView name, std::uint32_t type, TextView data) = 0;

  /// Until `EndBatch`, changes are seen at once but stored together at its end. False when there is no registry to
  /// read; then no batch has begun.
  virtual bool BeginBatch() = 0;
  /// False when the changes could not be stored; then none of them was.
  virtual bool EndBatch() = 0;

  /// Why the registry could not be read or written last, for the user; empty when it could.
  virtual const Text& Failure() const = 0;
};

}  // namespace cuewright
