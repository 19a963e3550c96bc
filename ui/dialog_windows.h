#pragma once

#include "forms/program.h"

class QWidget;

namespace cuewright {

/// Makes each dialog's window over the main one when its form asks for it.
void ConnectDialogs(Program& program, QWidget& window);

}  // namespace cuewright
