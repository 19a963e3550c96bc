#pragma once

#include "text/text.h"

namespace cuewright {

/// A menu item's text without the "..." that tells of a dialog, as the dialog's title has it.
inline Text WithoutDots(TextView caption) { return ReplaceAll(caption, u"...", {}); }

}  // namespace cuewright
