#include "core/product.h"

namespace cuewright {

TextView UpdateSite() { return u"" CUEWRIGHT_UPDATE_SITE; }

Text VersionText() {
  return Decimal(kVersion.major) + u"." + Decimal(kVersion.minor) + u"." + Decimal(kVersion.revision);
}

}  // namespace cuewright
