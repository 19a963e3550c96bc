#include "external/vs_filter.h"

namespace cuewright {
namespace {

constexpr TextView kKey = u"HKEY_CURRENT_USER\\Software\\Orbek\\VSFilter\\General";
constexpr TextView kHide = u"Hide";
constexpr TextView kLoadLevel = u"LoadLevel";
constexpr std::int32_t kHidden = 1;
constexpr std::int32_t kNeverLoaded = 2;

}  // namespace

bool VsFilter::HasVSFilter() const { return registry_.KeyExists(kKey); }

void VsFilter::ApplyVSFilterMode() {
  if (!HasVSFilter()) return;
  remembered_ = Mode{registry_.ReadDWORD(kKey, kHide), registry_.ReadDWORD(kKey, kLoadLevel)};
  if (options_.filterMode != 0) {
    registry_.WriteDWORD(kKey, kHide, kHidden);
  } else {
    registry_.WriteDWORD(kKey, kLoadLevel, kNeverLoaded);
  }
}

void VsFilter::RestoreVSFilter() {
  if (!remembered_ || !HasVSFilter()) return;
  registry_.WriteDWORD(kKey, kHide, remembered_->hide);
  registry_.WriteDWORD(kKey, kLoadLevel, remembered_->loadLevel);
}

}  // namespace cuewright
