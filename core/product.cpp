#include "core/product.h"

namespace cuewright {

Text VersionText() {
  return Decimal(kVersion.major) + u"." + Decimal(kVersion.minor) + u"." + Decimal(kVersion.revision);
}

}  // namespace cuewright
