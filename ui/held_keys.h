#pragma once

#include <QtGlobal>

namespace cuewright {

/// True when the window system says that a key is down, by its native scan code. Under X11 the release that belongs to
/// an automatic repeat can come apart from its press and then looks like a real one; the key itself is still down.
/// Elsewhere false: there repeats come without releases.
bool IsKeyStillDown(quint32 scanCode);

}  // namespace cuewright
