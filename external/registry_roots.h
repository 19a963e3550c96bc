#pragma once

#include <array>
#include <cstdint>

#include "text/text.h"

namespace cuewright {

/// A root of the registry under its two names, with its fixed handle.
struct RegistryRoot {
  TextView longForm;
  TextView shortForm;
  std::uint32_t handle;
};

inline constexpr std::array<RegistryRoot, 7> kRegistryRootNames = {{{u"HKEY_CURRENT_USER", u"HKCU", 0x80000001},
                                                                    {u"HKEY_LOCAL_MACHINE", u"HKLM", 0x80000002},
                                                                    {u"HKEY_CLASSES_ROOT", u"HKCR", 0x80000000},
                                                                    {u"HKEY_USERS", u"HKUS", 0x80000003},
                                                                    {u"HKEY_PERFORMANCE_DATA", u"HKPD", 0x80000004},
                                                                    {u"HKEY_DYN_DATA", u"HKDD", 0x80000006},
                                                                    {u"HKEY_CURRENT_CONFIG", u"HKCC", 0x80000005}}};

/// The handle of a root's short form in upper case; 0 for any other text.
std::uint32_t RootHandle(TextView shortForm);

}  // namespace cuewright
