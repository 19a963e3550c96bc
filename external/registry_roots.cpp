#include "external/registry_roots.h"

namespace cuewright {

std::uint32_t RootHandle(TextView shortForm) {
  for (const RegistryRoot& root : kRegistryRootNames) {
    if (root.shortForm == shortForm) return root.handle;
  }
  return 0;
}

}  // namespace cuewright
