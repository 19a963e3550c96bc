#include "external/registry_roots.h"

namespace cuewright {

std::uint32_t RootHandle(TextView shortForm) {
  for (const RegistryRoot& root : kRegistryRootNames) {
    if (root.shortForm == shortForm) return root.handle;
  }
  return 0;
}

Text ReplaceLoose(TextView text, TextView from, TextView to) {
  Text result;
  std::size_t at = 0;
  for (std::size_t hit = FindLoose(text, from); hit != TextView::npos; hit = FindLoose(text, from, at)) {
    result.append(text, at, hit - at).append(to);
    at = hit + from.size();
  }
  return result.append(text, at);
}

}  // namespace cuewright
