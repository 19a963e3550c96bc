#pragma once

#include <QKeyEvent>

#include "form/control.h"

namespace cuewright {

/// The key of an event as the forms know it. A letter key of a layout without Latin letters has the code of the letter
/// that the key bears on a keyboard of the United States.
KeyEvent KeyEventOf(const QKeyEvent& event);

/// A mouse button as the forms know it.
MouseButton MouseButtonOf(Qt::MouseButton button);

}  // namespace cuewright
